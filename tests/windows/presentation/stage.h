// The fixture for all picture tests: a real window, the presentation opened on it, and a running
// application with an empty display stack.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "objects/objects.h"
#include "substitutes/host.h"
#include "windows/presentation/pixels.h"
#include "windows/substitutes/engine.h"
#include "windows/support/temporary_folder.h"

namespace korvel::test {

class Stage : public testing::Test {
 protected:
  Stage();
  ~Stage() override;
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  // Sets a visible running and adds it to the top of the display stack.
  void Show(ItemType kind, Visible& visible);
  // Paints regardless of the redraw counter, and returns the back buffer.
  [[nodiscard]] Pixels Paint();
  // Advances the clock by one millisecond, so that the next update is not skipped.
  static void LetTimePass() { ++TheHost().milliseconds; }

  // The pixels of the window.
  [[nodiscard]] Pixels Shown() const { return WindowPixels(window_); }
  [[nodiscard]] HWND Window() const { return window_; }
  // The folder for temporary files, including the engine's. Ends in a backslash.
  [[nodiscard]] const std::string& TemporaryPath() const { return temporaryFolder_.Path(); }
  Application& App() { return application_; }

 private:
  TemporaryFolder temporaryFolder_;
  HWND window_;
  Application application_;
};

// Build values for the fields of records.
[[nodiscard]] OctetString Octets(std::string_view bytes);
[[nodiscard]] ColourValue Absolute(std::string_view bytes);
[[nodiscard]] ColourValue Indexed(std::int32_t index);
void Place(Visible& visible, std::int32_t x, std::int32_t y, std::int32_t width,
           std::int32_t height);
// Fills the rectangle and draws its border in the same colour.
void Fill(Rectangle& rectangle, std::string_view colour);

inline constexpr std::string_view kRedBytes("\xFF\x00\x00", 3);
inline constexpr std::string_view kGreenBytes("\x00\xFF\x00", 3);
inline constexpr std::string_view kBlueBytes("\x00\x00\xFF", 3);
inline constexpr std::string_view kWhiteBytes("\xFF\xFF\xFF", 3);

}  // namespace korvel::test
