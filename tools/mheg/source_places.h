// The lines and columns at which the objects, attributes and actions of a textual group begin.
#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <tuple>
#include <vector>

#include "textual/textual.h"

namespace mheg {

class SourcePlaces {
 public:
  SourcePlaces() = default;
  // The places that reading `text` has recorded. Takes linear time.
  SourcePlaces(std::string_view text, const korvel::List<korvel::SourcePlace>& places);

  // The place of an object by its number (0: the group itself), of its attribute by keyword, such
  // as ":LinkEffect", or of an action by its index among all actions of that attribute, in the
  // order of the text. Of several objects with the same number, the first is meant. If the
  // attribute or the action is unknown, returns the place of what contains it; the line is 0 if the
  // object is unknown or the group was not read from text.
  [[nodiscard]] korvel::TextPlace Find(std::int32_t object, std::string_view keyword = {},
                                       std::int32_t action = -1) const;
  // The places of all objects with that number.
  [[nodiscard]] std::vector<korvel::TextPlace> FindAll(std::int32_t object) const;

 private:
  using Key = std::tuple<std::int32_t, std::string_view, std::int32_t>;
  std::multimap<Key, korvel::TextPlace> places_;
};

}  // namespace mheg
