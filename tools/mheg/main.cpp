// mheg: the tool for authors of content. It makes, compiles, checks, formats, builds and draws
// content, and plays it without a window.
#include <algorithm>
#include <cstdio>
#include <system_error>

#include "dump/dump.h"
#include "mheg/batch.h"
#include "mheg/build/build.h"
#include "mheg/check/check.h"
#include "mheg/check/report.h"
#include "mheg/convert.h"
#include "mheg/format/format.h"
#include "mheg/graph/graph.h"
#include "mheg/group_file.h"
#include "mheg/manual/manual.h"
#include "mheg/new/new.h"
#include "mheg/options.h"
#include "mheg/path_text.h"
#include "mheg/run/run.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace {

// An output path that ends in a separator names a folder. Creates that folder.
bool MakeOutputFolder(const std::filesystem::path& output) {
  if (output.empty() || output.has_filename()) return true;
  std::error_code problem;
  std::filesystem::create_directories(output, problem);
  if (!problem) return true;
  std::fprintf(stderr, "%s: cannot be made\n", mheg::TextOf(output).c_str());
  return false;
}

bool Convert(const mheg::Options& options) {
  if (!MakeOutputFolder(options.output)) return false;
  std::vector<mheg::Outcome> outcomes(options.inputs.size());
  mheg::RunBatch(outcomes.size(), options.jobs, [&](std::size_t index) {
    const std::filesystem::path& input = options.inputs[index];
    const std::filesystem::path output = mheg::OutputFor(input, options);
    outcomes[index] = options.command == mheg::Command::Compile ? mheg::Compile(input, output)
                                                                : mheg::Decompile(input, output);
  });
  bool isGood = true;
  for (const mheg::Outcome& outcome : outcomes) {
    Print(outcome.messages, stderr);
    isGood = isGood && outcome.isGood;
  }
  return isGood;
}

// Not parallel: each tree is printed directly to standard output, in the order of the inputs.
bool Dump(const mheg::Options& options) {
  bool isGood = true;
  for (const std::filesystem::path& input : options.inputs) {
    const mheg::GroupFile file = mheg::ReadGroupFile(input);
    Print(file.messages, stderr);
    isGood = isGood && file.group;
    if (!file.group) continue;
    if (IsApplication(file.group)) {
      korvel::DumpApplication(AsApplication(file.group), 0, stdout);
    } else {
      korvel::DumpScene(AsScene(file.group), 0, stdout);
    }
  }
  return isGood;
}

bool Check(const mheg::Options& options) {
  const mheg::Findings findings = mheg::Check(options.inputs, options.jobs, options.ignoredRules);
  PrintReport(findings, options.reportForm);
  return std::none_of(findings.begin(), findings.end(), mheg::IsFault);
}

// Returns the exit status.
int RunCommand(const mheg::Options& options) {
  bool isGood = false;
  switch (options.command) {
  case mheg::Command::Compile:
  case mheg::Command::Decompile: isGood = Convert(options); break;
  case mheg::Command::Dump: isGood = Dump(options); break;
  case mheg::Command::Check: isGood = Check(options); break;
  case mheg::Command::Format:
    isGood = mheg::Format(options.inputs, options.isCheckOnly, options.jobs);
    break;
  case mheg::Command::Build:
    isGood = (options.isWatching ? mheg::BuildAfterEachChange : mheg::Build)(
        options.inputs.front(), options.output, options.jobs);
    break;
  case mheg::Command::New: isGood = mheg::MakeNew(options.output); break;
  case mheg::Command::Graph:
    isGood = mheg::PrintGraph(options.inputs, options.graphForm, options.output);
    break;
  case mheg::Command::Run: return mheg::Run(options.run);
  case mheg::Command::Manual: isGood = mheg::WriteManual(options.output); break;
  }
  return isGood ? 0 : mheg::kBadInput;
}

// Returns `status`, or a failure if standard output could not be written completely.
int StatusAfterOutput(int status) {
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
  std::fprintf(stderr, "mheg: the standard output cannot be written\n");
  return mheg::kBadInput;
}

}  // namespace

int main(int count, char** arguments) {
#ifdef _WIN32
  // Dumps have "\n" line ends on every platform.
  _setmode(_fileno(stdout), _O_BINARY);
  const mheg::Utf8Console console;
#endif
  mheg::Options options;
  if (const auto status = mheg::ReadCommandLine(mheg::TextOfArguments(count, arguments), options)) {
    return StatusAfterOutput(*status);
  }
  return StatusAfterOutput(RunCommand(options));
}
