// The worker polls for queued work every 10 ms and sleeps in between. It does all reading, actions
// and painting between two such sleeps, so counting the sleeps shows when it is idle. To count
// them, the library's import of Sleep is replaced; to know which timers run, those of SetTimer and
// KillTimer. A hook on the window's thread observes its messages. None of this affects the engine.
#include "player/engine_watch.h"

#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <set>
#include <utility>

namespace player {
namespace {

constexpr DWORD kIdleSleepMs = 10;
constexpr UINT kMarkMessage = WM_NULL;  // windows ignore this message
constexpr unsigned kNoMark = 0;

struct WatchState {
  std::atomic<unsigned> lastMark = kNoMark;
  std::atomic<unsigned> idlePolls = 0;
  std::uintptr_t idleStack = 0;   // worker only: its stack position in the polling loop
  unsigned postedMark = kNoMark;  // host's thread only
  std::atomic<bool> isReloadWanted = false;

  std::mutex lock;  // guards the fields below
  std::vector<KeyPress> keys;
  std::set<UINT_PTR> timers;
};

WatchState watch;

// The worker may also sleep for 10 ms while it handles queued work, to wait for a file that another
// process has open. It is then deeper in its stack, which grows downwards, than in the polling
// loop.
void WINAPI SleepAndCount(DWORD milliseconds) {
  const auto stack = std::bit_cast<std::uintptr_t>(&milliseconds);
  if (milliseconds == kIdleSleepMs && stack >= watch.idleStack) {
    watch.idleStack = stack;
    ++watch.idlePolls;
  }
  Sleep(milliseconds);
}

UINT_PTR WINAPI SetAndRecordTimer(HWND window, UINT_PTR id, UINT period, TIMERPROC procedure) {
  {
    const std::lock_guard guard(watch.lock);
    watch.timers.insert(id);
  }
  return SetTimer(window, id, period, procedure);
}

BOOL WINAPI KillAndRecordTimer(HWND window, UINT_PTR id) {
  {
    const std::lock_guard guard(watch.lock);
    watch.timers.erase(id);
  }
  return KillTimer(window, id);
}

void RecordKey(unsigned virtualKey) {
  if (virtualKey == VK_F5) watch.isReloadWanted = true;
  const std::lock_guard guard(watch.lock);
  watch.keys.push_back({virtualKey, GetTickCount64()});
}

LRESULT CALLBACK ObserveMessage(int code, WPARAM removal, LPARAM parameter) {
  const MSG& message = *std::bit_cast<const MSG*>(parameter);
  if (code == HC_ACTION && removal == PM_REMOVE && message.message == kMarkMessage &&
      message.wParam != kNoMark) {
    watch.lastMark = static_cast<unsigned>(message.wParam);
  }
  if (code == HC_ACTION && removal == PM_REMOVE && message.message == WM_KEYDOWN) {
    RecordKey(static_cast<unsigned>(message.wParam));
  }
  return CallNextHookEx(nullptr, code, removal, parameter);
}

template <typename Part> Part* PartOf(HMODULE library, std::size_t offset) {
  return std::bit_cast<Part*>(std::bit_cast<std::byte*>(library) + offset);
}

// The slot of a function in the library's import table; null if the library does not import it.
FARPROC* FindImport(HMODULE library, FARPROC function) {
  const auto start = PartOf<const IMAGE_DOS_HEADER>(library, 0)->e_lfanew;
  const auto* headers = PartOf<const IMAGE_NT_HEADERS>(library, static_cast<std::size_t>(start));
  const auto& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  const auto* from = PartOf<const IMAGE_IMPORT_DESCRIPTOR>(library, imports.VirtualAddress);
  for (; from->FirstThunk != 0; ++from) {
    for (auto* slot = PartOf<FARPROC>(library, from->FirstThunk); *slot != nullptr; ++slot) {
      if (*slot == function) return slot;
    }
  }
  return nullptr;
}

bool ReplaceImport(FARPROC& slot, FARPROC function) {
  DWORD before = 0;
  if (VirtualProtect(&slot, sizeof slot, PAGE_READWRITE, &before) == 0) return false;
  slot = function;
  return VirtualProtect(&slot, sizeof slot, before, &before) != 0;
}

// Makes the library call `function` instead of the function `name` of the system library `system`.
// Returns false if the library does not import that function.
template <typename Function>
bool Replace(HMODULE library, const char* system, const char* name, Function* function) {
  const HMODULE module = GetModuleHandleA(system);
  FARPROC* const slot =
      module == nullptr ? nullptr : FindImport(library, GetProcAddress(module, name));
  return slot != nullptr && ReplaceImport(*slot, std::bit_cast<FARPROC>(function));
}

}  // namespace

bool WatchEngine() {
  static bool isReplaced = false;
  watch.idleStack = 0;
  watch.isReloadWanted = false;
  watch.keys.clear();
  watch.timers.clear();
  if (isReplaced) return true;
  const HMODULE library = GetModuleHandleA("korvel.dll");
  isReplaced = library != nullptr && Replace(library, "kernel32.dll", "Sleep", &SleepAndCount) &&
               Replace(library, "user32.dll", "SetTimer", &SetAndRecordTimer) &&
               Replace(library, "user32.dll", "KillTimer", &KillAndRecordTimer);
  return isReplaced;
}

bool WatchWindow(HWND engineWindow) {
  const DWORD thread = GetWindowThreadProcessId(engineWindow, nullptr);
  return SetWindowsHookExA(WH_GETMESSAGE, ObserveMessage, nullptr, thread) != nullptr;
}

unsigned PostMark(HWND engineWindow) {
  PostMessageA(engineWindow, kMarkMessage, ++watch.postedMark, 0);
  return watch.postedMark;
}

EngineState StateOfEngine(HWND engineWindow) {
  return {watch.lastMark, watch.idlePolls, GetUpdateRect(engineWindow, nullptr, FALSE) == 0};
}

bool HasTimer() {
  const std::lock_guard guard(watch.lock);
  return !watch.timers.empty();
}

std::vector<KeyPress> TakeKeys() {
  const std::lock_guard guard(watch.lock);
  return std::exchange(watch.keys, {});
}

bool TakeReloadRequest() { return watch.isReloadWanted.exchange(false); }

}  // namespace player
