// One printer for each kind of record, private to the dump. A printer is called when its record's
// heading stands, on the heading's level: it writes the base classes one level deeper, then the
// record's own fields.
#pragma once

#include "dump/tree.h"
#include "objects/ingredients.h"
#include "objects/visibles.h"

namespace korvel {

void Dump(const Tree& tree, const Root& root);
// The actions of a list, each with its heading; or that there are none.
void Dump(const Tree& tree, const ActionList& actions);
void DumpParameter(const Tree& tree, const GenericValue& value);

// An object of a group's items or of a stream's components, with its heading.
void DumpItem(const Tree& tree, const Item& item);
void DumpComponent(const Tree& tree, const Item& component);

void Dump(const Tree& tree, const Ingredient& ingredient);
void Dump(const Tree& tree, const Link& link);
void Dump(const Tree& tree, const Program& program);
// One of the five variables; the class number says which.
void DumpVariable(const Tree& tree, ItemType type, const Ingredient& variable);
// What stands between an ingredient and a visible, a stream, an audio or a token group; it has no
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
template <class Base>
void DumpBase(const Tree& tree, const char* heading, const Base& base) {
  tree.Deeper().Line("%s", heading);
  Dump(tree.Deeper(), base);
}

}  // namespace korvel
