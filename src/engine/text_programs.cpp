// The resident programs for texts and references. Positions in a text count from 1; zero bytes are
// bytes like any other.
#include <algorithm>
#include <string_view>
#include <utility>

#include "engine/engine.h"
#include "engine/resident_programs.h"

namespace korvel {
namespace {

std::int32_t LengthOf(std::string_view text) { return static_cast<std::int32_t>(text.size()); }

// The 0-based index for a start position. Positions below 1 mean the beginning of the text.
std::size_t StartOf(std::int32_t start) {
  return start < 1 ? 0 : static_cast<std::size_t>(start) - 1;
}

// The 0-based index of the first occurrence at or after index `start`; npos if there is none. An
// empty text is found at `start`, unless that is past the end. A pending close can end the search
// early; the result is then npos.
std::size_t Search(std::string_view text, std::size_t start, std::string_view wanted) {
  for (std::size_t at = start; at <= text.size() && MayContinue(); ++at) {
    if (!wanted.empty()) at = std::min(text.find(wanted.front(), at), text.size());
    if (text.substr(at).starts_with(wanted)) return at;
  }
  return std::string_view::npos;
}

}  // namespace

bool GetStringLength(ProgramValues& values) {
  values[1].Integer = LengthOf(values[0].Octets.View());
  return true;
}

bool GetSubstring(ProgramValues& values) {
  const std::string_view text = values[0].Octets.View();
  const std::int32_t begin = std::max(values[1].Integer, 1);
  const std::int32_t end = std::min(values[2].Integer, LengthOf(text));
  if (end < begin) return values[3].Octets.Assign({});
  const auto first = static_cast<std::size_t>(begin) - 1;
  return values[3].Octets.Assign(text.substr(first, static_cast<std::size_t>(end) - first));
}

bool SearchSubstring(ProgramValues& values) {
  const std::size_t found =
      Search(values[0].Octets.View(), StartOf(values[1].Integer), values[2].Octets.View());
  values[3].Integer = found == std::string_view::npos ? -1 : static_cast<std::int32_t>(found) + 1;
  return true;
}

// Extracts the text before the wanted text and returns the place after it, so that repeated calls
// walk through a list of words.
bool SearchAndExtractSubstring(ProgramValues& values) {
  const std::string_view text = values[0].Octets.View();
  const std::string_view wanted = values[2].Octets.View();
  const std::size_t start = StartOf(values[1].Integer);
  const std::size_t found = Search(text, start, wanted);
  if (found == std::string_view::npos) {
    values[4].Integer = -1;
    return values[3].Octets.Assign({});
  }
  values[4].Integer = static_cast<std::int32_t>(found + wanted.size()) + 1;
  return values[3].Octets.Assign(text.substr(start, found - start));
}

bool CastToContentReference(ProgramValues& values) {
  return values[1].Octets.Assign(values[0].Octets.View());
}

bool CastToObjectReference(ProgramValues& values) {
  values[2].Reference.Number = values[1].Integer;
  return values[2].Reference.GroupIdentifier.Assign(values[0].Octets.View());
}

}  // namespace korvel
