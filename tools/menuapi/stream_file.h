// The decoder for a stream in a file, as callers of the library pass it. It limits how much of a
// file is read. Exceptions of the standard library (out of memory) pass through.
#pragma once

#include <cstdint>

#include "menuapi/decoder.h"

namespace menuapi {

// Decodes the file's first frame into `planes`, which has room for the size in the first sequence
// header: width x height x 3 / 2 bytes. Writes nothing if the file cannot be read or does not begin
// with such a header.
[[nodiscard]] Result DecodeFrameFile(const char* path, std::uint8_t* planes);

}  // namespace menuapi
