// A script of the host application: the steps to carry out in the engine window, one per line.
// Reading is portable and is done before the engine starts, so that a mistake is found at once.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace player {

enum class StepKind { Wait, Until, Key, Expose, Shot, Catch, Exit };

struct Pixel {
  unsigned x = 0;
  unsigned y = 0;
  std::uint32_t colour = 0;  // 0x00RRGGBB
};

struct Step {
  StepKind kind = StepKind::Exit;
  unsigned number = 0;  // Wait: milliseconds. Key: virtual-key code.
  std::string file;     // Shot, Catch: the path of the picture
  Pixel pixel;          // Until, Catch: the pixel to wait for
};

// Reads one step per line:
//   key NAME           presses a key
//   shot FILE.png      takes a picture once it is final: every key is handled, nothing is queued,
//                      being read or still to be painted, and the picture stays the same
//   wait MS            lets time pass, for content that waits itself
//   until X Y #RRGGBB  waits until a timer of the content has given this pixel this colour, after
//                      every key is handled
//   catch X Y #RRGGBB FILE.png
//                      takes the first picture in which this pixel has this colour, for a picture
//                      that does not last
//   expose             wipes the window as if it had been covered, so that it must paint itself
//   exit               closes the engine
// `shot`, `until` and `catch` wait for a limited time; then the run fails. Blank lines and lines
// that begin with '#' are skipped. False, with the line and what is wrong in `problem`, for
// anything else.
[[nodiscard]] bool ReadScript(std::istream& text, std::vector<Step>& steps, std::string& problem);

}  // namespace player
