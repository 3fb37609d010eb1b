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

// The place where reading was first refused: the first byte of the element that does not fit. The
// callers that know the rest add it on the way out.
struct Refusal {
  const std::uint8_t* place = nullptr;
  const char* owner = nullptr;     // the class of the object
  const char* part = nullptr;      // the attribute or action of it; empty for the object itself
  const char* expected = nullptr;  // the element that should be there
};

struct BerElement;

// The context tags that a decoder knows at a place.
using KnownTags = bool (*)(Tag tag);

constexpr bool NoTag(Tag /*tag*/) { return false; }

// Some bytes, read element by element. Readers are cheap to copy; a copy goes on alone. The bytes
// and the refusal are borrowed from the caller that started the reading.
class BerReader {
 public:
  BerReader() = default;
  BerReader(std::span<const std::uint8_t> bytes, Refusal& refusal)
      : cursor_(bytes.data()), end_(bytes.data() + bytes.size()), refusal_(&refusal) {}

  // The same elements, skipping those with other context tags, whatever they hold:
  // later editions of the standard may add them anywhere.
  [[nodiscard]] BerReader Knowing(KnownTags tags) const;

  [[nodiscard]] bool AtEnd() const { return cursor_ == end_; }
  // Reads one element and moves past it. False at the end, and when its header or its length does
  // not fit.
  [[nodiscard]] bool Next(BerElement& element);
  // Reads the one element that there must be. False when there is none or another one after it.
  [[nodiscard]] bool Only(BerElement& element) const;
  // Whether all has been read. Refuses the next element otherwise.
  [[nodiscard]] bool Ends();
  // Whether an element with that tag comes next. Refuses nothing.
  [[nodiscard]] bool NextIs(Tag tag) const;
  // As Next, but stays where it is and refuses nothing.
  [[nodiscard]] bool Peek(BerElement& element) const;
  // Moves to the end.
  void SkipAll() { cursor_ = end_; }

  // Records that reading stops here, unless it has stopped before. False, for the caller to return.
  bool Refuse() const { return RefuseAt(cursor_); }
  // Adds to a refusal what is not known of it yet. False, for the caller to return.
  bool Explain(const char* Refusal::*what, const char* text) const;

 private:
  friend class ListReader;
  friend struct BerElement;

  [[nodiscard]] bool ReadByte(std::uint8_t& byte);
  [[nodiscard]] bool ReadTag(BerElement& element);
  [[nodiscard]] bool ReadLength(std::uint32_t& length);
  void SkipUnknown();
  bool RefuseAt(const std::uint8_t* place) const;
  bool RefuseHeader(bool isWhole) const;

  const std::uint8_t* cursor_ = nullptr;
  const std::uint8_t* end_ = nullptr;
  Refusal* refusal_ = nullptr;  // null: a look ahead, which refuses nothing
  KnownTags known_ = nullptr;   // null: all; others are skipped before the cursor rests
  std::uint32_t depth_ = 0;
};

// One element: its tag and, as a reader of its own, what it holds.
struct BerElement {
  Tag tag;
  bool isConstructed = false;
  BerReader content;

  [[nodiscard]] bool Is(Tag other) const { return tag == other; }
  // The content as a two's-complement number, of which the low 32 bits are kept; 0 when there is no
  // content.
  [[nodiscard]] std::int32_t Integer() const;
  [[nodiscard]] std::uint32_t Length() const;
  // The first byte of the content, which must not be empty.
  [[nodiscard]] std::uint8_t FirstByte() const { return *content.cursor_; }
  // The content as it is. Borrowed from the file.
  [[nodiscard]] std::string_view Bytes() const;
  // Records that this element cannot be taken. False, for the caller to return.
  bool Refuse() const { return content.RefuseAt(start); }

  const std::uint8_t* start = nullptr;  // its first byte
};

// The elements of a list. A universal SEQUENCE among them only wraps others: it is entered, however
// often, without recursion, and the elements come out as if it were not there.
class ListReader {
 public:
  explicit ListReader(const BerReader& reader) : reader_(reader) {}

  // Whether Next has something to read, be it only something to refuse.
  [[nodiscard]] bool HasMore();
  // The next element that is no wrapper.
  [[nodiscard]] bool Next(BerElement& element) { return reader_.Next(element); }

 private:
  void Enter(const BerElement& wrapper);

  BerReader reader_;                                       // of the innermost open wrapper
  std::array<const std::uint8_t*, kDeepestNesting> ends_;  // of what encloses each open wrapper
  std::uint32_t open_ = 0;
};

}  // namespace korvel::ber
