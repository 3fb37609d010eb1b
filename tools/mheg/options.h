// The command line of mheg.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "mheg/check/report.h"
#include "mheg/graph/graph.h"
#include "mheg/run/trace_line.h"

namespace CLI {
class App;
}

namespace mheg {

// The exit statuses of the tool; 0 means success. Notes of the check are no failure.
inline constexpr int kBadInput = 1;  // not a group, has faults, or cannot be read or written
inline constexpr int kWrongUse = 2;  // wrong arguments

enum class Command { Compile, Decompile, Dump, Check, Format, Build, New, Graph, Run, Manual };

struct RunOptions {
  std::filesystem::path carousel;
  std::string start;             // path of the start-up application; empty: "a" or "startup"
  std::filesystem::path script;  // empty: none
  std::string keys;              // pressed after the script
  std::string date = "2024-06-07T12:00:00";  // local date and time at the start
  std::uint32_t latencyMs = 0;               // how long reading a file takes
  std::vector<std::string> missing;          // files that the engine does not find
  TraceForm trace = TraceForm::None;
  bool showsSceneGraph = false;

  [[nodiscard]] bool HasSteps() const { return !script.empty() || !keys.empty(); }
};

struct Options {
  Command command = Command::Compile;
  std::vector<std::filesystem::path> inputs;
  // Compile and Decompile: a file or a folder. Build, New and Manual: a folder. Graph: a file;
  // empty: the standard output.
  std::filesystem::path output;
  unsigned jobs = 0;         // number of threads; 0: one per processor
  bool isCheckOnly = false;  // Format only: changes no file
  bool isWatching = false;   // Build only: continues until the user ends it
  GraphForm graphForm = GraphForm::Dot;
  RunOptions run;                            // Run only
  ReportForm reportForm = ReportForm::Text;  // Check only
  std::vector<std::string> ignoredRules;     // Check only: their names
};

// The file to write for an input: the output itself, or if that is a folder, a file in it with the
// input's name, without ".mheg" when compiling and with ".mheg" added when decompiling.
[[nodiscard]] std::filesystem::path OutputFor(const std::filesystem::path& input,
                                              const Options& options);

// Adds the commands and options to an empty description of a command line. Parsing with it writes
// to `options`, which is borrowed.
void Describe(CLI::App& app, Options& options);

// Reads the arguments, without the name of the program. Returns an exit status if the program must
// end: after --help, or after reporting wrong arguments.
[[nodiscard]] std::optional<int> ReadCommandLine(const std::vector<std::string>& arguments,
                                                 Options& options);

}  // namespace mheg
