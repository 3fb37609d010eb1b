// The object through which the engine reads the broadcast: the files of a folder, with the function
// table that korvel.h describes. It counts the references and buffers that the engine holds, so
// that the player can report leaks.
#pragma once

#include <atomic>
#include <map>
#include <string>

#include "korvel.h"
#include "mheg/carousel_files.h"
#include "player/options.h"

namespace player {

// Lives on main's stack and outlives the engine, so Release() never frees it. The engine calls it
// on the engine's own thread.
struct HostObject : MHEG5Host {
  HostObject(const mheg::CarouselFiles& broadcast, const Options& commandLine);
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;
  ~HostObject() = default;

  // Whether the engine has released every reference and every buffer.
  [[nodiscard]] bool IsReleased() const { return references == 1 && buffers == 0; }

  const mheg::CarouselFiles& files;
  const Options& options;
  // How often each file has been requested so far. Used only on the engine's worker thread.
  std::map<std::string, std::uint32_t> requests;
  std::atomic<std::uint32_t> references = 1;
  std::atomic<std::uint32_t> buffers = 0;
};

}  // namespace player
