// Decodes any bytes as a BER group. Decoding must end, stay within the input and leak nothing.
// Accepted groups must survive being written and read again.
#include <cstdint>
#include <cstdlib>
#include <span>

#include "objects/ber/ber.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  korvel::OwnedGroup group;
  if (korvel::DecodeGroup({bytes, size}, group) != korvel::Status::Done) return 0;
  korvel::OctetString written;
  if (korvel::EncodeGroup(*group, written) != korvel::Status::Done) std::abort();
  korvel::OwnedGroup again;
  const auto* begin = reinterpret_cast<const std::uint8_t*>(written.Text());
  const korvel::Status status = korvel::DecodeGroup({begin, written.Length()}, again);
  if (status != korvel::Status::Done || *group != *again) std::abort();
  return 0;
}
