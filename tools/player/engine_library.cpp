// The library stays loaded until the process ends: unloading it earlier has no benefit.
#include "player/engine_library.h"

#include <bit>

namespace player {
namespace {

template <typename Function> bool Find(HMODULE library, const char* name, Function& function) {
  function = std::bit_cast<Function>(GetProcAddress(library, name));
  return function != nullptr;
}

// Stores the window and ends the search if it is this process's engine window. Players in other
// processes have windows of the same class.
BOOL CALLBACK StoreEngineWindow(HWND window, LPARAM found) {
  char name[32] = {};
  DWORD process = 0;
  GetClassNameA(window, name, sizeof name);
  GetWindowThreadProcessId(window, &process);
  if (process != GetCurrentProcessId() || lstrcmpA(name, "MHEG5 Window") != 0) return TRUE;
  *std::bit_cast<HWND*>(found) = window;
  return FALSE;
}

}  // namespace

bool EngineLibrary::Load() {
  const HMODULE library = LoadLibraryA("korvel.dll");
  return library != nullptr && Find(library, "RunMHEG5Window", run_) &&
         Find(library, "ExitMHEG5", exit_) && Find(library, "MHEG5WaitForClose", wait_);
}

bool EngineLibrary::Start(MHEG5Host& host, HWND hostWindow) const {
  return run_(&host, hostWindow) == 0;
}

void EngineLibrary::RequestClose() const { exit_(); }

void EngineLibrary::WaitForClose() const { wait_(); }

HWND FindEngineWindow() {
  HWND window = nullptr;
  EnumWindows(StoreEngineWindow, std::bit_cast<LPARAM>(&window));
  return window;
}

}  // namespace player
