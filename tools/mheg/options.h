// The command line of mheg.
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

namespace mheg {

// The exit statuses of the tool; 0 means that every file was good.
inline constexpr int kBadInput = 1;  // not a group, has faults, or cannot be read or written
inline constexpr int kWrongUse = 2;  // wrong arguments

enum class Command { Compile, Decompile, Dump, Check };

struct Options {
  Command command = Command::Compile;
  std::vector<std::filesystem::path> inputs;
  std::filesystem::path output;  // Compile and Decompile only: a file or a folder
  unsigned jobs = 0;             // number of threads; 0: one per processor
};

// The file to write for an input: the output itself, or if that is a folder, a file in it with the
// input's name, without ".mheg" when compiling and with ".mheg" added when decompiling.
[[nodiscard]] std::filesystem::path OutputFor(const std::filesystem::path& input,
                                              const Options& options);

// Reads the command line. Returns an exit status if the program must end: after --help, or after
// reporting wrong arguments.
[[nodiscard]] std::optional<int> ReadCommandLine(int count, const char* const* arguments,
                                                 Options& options);

}  // namespace mheg
