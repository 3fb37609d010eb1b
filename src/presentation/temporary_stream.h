// The file in which a stream goes to a decoder. Every engine on the machine uses the same one, so a
// file is held while it is decoded: meanwhile nobody else can write to it. Worker thread only.
#pragma once

#include <string_view>

#include "objects/octet_string.h"
#include "presentation/gdi_plus.h"

namespace korvel {

// A file opened for reading that others can only read. It is given back at the end.
class HeldFile {
 public:
  HeldFile() noexcept = default;
  ~HeldFile() { Release(); }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

  // False when there is no such file, or somebody may be writing to it.
  [[nodiscard]] bool Hold(const char* path) noexcept;
  void Release() noexcept;
  // The bytes of the file, which is held. False, with `bytes` undefined, when they cannot be had.
  [[nodiscard]] bool Read(OctetString& bytes) const noexcept;

 private:
  HANDLE file_ = INVALID_HANDLE_VALUE;
};

// Finds the folder for temporary files; to be called as the engine starts.
void FindTemporaryFolder() noexcept;

// Rewrites the temporary file with the stream and holds it. Waits for a while when others hold it.
// The path stays valid; null when the file could not be had.
[[nodiscard]] const char* HoldTemporaryStream(std::string_view stream, HeldFile& file) noexcept;

}  // namespace korvel
