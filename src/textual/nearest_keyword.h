// A guess at which keyword an author meant by a word that is none, for the message about it.
#pragma once

#include <string_view>

namespace korvel {

// The keyword that takes the fewest letters put in, left out or changed to become this upper-case
// word; the first of several. Null when none comes near: a word of up to seven bytes may differ by
// one letter, longer ones by one for every four bytes.
[[nodiscard]] const char* NearestKeyword(std::string_view word);

}  // namespace korvel
