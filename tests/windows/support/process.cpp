// Inspects threads and windows of the test's own process.
#include "windows/support/process.h"

#include <tlhelp32.h>

#include <cstring>

namespace korvel::test {
namespace {

BOOL CALLBACK StoreEngineWindow(HWND window, LPARAM found) {
  char name[32] = {};
  DWORD process = 0;
  GetClassNameA(window, name, sizeof(name));
  GetWindowThreadProcessId(window, &process);
  if (process != GetCurrentProcessId() || std::strcmp(name, "MHEG5 Window") != 0) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

}  // namespace

int CountThreads() {
  HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  int count = 0;
  THREADENTRY32 entry = {};
  entry.dwSize = sizeof(entry);
  for (BOOL hasEntry = Thread32First(snapshot, &entry); hasEntry != 0;
       hasEntry = Thread32Next(snapshot, &entry)) {
    if (entry.th32OwnerProcessID == GetCurrentProcessId()) ++count;
  }
  CloseHandle(snapshot);
  return count;
}

HWND FindEngineWindow() {
  HWND window = nullptr;
  EnumWindows(StoreEngineWindow, reinterpret_cast<LPARAM>(&window));
  return window;
}

COLORREF ShownPixel(HWND window, int x, int y) {
  HDC deviceContext = GetDC(window);
  const COLORREF colour = GetPixel(deviceContext, x, y);
  ReleaseDC(window, deviceContext);
  return colour;
}

}  // namespace korvel::test
