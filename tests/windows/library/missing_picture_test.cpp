// Tests a library without the picture that replaces broadcast video, as if its resources were
// missing or damaged.
#include <array>
#include <fstream>
#include <iterator>

#include "windows/library/engine_fixture.h"

namespace korvel::test {
namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kGreen = RGB(0, 255, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

std::string CopyPath() {
  std::array<char, MAX_PATH> folder{};
  GetTempPathA(MAX_PATH, folder.data());
  return std::string(folder.data()) + "korvel_without_picture.dll";
}

// Copies the library and changes the type of the picture's resource, so that it is not found.
bool MakeCopy() {
  std::ifstream source("korvel.dll", std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(source), {}};
  const std::string type("V\0I\0D\0E\0O\0_\0J\0P\0G\0", 18);
  const std::size_t position = bytes.find(type);
  if (position == std::string::npos || bytes.find(type, position + 1) != std::string::npos)
    return false;
  bytes[position] = 'X';
  std::ofstream(CopyPath(), std::ios::binary) << bytes;
  return true;
}

// Loads the copy once per process.
const Library& LibraryWithoutPicture() {
  static const Library library =
      MakeCopy() ? FindFunctions(LoadLibraryA(CopyPath().c_str())) : Library{};
  return library;
}

class MissingPictureTest : public Engine {
 protected:
  MissingPictureTest() : Engine(LibraryWithoutPicture()) {}
};

// The video is above a blue background and below a lamp. The event for a missing picture changes
// the lamp from green to red before it is drawn.
TEST_F(MissingPictureTest, shows_the_objects_below_the_video_and_raises_the_event) {
  ASSERT_NE(library.run, nullptr);
  ServeScene(R"(
    {:Rectangle 1 :OrigBoxSize 720 576 :OrigLineWidth 0 :OrigRefFillColour '=00=00=FF=00'}
    {:Stream 2 :OrigContent :ContentRef ("dvb://1") :Multiplex (
      {:Video 3 :OrigBoxSize 720 576 :ComponentTag 1 :Termination disappear})}
    {:Rectangle 4 :OrigBoxSize 40 40 :OrigPosition 600 400 :OrigLineWidth 0
      :OrigRefFillColour '=00=FF=00=00'}
    {:Link 5 :EventSource ("~/a" 0) :EventType EngineEvent :EventData 3
      :LinkEffect (:SetFillColour(4 :NewAbsoluteColour '=FF=00=00=00'))}
    {:Link 6 :EventSource 0 :EventType UserInput :EventData 100 :LinkEffect (:Stop(2)
      :SetFillColour(4 :NewAbsoluteColour '=00=FF=00=00') :SetPosition(4 600 400))}
    {:Link 7 :EventSource 0 :EventType UserInput :EventData 101 :LinkEffect (:Run(2))})");
  Start();
  WaitForColour(610, 410, kRed);
  for (const int y : {10, 200, 300, 570}) {
    for (const int x : {10, 300, 700}) EXPECT_EQ(Shown(x, y), kBlue) << x << ' ' << y;
  }
  PressKey('R');
  WaitForColour(610, 410, kGreen);
  PressKey('G');
  WaitForColour(610, 410, kRed);
  Close();
}

// As above, but the video has no area: the lamp stays green.
TEST_F(MissingPictureTest, is_not_reported_for_a_video_without_area) {
  ASSERT_NE(library.run, nullptr);
  ServeScene(R"(
    {:Stream 2 :OrigContent :ContentRef ("dvb://1") :Multiplex (
      {:Video 3 :OrigBoxSize 0 576 :ComponentTag 1 :Termination disappear}
      {:Video 8 :OrigBoxSize 720 0 :ComponentTag 2 :Termination disappear})}
    {:Rectangle 4 :OrigBoxSize 40 40 :OrigPosition 600 400 :OrigLineWidth 0
      :OrigRefFillColour '=00=FF=00=00'}
    {:Link 5 :EventSource ("~/a" 0) :EventType EngineEvent :EventData 3
      :LinkEffect (:SetFillColour(4 :NewAbsoluteColour '=FF=00=00=00'))}
    {:Link 6 :EventSource 0 :EventType UserInput :EventData 100
      :LinkEffect (:SetBoxSize(3 720 576))})");
  Start();
  WaitForColour(610, 410, kGreen);
  PressKey('R');
  WaitForColour(610, 410, kRed);
  Close();
}

}  // namespace
}  // namespace korvel::test
