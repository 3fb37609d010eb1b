// A message to the author about a file.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "textual/textual.h"

namespace mheg {

// Part of a source line, with the characters that a message is about.
struct Excerpt {
  std::string line;       // without control characters; empty: nothing to show
  std::size_t begin = 0;  // both in characters
  std::size_t length = 1;
};

struct Message {
  std::filesystem::path file;
  std::string text;
  korvel::TextPlace place{};  // position in the file; line 0: unknown
  Excerpt excerpt{};
};
using Messages = std::vector<Message>;

// An excerpt of the line at `place`, shortened if the line is too long for a terminal. Marks the
// characters of the `length` bytes from `place`: at least one, and none of the next line.
[[nodiscard]] Excerpt ExcerptAt(std::string_view text, korvel::TextPlace place, std::size_t length);

// The message on one line: "menu.mheg:12:20: Text lacks :OrigBoxSize".
[[nodiscard]] std::string OneLine(const Message& message);

// The number of characters in UTF-8 text. Counts invalid bytes as the columns of messages do.
[[nodiscard]] std::size_t CharacterCount(std::string_view text);

[[nodiscard]] bool IsTerminal(std::FILE* stream);

// Prints each message and its excerpt. A terminal shows the position in bold and the marks in
// colour, unless the environment variable NO_COLOR is set.
void Print(const Messages& messages, std::FILE* stream);

}  // namespace mheg
