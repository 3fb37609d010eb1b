// What the attributes of a line come to when it is drawn: its width, and how dashes and dots break
// it. Whoever draws, GDI+ or our own rows, follows these.
#pragma once

#include <cstdint>

#include "presentation/presentation.h"

namespace korvel {

// The width as it is drawn: content may give any number.
[[nodiscard]] std::int32_t DrawnWidth(const LineAttributes& line) noexcept;

// What is drawn of a broken line between two gaps, in widths of the line. A gap is one width long.
enum class Dashes : std::int32_t { None = 0, Short = 1, Long = 3 };
[[nodiscard]] Dashes DashesOf(const LineAttributes& line) noexcept;

// How many pixels after one dash or dot the next one begins; 0 for lines that have none.
[[nodiscard]] std::int32_t DashPeriod(const LineAttributes& line) noexcept;

// Whether a line that is so many pixels long has more dashes or dots than that. Each takes a while
// to draw, so a line that has too many is drawn solid; how many are too many is for who draws it.
[[nodiscard]] bool HasMoreDashes(const LineAttributes& line, double length, double most) noexcept;

}  // namespace korvel
