// Repeatable random choices for tests: they depend only on a seed. The environment variable
// KORVEL_SEED replaces a test's own seed.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <random>

namespace korvel::test {

// The number in an environment variable, or `fallback` if the variable is not set.
[[nodiscard]] inline std::uint32_t NumberFromEnvironment(const char* variable,
                                                         std::uint32_t fallback) {
  const char* text = std::getenv(variable);
  return text == nullptr ? fallback : static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10));
}

[[nodiscard]] inline std::uint32_t Seed(std::uint32_t testsOwn) {
  return NumberFromEnvironment("KORVEL_SEED", testsOwn);
}

// One thread only.
class SeededRandom {
 public:
  explicit SeededRandom(std::uint32_t seed) : engine_(seed) {}

  [[nodiscard]] int Between(int first, int last) {
    return std::uniform_int_distribution(first, last)(engine_);
  }
  [[nodiscard]] bool OneIn(int count) { return Between(1, count) == 1; }

 private:
  std::mt19937 engine_;
};

}  // namespace korvel::test
