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
  // Converts the positions that reading `text` has recorded, in one pass over the text.
  SourcePlaces(std::string_view text, const korvel::List<korvel::SourcePlace>& places);

  // Finds an object by its number (0: the group itself), its attribute by the keyword, such as
  // ":LinkEffect", or an action by its index among all actions of that attribute, in the order of
  // the text. If several objects have the number, the first is found. If the attribute or the
  // action is unknown, returns the position of the object or attribute that contains it. The line
  // is 0 if the object is unknown or the group was not read from text.
  [[nodiscard]] korvel::TextPlace Find(std::int32_t object, std::string_view keyword = {},
                                       std::int32_t action = -1) const;
  // The positions of all objects with that number, in the order of the text.
  [[nodiscard]] std::vector<korvel::TextPlace> FindAll(std::int32_t object) const;

 private:
  using Key = std::tuple<std::int32_t, std::string_view, std::int32_t>;
  std::multimap<Key, korvel::TextPlace> places_;
};

}  // namespace mheg
