// The text that is being written: words with single spaces between them, brackets and indented
// lines. It remembers a failure, after which nothing more is written, so that the passes over the
// records need not ask at every word.
#pragma once

#include <cstdint>
#include <string_view>

#include "objects/sequence.h"
#include "textual/textual.h"

namespace korvel {

class TextWriter {
 public:
  // A word or a number, a space before it unless a bracket or the line has just been opened.
  void Word(std::string_view word);
  // More of the same word.
  void Behind(std::string_view rest) { Add(rest); }
  void Number(std::int32_t number);
  // A string in the quotes that suit its bytes: double ones for text, single ones where bytes have
  // to be coded.
  void String(std::string_view bytes);
  // A string with every byte coded, as colours are written.
  void CodedString(std::string_view bytes);

  void Open(char bracket);            // stands apart from the word before it
  void OpenBehindWord(char bracket);  // stands at the word before it
  void Close(char bracket);

  // Between an opening and a closing bracket, each line one level deeper.
  void Indent() { ++depth_; }
  void Outdent() { --depth_; }
  void NewLine();

  // What is being written, for the message about a value without a word.
  void SetPlace(std::int32_t object, const char* keyword) { place_ = {object, keyword, 0}; }
  void FailForWord(std::int32_t number);

  [[nodiscard]] bool HasFailed() const { return hasFailed_; }
  // Empty when memory ran out.
  [[nodiscard]] const WordlessValue& Wordless() const { return wordless_; }
  [[nodiscard]] std::string_view Text() const { return {text_.begin(), text_.Size()}; }

 private:
  void Add(char byte);
  void Add(std::string_view bytes);
  void AddCoded(char byte);
  void Separate();

  Sequence<char> text_;
  std::size_t depth_ = 0;
  bool isSpaceDue_ = false;
  bool hasFailed_ = false;
  WordlessValue place_;
  WordlessValue wordless_;
};

}  // namespace korvel
