// Sets up the fixture's window and records.
#include "windows/presentation/stage.h"

#include "platform/screen.h"
#include "presentation/presentation.h"

namespace korvel::test {

namespace {

HWND OpenWindow() {
  HWND window = CreateWindowExA(0, "STATIC", "presentation test", WS_POPUP | WS_VISIBLE, 0, 0,
                                kSceneWidth, kSceneHeight, nullptr, nullptr, nullptr, nullptr);
  UpdateWindow(window);
  return window;
}

}  // namespace

Stage::Stage() : window_(OpenWindow()) {
  TheHost() = {};
  TheEngine() = {};
  TheEngine().application = &application_;
  application_.Reference.GroupIdentifier = Octets("~/app");
  OpenScreen();
  OpenPresentation(window_);
  ResetRedrawCounter();
}

Stage::~Stage() {
  ReleasePictures();
  ClosePresentation();
  CloseScreen();
  DestroyWindow(window_);
  TheEngine() = {};
}

void Stage::Show(ItemType kind, Visible& visible) {
  visible.RunningStatus = true;
  ASSERT_NE(application_.DisplayStack.Append({kind, &visible}), nullptr);
}

Pixels Stage::Paint() {
  ResetRedrawCounter();
  EXPECT_EQ(Redraw(), Status::Done);
  return BackBufferPixels();
}

OctetString Octets(std::string_view bytes) {
  OctetString octets;
  EXPECT_TRUE(octets.Assign(bytes));
  return octets;
}

ColourValue Absolute(std::string_view bytes) {
  ColourValue colour;
  colour.Kind = ValueKind::OctetString;
  colour.Absolute = Octets(bytes);
  return colour;
}

ColourValue Indexed(std::int32_t index) {
  ColourValue colour;
  colour.Kind = ValueKind::Integer;
  colour.Index = index;
  return colour;
}

void Place(Visible& visible, std::int32_t x, std::int32_t y, std::int32_t width,
           std::int32_t height) {
  visible.Position = {x, y};
  visible.BoxSize = {width, height};
}

void Fill(Rectangle& rectangle, std::string_view colour) {
  rectangle.LineWidth = 1;
  rectangle.RefLineColour = Absolute(colour);
  rectangle.RefFillColour = Absolute(colour);
}

}  // namespace korvel::test
