// The only code that touches the bytes of a group file. Every element is checked against the one
// that encloses it, and its content becomes a narrower reader, so that no decoder can
// leave its own element.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "objects/ber/tags.h"
#include "objects/limits.h"

namespace korvel::ber {

// The first refusal. `place` is the first byte of the wrong element; callers add the other members
// as they return.
struct Refusal {
  const std::uint8_t* place = nullptr;
  const char* owner = nullptr;     // the class of the object
  const char* part = nullptr;      // its attribute or action; empty for the object itself
  const char* expected = nullptr;  // the element that should be there
};

struct BerElement;

// Whether a decoder knows a context tag where it is reading.
using KnownTags = bool (*)(Tag tag);

constexpr bool NoTag(Tag /*tag*/) { return false; }

// Reads bytes element by element. Readers are cheap to copy, and a copy advances independently. The
// bytes and the refusal are borrowed from the caller that created the first reader.
class BerReader {
 public:
  BerReader() = default;
  BerReader(std::span<const std::uint8_t> bytes, Refusal& refusal)
      : cursor_(bytes.data()), end_(bytes.data() + bytes.size()), refusal_(&refusal) {}

  // A reader of the same elements that skips all other context tags, whatever they hold: later
  // editions of the standard may add them anywhere.
  [[nodiscard]] BerReader Knowing(KnownTags tags) const;

  [[nodiscard]] bool AtEnd() const { return cursor_ == end_; }
  // Reads one element and moves past it. False at the end, or if the header or length is invalid.
  [[nodiscard]] bool Next(BerElement& element);
  // Reads an element that must be the only one left. False if there is none or more than one.
  [[nodiscard]] bool Only(BerElement& element) const;
  // Whether all elements have been read. Otherwise refuses the next one.
  [[nodiscard]] bool Ends();
  // Whether an element with that tag comes next. Refuses nothing.
  [[nodiscard]] bool NextIs(Tag tag) const;
  // Like Next, but does not advance and refuses nothing.
  [[nodiscard]] bool Peek(BerElement& element) const;
  // The number of elements up to the end or the first invalid one. Refuses nothing.
  [[nodiscard]] std::size_t Count() const;
  // Moves to the end.
  void SkipAll() { cursor_ = end_; }

  // Records a refusal here, unless there is one already. Returns false, for the caller to return.
  bool Refuse() const { return RefuseAt(cursor_); }
  // Sets a member of the refusal, unless it is set already. Returns false, for the caller to
  // return.
  bool Explain(const char* Refusal::*what, const char* text) const;

 private:
  friend class ListReader;
  friend struct BerElement;

  // Reads the tag and the length of the next element, at any depth, and does not advance.
  [[nodiscard]] bool ReadHeader(BerElement& element) const;
  void SkipUnknown();
  bool RefuseAt(const std::uint8_t* place) const;
  bool RefuseHeader() const;

  const std::uint8_t* cursor_ = nullptr;
  const std::uint8_t* end_ = nullptr;
  Refusal* refusal_ = nullptr;  // null: none is recorded
  KnownTags known_ = nullptr;   // null: all; elements with unknown tags are skipped in advance
  std::uint32_t depth_ = 0;
};

// One element: its tag and a reader of its content.
struct BerElement {
  Tag tag;
  bool isConstructed = false;
  BerReader content;

  [[nodiscard]] bool Is(Tag other) const { return tag == other; }
  // The low 32 bits of the content as a two's-complement number; 0 if the content is empty.
  [[nodiscard]] std::int32_t Integer() const;
  [[nodiscard]] std::uint32_t Length() const;
  // The first byte of the content, which must not be empty.
  [[nodiscard]] std::uint8_t FirstByte() const { return *content.cursor_; }
  // The raw content, borrowed from the file.
  [[nodiscard]] std::string_view Bytes() const;
  // Records a refusal of this element, unless there is one already. Returns false, for the caller
  // to return.
  bool Refuse() const { return content.RefuseAt(start); }

  const std::uint8_t* start = nullptr;  // its first byte
};

// Reads the elements of a list. A universal SEQUENCE among them only wraps others: they are read as
// if it were not there, at any depth and without recursion.
class ListReader {
 public:
  explicit ListReader(const BerReader& reader) : reader_(reader) {}

  // Whether there is an element left, valid or not. Call Next before asking again.
  [[nodiscard]] bool HasMore();
  // The element that HasMore found. False if it is not valid.
  [[nodiscard]] bool Next(BerElement& element) const {
    element = next_;
    return isRead_;
  }

 private:
  BerReader reader_;                                       // of the innermost open wrapper
  std::array<const std::uint8_t*, kDeepestNesting> ends_;  // the end of what holds each wrapper
  std::uint32_t open_ = 0;
  BerElement next_;
  bool isRead_ = false;  // whether `next_` is valid
};

}  // namespace korvel::ber
