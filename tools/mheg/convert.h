// Converts a file from the textual notation to BER, or from BER to the notation.
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

// The group of a source file.
struct CompiledGroup {
  std::string bytes;  // in BER
  std::string group;  // name of the group
  SourcePlaces places;
};

// Reads a source file and encodes its group. On failure `compiled` is unchanged.
[[nodiscard]] Outcome CompileSource(const std::filesystem::path& input, CompiledGroup& compiled);

// Reads a file and writes it in the other form. If the input cannot be converted, no output is
// written.
[[nodiscard]] Outcome Compile(const std::filesystem::path& input,
                              const std::filesystem::path& output);
[[nodiscard]] Outcome Decompile(const std::filesystem::path& input,
                                const std::filesystem::path& output);

}  // namespace mheg
