// Computes all lines and columns in one pass over the text, in the order of the offsets.
#include "mheg/source_places.h"

#include <algorithm>

namespace mheg {

SourcePlaces::SourcePlaces(std::string_view text, const korvel::List<korvel::SourcePlace>& places) {
  std::vector<korvel::SourcePlace> sorted(places.begin(), places.end());
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const auto& one, const auto& other) { return one.offset < other.offset; });
  std::size_t offset = 0;
  korvel::TextPlace place{1, 1};
  for (const korvel::SourcePlace& next : sorted) {
    place = korvel::PlaceInText(text.substr(offset), next.offset - offset, place);
    offset = next.offset;
    places_.emplace(Key{next.object, next.keyword, next.action}, place);
  }
}

korvel::TextPlace SourcePlaces::Find(std::int32_t object, std::string_view keyword,
                                     std::int32_t action) const {
  for (const Key& key : {Key{object, keyword, action}, Key{object, keyword, -1},
                         Key{object, std::string_view{}, -1}}) {
    const auto found = places_.lower_bound(key);
    if (found != places_.end() && found->first == key) return found->second;
  }
  return {};
}

std::vector<korvel::TextPlace> SourcePlaces::FindAll(std::int32_t object) const {
  std::vector<korvel::TextPlace> all;
  const auto range = places_.equal_range(Key{object, std::string_view{}, -1});
  for (auto place = range.first; place != range.second; ++place) all.push_back(place->second);
  return all;
}

}  // namespace mheg
