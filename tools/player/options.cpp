// Describes the options of the host application for CLI11.
#include "player/options.h"

#include <CLI/CLI.hpp>

#include <cstdio>

#include "player/exit_status.h"

namespace player {

std::optional<int> ReadCommandLine(int count, const char* const* arguments, Options& options) {
  Options given;
  CLI::App app("Plays an MHEG-5 application from a folder that stands for the broadcast.",
               "korvel-player");
  app.set_version_flag("--version", "korvel-player " TOOL_VERSION);
  app.add_option("CAROUSEL_DIR", given.carousel, "Folder with the broadcast files")
      ->required()
      ->check(CLI::ExistingDirectory);
  app.add_option("--script", given.script,
                 "File with a step a line: key NAME, shot FILE.png (when it is final), wait MS,\n"
                 "until X Y #RRGGBB, catch X Y #RRGGBB FILE.png, expose, exit")
      ->check(CLI::ExistingFile);
  app.add_option("--screenshot", given.screenshot,
                 "Take a picture of the engine window after --wait, then close");
  app.add_option("--wait", given.waitMs, "Milliseconds before the screenshot")
      ->capture_default_str();
  app.add_option("--limit", given.limitS,
                 "Seconds that the script waits for a picture before the run fails")
      ->capture_default_str();
  app.add_flag("--verbose", given.isVerbose, "Log each file read on standard error");
  try {
    app.parse(count, arguments);
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
