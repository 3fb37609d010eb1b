// The host's window in tests: an invisible one that belongs to the thread that makes it and counts
// the messages by which the engine says that it has closed.
#pragma once

#include <windows.h>

#include <functional>

namespace korvel::test {

class HostWindow {
 public:
  HostWindow();
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  ~HostWindow();

  [[nodiscard]] HWND Handle() const { return window_; }
  // How many closes were told so far, with both parameters 0.
  [[nodiscard]] int Closes() const { return closes_; }
  // How many other messages of programs' own numbers have come.
  [[nodiscard]] int StrangeMessages() const { return strangeMessages_; }

  // Called inside the handler of the closed message.
  std::function<void()> onClosed;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND window_ = nullptr;
  int closes_ = 0;
  int strangeMessages_ = 0;
};

}  // namespace korvel::test
