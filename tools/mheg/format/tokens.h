// The tokens of source text that has been read without errors, including its comments, for tools
// that rewrite it. The reader's own tokens contain neither comments nor line ends.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace mheg {

struct Token {
  std::string_view text;       // as written; a comment without the blanks at its end
  std::size_t offset = 0;      // in the text
  std::size_t linesAbove = 0;  // the number of line ends between the previous token and this one

  [[nodiscard]] bool IsComment() const { return text.front() == '/'; }
  [[nodiscard]] bool Opens() const { return text == "(" || text == "{"; }
  [[nodiscard]] bool Closes() const { return text == ")" || text == "}"; }
};

// The tokens are borrowed from the text, which must not be longer than kMaxTextSize.
[[nodiscard]] std::vector<Token> TokensOf(std::string_view text);

}  // namespace mheg
