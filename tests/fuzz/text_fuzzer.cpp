// Reads any bytes as a group in the textual notation. Reading must end, stay within the input and
// leak nothing. Accepted groups must survive being written and read again.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "textual/textual.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(bytes), size);
  korvel::OwnedGroup group;
  korvel::TextReport report;
  const bool isGood = korvel::ReadTextGroup(text, group, report) == korvel::TextResult::Done;
  // Each error begins after the start of the one before it, and lies within the text.
  std::uint64_t end = 0;
  for (const korvel::TextError& error : report.errors) {
    if (error.offset < end || error.offset + error.length > size) std::abort();
    end = error.offset + std::uint64_t{1};
  }
  if (isGood != report.errors.IsEmpty()) std::abort();
  // A group that is accepted with a report is accepted without one, with the same records.
  korvel::OwnedGroup plain;
  const bool isPlainGood = korvel::ReadTextGroup(text, plain) == korvel::TextResult::Done;
  if (isGood && (!isPlainGood || *plain != *group)) std::abort();
  if (!isGood) return 0;
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
