// The window class and its message handler.
#include "windows/support/host_window.h"

#include "korvel.h"

namespace korvel::test {
namespace {

constexpr char kClassName[] = "host window of tests";

}  // namespace

HostWindow::HostWindow() {
  WNDCLASSA windowClass = {};
  windowClass.lpfnWndProc = Procedure;
  windowClass.hInstance = GetModuleHandleA(nullptr);
  windowClass.lpszClassName = kClassName;
  RegisterClassA(&windowClass);
  window_ = CreateWindowExA(0, kClassName, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                            windowClass.hInstance, nullptr);
  SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

HostWindow::~HostWindow() { DestroyWindow(window_); }

LRESULT CALLBACK HostWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* self = reinterpret_cast<HostWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (self == nullptr || message < WM_USER) return DefWindowProcA(window, message, wParam, lParam);
  if (message == kMHEG5ClosedMessage && wParam == 0 && lParam == 0) {
    ++self->closes_;
    if (self->onClosed) self->onClosed();
  } else {
    ++self->unexpectedMessages_;
  }
  return 0;
}

}  // namespace korvel::test
