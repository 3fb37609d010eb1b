// Converts one file from text to BER, or from BER to text.
#pragma once

#include <filesystem>
#include <string>

#include "mheg/message.h"
#include "mheg/source_places.h"

namespace mheg {

// The result for one file.
struct Outcome {
  Messages messages;
  bool isGood = true;  // the conversion succeeded
};

// The group of a text.
struct CompiledText {
  std::string bytes;  // in BER
  std::string group;  // its name
  SourcePlaces places;
};

// Reads a text and encodes its group. On failure `compiled` is unchanged.
[[nodiscard]] Outcome CompileText(const std::filesystem::path& input, CompiledText& compiled);

// Each reads one file and writes it in the other form. On failure no output is written, unless
// writing itself fails.
[[nodiscard]] Outcome Compile(const std::filesystem::path& input,
                              const std::filesystem::path& output);
[[nodiscard]] Outcome Decompile(const std::filesystem::path& input,
                                const std::filesystem::path& output);

}  // namespace mheg
