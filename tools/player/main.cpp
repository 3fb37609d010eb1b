// korvel-player: a complete host application for the engine. It serves a folder as the broadcast.
// Scripts can press keys and take pictures; the scenario tests of the whole engine use that.
#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <fstream>

#include "player/engine_library.h"
#include "player/exit_status.h"
#include "player/host_object.h"
#include "player/options.h"
#include "player/script.h"
#include "player/session.h"

namespace {

// Reads the script, unless `file` is empty. On failure, prints a message and returns false.
bool LoadScript(const std::filesystem::path& file, std::vector<player::Step>& steps) {
  if (file.empty()) return true;
  std::ifstream text(file);
  std::string problem = " cannot be read";
  if (text && player::ReadScript(text, steps, problem)) return true;
  std::fprintf(stderr, "korvel-player: %s:%s\n", file.string().c_str(), problem.c_str());
  return false;
}

}  // namespace

int main(int count, char** arguments) {
  // Keeps the engine's "\n" line ends, so that its output is the same on every platform.
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);

  player::Options options;
  if (const auto status = player::ReadCommandLine(count, arguments, options)) return *status;
  std::vector<player::Step> steps;
  if (!LoadScript(options.script, steps)) return player::kWrongUse;

  player::EngineLibrary engine;
  if (!engine.Load()) {
    std::fprintf(stderr, "korvel-player: korvel.dll cannot be loaded\n");
    return player::kRunFailed;
  }
  const player::Carousel carousel(options.carousel);
  player::HostObject host(carousel, options.isVerbose);
  const int status = player::Session(engine).Run(host, steps, options);
  if (status == 0 && !host.IsGivenBack()) {
    std::fprintf(stderr, "korvel-player: the engine has kept what belongs to its host\n");
    return player::kRunFailed;
  }
  return status;
}
