// The values of the running groups as lines of text. Tests compare two of these texts to see what
// an action changed. They contain values, never addresses: a list rebuilt with the same entries
// prints the same.
#pragma once

#include <string>

namespace korvel::test {

// The attributes and run-time values of the running application and scene and of their objects, the
// display stack, the pending timers and the drawings on canvases, one per line.
std::string RunningGroupValues();

// The lines that only one of the two texts contains. Empty if the texts are equal.
std::string Difference(const std::string& one, const std::string& other);

}  // namespace korvel::test
