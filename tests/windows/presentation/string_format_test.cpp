// Tests the string format that text passes to GDI+, and the effect of tabs.
#include "presentation/text.h"

#include <array>

#include "presentation/state.h"
#include "windows/presentation/stage.h"

namespace korvel::test {

namespace {

constexpr float kResolution = 96;

// Under Wine a tab has no width.
bool IsWine() {
  return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

}  // namespace

class StringFormatTest : public Stage {
 protected:
  [[nodiscard]] Gdiplus::GpStringFormat* MakeFormat(float resolution = kResolution) {
    EXPECT_TRUE(MakeStringFormat(drawing, resolution, format_));
    return format_;
  }

  TextDrawing drawing;

 private:
  StringFormatOwner format_;
};

TEST_F(StringFormatTest, has_one_tab_stop_of_42_pixels_at_96_dots_per_inch) {
  struct Case {
    float resolution;
    float stop;
  };
  for (const Case& known : {Case{96, 42}, Case{48, 84}, Case{144, 28}}) {
    Gdiplus::GpStringFormat* format = MakeFormat(known.resolution);
    INT count = 0;
    float first = -1;
    float stop = -1;
    EXPECT_EQ(gdip::GdipGetStringFormatTabStopCount(format, &count), Gdiplus::Ok);
    ASSERT_EQ(count, 1);
    EXPECT_EQ(gdip::GdipGetStringFormatTabStops(format, 1, &first, &stop), Gdiplus::Ok);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(stop, known.stop);
  }
}

TEST_F(StringFormatTest, the_picture_has_96_dots_per_inch) {
  float resolution = 0;
  EXPECT_EQ(gdip::GdipGetDpiX(State().graphics, &resolution), Gdiplus::Ok);
  EXPECT_EQ(resolution, kResolution);
}

TEST_F(StringFormatTest, has_the_no_wrap_flag_unless_text_is_wrapped) {
  for (const bool isWrapped : {false, true}) {
    drawing.textWrapping = isWrapped;
    INT flags = -1;
    EXPECT_EQ(gdip::GdipGetStringFormatFlags(MakeFormat(), &flags), Gdiplus::Ok);
    EXPECT_EQ(flags, isWrapped ? 0 : 0x1000);
  }
}

TEST_F(StringFormatTest, start_end_and_centre_are_near_far_and_centre_and_all_else_is_near) {
  struct Case {
    std::int32_t justification;
    Gdiplus::StringAlignment alignment;
  };
  for (const Case& known :
       {Case{0, Gdiplus::StringAlignmentNear}, Case{1, Gdiplus::StringAlignmentNear},
        Case{2, Gdiplus::StringAlignmentFar}, Case{3, Gdiplus::StringAlignmentCenter},
        Case{4, Gdiplus::StringAlignmentNear}, Case{5, Gdiplus::StringAlignmentNear}}) {
    drawing.horizontalJustification = Justification{known.justification};
    drawing.verticalJustification = Justification{0};
    Gdiplus::StringAlignment alignment{};
    Gdiplus::StringAlignment lineAlignment{};
    EXPECT_EQ(gdip::GdipGetStringFormatAlign(MakeFormat(), &alignment), Gdiplus::Ok);
    EXPECT_EQ(alignment, known.alignment) << known.justification;
    drawing.horizontalJustification = Justification{0};
    drawing.verticalJustification = Justification{known.justification};
    EXPECT_EQ(gdip::GdipGetStringFormatLineAlign(MakeFormat(), &lineAlignment), Gdiplus::Ok);
    EXPECT_EQ(lineAlignment, known.alignment) << known.justification;
  }
}

TEST_F(StringFormatTest, a_tab_advances_to_the_next_multiple_of_42_pixels) {
  Text text;
  Place(text, 100, 100, 500, 300);
  text.TextColour = Absolute(kWhiteBytes);
  Show(ItemType::Text, text);
  std::array<int, 3> left{};
  std::string content = "I";
  for (int& edge : left) {
    text.TextData = Octets(content);
    edge = Paint().Extent(kWholeScene).left;
    content.insert(content.begin(), '\t');
  }
  if (IsWine()) {
    EXPECT_EQ(left[1], left[0]) << "Wine now supports tabs: remove this branch";
    return;
  }
  EXPECT_NEAR(left[1] - left[0], 42, 4);
  EXPECT_NEAR(left[2] - left[1], 42, 1);
}

}  // namespace korvel::test
