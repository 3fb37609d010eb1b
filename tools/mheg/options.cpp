// Describes the commands and their options for CLI11.
#include "mheg/options.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <map>
#include <set>
#include <system_error>

#include "mheg/manual/manual.h"
#include "mheg/path_options.h"
#include "mheg/path_text.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

constexpr const char* kTextExtension = ".mheg";

CLI::App* AddCommand(CLI::App& app, Command command, const char* name, const char* description,
                     Options& options) {
  CLI::App* added = app.add_subcommand(name, description);
  added->callback([command, &options] { options.command = command; });
  return added;
}

void AddInputs(CLI::App& command, const char* name, const char* description, Options& options) {
  AddPaths(command, name, options.inputs, description)
      ->required()
      ->check(IsExistingPath())
      ->expected(1, CLI::detail::expected_max_vector_size);
}

void AddOutput(CLI::App& command, Options& options) {
  AddPath(command, "-o,--output", options.output, "File to write; a folder for several inputs")
      ->required();
}

void AddJobs(CLI::App& command, Options& options) {
  command.add_option("-j,--jobs", options.jobs, "Files to work on at once; 0: one a processor")
      ->capture_default_str();
}

void AddRun(CLI::App& app, Options& options) {
  RunOptions& run = options.run;
  CLI::App* command = AddCommand(app, Command::Run, "run",
                                 "Plays a carousel without a window, on a virtual clock", options);
  AddPath(*command, "CAROUSEL", run.carousel, "Folder of texts or of broadcast files")
      ->required()
      ->check(IsExistingFolder());
  command->add_option("--keys", run.keys, "Keys and waits: \"down*2 ok wait:2s red\"");
  AddPath(*command, "--script", run.script, "Script of the player, with expect steps")
      ->check(IsExistingFile());
  command->add_option("--start", run.start, "Path of the application to start");
  command->add_option("--date", run.date, "Time of day at the start")->capture_default_str();
  command->add_option("--latency", run.latencyMs, "Milliseconds that reading a file takes");
  command->add_option("--missing", run.missing, "File that the engine does not find; repeatable")
      ->expected(1)
      ->take_all();
  const std::map<std::string, TraceForm> forms{{"text", TraceForm::Text},
                                               {"json", TraceForm::Json}};
  command->add_flag("--trace{text}", run.trace, "Prints every event, link, action and value")
      ->transform(CLI::CheckedTransformer(forms).description(""))
      ->type_name("text|json");
  command->add_flag("--scene-graph", run.showsSceneGraph, "Prints the display stack at the end");
}

void AddReport(CLI::App& command, Options& options) {
  const std::map<std::string, ReportForm> forms{
      {"text", ReportForm::Text}, {"json", ReportForm::Json}, {"sarif", ReportForm::Sarif}};
  command.add_option("--format", options.reportForm, "Form of the report: text, json or sarif")
      ->transform(CLI::CheckedTransformer(forms))
      ->option_text("FORM");
  command
      .add_option("--ignore", options.ignoredRules,
                  "Name of a rule whose findings are omitted; repeatable")
      ->option_text("RULE")
      ->expected(1)
      ->take_all()
      ->check([](const std::string& name) {
        return FindRule(name) == nullptr ? "there is no rule " + name : std::string();
      });
}

// An output path that ends in a separator names a folder, which may not exist yet.
bool IsFolder(const fs::path& output) {
  std::error_code ignored;
  return !output.has_filename() || fs::is_directory(output, ignored);
}

// Returns the same path for every spelling of it, as far as the file system can resolve them.
fs::path Identity(const fs::path& path) {
  std::error_code problem;
  const fs::path found = fs::weakly_canonical(path, problem);
  return problem ? path.lexically_normal() : found;
}

// Rejects outputs that would overwrite an input or each other.
void RefuseOutputsThatClash(const Options& options) {
  if (options.inputs.size() > 1 && !IsFolder(options.output)) {
    throw CLI::ValidationError("--output", "must be a folder for several inputs");
  }
  std::set<fs::path> inputs;
  for (const fs::path& input : options.inputs) inputs.insert(Identity(input));
  std::set<fs::path> outputs;
  for (const fs::path& input : options.inputs) {
    const fs::path output = OutputFor(input, options);
    const fs::path identity = Identity(output);
    std::error_code ignored;
    // Only the system can recognise hard links, and names that differ only in case.
    if (inputs.contains(identity) || fs::equivalent(input, output, ignored)) {
      throw CLI::ValidationError(TextOf(output), "is an input and would be overwritten");
    }
    if (!outputs.insert(identity).second) {
      throw CLI::ValidationError(TextOf(output), "would be written twice");
    }
  }
}

