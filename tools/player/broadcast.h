// Loads the folder that the player serves as the broadcast.
#pragma once

#include <memory>

#include "mheg/carousel_files.h"
#include "player/options.h"

namespace player {

using Files = std::unique_ptr<mheg::CarouselFiles>;

// Reads the folder and compiles its texts. Returns 0, or after reporting an error the status to
// exit with; `files` is then unchanged.
[[nodiscard]] int LoadFiles(const Options& options, Files& files);

// Whether the engine will find a file to start with.
[[nodiscard]] bool HasApplication(const mheg::CarouselFiles& files);

}  // namespace player
