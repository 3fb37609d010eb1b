// The host's window in tests: invisible, owned by the thread that creates it. Counts the messages
// by which the engine reports its close.
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
  // The number of closed messages so far. Both parameters of such a message are 0.
  [[nodiscard]] int Closes() const { return closes_; }
  // The number of other messages from WM_USER upwards; the engine should send none.
  [[nodiscard]] int UnexpectedMessages() const { return unexpectedMessages_; }

  // Called inside the handler of the closed message.
  std::function<void()> onClosed;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND window_ = nullptr;
  int closes_ = 0;
  int unexpectedMessages_ = 0;
};

}  // namespace korvel::test
