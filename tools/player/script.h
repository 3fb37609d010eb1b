// A script of the host application: what to do in the engine window, a step a line. Reading is
// portable and done before the engine starts, so that a mistake is found at once.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace player {

enum class StepKind { Wait, Key, Shot, Exit };

struct Step {
  StepKind kind = StepKind::Exit;
  unsigned number = 0;  // Wait: milliseconds. Key: virtual-key code.
  std::string file;     // Shot: where the picture goes
};

// Reads `wait MS`, `key NAME`, `shot FILE.png` and `exit`; blank lines and lines that begin with
// '#' are passed over. False, with the line and what is wrong in `problem`, for anything else.
[[nodiscard]] bool ReadScript(std::istream& text, std::vector<Step>& steps, std::string& problem);

}  // namespace player
