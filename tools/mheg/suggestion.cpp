// Compares words by their edit distance, in which exchanging two neighbouring letters is one
// change.
#include "mheg/suggestion.h"

#include <algorithm>
#include <array>

#include "objects/vocabulary.h"

namespace mheg {
namespace {

// Longer words are not compared, because no keyword is similar to them.
constexpr std::size_t kLongestWord = 40;

using Row = std::array<std::size_t, kLongestWord + 1>;

// The number of letters to insert, omit, change or exchange with their neighbour. Neither word may
// be longer than kLongestWord.
std::size_t Distance(std::string_view one, std::string_view other) {
  const auto isSame = [&](std::size_t i, std::size_t k) {
    return korvel::UpperCase(one[i]) == korvel::UpperCase(other[k]);
  };
  // Row `i` holds the distances between the first `i` letters of `one` and each prefix of `other`.
  // Computing a row needs the two rows before it.
  std::array<Row, 3> rows{};
  for (std::size_t k = 0; k <= other.size(); ++k) rows[0][k] = k;
  for (std::size_t i = 1; i <= one.size(); ++i) {
    const Row& before = rows[(i - 1) % 3];
    Row& row = rows[i % 3];
    row[0] = i;
    for (std::size_t k = 1; k <= other.size(); ++k) {
      const std::size_t changed = before[k - 1] + (isSame(i - 1, k - 1) ? 0 : 1);
      row[k] = std::min({changed, before[k] + 1, row[k - 1] + 1});
      const bool isExchange = i > 1 && k > 1 && isSame(i - 1, k - 2) && isSame(i - 2, k - 1);
      if (isExchange) row[k] = std::min(row[k], rows[(i - 2) % 3][k - 2] + 1);
    }
  }
  return rows[one.size() % 3][other.size()];
}

}  // namespace

std::string_view NearestWord(std::string_view word,
                             const std::vector<std::string_view>& candidates) {
  if (word.size() > kLongestWord) return {};
  std::size_t nearest = std::max<std::size_t>(word.size() / 3, 1) + 1;
  std::string_view found;
  for (const std::string_view candidate : candidates) {
    if (candidate.size() > kLongestWord) continue;
    const std::size_t distance = Distance(word, candidate);
    if (distance >= nearest) continue;
    nearest = distance;
    found = candidate;
  }
  return found;
}

}  // namespace mheg
