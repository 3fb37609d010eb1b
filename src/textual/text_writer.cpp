// Layout and quoting of written text.
#include "textual/text_writer.h"

#include <charconv>
#include <cstring>

namespace korvel {
namespace {

// The length in bytes of a UTF-8 character with this first byte; 0 if there is none.
std::size_t CharacterLength(char first) {
  const auto byte = static_cast<unsigned char>(first);
  if (byte < 0x80) return 1;
  if (byte >= 0xC2 && byte < 0xE0) return 2;
  if (byte >= 0xE0 && byte < 0xF0) return 3;
  return byte >= 0xF0 && byte < 0xF5 ? 4 : 0;
}

bool IsControl(char c) { return static_cast<unsigned char>(c) < 32 || c == 127; }

// Whether the bytes are UTF-8 text without control bytes.
bool IsPlainText(std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size();) {
    const std::size_t length = CharacterLength(bytes[i]);
    if (length == 0 || length > bytes.size() - i || IsControl(bytes[i])) return false;
    for (std::size_t k = 1; k < length; ++k) {
      if (BeginsCharacter(bytes[i + k])) return false;
    }
    i += length;
  }
  return true;
}

// Whether a byte needs no coding in single quotes.
bool IsUncoded(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 32 && byte < 127 && c != '\'' && c != '=';
}

}  // namespace

void TextWriter::Add(char byte) {
  if (!hasFailed_ && !text_.Append(byte)) hasFailed_ = true;
}

void TextWriter::Add(std::string_view bytes) {
  for (const char byte : bytes) Add(byte);
}

void TextWriter::Separate() {
  if (isSpaceDue_) Add(' ');
  isSpaceDue_ = true;
}

void TextWriter::Word(std::string_view word) {
  Separate();
  Add(word);
}

void TextWriter::Number(std::int32_t number) {
  char digits[16];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
  Word({digits, static_cast<std::size_t>(end - digits)});
}

void TextWriter::AddCoded(char byte) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  Add('=');
  Add(kDigits[value >> 4]);
  Add(kDigits[value & 15]);
}

void TextWriter::String(std::string_view bytes) {
  Separate();
  const bool isPlain = IsPlainText(bytes);
  Add(isPlain ? '"' : '\'');
  for (const char byte : bytes) {
    if (isPlain && (byte == '"' || byte == '\\')) Add('\\');
    isPlain || IsUncoded(byte) ? Add(byte) : AddCoded(byte);
  }
  Add(isPlain ? '"' : '\'');
}

void TextWriter::CodedString(std::string_view bytes) {
  Separate();
  Add('\'');
  for (const char byte : bytes) AddCoded(byte);
  Add('\'');
}

void TextWriter::Open(char bracket) {
  Separate();
  OpenAfterWord(bracket);
}

void TextWriter::OpenAfterWord(char bracket) {
  Add(bracket);
  isSpaceDue_ = false;
}

void TextWriter::Close(char bracket) {
  Add(bracket);
  isSpaceDue_ = true;
}

void TextWriter::NewLine() {
  Add('\n');
  for (std::size_t i = 0; i < depth_; ++i) Add("  ");
  isSpaceDue_ = false;
}

void TextWriter::FailForWord(std::int32_t number) {
  if (hasFailed_) return;
  hasFailed_ = true;
  wordless_ = place_;
  wordless_.number = number;
}

}  // namespace korvel
