// Writes the scenes in the textual notation and compiles them.
#include "windows/scenes.h"

#include <windows.h>

#include <objidl.h>

#include <gdiplus.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "objects/ber/ber.h"
#include "textual/textual.h"

namespace korvel::bench {
namespace {

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "%s\n", what);
  std::exit(1);
}

std::string Compile(const std::string& text) {
  OwnedGroup group;
  OctetString bytes;
  if (ReadTextGroup(text, group) != TextResult::Done ||
      EncodeGroup(*group, bytes) != Status::Done) {
    Fail("a scene cannot be compiled");
  }
  return std::string(bytes.View());
}

std::string At(const Area& area) {
  return ":OrigBoxSize " + std::to_string(area.width) + " " + std::to_string(area.height) +
         " :OrigPosition " + std::to_string(area.x) + " " + std::to_string(area.y) + " ";
}

std::string PictureName(int index) { return "picture" + std::to_string(index); }

std::string Rectangle(int number, const Area& area, int lineWidth, const std::string& fill) {
  return "{:Rectangle " + std::to_string(number) + " " + At(area) + ":OrigLineWidth " +
         std::to_string(lineWidth) + " :OrigRefLineColour '=FF=FF=FF=00' :OrigRefFillColour '" +
         fill + "'}\n";
}

std::string ItemsOf(const Content& content) {
  std::string items;
  if (content.hasVideo) {
    items += R"({:Stream 1 :OrigContent :ContentRef ("dvb://1.2.3")
                 :Multiplex ({:Video 2 :OrigBoxSize 720 576 :ComponentTag 1}) })";
  }
  if (content.hasFrame) {
    items += R"({:Bitmap 3 :CHook 2 :OrigContent :ContentRef ("~/frame")
                 :OrigBoxSize 720 576})";
  }
  for (int index = 0; content.hasPictures && index < kPictureCount; ++index) {
    items += "{:Bitmap " + std::to_string(10 + index) +
             R"( :CHook 4 :OrigContent :ContentRef ("~/)" + PictureName(index) + "\") " +
             At(PictureArea(index)) + "}\n";
  }
  if (content.hasCanvas) {
    items += R"({:DynamicLineArt 4 :OrigBoxSize 720 576 :BBBox FALSE :OrigLineWidth 3
                 :OrigRefLineColour '=FF=00=00=00' :OrigRefFillColour '=00=80=00=00'}
                {:Link 5 :EventSource 0 :EventType IsRunning :LinkEffect (
                   :DrawRectangle(4 100 100 600 400) :DrawLine(4 0 0 719 575)
                   :DrawOval(4 200 150 300 200))})";
  }
  for (int index = 0; content.hasTexts && index < kTextCount; ++index) {
    if (content.hasRectangles) {
      items += Rectangle(100 + index, TextArea(index), kLineWidth, "=10=20=60=00");
    }
    items += "{:Text " + std::to_string(200 + index) + " " + At(TextArea(index)) +
             ":OrigContent \"" + TextOf(index) + "\" :TextWrapping TRUE}\n";
  }
  items += Rectangle(300, kCorner, 0, "=FF=00=00=00") + Rectangle(301, kCorner, 0, "=00=00=FF=00");
  for (const int key : {1, 2}) {  // Up, Down
    items += "{:Link " + std::to_string(400 + key) +
             " :EventSource 0 :EventType UserInput :EventData " + std::to_string(key) +
             " :LinkEffect (:BringToFront(" + std::to_string(299 + key) + "))}\n";
  }
  return items;
}

// A colour ramp and squares, so that the picture compresses as drawn graphics do.
void DrawPicture(int index, Gdiplus::Bitmap& picture) {
  for (int y = 0; y < 288; ++y) {
    for (int x = 0; x < 360; ++x) {
      const auto red = static_cast<BYTE>(x * 255 / 360);
      const auto green = static_cast<BYTE>(y * 255 / 288);
      const auto blue = static_cast<BYTE>((x / 12 + y / 12) % 2 == 0 ? 200 : 40 * index);
      picture.SetPixel(x, y, Gdiplus::Color(255, red, green, blue));
    }
  }
}

std::string Encode(Gdiplus::Bitmap& picture) {
  // The class of GDI+'s PNG encoder.
  constexpr CLSID kPng = {
      0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
  IStream* stream = nullptr;
  HGLOBAL block = nullptr;
  if (CreateStreamOnHGlobal(nullptr, TRUE, &stream) != S_OK ||
      picture.Save(stream, &kPng, nullptr) != Gdiplus::Ok ||
      GetHGlobalFromStream(stream, &block) != S_OK) {
    Fail("the picture cannot be encoded");
  }
  STATSTG state{};
  stream->Stat(&state, STATFLAG_NONAME);
  std::string bytes(static_cast<const char*>(GlobalLock(block)),
                    static_cast<std::size_t>(state.cbSize.QuadPart));
  GlobalUnlock(block);
  stream->Release();
  return bytes;
}

std::vector<std::string> MakePictureFiles() {
  const Gdiplus::GdiplusStartupInput input;
  ULONG_PTR token = 0;
  if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) Fail("GDI+ does not start");
  std::vector<std::string> files;
  for (int index = 0; index < kPictureCount; ++index) {
    Gdiplus::Bitmap picture(360, 288, PixelFormat32bppARGB);
    DrawPicture(index, picture);
    files.push_back(Encode(picture));
  }
  Gdiplus::GdiplusShutdown(token);
  return files;
}

std::string ReadFrameFile() {
  std::ifstream file(KORVEL_BENCH_FRAME, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(file), {}};
  if (bytes.empty()) Fail("the I-frame is missing");
  return bytes;
}

}  // namespace

Area TextArea(int index) { return {20 + index % 4 * 170, 30 + index / 4 * 105, 160, 95}; }

Area PictureArea(int index) {
  if (index == kPictureCount - 1) return {180, 144, 360, 288};
  return {index % 2 * 360, index / 2 * 288, 360, 288};
}

std::string TextOf(int index) { return "Programme " + std::to_string(index) + " starts soon"; }

const std::vector<NamedContent>& Scenes() {
  static const std::vector<NamedContent> scenes = {
      {"empty", {}},
      {"texts", {.hasTexts = true, .hasRectangles = true}},
      {"bitmaps", {.hasPictures = true}},
      {"i_frame", {.hasFrame = true}},
      {"canvas", {.hasCanvas = true}},
      {"video", {.hasTexts = true, .hasVideo = true}},
  };
  return scenes;
}

std::map<std::string, std::string> Carousel(const Content& content) {
  std::map<std::string, std::string> files = {
      {"a", Compile(R"({:Application ("~/a" 0) :OnStartUp (:TransitionTo(("~/s" 0)))})")},
      {"s", Compile("{:Scene (\"~/s\" 0) :Items (" + ItemsOf(content) +
                    ") :InputEventReg 4 :SceneCS 720 576}")},
      {"frame", ReadFrameFile()}};
  for (int index = 0; index < kPictureCount; ++index)
    files[PictureName(index)] = PictureFile(index);
  return files;
}

const std::string& PictureFile(int index) {
  static const std::vector<std::string> files = MakePictureFiles();
  return files[static_cast<std::size_t>(index)];
}

}  // namespace korvel::bench
