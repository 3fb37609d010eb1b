// The commands and their options, described once for CLI11.
#include "mheg/options.h"

#include <CLI/CLI.hpp>

#include <cstdio>

#include "mheg/exit_status.h"

namespace mheg {
namespace {

CLI::App* AddCommand(CLI::App& app, Command command, const char* name, const char* description,
                     Options& options) {
  CLI::App* added = app.add_subcommand(name, description);
  added->callback([command, &options] { options.command = command; });
  return added;
}

void AddInputs(CLI::App& command, const char* name, const char* description, Options& options) {
  command.add_option(name, options.inputs, description)
      ->required()
      ->check(CLI::ExistingPath)
      ->expected(1, CLI::detail::expected_max_vector_size);
}

void AddOutput(CLI::App& command, Options& options) {
  command.add_option("-o,--output", options.output, "File to write; a folder for several inputs")
      ->required();
}

void AddJobs(CLI::App& command, Options& options) {
  command.add_option("-j,--jobs", options.jobs, "Files to work on at once; 0: one a processor")
      ->capture_default_str();
}

// Several inputs cannot go into one file.
void RefuseOneFileForMany(const Options& options) {
  const bool isFolder = options.output.empty() || !options.output.has_filename() ||
                        std::filesystem::is_directory(options.output);
  if (options.inputs.size() > 1 && !isFolder) {
    throw CLI::ValidationError("--output", "must be a folder for several inputs");
  }
}

}  // namespace

std::optional<int> ReadCommandLine(int count, const char* const* arguments, Options& options) {
  Options given;
  CLI::App app("Compiles, decompiles, prints and checks MHEG-5 groups.", "mheg");
  app.require_subcommand(1);

  CLI::App* compile =
      AddCommand(app, Command::Compile, "compile", "Text to the BER form that is broadcast", given);
  AddInputs(*compile, "IN", "Groups in the textual notation", given);
  AddOutput(*compile, given);
  AddJobs(*compile, given);

  CLI::App* decompile = AddCommand(app, Command::Decompile, "decompile", "BER to text", given);
  AddInputs(*decompile, "IN", "Groups in their BER form", given);
  AddOutput(*decompile, given);
  AddJobs(*decompile, given);

  CLI::App* dump = AddCommand(app, Command::Dump, "dump",
                              "Prints every record of a group, as an indented tree", given);
  AddInputs(*dump, "IN", "Groups in either form", given);

  CLI::App* check = AddCommand(app, Command::Check, "check",
                               "Reports what a viewer would only notice as silence", given);
  AddInputs(*check, "PATH", "Groups in either form, and folders with them", given);
  AddJobs(*check, given);

  try {
    app.parse(count, arguments);
    RefuseOneFileForMany(given);
  } catch (const CLI::Success& help) {
    return app.exit(help);
  } catch (const CLI::ParseError& mistake) {
    std::fprintf(stderr, "mheg: %s\n", mistake.what());
    return kWrongUse;
  }
  options = given;
  return std::nullopt;
}

}  // namespace mheg
