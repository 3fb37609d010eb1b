// A script of the host application: what to do in the engine window, a step a line. Reading is
// portable and done before the engine starts, so that a mistake is found at once.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace player {

enum class StepKind { Wait, Until, UntilChanged, Key, Expose, Shot, Exit };

struct Pixel {
  unsigned x = 0;
  unsigned y = 0;
  std::uint32_t colour = 0;  // 0x00RRGGBB
};

struct Step {
  StepKind kind = StepKind::Exit;
  unsigned number = 0;  // Wait: milliseconds. Key: virtual-key code.
  std::string file;     // Shot: where the picture goes
  Pixel pixel;          // Until: what is waited for
};

// Reads, a step a line:
//   wait MS            lets the time pass
//   until X Y #RRGGBB  lets time pass until this pixel has this colour and the picture stays as it
//                      is; 10 seconds at most, then the run has failed
//   until changed      the same, until the picture is another than the last one that was taken
//   key NAME           presses a key
//   expose             wipes the window as if it had been covered, so that it must paint itself
//   shot FILE.png      takes a picture
//   exit               closes the engine
// Blank lines and lines that begin with '#' are passed over. False, with the line and what is wrong
// in `problem`, for anything else.
[[nodiscard]] bool ReadScript(std::istream& text, std::vector<Step>& steps, std::string& problem);

}  // namespace player
