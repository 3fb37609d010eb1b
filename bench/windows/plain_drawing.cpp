// Draws the scenes with GDI+.
#include "windows/plain_drawing.h"

#include <string>
#include <string_view>

#include "appearance/yuv.h"

namespace korvel::bench {
namespace {

constexpr int kWidth = 720;
constexpr int kHeight = 576;
constexpr float kFontPixels = 18;  // size 24 at 96 dots per inch
constexpr float kTabPixels = 42;

const Gdiplus::Color kWhite(0xFFFFFFFF);
const Gdiplus::Color kRed(0xFFFF0000);
const Gdiplus::Color kBlue(0xFF0000FF);
const Gdiplus::Color kGreen(0xFF008000);
const Gdiplus::Color kNight(0xFF102060);

// ---- Reading pictures ----

std::unique_ptr<Gdiplus::Image> ImageOf(std::string_view bytes) {
  HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  bytes.copy(static_cast<char*>(GlobalLock(block)), bytes.size());
  GlobalUnlock(block);
  IStream* stream = nullptr;
  CreateStreamOnHGlobal(block, TRUE, &stream);
  auto image = std::make_unique<Gdiplus::Image>(stream);
  stream->Release();
  return image;
}

// The picture that replaces video, from this program's resources.
std::string_view VideoResource() {
  HRSRC found = FindResourceA(nullptr, MAKEINTRESOURCEA(101), "VIDEO_JPG");
  return {static_cast<const char*>(LockResource(LoadResource(nullptr, found))),
          SizeofResource(nullptr, found)};
}

// Decodes the I-frame with the same decoder as the engine.
std::unique_ptr<Gdiplus::Bitmap> DecodedFrame() {
  using DecodeFrame = int(__cdecl*)(const char*, std::uint8_t**, int);
  static const auto decode = reinterpret_cast<DecodeFrame>(
      reinterpret_cast<void*>(GetProcAddress(LoadLibraryA("MenuAPI"), MAKEINTRESOURCEA(1))));
  const PlanarFrame planes({kWidth, kHeight});
  std::uint8_t* buffer = planes.Bytes();
  decode(KORVEL_BENCH_FRAME, &buffer, 1);
  auto frame = std::make_unique<Gdiplus::Bitmap>(kWidth, kHeight, PixelFormat32bppARGB);
  const Gdiplus::Rect whole(0, 0, kWidth, kHeight);
  Gdiplus::BitmapData data;
  frame->LockBits(&whole, Gdiplus::ImageLockModeWrite, PixelFormat32bppARGB, &data);
  for (int row = 0; row < kHeight; ++row) {
    planes.ConvertRow(row, static_cast<std::uint32_t*>(data.Scan0) + row * data.Stride / 4);
  }
  frame->UnlockBits(&data);
  return frame;
}

// ---- Drawing ----

// The name of the family that the engine uses too: Trebuchet MS, or else the first one whose name
// ends in "Sans".
std::wstring FindFamilyName() {
  std::wstring name = L"Trebuchet MS";
  if (Gdiplus::FontFamily(name.c_str()).IsAvailable()) return name;
  const Gdiplus::InstalledFontCollection installed;
  std::vector<Gdiplus::FontFamily> families(static_cast<std::size_t>(installed.GetFamilyCount()));
  int count = 0;
  installed.GetFamilies(static_cast<int>(families.size()), families.data(), &count);
  for (const Gdiplus::FontFamily& family : families) {
    WCHAR buffer[LF_FACESIZE] = {};
    family.GetFamilyName(buffer);
    name = buffer;
    if (name.ends_with(L"Sans")) break;
  }
  return name;
}

void FillArea(Gdiplus::Graphics& graphics, const Area& area, Gdiplus::Color colour) {
  const Gdiplus::SolidBrush brush(colour);
  graphics.FillRectangle(&brush, area.x, area.y, area.width, area.height);
}

// A rectangle with its border inside the area.
void DrawBordered(Gdiplus::Graphics& graphics, const Area& area, int border, Gdiplus::Color line,
                  Gdiplus::Color fill) {
  Gdiplus::Pen pen(line, static_cast<float>(border));
  pen.SetDashStyle(Gdiplus::DashStyleSolid);
  const float inset = static_cast<float>(border) / 2;
  graphics.DrawRectangle(
      &pen, static_cast<float>(area.x) + inset, static_cast<float>(area.y) + inset,
      static_cast<float>(area.width - border), static_cast<float>(area.height - border));
  FillArea(graphics,
           {area.x + border, area.y + border, area.width - 2 * border, area.height - 2 * border},
           fill);
}

void DrawTextAt(Gdiplus::Graphics& graphics, const Area& area, const std::string& text) {
  const Gdiplus::RectF layout(static_cast<float>(area.x), static_cast<float>(area.y),
                              static_cast<float>(area.width), static_cast<float>(area.height));
  graphics.SetClip(layout);
  const std::wstring wide(text.begin(), text.end());
  static const std::wstring familyName = FindFamilyName();
  const Gdiplus::FontFamily family(familyName.c_str());
  const Gdiplus::Font font(&family, kFontPixels, Gdiplus::FontStyleRegular, Gdiplus::UnitPixel);
  Gdiplus::StringFormat format;
  format.SetAlignment(Gdiplus::StringAlignmentNear);
  format.SetLineAlignment(Gdiplus::StringAlignmentNear);
  format.SetTabStops(0, 1, &kTabPixels);
  const Gdiplus::SolidBrush ink(kWhite);
  graphics.DrawString(wide.c_str(), -1, &font, layout, &format, &ink);
  graphics.ResetClip();
}

// Paints with a texture of the whole picture and an opaque colour matrix, as a picture that may be
// tiled and transparent needs.
void DrawPicture(Gdiplus::Graphics& graphics, Gdiplus::Image& image, const Area& area) {
  const Gdiplus::ColorMatrix opaque = {
      {{1, 0, 0, 0, 0}, {0, 1, 0, 0, 0}, {0, 0, 1, 0, 0}, {0, 0, 0, 1, 0}, {0, 0, 0, 0, 1}}};
  Gdiplus::ImageAttributes attributes;
  attributes.SetColorMatrix(&opaque, Gdiplus::ColorMatrixFlagsDefault,
                            Gdiplus::ColorAdjustTypeBitmap);
  Gdiplus::TextureBrush texture(&image,
                                Gdiplus::RectF(0, 0, static_cast<float>(image.GetWidth()),
                                               static_cast<float>(image.GetHeight())),
                                &attributes);
  const Gdiplus::RectF source(0, 0, static_cast<float>(area.width),
                              static_cast<float>(area.height));
  const Gdiplus::RectF destination(static_cast<float>(area.x), static_cast<float>(area.y),
                                   source.Width, source.Height);
  const Gdiplus::GraphicsContainer container =
      graphics.BeginContainer(destination, source, Gdiplus::UnitPixel);
  graphics.FillRectangle(&texture, source);
  graphics.EndContainer(container);
}

// Black is the colour key.
void DrawCanvas(Gdiplus::Graphics& graphics, Gdiplus::Bitmap& canvas) {
  Gdiplus::ImageAttributes attributes;
  attributes.SetColorKey(Gdiplus::Color(0), Gdiplus::Color(0), Gdiplus::ColorAdjustTypeBitmap);
  graphics.DrawImage(&canvas, Gdiplus::Rect(0, 0, kWidth, kHeight), 0, 0, kWidth, kHeight,
                     Gdiplus::UnitPixel, &attributes);
}

std::unique_ptr<Gdiplus::Bitmap> DrawnCanvas() {
  auto canvas = std::make_unique<Gdiplus::Bitmap>(kWidth, kHeight, PixelFormat32bppARGB);
  Gdiplus::Graphics graphics(canvas.get());
  DrawBordered(graphics, {100, 100, 500, 300}, 3, kRed, kGreen);
  const Gdiplus::Pen pen(kRed, 3);
  graphics.DrawLine(&pen, 0.0F, 0.0F, 719.0F, 575.0F);
  const Gdiplus::SolidBrush fill(kGreen);
  graphics.FillEllipse(&fill, 200, 150, 300, 200);
  return canvas;
}

}  // namespace

PlainDrawing::PlainDrawing(const Content& content)
    : content_(content), surface_(kWidth, kHeight, PixelFormat32bppARGB), graphics_(&surface_) {
  if (content.hasVideo) video_ = ImageOf(VideoResource());
  for (int index = 0; content.hasPictures && index < kPictureCount; ++index) {
    pictures_.push_back(ImageOf(PictureFile(index)));
  }
  if (content.hasCanvas) canvas_ = DrawnCanvas();
}

void PlainDrawing::Draw(Decoding decoding) {
  graphics_.Clear(Gdiplus::Color(0xFF000000));
  if (video_) DrawPicture(graphics_, *video_, {0, 0, kWidth, kHeight});
  if (content_.hasFrame) DrawPicture(graphics_, *DecodedFrame(), {0, 0, kWidth, kHeight});
  DrawPictures(decoding);
  if (canvas_) DrawCanvas(graphics_, *canvas_);
  if (content_.hasTexts) DrawTexts();
  FillArea(graphics_, kCorner, kRed);
  FillArea(graphics_, kCorner, kBlue);
}

void PlainDrawing::DrawPictures(Decoding decoding) {
  int index = 0;
  for (std::unique_ptr<Gdiplus::Image>& picture : pictures_) {
    if (decoding == Decoding::EachTime) picture = ImageOf(PictureFile(index));
    DrawPicture(graphics_, *picture, PictureArea(index));
    ++index;
  }
}

void PlainDrawing::DrawTexts() {
  for (int index = 0; index < kTextCount; ++index) {
    const Area area = TextArea(index);
    if (content_.hasRectangles) DrawBordered(graphics_, area, kLineWidth, kWhite, kNight);
    DrawTextAt(graphics_, area, TextOf(index));
  }
}

std::vector<std::uint32_t> PlainDrawing::Pixels() {
  std::vector<std::uint32_t> pixels(std::size_t{kWidth} * kHeight);
  const Gdiplus::Rect whole(0, 0, kWidth, kHeight);
  Gdiplus::BitmapData data;
  data.Width = kWidth;
  data.Height = kHeight;
  data.Stride = kWidth * 4;
  data.PixelFormat = PixelFormat32bppARGB;
  data.Scan0 = pixels.data();
  surface_.LockBits(&whole, Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeUserInputBuf,
                    PixelFormat32bppARGB, &data);
  surface_.UnlockBits(&data);
  return pixels;
}

}  // namespace korvel::bench
