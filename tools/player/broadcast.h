// Loads the folder that the player serves as the broadcast.
#pragma once

#include <memory>

#include "mheg/carousel_files.h"
#include "player/options.h"

namespace player {

using Files = std::unique_ptr<mheg::CarouselFiles>;

// Reads the folder and compiles its source files. Returns 0. On failure, reports the error, leaves
// `files` unchanged and returns the exit status.
[[nodiscard]] int LoadFiles(const Options& options, Files& files);

// Whether the engine will find a start-up application.
[[nodiscard]] bool HasApplication(const mheg::CarouselFiles& files);

}  // namespace player
