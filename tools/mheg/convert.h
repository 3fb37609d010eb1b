// Text to BER and back, file by file.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace mheg {

// The result of one file: the lines to report, and whether it was good.
struct Outcome {
  std::vector<std::string> messages;
  bool isGood = true;
};

// Each reads one file and writes it in the other form. A file that is not good is not written.
[[nodiscard]] Outcome Compile(const std::filesystem::path& input,
                              const std::filesystem::path& output);
[[nodiscard]] Outcome Decompile(const std::filesystem::path& input,
                                const std::filesystem::path& output);

}  // namespace mheg
