// Loads the folder in the same way as `mheg run`.
#include "player/broadcast.h"

#include <cstdio>
#include <utility>

#include "mheg/message.h"
#include "player/exit_status.h"

namespace player {

int LoadFiles(const Options& options, Files& files) {
  auto loaded = std::make_unique<mheg::CarouselFiles>();
  mheg::Messages messages;
  loaded->Load(options.carousel, messages);
  Print(messages, stderr);
  if (!messages.empty()) return kRunFailed;
  for (const std::string& path : options.missing) {
    if (loaded->Remove(path)) continue;
    std::fprintf(stderr, "korvel-player: --missing: there is no file %s\n", path.c_str());
    return kWrongUse;
  }
  files = std::move(loaded);
  return 0;
}

bool HasApplication(const mheg::CarouselFiles& files) {
  return files.Find("a") != nullptr || files.Find("startup") != nullptr;
}

}  // namespace player
