// The limit on how long one redraw paints. A scene may hold any number of visibles, and what they
// take adds up; the one that is being drawn is always finished. Worker thread only.
#pragma once

#include <cstdint>

namespace korvel {

class PaintingTime {
 public:
  // The time runs from here on.
  PaintingTime() noexcept;

  // Whether nothing more is to be drawn: what has been drawn until now is then the picture.
  [[nodiscard]] bool IsOver() const noexcept;

  // The processor time that a picture may still take.
  [[nodiscard]] std::uint64_t LeftNs() const noexcept;

 private:
  [[nodiscard]] std::uint64_t TakenMs() const noexcept;

  std::uint64_t clockStartMs_;
  std::uint64_t processorStartMs_;
};

// Waits a moment, for something that others hold; waiting is painting time too. False, without a
// wait, when this painting has waited long enough or a close is asked for.
[[nodiscard]] bool WaitAMoment() noexcept;

}  // namespace korvel
