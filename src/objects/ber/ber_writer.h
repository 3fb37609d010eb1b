// Writes the interchange form, element by element, with definite lengths in their shortest form.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "objects/ber/tags.h"
#include "objects/list.h"
#include "objects/octet_string.h"

namespace korvel::ber {

// Collects elements in order. After a failure the output is unusable, and Finish returns false.
class BerWriter {
 public:
  void Boolean(Tag tag, bool value);
  void Integer(Tag tag, std::int32_t value);
  void Octets(Tag tag, std::string_view bytes);
  void Null();
  // Writes an element whose content writeContent writes.
  template <class WriteContent> void Constructed(Tag tag, WriteContent&& writeContent) {
    const std::size_t begin = BeginConstructed(tag);
    writeContent();
    EndConstructed(begin);
  }

  // Makes the writer fail, for a value that has no encoding.
  void Fail() { hasFailed_ = true; }
  // Copies everything written to `bytes`. False, with `bytes` unchanged, if the writer has failed
  // or memory runs out.
  [[nodiscard]] bool Finish(OctetString& bytes) const;

 private:
  void Byte(std::uint32_t value);
  void Header(Tag tag, bool isConstructed);
  void Length(std::size_t length);
  [[nodiscard]] std::size_t BeginConstructed(Tag tag);
  void EndConstructed(std::size_t begin);

  List<char> bytes_;
  bool hasFailed_ = false;
};

}  // namespace korvel::ber
