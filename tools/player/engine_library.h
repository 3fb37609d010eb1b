// Loads korvel.dll at run time from the player's own folder, so that the player itself can report a
// missing or unsuitable library.
#pragma once

#include "korvel.h"

namespace player {

class EngineLibrary {
 public:
  // Loads the library and finds its functions. Returns false if the library or a function is
  // missing.
  [[nodiscard]] bool Load();

  // RunMHEG5Window, ExitMHEG5 and MHEG5WaitForClose as korvel.h describes them. Call Load() first.
  [[nodiscard]] bool Start(MHEG5Host& host, HWND hostWindow) const;
  void RequestClose() const;
  void WaitForClose() const;

 private:
  decltype(&RunMHEG5Window) run_ = nullptr;
  decltype(&ExitMHEG5) exit_ = nullptr;
  decltype(&MHEG5WaitForClose) wait_ = nullptr;
};

// The engine's window in this process; null if there is none.
[[nodiscard]] HWND FindEngineWindow();

}  // namespace player
