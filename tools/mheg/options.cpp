// Describes the commands and their options for CLI11.
#include "mheg/options.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <set>
#include <system_error>
#include <utility>

#include "mheg/path_options.h"
#include "mheg/path_text.h"
#include "mheg/source_folder.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

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
  command
      .add_option("-j,--jobs", options.jobs, "Files to process in parallel; 0: one per processor")
      ->capture_default_str();
}

// Makes the option accept these words, each of which selects a value.
template <class Value>
void SetChoice(CLI::Option* option, const std::vector<std::pair<std::string, Value>>& values) {
  std::string words;
  for (const auto& [word, value] : values) words += (words.empty() ? "" : "|") + word;
  option->transform(CLI::CheckedTransformer(values).description(""))->type_name(words);
}

// ---- The commands ----

void AddCompile(CLI::App& app, Options& options) {
  CLI::App* command =
      AddCommand(app, Command::Compile, "compile",
                 "Compiles source files to the BER form that is broadcast", options);
  AddInputs(*command, "IN", "Groups in the textual notation", options);
  AddOutput(*command, options);
  AddJobs(*command, options);
}

void AddDecompile(CLI::App& app, Options& options) {
  CLI::App* command = AddCommand(app, Command::Decompile, "decompile",
                                 "Converts groups from BER to source files", options);
  AddInputs(*command, "IN", "Groups in their BER form", options);
  AddOutput(*command, options);
  AddJobs(*command, options);
}

void AddDump(CLI::App& app, Options& options) {
  CLI::App* command = AddCommand(app, Command::Dump, "dump",
                                 "Prints every record of a group, as an indented tree", options);
  AddInputs(*command, "IN", "Groups in either form", options);
}

void AddCheck(CLI::App& app, Options& options) {
  CLI::App* command = AddCommand(app, Command::Check, "check",
                                 "Reports faults that the engine would ignore silently", options);
  AddInputs(*command, "PATH", "Groups in either form, and folders that contain some", options);
  SetChoice<ReportForm>(
      command->add_option("--format", options.reportForm, "Form of the report")
          ->default_str("text"),
      {{"text", ReportForm::Text}, {"json", ReportForm::Json}, {"sarif", ReportForm::Sarif}});
  command
      ->add_option("--ignore", options.ignoredRules,
                   "Name of a rule whose findings are omitted; repeatable")
      ->option_text("RULE")
      ->expected(1)
      ->take_all()
      ->check([](const std::string& name) {
        return FindRule(name) == nullptr ? "there is no rule " + name : std::string();
      });
  AddJobs(*command, options);
}

void AddFormat(CLI::App& app, Options& options) {
  CLI::App* command =
      AddCommand(app, Command::Format, "format",
                 "Lays out source files as decompile does, and keeps their comments", options);
  AddInputs(*command, "PATH", "Source files, and folders that contain some", options);
  command->add_flag("--check", options.isCheckOnly,
                    "Change nothing; list the files that would change");
  AddJobs(*command, options);
}

void AddBuild(CLI::App& app, Options& options) {
  CLI::App* command = AddCommand(app, Command::Build, "build",
                                 "Compiles, checks and copies a folder to a carousel", options);
  AddPaths(*command, "SRC", options.inputs, "Folder with source files and other files")
      ->required()
      ->check(IsExistingFolder())
      ->expected(1);
  AddPath(*command, "-o,--output", options.output, "Folder of the carousel")->required();
  command->add_flag("--watch", options.isWatching,
                    "Build again after each change, until interrupted");
  AddJobs(*command, options);
}

void AddNew(CLI::App& app, Options& options) {
  CLI::App* command =
      AddCommand(app, Command::New, "new", "Makes a small application to start from", options);
  AddPath(*command, "DIR", options.output, "Folder that does not exist or is empty")->required();
}

