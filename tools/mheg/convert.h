// Text to BER and back, file by file.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "mheg/options.h"

namespace mheg {

// What came of one file: the lines to report, and whether it was good.
struct Outcome {
  std::vector<std::string> messages;
  bool isGood = true;
};

// The file that an input is written to: the output itself, or in the folder that the output names,
// under the input's name without ".mheg" (compiled) or with it (decompiled).
[[nodiscard]] std::filesystem::path OutputFor(const std::filesystem::path& input,
                                              const Options& options);

// Each reads one file and writes it in the other form. A file that is not good is not written.
[[nodiscard]] Outcome Compile(const std::filesystem::path& input,
                              const std::filesystem::path& output);
[[nodiscard]] Outcome Decompile(const std::filesystem::path& input,
                                const std::filesystem::path& output);

}  // namespace mheg