// A carousel within its source would be copied into itself.
void RefuseFolderWithin(const fs::path& output, const fs::path& source) {
  const fs::path relative = Identity(output).lexically_relative(Identity(source));
  if (!relative.empty() && *relative.begin() != "..") {
    throw CLI::ValidationError("--output", "must not be in the folder " + TextOf(source));
  }
}

}  // namespace

fs::path OutputFor(const fs::path& input, const Options& options) {
  if (!IsFolder(options.output)) return options.output;
  fs::path name = input.filename();
  if (options.command == Command::Decompile) {
    name += kTextExtension;
  } else if (name.extension() == kTextExtension) {
    name.replace_extension();
  }
  return options.output / name;
}

std::optional<int> ReadCommandLine(const std::vector<std::string>& arguments, Options& options) {
  Options given;
  CLI::App app("Compiles, decompiles, prints, checks and plays MHEG-5 groups.", "mheg");
  app.allow_windows_style_options(false);  // "/x" is a path, as on every other platform
  app.set_version_flag("--version", "mheg " TOOL_VERSION);
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
                               "Reports faults that the engine would ignore silently", given);
  AddInputs(*check, "PATH", "Groups in either form, and folders with them", given);
  AddReport(*check, given);
  AddJobs(*check, given);

  CLI::App* format =
      AddCommand(app, Command::Format, "format",
                 "Lays out texts as decompile does, and keeps their comments", given);
  AddInputs(*format, "PATH", "Texts, and folders with them", given);
  format->add_flag("--check", given.isCheckOnly,
                   "Change nothing; list the files that would change");
  AddJobs(*format, given);

  CLI::App* build = AddCommand(app, Command::Build, "build",
                               "Compiles, checks and copies a folder to a carousel", given);
  AddPaths(*build, "SRC", given.inputs, "Folder with texts and other files")
      ->required()
      ->check(IsExistingFolder())
      ->expected(1);
  AddPath(*build, "-o,--output", given.output, "Folder of the carousel")->required();
  build->add_flag("--watch", given.isWatching, "Build again after each change, until interrupted");
  AddJobs(*build, given);

  CLI::App* made =
      AddCommand(app, Command::New, "new", "Makes a small application to begin with", given);
  AddPath(*made, "DIR", given.output, "Folder, which must not exist or be empty")->required();

  CLI::App* graph = AddCommand(app, Command::Graph, "graph",
                               "Draws scenes and the keys that lead from one to another", given);
  AddInputs(*graph, "PATH", "Folders with groups in either form, and such files", given);
  AddPath(*graph, "-o,--output", given.output, "File to write instead of the standard output");
  graph->add_option("--format", given.graphForm, "SVG needs Graphviz")
      ->transform(CLI::CheckedTransformer(std::map<std::string, GraphForm>{{"dot", GraphForm::Dot},
                                                                           {"svg", GraphForm::Svg}})
                      .description(""))
      ->type_name("dot|svg")
      ->default_str("dot");

  AddRun(app, given);
  app.footer(
      "The exit status is 0 on success, 1 if a file is invalid, has faults, or cannot be read "
      "or written, and 2 for wrong arguments.");

  fs::path manualFolder;
  CLI::App* manual = app.add_subcommand("manual", "Writes the manual page and completions");
  manual->group("");  // for packages only, so it is not listed
  AddPath(*manual, "DIR", manualFolder, "")->required();

  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    const bool hasOutputs = *compile || *decompile;
    if (hasOutputs) RefuseOutputsThatClash(given);
    if (*build) RefuseFolderWithin(given.output, given.inputs.front());
  } catch (const CLI::Success& help) {
    return app.exit(help);
  } catch (const CLI::ParseError& mistake) {
    std::fprintf(stderr, "mheg: %s\n", mistake.what());
    return kWrongUse;
  }
  if (*manual) return WriteManual(app, manualFolder) ? 0 : kBadInput;
  options = given;
  return std::nullopt;
}

}  // namespace mheg
