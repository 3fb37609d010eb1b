// The request that the command line makes.
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

namespace mheg {

// The exit statuses of the tool; 0 is a run in which everything was good.
inline constexpr int kBadInput = 1;  // a file cannot be read or written, is no group, or has faults
inline constexpr int kWrongUse = 2;  // wrong arguments

enum class Command { Compile, Decompile, Dump, Check };

struct Options {
  Command command = Command::Compile;
  std::vector<std::filesystem::path> inputs;
  std::filesystem::path output;  // of Compile and Decompile: a file, or a folder
  unsigned jobs = 0;             // files worked on at once; 0: as many as there are processors
};

// The file that an input is written to: the output itself, or in the folder that the output names,
// under the input's name without ".mheg" (compiled) or with it (decompiled).
[[nodiscard]] std::filesystem::path OutputFor(const std::filesystem::path& input,
                                              const Options& options);

// Reads the command line. An exit status when there is nothing more to do: after --help, or after a
// message about wrong arguments.
[[nodiscard]] std::optional<int> ReadCommandLine(int count, const char* const* arguments,
                                                 Options& options);

}  // namespace mheg
