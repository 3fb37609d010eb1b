// Describes the options of the host application for CLI11.
#include "player/options.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <string>

#include "mheg/key_names.h"
#include "mheg/path_options.h"
#include "mheg/script.h"
#include "player/exit_status.h"

namespace player {

std::optional<int> ReadCommandLine(const std::vector<std::string>& arguments, Options& options) {
  Options given;
  CLI::App app("Plays an MHEG-5 application from a folder, as if it were broadcast.",
               "korvel-player");
  app.allow_windows_style_options(false);  // "/x" is a path, as on every other platform
  app.set_version_flag("--version", "korvel-player " TOOL_VERSION);
  app.footer(std::string(kKeyboardHelp) + "Keys in scripts: " + mheg::kKeyList);
  mheg::AddPath(app, "FOLDER", given.carousel, "Folder of source files or of broadcast files")
      ->required()
      ->check(mheg::IsExistingFolder());
  mheg::AddPath(app, "--script", given.script, "File with one step per line: " + mheg::StepForms())
      ->check(mheg::IsExistingFile());
  mheg::AddPath(app, "--record", given.record, "Write the pressed keys to this file, as a script");
  mheg::AddPath(app, "--screenshot", given.screenshot,
                "Take a picture of the engine window after --wait, then close");
  app.add_option("--wait", given.waitMs, "Milliseconds before the screenshot")
      ->capture_default_str();
  mheg::AddPath(app, "--series", given.series, "Write a picture to this folder after each change");
  app.add_option("--limit", given.limitS,
                 "Seconds that a step waits for a picture before the run fails")
      ->capture_default_str();
  app.add_option("--latency", given.latencyMs, "Milliseconds that reading a file takes");
  app.add_option("--not-yet", given.notYet, "How often each file is not yet available");
  app.add_option("--missing", given.missing, "File that the engine does not find; repeatable")
      ->expected(1)
      ->take_all();
  app.add_flag("--watch", given.isWatching, "Load the folder again after each change in it");
  app.add_flag("--verbose", given.isVerbose, "Log each file read on standard error");
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::Success& help) {
    return app.exit(help);
  } catch (const CLI::ParseError& mistake) {
    std::fprintf(stderr, "korvel-player: %s\n", mistake.what());
    return kWrongUse;
  }
  options = given;
  return std::nullopt;
}

}  // namespace player
