// A script of the host application: the steps to carry out in the engine window, one per line.
// The reader is portable. It runs before the engine starts, so that mistakes are reported at once.
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
//   shot FILE.png      takes a picture once it is final: every key is handled, no work is queued,
//                      no file is being read, no painting is pending, and the picture is stable
//   wait MS            waits, for content that uses timers
//   until X Y #RRGGBB  waits until every key is handled and the pixel has this colour, for content
//                      that changes the picture by a timer
//   catch X Y #RRGGBB FILE.png
//                      takes the first picture in which the pixel has this colour, for a picture
//                      that is soon replaced
//   expose             wipes the window as if it had been covered, so that it must repaint itself
//   exit               closes the engine
// `shot`, `until` and `catch` wait for a limited time; then the run fails. Blank lines and lines
// that begin with '#' are skipped. For any other line the function returns false and describes the
// line in `problem`.
[[nodiscard]] bool ReadScript(std::istream& text, std::vector<Step>& steps, std::string& problem);

}  // namespace player
