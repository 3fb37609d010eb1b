// Widths within bounds, and the lengths of dashes.
#include "appearance/line_attributes.h"

#include "appearance/geometry.h"
#include "objects/limits.h"

namespace korvel {

std::int32_t DrawnWidth(const LineAttributes& line) {
  return line.Width < 0 ? 0 : NearCoordinate(line.Width);
}

Dashes DashesOf(const LineAttributes& line) {
  switch (line.Style) {
  case LineStyle::Dashed: return Dashes::Long;
  case LineStyle::Dotted: return Dashes::Short;
  case LineStyle::Solid: break;
  }
  return Dashes::None;
}

std::int32_t DashPeriod(const LineAttributes& line) {
  const Dashes dashes = DashesOf(line);
  return dashes == Dashes::None ? 0 : (static_cast<std::int32_t>(dashes) + 1) * DrawnWidth(line);
}

bool HasTooManyDashes(const LineAttributes& line, double length) {
  return DashPeriod(line) > 0 && length > kMostDashes * DashPeriod(line);
}

}  // namespace korvel
