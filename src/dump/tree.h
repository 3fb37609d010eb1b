// One level of the printed tree, and the lines for common values. A heading and the fields of its
// record share a level; a base class, and the values of a field that has several, are one level
// deeper.
#pragma once

#include <cstdint>
#include <cstdio>
#include <initializer_list>

#include "objects/ingredients.h"
#include "objects/visibles.h"

namespace korvel {

class Tree {
 public:
  Tree(int depth, std::FILE* stream) : depth_(depth), stream_(stream) {}

  [[nodiscard]] Tree Deeper() const { return {depth_ + 1, stream_}; }

  // A whole line, as printf formats it; the line end is added.
  [[gnu::format(printf, 2, 3)]] void Line(const char* format, ...) const;

  // "Label: value". An absent string is NULL.
  void Number(const char* label, std::int32_t value) const;
  void Boolean(const char* label, bool value) const;
  void String(const char* label, const OctetString& value) const;
  // "Label: word", or `otherwise` and the number if that has no word.
  template <IsEnumeration Enumeration>
  void Word(const char* label, Enumeration value, const char* word, const char* otherwise) const {
    word != nullptr ? Line("%s: %s", label, word)
                    : Line("%s%d", otherwise, static_cast<std::int32_t>(value));
  }

  // "Label:", and the value one level deeper.
  void Reference(const char* label, const ObjectReference& value) const;
  void Colour(const char* label, const ColourValue& value) const;
  void Font(const char* label, const FontBody& value) const;
  void Size(const char* label, const BoxSize& value) const;
  void Place(const char* label, const Position& value) const;

  // Lines without a label.
  void ReferenceLine(const ObjectReference& value) const;
  void OctetsLine(const OctetString& value) const;

 private:
  void Prefix() const;
  void Pair(const char* label, std::int32_t x, std::int32_t y) const;

  int depth_;
  std::FILE* stream_;
};

// The word of an enumeration in the dump's own spelling, beginning with the word of 1; or null.
template <IsEnumeration Enumeration>
[[nodiscard]] const char* WordAmong(std::initializer_list<const char*> words, Enumeration value) {
  const auto place = static_cast<std::size_t>(static_cast<std::int64_t>(value) - 1);
  return place < words.size() ? words.begin()[place] : nullptr;
}

// The text of a string, or NULL for one that is absent.
[[nodiscard]] const char* TextOrNull(const OctetString& value);

// ---- Printers ----

// One for each kind of record. A printer is called after its record's heading has been printed, on
// the heading's level: it writes the base classes one level deeper, then the record's own fields.
void Dump(const Tree& tree, const Root& root);
// The actions of a list, each with its heading, or a line for an empty list.
void Dump(const Tree& tree, const ActionList& actions);
void DumpParameter(const Tree& tree, const GenericValue& value);

// An object of a group's items or of a stream's components, with its heading.
void DumpItem(const Tree& tree, const Item& item);
void DumpComponent(const Tree& tree, const Item& component);

void Dump(const Tree& tree, const Ingredient& ingredient);
void Dump(const Tree& tree, const Link& link);
void Dump(const Tree& tree, const Program& program);
// A variable of one of the five classes, which `type` names.
void DumpVariable(const Tree& tree, ItemType type, const Ingredient& variable);
// The class between an ingredient and a visible, a stream, an audio or a token group; it has no
// fields of its own.
void DumpPresentable(const Tree& tree, const Ingredient& ingredient);
void Dump(const Tree& tree, const TokenGroup& group);
void Dump(const Tree& tree, const ListGroup& group);
void Dump(const Tree& tree, const Stream& stream);

void Dump(const Tree& tree, const Visible& visible);
void Dump(const Tree& tree, const Interactible& interactible);
void Dump(const Tree& tree, const Bitmap& bitmap);
void Dump(const Tree& tree, const LineArt& lineArt);
void Dump(const Tree& tree, const Text& text);
void Dump(const Tree& tree, const EntryField& field);
void Dump(const Tree& tree, const HyperText& text);
void Dump(const Tree& tree, const Button& button);
void Dump(const Tree& tree, const PushButton& button);
void Dump(const Tree& tree, const SwitchButton& button);
void Dump(const Tree& tree, const Slider& slider);

// A base class, with its heading, one level deeper than the record.
template <class Base> void DumpBase(const Tree& tree, const char* heading, const Base& base) {
  tree.Deeper().Line("%s", heading);
  Dump(tree.Deeper(), base);
}

}  // namespace korvel