void AddGraph(CLI::App& app, Options& options) {
  CLI::App* command =
      AddCommand(app, Command::Graph, "graph",
                 "Draws scenes and the keys that lead from one to another", options);
  AddInputs(*command, "PATH", "Groups in either form, and folders that contain some", options);
  AddPath(*command, "-o,--output", options.output, "File to write instead of the standard output");
  SetChoice<GraphForm>(
      command->add_option("--format", options.graphForm, "SVG needs Graphviz")->default_str("dot"),
      {{"dot", GraphForm::Dot}, {"svg", GraphForm::Svg}});
}

void AddRun(CLI::App& app, Options& options) {
  RunOptions& run = options.run;
  CLI::App* command = AddCommand(app, Command::Run, "run",
                                 "Plays a carousel without a window, on a virtual clock", options);
  AddPath(*command, "CAROUSEL", run.carousel, "Folder of source files or of broadcast files")
      ->required()
      ->check(IsExistingFolder());
  command->add_option("--keys", run.keys, "Keys and waits: \"down*2 ok wait:2s red\"");
  AddPath(*command, "--script", run.script, "Script of the player, with expect steps")
      ->check(IsExistingFile());
  command->add_option("--start", run.start, "Path of the application to start");
  command->add_option("--date", run.date, "Date and time of day at the start")
      ->capture_default_str();
  command->add_option("--latency", run.latencyMs, "Milliseconds that reading a file takes");
  command->add_option("--missing", run.missing, "File that the engine does not find; repeatable")
      ->expected(1)
      ->take_all();
  SetChoice<TraceForm>(
      command->add_flag("--trace{text}", run.trace, "Prints every event, link, action and value"),
      {{"text", TraceForm::Text}, {"json", TraceForm::Json}});
  command->add_flag("--scene-graph", run.showsSceneGraph, "Prints the display stack at the end");
}

// Hidden from the help, because only the build of packages needs it.
void AddManual(CLI::App& app, Options& options) {
  CLI::App* command =
      AddCommand(app, Command::Manual, "manual", "Writes the manual page and completions", options);
  command->group("");
  AddPath(*command, "DIR", options.output, "")->required();
}

// ---- Outputs that would destroy inputs ----

// An output path that ends in a separator names a folder, which may not exist yet.
bool IsFolder(const fs::path& output) {
  std::error_code ignored;
  return !output.has_filename() || fs::is_directory(output, ignored);
}

// Returns the same path for every spelling of a path that the file system can resolve.
fs::path Identity(const fs::path& path) {
  std::error_code problem;
  const fs::path found = fs::weakly_canonical(path, problem);
  return problem ? path.lexically_normal() : found;
}

// Rejects outputs that would overwrite an input or each other.
void RejectClashingOutputs(const Options& options) {
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

// Rejects a carousel inside its source, because it would be copied into itself.
void RejectOutputInSource(const fs::path& output, const fs::path& source) {
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
    name += kSourceExtension;
  } else if (IsSourceFile(name)) {
    name.replace_extension();
  }
  return options.output / name;
}

void Describe(CLI::App& app, Options& options) {
  app.name("mheg");
  app.description(
      "Makes, compiles, checks, formats, builds and draws content, and plays it without a window.");
  app.allow_windows_style_options(false);  // "/x" is a path, as on every other platform
  app.set_version_flag("--version", "mheg " TOOL_VERSION);
  app.require_subcommand(1);
  for (const auto add : {AddCompile, AddDecompile, AddDump, AddCheck, AddFormat, AddBuild, AddNew,
                         AddGraph, AddRun, AddManual}) {
    add(app, options);
  }
  app.footer(
      "The exit status is 0 on success; 1 if a file is invalid or cannot be read or written, if "
      "check finds a fault, if format only checks and a file would change, or if run does not meet "
      "an expectation; and 2 for wrong arguments.");
}

std::optional<int> ReadCommandLine(const std::vector<std::string>& arguments, Options& options) {
  Options given;
  CLI::App app;
  Describe(app, given);
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    const bool hasOutputs =
        given.command == Command::Compile || given.command == Command::Decompile;
    if (hasOutputs) RejectClashingOutputs(given);
    if (given.command == Command::Build) RejectOutputInSource(given.output, given.inputs.front());
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
