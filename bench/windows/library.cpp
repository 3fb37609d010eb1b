// Measures the library as a host uses it: from a key to the changed pixel in the window, from the
// start to the first scene, and from the request to close to the closed message. Records the
// engine's calls that begin a redraw and that copy the picture to the window. Takes the name of
// the file to write.
#include <windows.h>

#include <objidl.h>

#include <gdiplus.h>

#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <random>

#include "windows/library/library.h"
#include "windows/measure.h"
#include "windows/scenes.h"
#include "windows/support/host_window.h"
#include "windows/support/imports.h"
#include "windows/support/process.h"
#include "windows/support/recording_host.h"

namespace korvel::bench {
namespace {

constexpr int kKeys = 1000;
constexpr int kStarts = 30;
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

// ---- The copies to the window ----

struct Copy {
  Clock::time_point redrawStart;  // of the redraw that it shows
  Clock::time_point done;
  COLORREF corner = 0;
};

std::condition_variable copied;
std::mutex copiesLock;  // guards the next two
std::vector<Copy> copies;
Clock::time_point lastClear;

// Replaces GdipGraphicsClear, with which a redraw begins.
Gdiplus::GpStatus WINAPI RecordClear(Gdiplus::GpGraphics* graphics, Gdiplus::ARGB colour) {
  {
    const std::lock_guard lock(copiesLock);
    lastClear = Clock::now();
  }
  return Gdiplus::DllExports::GdipGraphicsClear(graphics, colour);
}

// Replaces SetDIBitsToDevice, with which a copy to the window ends: the pixels are in the window
// when it returns.
int WINAPI RecordCopy(HDC target, int x, int y, DWORD width, DWORD height, int fromX, int fromY,
                      UINT firstLine, UINT lines, const void* bits, const BITMAPINFO* format,
                      UINT use) {
  const int result = SetDIBitsToDevice(target, x, y, width, height, fromX, fromY, firstLine, lines,
                                       bits, format, use);
  const Clock::time_point done = Clock::now();
  const COLORREF corner = GetPixel(target, kCorner.x, kCorner.y);
  {
    const std::lock_guard lock(copiesLock);
    copies.push_back({lastClear, done, corner});
  }
  copied.notify_one();
  return result;
}

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "%s\n", what);
  std::exit(1);
}

void ForgetCopies() {
  const std::lock_guard lock(copiesLock);
  copies.clear();
}

// Waits for `count` copies whose corner has the colour, and returns the first of them.
Copy WaitForCopies(COLORREF corner, std::ptrdiff_t count) {
  const auto isShown = [&](const Copy& copy) { return copy.corner == corner; };
  std::unique_lock lock(copiesLock);
  if (!copied.wait_for(lock, std::chrono::seconds(20),
                       [&] { return std::ranges::count_if(copies, isShown) >= count; })) {
    Fail("timed out waiting for a redraw");
  }
  return *std::ranges::find_if(copies, isShown);
}

// ---- The engine ----

class Engine {
 public:
  explicit Engine(const Content& content) {
    for (const auto& [path, bytes] : Carousel(content)) host_.Serve(path, bytes);
  }

  // Returns the time until the first scene is in the window.
  double Start() {
    ForgetCopies();
    const Clock::time_point start = Clock::now();
    if (library_.run(&host_, window_.Handle()) != 0) Fail("the engine did not start");
    return Microseconds(WaitForCopies(kBlue, 1).done - start).count();
  }

  // Returns the time until the closed message arrives.
  double Close() {
    const int closes = window_.Closes();
    const Clock::time_point start = Clock::now();
    library_.exit();
    for (MSG message; window_.Closes() == closes;) {
      if (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
    }
    const double time = Microseconds(Clock::now() - start).count();
    library_.waitForClose();
    return time;
  }

 private:
  const test::Library& library_ = test::TheLibrary();
  test::RecordingHost host_;
  test::HostWindow window_;
};

// ---- Measurements ----

struct KeySamples {
  std::vector<double> whole;
  std::vector<double> waits;  // until the redraw begins
  std::vector<double> redraws;

