// Converts one file from text to BER, or from BER to text.
#pragma once

#include <filesystem>

#include "mheg/message.h"

#include "objects/octet_string.h"

namespace mheg {

// The result for one file.
struct Outcome {
  Messages messages;
  bool isGood = true;  // the conversion succeeded
};

// Reads a text and encodes its group. On failure `bytes` is unchanged.
[[nodiscard]] Outcome CompileText(const std::filesystem::path& input, korvel::OctetString& bytes);

// Each reads one file and writes it in the other form. On failure no output is written, unless
// writing itself fails.
[[nodiscard]] Outcome Compile(const std::filesystem::path& input,
                              const std::filesystem::path& output);
[[nodiscard]] Outcome Decompile(const std::filesystem::path& input,
                                const std::filesystem::path& output);

}  // namespace mheg
