// One level of the printed tree, and the lines for values that stand in many records. A heading and
// the fields of its record share a level; a base class, and the values of a field that has several,
// stand one level deeper.
#pragma once

#include <cstdint>
#include <cstdio>

#include "objects/values.h"

namespace korvel {

class Tree {
 public:
  Tree(int depth, std::FILE* stream) noexcept : depth_(depth), stream_(stream) {}

  [[nodiscard]] Tree Deeper() const noexcept { return {depth_ + 1, stream_}; }

  // A whole line, as printf formats it; the line end is added.
  [[gnu::format(printf, 2, 3)]] void Line(const char* format, ...) const noexcept;

  // "Label: value". An absent string is NULL.
  void Number(const char* label, std::int32_t value) const noexcept;
  void Boolean(const char* label, bool value) const noexcept;
  void String(const char* label, const OctetString& value) const noexcept;
  // "Label: word", or the other line, which ends in "%d", for a number without a word.
  void Word(const char* label, std::int32_t value, std::initializer_list<const char*> words,
            const char* otherwise) const noexcept;

  // "Label:", and the value one level deeper.
  void Reference(const char* label, const ObjectReference& value) const noexcept;
  void Colour(const char* label, const ColourValue& value) const noexcept;
  void Font(const char* label, const FontBody& value) const noexcept;
  void Size(const char* label, const BoxSize& value) const noexcept;
  void Place(const char* label, const Position& value) const noexcept;

  // Lines of their own.
  void ReferenceLine(const ObjectReference& value) const noexcept;
  void OctetsLine(const OctetString& value) const noexcept;

 private:
  void Prefix() const noexcept;
  void Pair(const char* label, std::int32_t x, std::int32_t y) const noexcept;

  int depth_;
  std::FILE* stream_;
};

// The text of a string, or NULL for one that is absent.
[[nodiscard]] const char* TextOrNull(const OctetString& value) noexcept;

}  // namespace korvel
