// The distance of words, and a search of all keywords by it. A text has one unknown word at most,
// for reading ends there, so nothing is prepared.
#include "textual/nearest_keyword.h"

#include <algorithm>
#include <array>

#include "textual/keywords.h"

namespace korvel {
namespace {

// Longer than any keyword with as many letters put in as are forgiven.
constexpr std::size_t kLongestWord = 40;

// How many letters have to be put in, left out or changed. Neither word is longer than
// kLongestWord.
std::size_t Distance(std::string_view one, std::string_view other) {
  // The distances of the part of `one` that has been looked at from all beginnings of `other`.
  std::array<std::size_t, kLongestWord + 1> row{};
  for (std::size_t k = 0; k <= other.size(); ++k) row[k] = k;
  for (std::size_t i = 1; i <= one.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t k = 1; k <= other.size(); ++k) {
      const std::size_t changed = diagonal + (one[i - 1] == other[k - 1] ? 0 : 1);
      diagonal = row[k];
      row[k] = std::min({changed, row[k] + 1, row[k - 1] + 1});
    }
  }
  return row[other.size()];
}

}  // namespace

const char* NearestKeyword(std::string_view word) {
  if (word.size() > kLongestWord) return nullptr;
  std::size_t nearest = std::max<std::size_t>(word.size() / 4, 1) + 1;
  const char* found = nullptr;
  for (std::uint16_t code = 1; code <= kKeywordCount; ++code) {
    const std::size_t distance = Distance(word, KeywordText(code));
    if (distance >= nearest) continue;
    nearest = distance;
    found = KeywordText(code);
  }
  return found;
}

}  // namespace korvel
