// Decodes a stream from a file. Limits how much of the file is read. Exceptions of the standard
// library (out of memory) propagate.
#pragma once

#include <cstdint>

#include "menuapi/decoder.h"

namespace menuapi {

// Decodes the file's first frame into `planes`, which holds width x height x 3 / 2 bytes for the
// size in the first sequence header. Writes nothing if the file cannot be read or does not begin
// with such a header.
[[nodiscard]] Result DecodeFrameFile(const char* path, std::uint8_t* planes);

}  // namespace menuapi
