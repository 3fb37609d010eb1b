// Measures a redraw of each scene and, for comparison, the same picture drawn with GDI+ alone; and
// the copy of the picture to the window and, for comparison, plain copies of the same number of
// bytes. The engine's core and its presentation run in this process; their host is a substitute.
// Takes the name of the file to write.
#include <cstring>
#include <optional>

#include "engine/engine.h"
#include "platform/screen.h"
#include "presentation/presentation.h"
#include "substitutes/host.h"
#include "windows/measure.h"
#include "windows/plain_drawing.h"
#include "windows/scenes.h"

namespace korvel::bench {
namespace {

using test::TheHost;

constexpr std::chrono::milliseconds kTimePerScene{4000};
constexpr std::size_t kPixels = std::size_t{kSceneWidth} * kSceneHeight;

BITMAPINFO FormatOfScene() {
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof(format.bmiHeader);
  format.bmiHeader.biWidth = kSceneWidth;
  format.bmiHeader.biHeight = -kSceneHeight;
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  return format;
}

std::vector<std::uint32_t> WindowPixels(HWND window) {
  const BITMAPINFO format = FormatOfScene();
  HDC source = GetDC(window);
  HDC target = CreateCompatibleDC(source);
  void* bits = nullptr;
  HBITMAP picture = CreateDIBSection(target, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
  HGDIOBJ old = SelectObject(target, picture);
  BitBlt(target, 0, 0, kSceneWidth, kSceneHeight, source, 0, 0, SRCCOPY);
  GdiFlush();
  const auto* first = static_cast<const std::uint32_t*>(bits);
  std::vector<std::uint32_t> pixels(first, first + kPixels);
  SelectObject(target, old);
  DeleteObject(picture);
  DeleteDC(target);
  ReleaseDC(window, source);
  return pixels;
}

// The presentation in a window, with a running scene.
class Stage {
 public:
  explicit Stage(const Content& content)
      : window_(CreateWindowExA(0, "STATIC", "benchmark", WS_POPUP | WS_VISIBLE, 0, 0, kSceneWidth,
                                kSceneHeight, nullptr, nullptr, nullptr, nullptr)) {
    UpdateWindow(window_);
    TheHost() = {};
    TheHost().millisecondsPerReading = 1;  // no update is in the same millisecond as the last one
    for (const auto& [path, bytes] : Carousel(content)) TheHost().files[path] = bytes;
    OpenScreen();
    OpenPresentation(window_);
    BeginWork();
    static_cast<void>(StartEngine({}));
    // Locks the screen, so that a redraw paints but does not copy.
    if (CurrentScene() != nullptr) CurrentApplication()->LockCount = 1;
  }
  ~Stage() {
    CloseDown();
    ReleasePictures();
    ResetEngine();
    ClosePresentation();
    CloseScreen();
    DestroyWindow(window_);
  }
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  [[nodiscard]] HWND Window() const { return window_; }

 private:
  HWND window_;
};

void PaintOnce() {
  ResetRedrawCounter();
  static_cast<void>(Redraw());
}

void ForgetCalls() {
  TheHost().traced.clear();
  TheHost().fetched.clear();
}

// Whether the engine and the plain drawing show the same colours.
[[nodiscard]] bool DrawSamePicture(const Stage& stage, PlainDrawing& plain) {
  PaintOnce();
  DeviceUpdate();
  plain.Draw(Decoding::EachTime);
  const std::vector<std::uint32_t> shown = WindowPixels(stage.Window());
  const std::vector<std::uint32_t> drawn = plain.Pixels();
  std::size_t different = 0;
  for (std::size_t index = 0; index < kPixels; ++index) {
    if (((shown[index] ^ drawn[index]) & 0xFFFFFF) != 0) ++different;
  }
  if (different > 0) std::fprintf(stderr, "%zu pixels differ\n", different);
  return different == 0;
}

[[nodiscard]] bool MeasureRedraw(const NamedContent& scene, Report& report) {
  const Stage stage(scene.content);
  PlainDrawing plain(scene.content);
  if (CurrentScene() == nullptr || !DrawSamePicture(stage, plain)) return false;
  std::vector<Timed> calls = {
      {std::string("redraw/") + scene.name, PaintOnce, ForgetCalls},
      {"gdi_plus", [&] { plain.Draw(Decoding::Once); }},
  };
  if (scene.content.hasPictures) {
    calls.push_back({"gdi_plus_decoding", [&] { plain.Draw(Decoding::EachTime); }});
  }
  TimeInTurn(calls, kTimePerScene);
  report.AddMedians(calls);
  return true;
}

void MeasureDeviceUpdate(Report& report) {
  const Stage stage({});
  PaintOnce();
  const std::vector<std::uint32_t> from(kPixels, 0xFF102060);
  std::vector<std::uint32_t> to(kPixels);
  const BITMAPINFO format = FormatOfScene();
  std::vector<Timed> calls = {
      {"device_update", DeviceUpdate, ForgetCalls},
      {"one_copy", [&] { std::memcpy(to.data(), from.data(), kPixels * sizeof(from[0])); }},
      {"copy_to_window",
       [&] {
         HDC target = GetDC(stage.Window());
         SetDIBitsToDevice(target, 0, 0, kSceneWidth, kSceneHeight, 0, 0, 0, kSceneHeight,
                           from.data(), &format, DIB_RGB_COLORS);
         ReleaseDC(stage.Window(), target);
       }},
  };
  TimeInTurn(calls, kTimePerScene);
  report.AddMedians(calls);
}

// Keeps GDI+ started for the plain drawings.
class StartedGdiPlus {
 public:
  StartedGdiPlus() {
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token_, &input, nullptr);
  }
  ~StartedGdiPlus() { Gdiplus::GdiplusShutdown(token_); }
  StartedGdiPlus(const StartedGdiPlus&) = delete;
  StartedGdiPlus& operator=(const StartedGdiPlus&) = delete;

 private:
  ULONG_PTR token_ = 0;
};

[[nodiscard]] bool MeasureAll(Report& report) {
  const StartedGdiPlus gdiPlus;
  for (const NamedContent& scene : Scenes()) {
    if (MeasureRedraw(scene, report)) continue;
    std::fprintf(stderr, "%s: the pictures differ\n", scene.name);
    return false;
  }
  MeasureDeviceUpdate(report);
  return true;
}

}  // namespace
}  // namespace korvel::bench

int main(int count, char** arguments) {
  korvel::bench::Report report;
  if (count != 2) return 2;
  return korvel::bench::MeasureAll(report) && report.Write(arguments[1]) ? 0 : 1;
}
