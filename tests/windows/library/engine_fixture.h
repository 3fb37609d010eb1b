// The fixture for tests of the whole library: a host object that serves a carousel from memory, a
// host window, and an engine that is closed when the test ends.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "windows/library/library.h"
#include "windows/support/host_window.h"
#include "windows/support/process.h"
#include "windows/support/recording_host.h"
#include "windows/support/waiting.h"

namespace korvel::test {

// The message with which the engine restarts itself after a Quit.
inline constexpr UINT kRestartAfterQuit = 0x8001;

class Engine : public testing::Test {
 protected:
  Engine() : Engine(TheLibrary()) {}
  // Uses another copy of the library. Borrows `played`.
  explicit Engine(const Library& played) : library(played) {}
  ~Engine() override;

  // Serves an application "a" that enters the scene "s". `items` are the scene's items in the
  // textual notation. The scene receives every key.
  void ServeScene(const std::string& items);
  // Serves a scene with this name and these items, which may be empty.
  void ServeScene(const std::string& name, const std::string& items);
  // Returns the encoded file of such a scene.
  [[nodiscard]] static std::string CompileScene(const std::string& name, const std::string& items);

  // Starts the engine and waits for its window.
  void Start();
  // Waits for the window of an engine that has been started already.
  void WaitForWindow();
  // Closes the engine and waits until the host window has been notified and the thread has ended.
  void Close();

  void Post(UINT message, WPARAM wParam = 0) const;
  void PressKey(WPARAM virtualKey) const { Post(WM_KEYDOWN, virtualKey); }
  [[nodiscard]] COLORREF Shown(int x, int y) const { return ShownPixel(engineWindow, x, y); }
  // Waits until the pixel of the window has the colour.
  void WaitForColour(int x, int y, COLORREF colour) const;
  // Waits until the engine has read the file `count` times.
  void WaitForRead(const std::string& path, int count = 1) const;
  [[nodiscard]] int ReadsOf(const std::string& path) const {
    return host.CountOf("ReadFile " + path);
  }

  const Library& library;
  RecordingHost host;
  HostWindow window;
  HWND engineWindow = nullptr;
};

}  // namespace korvel::test
