// What the running groups hold, as lines of text. Two of them are compared to see what an action
// has done. Values are compared, never addresses: a list that is rebuilt with the same entries is
// the same, wherever the allocator puts it.
#pragma once

#include <string>

namespace korvel::test {

// The attributes and run-time values of the running application and scene and of their objects, the
// display stack, the pending timers and what was drawn on canvases, each on a line.
std::string RunningGroupValues();

// The lines that only one of two such texts has. Empty when both hold the same.
std::string Difference(const std::string& one, const std::string& other);

}  // namespace korvel::test
