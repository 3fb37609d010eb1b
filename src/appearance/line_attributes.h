// The attributes of a line as it is drawn: its width, and how dashes and dots break it.
#pragma once

#include <cstdint>

#include "platform/canvases.h"

namespace korvel {

// The width as it is drawn: content may give any number.
[[nodiscard]] std::int32_t DrawnWidth(const LineAttributes& line);

// What is drawn of a broken line between two gaps, in widths of the line. A gap is one width long.
enum class Dashes : std::int32_t { None = 0, Short = 1, Long = 3 };
[[nodiscard]] Dashes DashesOf(const LineAttributes& line);

// How many pixels after one dash or dot the next one begins; 0 for lines that have none.
[[nodiscard]] std::int32_t DashPeriod(const LineAttributes& line);

// Whether a line of that length, in pixels, has too many dashes or dots and is drawn solid.
[[nodiscard]] bool HasTooManyDashes(const LineAttributes& line, double length);

}  // namespace korvel
