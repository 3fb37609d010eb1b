// korvel.dll as the player sees it: loaded at run time from the player's own folder, so that a
// missing or unfit library is a message and not a failure of the loader.
#pragma once

#include "korvel.h"

namespace player {

class EngineLibrary {
 public:
  // Loads the library and finds its functions. False when there is none, or one is missing.
  [[nodiscard]] bool Load();

  // What korvel.h says of RunMHEG5Window, ExitMHEG5 and MHEG5WaitForClose. Only after Load.
  [[nodiscard]] bool Start(MHEG5Host& host, HWND hostWindow) const;
  void RequestClose() const;
  void WaitForClose() const;

 private:
  decltype(&RunMHEG5Window) run_ = nullptr;
  decltype(&ExitMHEG5) exit_ = nullptr;
  decltype(&MHEG5WaitForClose) wait_ = nullptr;
};

// The engine's window in this process; null while there is none.
[[nodiscard]] HWND FindEngineWindow();

}  // namespace player
