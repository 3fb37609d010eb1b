// korvel-player: a complete host application for the engine. It serves a folder as the broadcast,
// so that authors can try their content. Scripts can press keys and take pictures; the scenario
// tests of the whole engine use them.
#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <utility>

#include "mheg/path_text.h"
#include "mheg/script.h"
#include "player/broadcast.h"
#include "player/engine_library.h"
#include "player/exit_status.h"
#include "player/host_object.h"
#include "player/options.h"
#include "player/session.h"

namespace {

// Reads the script, unless `file` is empty. On failure, prints a message and returns false.
bool LoadScript(const std::filesystem::path& file, std::vector<mheg::Step>& steps) {
  std::string problem;
  if (file.empty() || mheg::ReadScriptFile(file, steps, problem)) return true;
  std::fprintf(stderr, "korvel-player: %s\n", problem.c_str());
  return false;
}

// Plays the folder until the run ends, and starts again whenever the folder has been loaded again.
// Returns the exit status.
int Play(const player::EngineLibrary& engine, const std::vector<mheg::Step>& steps,
         const player::Options& options, player::Files files) {
  bool hasApplication = true;
  while (files) {
    hasApplication = player::HasApplication(*files);
    player::HostObject host(*files, options);
    player::Session session(engine, options);
    const int status = session.Run(host, steps);
    if (status != 0) return status;
    if (!host.IsReleased()) {
      std::fprintf(stderr,
                   "korvel-player: the engine has not released all references and buffers\n");
      return player::kRunFailed;
    }
    files = session.TakeReloaded();
  }
  if (hasApplication) return 0;
  std::fprintf(stderr, "korvel-player: %s has no application: no file a or startup\n",
               mheg::TextOf(options.carousel).c_str());
  return player::kWrongUse;
}

}  // namespace

int main(int count, char** arguments) {
  // Keeps the engine's "\n" line ends, so that its output is the same on every platform.
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);

  const mheg::Utf8Console console;
  player::Options options;
  const std::vector<std::string> texts = mheg::TextOfArguments(count, arguments);
  if (const auto status = player::ReadCommandLine(texts, options)) return *status;
  std::vector<mheg::Step> steps;
  if (!LoadScript(options.script, steps)) return player::kWrongUse;
  player::Files files;
  if (const int status = player::LoadFiles(options, files); status != 0) return status;

  player::EngineLibrary engine;
  if (!engine.Load()) {
    std::fprintf(stderr, "korvel-player: korvel.dll cannot be loaded\n");
    return player::kRunFailed;
  }
  if (options.IsInteractive()) std::fputs(player::kKeyboardHelp, stderr);
  return Play(engine, steps, options, std::move(files));
}