  void Add(Clock::time_point posted, const Copy& copy) {
    whole.push_back(Microseconds(copy.done - posted).count());
    waits.push_back(Microseconds(copy.redrawStart - posted).count());
    redraws.push_back(Microseconds(copy.done - copy.redrawStart).count());
  }
};

// Posts each key at a random point of the engine's 10 ms poll. Each key copies to the window twice,
// when its action requests a redraw and after it is handled; waits for the second copy.
KeySamples PressKeys(HWND window) {
  KeySamples samples;
  std::mt19937 random(20240607);
  std::uniform_int_distribution<DWORD> pauseMs(0, 20);
  for (int key = 0; key < kKeys; ++key) {
    const bool isUp = key % 2 == 0;
    Sleep(pauseMs(random));
    ForgetCopies();
    const Clock::time_point posted = Clock::now();
    PostMessageA(window, WM_KEYDOWN, isUp ? VK_UP : VK_DOWN, 0);
    samples.Add(posted, WaitForCopies(isUp ? kRed : kBlue, 2));
  }
  return samples;
}

// The median length, in microseconds, of the poll's Sleep(10) on this system.
double MeasurePoll() {
  std::vector<Timed> calls = {{"poll", [] { Sleep(10); }}};
  TimeInTurn(calls, std::chrono::seconds(2));
  return Percentile(calls[0].samples, 0.5);
}

// A slow key may take as long as a poll, a slow redraw and 5 ms.
void MeasureKeys(const NamedContent& scene, double pollUs, Report& report) {
  constexpr double kAllowanceUs = 5000;
  Engine engine(scene.content);
  engine.Start();
  Sleep(500);  // until the redraws of the start have ended
  const KeySamples samples = PressKeys(test::FindEngineWindow());
  const std::string name = std::string("key_to_picture/") + scene.name;
  const double slowRedrawUs = Percentile(samples.redraws, 0.99);
  report.Add(
      name + "_p50", Percentile(samples.whole, 0.5),
      {{"wait", Percentile(samples.waits, 0.5)}, {"redraw", Percentile(samples.redraws, 0.5)}});
  report.Add(name + "_p99", Percentile(samples.whole, 0.99),
             {{"wait", Percentile(samples.waits, 0.99)},
              {"redraw", slowRedrawUs},
              {"allowed", pollUs + slowRedrawUs + kAllowanceUs}});
  engine.Close();
}

void MeasureStarts(const NamedContent& scene, Report& report) {
  Engine engine(scene.content);
  std::vector<double> starts;
  std::vector<double> closes;
  for (int count = 0; count < kStarts; ++count) {
    starts.push_back(engine.Start());
    closes.push_back(engine.Close());
  }
  const std::string name = scene.name;
  report.Add("start/" + name, Percentile(starts, 0.5), {{"p99", Percentile(starts, 0.99)}});
  report.Add("close/" + name, Percentile(closes, 0.5), {{"p99", Percentile(closes, 0.99)}});
}

void MeasureAll(Report& report) {
  static_cast<void>(test::TheLibrary());
  HMODULE library = GetModuleHandleA("korvel.dll");
  if (library == nullptr) Fail("korvel.dll is missing");
  const test::ReplacedImport clear(library, "GdipGraphicsClear", RecordClear);
  const test::ReplacedImport copy(library, "SetDIBitsToDevice", RecordCopy);
  if (!clear.IsInPlace() || !copy.IsInPlace())
    Fail("korvel.dll does not import GdipGraphicsClear or SetDIBitsToDevice");
  for (const NamedContent& scene : Scenes()) MeasureStarts(scene, report);
  const double pollUs = MeasurePoll();
  for (const NamedContent& scene : Scenes()) MeasureKeys(scene, pollUs, report);
}

}  // namespace
}  // namespace korvel::bench

int main(int count, char** arguments) {
  korvel::bench::Report report;
  if (count != 2) return 2;
  korvel::bench::MeasureAll(report);
  return report.Write(arguments[1]) ? 0 : 1;
}
