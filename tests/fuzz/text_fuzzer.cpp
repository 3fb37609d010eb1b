// Reads any bytes as a group in the textual notation. Reading must end, stay within the input and
// leak nothing. Accepted groups must survive being written and read again.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "textual/textual.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(bytes), size);
  korvel::OwnedGroup group;
  korvel::TextError error;
  korvel::List<korvel::MissingPart> missing;
  if (korvel::ReadTextGroup(text, group, error, &missing) != korvel::TextResult::Done) {
    return 0;
  }
  korvel::OctetString written;
  if (korvel::WriteTextGroup(*group, written) != korvel::Status::Done) {
    return 0;  // a link without an event has no word for it
  }
  if (written.Length() > korvel::kMaxTextSize) return 0;
  korvel::OwnedGroup again;
  const korvel::TextResult result = korvel::ReadTextGroup(written.View(), again);
  if (result != korvel::TextResult::Done || *group != *again) {
    std::abort();
  }
  return 0;
}
