// The exported function of MenuAPI.dll. The engine loads the library of this name to decode
// I-frames and needs no other function of it. A host may supply its own library instead.
#include <cstdint>
#include <exception>

#include "menuapi/stream_file.h"

// Ordinal 1. Decodes the frame in the file at `path` into `*buffer`, which holds width x height x
// 3 / 2 bytes, as Y, U and V planes. The last argument is always 1. Returns 0 if the frame is
// complete, 1 if it is damaged, 2 if it is rejected. May be called on any thread.
extern "C" int __cdecl DecodeIFrame(const char* path, std::uint8_t** buffer, int /*one*/) {
  if (path == nullptr || buffer == nullptr || *buffer == nullptr) {
    return static_cast<int>(menuapi::Result::Rejected);
  }
  try {
    return static_cast<int>(menuapi::DecodeFrameFile(path, *buffer));
  } catch (const std::exception&) {  // out of memory
    return static_cast<int>(menuapi::Result::Rejected);
  }
}
