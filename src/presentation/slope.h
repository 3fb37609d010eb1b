// A straight line over whole numbers, step by step, exactly and without a division for each step.
#pragma once

#include <cstdint>

namespace korvel {

// The quotient of two numbers, rounded down, of which the upper grows by `rise` with every step.
// The lower, `run`, is above 0.
class Slope {
 public:
  constexpr Slope(std::int64_t upper, std::int64_t rise, std::int64_t run) noexcept
      : run_(run),
        value_(Floor(upper)),
        rest_(upper - value_ * run),
        whole_(Floor(rise)),
        part_(rise - whole_ * run) {}

  [[nodiscard]] constexpr std::int64_t Value() const noexcept { return value_; }

  constexpr void Step() noexcept {
    value_ += whole_;
    rest_ += part_;
    if (rest_ < run_) return;
    ++value_;
    rest_ -= run_;
  }

 private:
  [[nodiscard]] constexpr std::int64_t Floor(std::int64_t upper) const noexcept {
    return upper / run_ - (upper % run_ < 0 ? 1 : 0);
  }

  std::int64_t run_;
  std::int64_t value_;
  std::int64_t rest_;  // what the value leaves of the upper number
  std::int64_t whole_;
  std::int64_t part_;
};

}  // namespace korvel
