// The steps of a run: a script of the player, with additional words that check the state of the
// content, or a list of keys on the command line.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace mheg {

enum class StepKind : std::uint8_t { Key, Wait, Expect, Exit };

struct Step {
  StepKind kind = StepKind::Exit;
  std::uint32_t number = 0;        // Key: the number of UserInput. Wait: milliseconds.
  std::uint32_t count = 1;         // Key: how often it is pressed
  std::vector<std::string> words;  // Expect: the state and its values
  std::string text;                // the step as it was written
  unsigned line = 0;               // of the script; 0 on the command line
};

// Reads one step per line:
//   key NAME       presses a key
//   wait MS        lets virtual time pass
//   expect ...     fails the run unless the content is in a state (expectations.h)
//   exit           ends the run
// The player's steps that need a picture (shot, until, catch, expose) are skipped, as are blank
// lines and lines that begin with '#'. For any other line the function returns false and describes
// the line in `problem`.
[[nodiscard]] bool ReadScript(std::istream& text, std::vector<Step>& steps, std::string& problem);

// Reads words such as "down", "ok", "down*3" and "wait:2s", separated by blanks.
[[nodiscard]] bool ReadKeys(std::string_view text, std::vector<Step>& steps, std::string& problem);

}  // namespace mheg
