// A script: the steps of a run, one per line. The host application performs them with the engine's
// window, `mheg run` without a window. The reader is portable. It runs before the engine starts, so
// that mistakes are reported immediately.
#pragma once

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace mheg {

enum class StepKind : std::uint8_t { Wait, Until, Key, Expose, Shot, Catch, Expect, Exit };

struct Pixel {
  unsigned x = 0;
  unsigned y = 0;
  std::uint32_t colour = 0;  // 0x00RRGGBB
};

struct Step {
  StepKind kind = StepKind::Exit;
  unsigned number = 0;             // Wait: milliseconds. Key: virtual-key code.
  unsigned count = 1;              // Key: how often it is pressed
  std::string file;                // Shot, Catch: the path of the picture
  Pixel pixel;                     // Until, Catch: the pixel to wait for
  std::vector<std::string> words;  // Expect: the state and its values
  std::string text;                // the step as it was written
  unsigned line = 0;               // line number in the script; 0: from the command line
};

// The forms of all steps, for the user: "key NAME, wait MS, ...".
[[nodiscard]] std::string StepForms();

// Reads one step per line:
//   key NAME           presses a key
//   shot FILE.png      takes a picture once it is final: every key is handled, no work is queued,
//                      no file is being read, no painting is pending, and the picture does not
//                      change any more
//   wait TIME          waits, for content that uses timers: "500", "500ms" or "2s"
//   until X Y #RRGGBB  waits until the pixel has this colour in a final picture, for content that
//                      changes the picture by a timer
//   catch X Y #RRGGBB FILE.png
//                      takes the first picture in which the pixel has this colour, for pictures
//                      that are visible only briefly
//   expose             wipes the window as if it had been covered, so that it must repaint itself
//   expect STATE       checks the state of the content; only `mheg run` does that
//                      (run/expectations.h describes the states)
//   exit               closes the engine
// `shot`, `until` and `catch` wait for a limited time, after which the run fails. Blank lines and
// lines that begin with '#' are skipped. If a line is invalid, returns false, describes the mistake
// in `problem` after the line number and a colon, and leaves `steps` unchanged.
[[nodiscard]] bool ReadScript(std::istream& text, std::vector<Step>& steps, std::string& problem);

// The same for the script in a file; `problem` begins with the file's name.
[[nodiscard]] bool ReadScriptFile(const std::filesystem::path& file, std::vector<Step>& steps,
                                  std::string& problem);

// Appends the steps for words such as "down", "ok", "down*3" and "wait:2s", separated by blanks.
[[nodiscard]] bool ReadKeys(std::string_view text, std::vector<Step>& steps, std::string& problem);

}  // namespace mheg
