// Guesses which word an author meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mheg {

// The candidate that differs from the word by the fewest inserted, omitted, changed or exchanged
// letters, ignoring case; if several differ equally, the first. Empty if none is similar enough:
// one letter may differ, in longer words one of every three.
[[nodiscard]] std::string_view NearestWord(std::string_view word,
                                           const std::vector<std::string_view>& candidates);

}  // namespace mheg
