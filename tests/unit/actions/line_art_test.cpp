// The attributes of line art, and drawing on the canvas of dynamic line art.
#include "stage.h"

namespace korvel::test {
namespace {

class LineArtTest : public Stage {
 protected:
  // Starts dynamic line art 1, 100 by 50 pixels, with lines 2 pixels wide in colour 7. Its palette
  // maps each index from 0 to 9 to the colour with that value.
  static void StartDrawing(const std::string& attributes = ":BBBox FALSE") {
    std::string palette;
    for (char index = '0'; index <= '9'; ++index) palette += std::string("=00=00=00=0") + index;
    Start("{:Palette 6 :OrigContent '" + palette + "'}" +
          "{:DynamicLineArt 1 :OrigBoxSize 100 50 :OrigPaletteRef 6 :OrigLineWidth 2"
          " :OrigRefLineColour 7 " +
          attributes +
          "} {:IntegerVar 2 :OrigValue 9} {:OStringVar 3 :OrigValue 'abcd'}"
          "{:BooleanVar 4 :OrigValue TRUE} {:Rectangle 5 :OrigBoxSize 9 9}");
  }
  // The drawings since the last call, without new canvases and clipping.
  static std::string TakeDrawings() {
    std::string drawings;
    for (const std::string& one : ThePresentation().drawings) {
      if (one.starts_with("new") || one.starts_with("clip")) continue;
      drawings += (drawings.empty() ? "" : "; ") + one;
    }
    ThePresentation().drawings.clear();
    return drawings;
  }
};

TEST_F(LineArtTest, shapes_are_painted_with_the_current_attributes) {
  StartDrawing();
  EXPECT_EQ(Run(":DrawLine(1 1 2 3 4)"), Status::Done);
  EXPECT_EQ(TakeDrawings(), "line 1,2 3,4 line 2/1#00000007");
  EXPECT_EQ(Run(":SetLineWidth(1 5) :SetLineStyle(1 3) :SetLineColour(1 :NewColourIndex 8)"
                ":SetFillColour(1 :NewAbsoluteColour '=01=02=03=04') :DrawRectangle(1 1 2 3 4)"),
            Status::Done);
  EXPECT_EQ(TakeDrawings(), "rectangle 1,2 3,4 line 5/3#00000008 #01020304");
  EXPECT_EQ(Run(":DrawOval(1 1 2 3 4)"), Status::Done);
  EXPECT_EQ(TakeDrawings(), "oval 1,2 3 4 #01020304");
}

TEST_F(LineArtTest, angles_are_passed_unchanged_and_an_arc_has_no_fill) {
  StartDrawing();
  EXPECT_EQ(Run(":SetFillColour(1 :NewColourIndex 6) :DrawArc(1 1 2 30 40 5760 -90)"
                ":DrawSector(1 1 2 30 40 45 90)"),
            Status::Done);
  EXPECT_EQ(TakeDrawings(), "arc 1,2 30 40 5760 -90 line 2/1#00000007 #ffffffff; "
                            "sector 1,2 30 40 45 90 line 2/1#00000007 #00000006");
}

TEST_F(LineArtTest, points_are_pairs_of_numbers_or_integer_variables) {
  StartDrawing();
  EXPECT_EQ(Run(":DrawPolygon(1 ((1 2) (:IndirectRef 2 4)))"), Status::Done);
  EXPECT_EQ(TakeDrawings(), "polygon 1,2;9,4; line 2/1#00000007 #ffffffff");
  EXPECT_EQ(Run(":DrawPolyline(1 ((1 2) (3)))"), Status::Done);
  EXPECT_EQ(TakeDrawings(), "polygon 1,2; line 2/1#00000007 #ffffffff")
      << "a single coordinate is not a point";
  EXPECT_EQ(Run(":DrawPolygon(1 ((1 2) (:IndirectRef 4 4)))"), Status::Done);
  EXPECT_EQ(TakeDrawings(), "") << "a boolean variable is not a coordinate";
}

TEST_F(LineArtTest, a_border_moves_the_origin_into_the_box) {
  StartDrawing("");
  EXPECT_EQ(Run(":DrawLine(1 1 2 3 4)"), Status::Done);
  ASSERT_EQ(ThePresentation().drawings.size(), 3U);
  EXPECT_EQ(ThePresentation().drawings[0], "new 100 50");
  EXPECT_EQ(ThePresentation().drawings[1], "clip 96 46");
  EXPECT_EQ(ThePresentation().drawings[2], "line -1,0 1,2 line 2/1#00000007");
}

TEST_F(LineArtTest, without_a_border_drawing_is_not_clipped_to_the_box) {
  StartDrawing();
  EXPECT_EQ(Run(":SetBoxSize(1 10 10) :DrawLine(1 1 2 3 4) :Clear(1)"), Status::Done);
  for (const std::string& one : ThePresentation().drawings) EXPECT_FALSE(one.starts_with("clip"));
}

TEST_F(LineArtTest, extreme_coordinates_do_not_wrap) {
  StartDrawing("");
  EXPECT_EQ(Run(":SetLineWidth(1 2147483647) :DrawLine(1 -2147483648 0 2147483647 0)"),
            Status::Done);
  EXPECT_EQ(TakeDrawings(),
            "line -2147483648,-2147483647 0,-2147483647 line 2147483647/1#00000007");
}

TEST_F(LineArtTest, stopped_line_art_is_not_drawn_on) {
  StartDrawing();
  EXPECT_EQ(Run(":Stop(1) :DrawLine(1 1 2 3 4) :DrawPolygon(1 ((1 2)))"), Status::Done);
  EXPECT_TRUE(ThePresentation().drawings.empty());
}

TEST_F(LineArtTest, the_canvas_keeps_its_size_when_the_box_changes) {
  StartDrawing();
  EXPECT_EQ(Run(":DrawLine(1 1 2 3 4) :SetBoxSize(1 10 10) :DrawLine(1 1 2 3 4)"), Status::Done);
  int newCanvases = 0;
  for (const std::string& one : ThePresentation().drawings)
    newCanvases += one.starts_with("new") ? 1 : 0;
  EXPECT_EQ(newCanvases, 1);
  EXPECT_EQ(ThePresentation().canvases, 1);
}

TEST_F(LineArtTest, clearing_uses_the_original_fill_colour_and_keeps_the_current_one) {
  StartDrawing(":BBBox FALSE :OrigRefFillColour 3");
  EXPECT_EQ(Run(":SetFillColour(1 :NewColourIndex 4) :Clear(1)"), Status::Done);
  EXPECT_EQ(TakeDrawings(), "clear #00000003");
  EXPECT_EQ(Object<DynamicLineArt>(1).RefFillColour.Index, 4);
}

TEST_F(LineArtTest, clearing_clips_by_the_original_line_width) {
  StartDrawing("");
  EXPECT_EQ(Run(":SetLineWidth(1 10) :DrawLine(1 1 2 3 4) :Clear(1) :DrawLine(1 1 2 3 4)"),
            Status::Done);
  const std::vector<std::string> expected = {
      "new 100 50",      "clip 80 30", "line -9,-8 -7,-6 line 10/1#00000007", "clip 96 46",
      "clear #ffffffff", "clip 80 30", "line -9,-8 -7,-6 line 10/1#00000007"};
  EXPECT_EQ(ThePresentation().drawings, expected);
  EXPECT_EQ(Object<DynamicLineArt>(1).LineWidth, 10) << "the current width is kept";
}

TEST_F(LineArtTest, each_drawing_action_requests_a_redraw) {
  StartDrawing();
  const int before = ThePresentation().redraws;
  EXPECT_EQ(Run(":DrawLine(1 1 2 3 4) :Clear(1) :SetLineWidth(1 3)"), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, before + 2) << "an attribute does not redraw";
  ThePresentation().onRedraw = [] { return Status::Failure; };
  EXPECT_EQ(Run(":DrawLine(1 1 2 3 4) :Add(2 1)"), Status::Failure);
  EXPECT_EQ(Integer(2), 9);
}

TEST_F(LineArtTest, colours_come_from_integer_and_string_variables) {
  StartDrawing();
  EXPECT_EQ(Run(":SetLineColour(1 :NewColourIndex :IndirectRef 2)"
                ":SetFillColour(5 :NewAbsoluteColour :IndirectRef 3)"),
            Status::Done);
  EXPECT_EQ(Object<DynamicLineArt>(1).RefLineColour.Index, 9);
  EXPECT_EQ(Object<Rectangle>(5).RefFillColour.Kind, ValueKind::OctetString);
  EXPECT_EQ(Object<Rectangle>(5).RefFillColour.Absolute.View(), "abcd");
}

TEST_F(LineArtTest, a_colour_from_a_boolean_or_missing_variable_is_reported_and_changes_nothing) {
  StartDrawing();
  for (const char* actions : {":SetLineColour(1 :NewColourIndex :IndirectRef 4)"
                              ":SetFillColour(1 :NewColourIndex :IndirectRef 4)",
                              ":SetLineColour(1 :NewColourIndex :IndirectRef 99)"
                              ":SetFillColour(1 :NewColourIndex :IndirectRef 99)"}) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(Run(actions), Status::Done);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "MHEG_DYNAMICLINEART_SetLineColour Error\n"
                                                      "MHEG_DYNAMICLINEART_SetFillColour Error\n");
  }
  EXPECT_EQ(Object<DynamicLineArt>(1).RefLineColour.Index, 7);
}

TEST_F(LineArtTest, attributes_are_read_back_into_variables_of_their_kind) {
  StartDrawing();
  EXPECT_EQ(Run(":GetLineColour(1 2) :GetLineColour(1 3)"), Status::Done);
  EXPECT_EQ(Integer(2), 7);
  EXPECT_EQ(Octets(3), "abcd") << "an index is not written to a string";
  EXPECT_EQ(Run(":SetFillColour(1 :NewAbsoluteColour \"wxyz\") :GetFillColour(1 2)"
                ":GetFillColour(1 3)"),
            Status::Done);
  EXPECT_EQ(Integer(2), 7);
  EXPECT_EQ(Octets(3), "wxyz");
  EXPECT_EQ(Run(":SetLineWidth(1 -5) :SetLineStyle(1 77) :GetLineWidth(1 2)"), Status::Done);
  EXPECT_EQ(Integer(2), -5);
  EXPECT_EQ(Run(":GetLineStyle(1 2)"), Status::Done);
  EXPECT_EQ(Integer(2), 77);
}

}  // namespace
}  // namespace korvel::test
