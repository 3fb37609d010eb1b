// Builds BER elements byte by byte, so that tests of the reader do not depend on the writer. `+`
// concatenates elements.
#pragma once

#include <cstdint>
#include <string>

#include "objects/ber/ber.h"
#include "objects/ownership.h"
#include "objects/status.h"

namespace korvel::test {

using Bytes = std::string;

// One element with any identifier. `classBits` are the upper two bits of the first byte.
Bytes Element(unsigned classBits, bool isConstructed, std::uint32_t number, const Bytes& content);

// Universal types.
Bytes Boolean(bool value);
Bytes Integer(std::int64_t value);
Bytes Enumerated(std::int64_t value);
Bytes Octets(const Bytes& bytes);
Bytes Null();
Bytes Sequence(const Bytes& elements);
// A reference to an object of a named group.
Bytes External(const Bytes& group, std::int64_t number);

// An element with a context tag, primitive or constructed.
Bytes Primitive(std::uint32_t tag, const Bytes& content);
Bytes Holding(std::uint32_t tag, const Bytes& elements);
// The content bytes of an INTEGER, as few as possible.
Bytes NumberContent(std::int64_t value);

// An application or a scene with the name "~/g", number 0, and these attributes.
Bytes ApplicationFile(const Bytes& attributes);
Bytes SceneFile(const Bytes& attributes);
// A scene whose list of items holds these elements.
Bytes FileWithItems(const Bytes& items);

// The result of decoding.
struct Decoded {
  Status status = Status::Refused;
  OwnedGroup group;
  DecodeError error;

  [[nodiscard]] bool IsDone() const { return status == Status::Done; }
  // The record of the item at a 0-based index.
  template <class Record> [[nodiscard]] Record& ItemAt(std::size_t index) const {
    return group->Items.At(index)->template As<Record>();
  }
};

// Decodes a heap block of exactly these bytes, so that a sanitizer reports reads past the end.
Decoded Decode(const Bytes& bytes);

// Decodes a scene with one item, number 7, of the class with that tag and with these attributes.
template <class Record> struct OneItem {
  OneItem(std::uint32_t tag, const Bytes& attributes)
      : decoded(Decode(FileWithItems(Holding(tag, Integer(7) + attributes)))) {}
  [[nodiscard]] bool IsDone() const { return decoded.IsDone(); }
  [[nodiscard]] const Record& operator*() const { return decoded.ItemAt<Record>(0); }
  const Record* operator->() const { return &**this; }
  Decoded decoded;
};

// The bytes that the writer produces for a group; empty if it fails.
Bytes Encode(const Group& group);

// The bytes in hexadecimal, for messages.
Bytes Hexadecimal(const Bytes& bytes);

}  // namespace korvel::test
