// Moving, sizing, stacking and fading visibles.
#include "stage.h"

namespace korvel::test {
namespace {

using VisiblesTest = Stage;

constexpr char kThree[] =
    "{:Rectangle 1 :OrigBoxSize 9 9} {:Rectangle 2 :OrigBoxSize 9 9} {:Rectangle 3 :OrigBoxSize 9 "
    "9}"
    "{:Rectangle 4 :InitiallyActive FALSE :OrigBoxSize 9 9} {:IntegerVar 5 :OrigValue 0}"
    "{:IntegerVar 6 :OrigValue 0} {:OStringVar 7 :OrigValue \"\"}";

TEST_F(VisiblesTest, stacking_actions_reorder_the_display_stack) {
  Start(kThree);
  EXPECT_EQ(Stack(), "1 2 3");
  EXPECT_EQ(Run(":BringToFront(1)"), Status::Done);
  EXPECT_EQ(Stack(), "2 3 1");
  EXPECT_EQ(Run(":SendToBack(3)"), Status::Done);
  EXPECT_EQ(Stack(), "3 2 1");
  EXPECT_EQ(Run(":PutBefore(3 2)"), Status::Done);
  EXPECT_EQ(Stack(), "2 3 1");
  EXPECT_EQ(Run(":PutBehind(1 3)"), Status::Done);
  EXPECT_EQ(Stack(), "2 1 3");
}

TEST_F(VisiblesTest, objects_outside_the_stack_are_not_stacked) {
  Start(kThree);
  EXPECT_EQ(Run(":PutBefore(1 4) :PutBehind(1 4) :PutBefore(1 5) :PutBefore(1 0) :PutBefore(1 77)"
                ":BringToFront(4) :SendToBack(4) :PutBefore(4 1)"),
            Status::Done);
  EXPECT_EQ(Stack(), "1 2 3");
}

TEST_F(VisiblesTest, a_visible_put_before_itself_stays_and_put_behind_itself_ends_on_top) {
  Start(kThree);
  EXPECT_EQ(Run(":PutBefore(1 1)"), Status::Done);
  EXPECT_EQ(Stack(), "1 2 3");
  EXPECT_EQ(Run(":PutBehind(1 1)"), Status::Done);
  EXPECT_EQ(Stack(), "2 3 1");
}

TEST_F(VisiblesTest, positions_may_be_negative_but_box_sizes_not) {
  Start(kThree);
  EXPECT_EQ(Run(":SetPosition(1 -5 7) :SetBoxSize(1 30 40) :SetBoxSize(1 -1 50)"
                ":SetBoxSize(1 50 -1) :GetPosition(1 5 6)"),
            Status::Done);
  EXPECT_EQ(Integer(5), -5);
  EXPECT_EQ(Integer(6), 7);
  EXPECT_EQ(Run(":GetBoxSize(1 5 6)"), Status::Done);
  EXPECT_EQ(Integer(5), 30);
  EXPECT_EQ(Integer(6), 40);
}

TEST_F(VisiblesTest, two_results_are_written_together_or_not_at_all) {
  Start(kThree);
  EXPECT_EQ(Run(":SetPosition(1 3 4) :GetPosition(1 5 7) :GetPosition(1 7 6)"), Status::Done);
  EXPECT_EQ(Integer(5), 0);
  EXPECT_EQ(Integer(6), 0);
}

TEST_F(VisiblesTest, position_and_box_can_be_read_from_an_unavailable_visible) {
  Start("{:Rectangle 1 :InitiallyActive FALSE :OrigBoxSize 9 9} {:IntegerVar 2 :OrigValue 77}"
        "{:IntegerVar 3 :OrigValue 77}");
  Object<Rectangle>(1).Position = {3, -4};
  Object<Rectangle>(1).BoxSize = {50, 60};
  EXPECT_EQ(Run(":GetPosition(1 2 3)"), Status::Done);
  EXPECT_EQ(Integer(2), 3);
  EXPECT_EQ(Integer(3), -4);
  EXPECT_EQ(Run(":GetBoxSize(1 2 3)"), Status::Done);
  EXPECT_EQ(Integer(2), 50);
  EXPECT_EQ(Integer(3), 60);
  EXPECT_FALSE(Object<Rectangle>(1).AvailabilityStatus) << "reading does not prepare the object";
}

TEST_F(VisiblesTest, an_unavailable_visible_does_not_change) {
  Start(kThree);
  EXPECT_EQ(Run(":SetPosition(4 1 1) :SetBoxSize(4 1 1) :SetPaletteRef(4 9)"), Status::Done);
  EXPECT_EQ(Object<Rectangle>(4).Position.X, 0);
  EXPECT_EQ(Object<Rectangle>(4).BoxSize.Width, 0);
  EXPECT_FALSE(Object<Rectangle>(4).PaletteRef.IsPresent);
}

TEST_F(VisiblesTest, only_running_visibles_are_redrawn) {
  Start(kThree);
  int before = ThePresentation().redraws;
  EXPECT_EQ(Run(":SetPosition(1 1 1) :SetBoxSize(1 1 1) :BringToFront(1)"), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, before + 3);
  EXPECT_EQ(Run(":Stop(1)"), Status::Done);
  before = ThePresentation().redraws;
  EXPECT_EQ(Run(":SetPosition(1 1 1) :SetBoxSize(1 1 1)"), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, before);
}

TEST_F(VisiblesTest, scaling_a_bitmap_redraws_it_even_when_stopped) {
  Start("{:Bitmap 1 :OrigContent :ContentRef (\"~/p\") :OrigBoxSize 9 9}");
  EXPECT_EQ(Run(":Stop(1)"), Status::Done);
  const int before = ThePresentation().redraws;
  EXPECT_EQ(Run(":ScaleBitmap(1 1 1) :SetTransparency(1 5)"), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, before + 1);
}

TEST_F(VisiblesTest, a_negative_scale_makes_a_video_unscaled_and_is_refused_for_a_bitmap) {
  Start("{:Bitmap 1 :OrigContent :ContentRef (\"~/p\") :OrigBoxSize 9 9}"
        "{:Stream 2 :Multiplex ({:Video 3 :ComponentTag 1 :OrigBoxSize 9 9})}");
  const int before = ThePresentation().redraws;
  EXPECT_EQ(Run(":ScaleVideo(3 30 40) :ScaleVideo(3 -1 40)"), Status::Done);
  EXPECT_EQ(Object<Video>(3).ScaledSize.Width, -1);
  EXPECT_EQ(Object<Video>(3).ScaledSize.Height, 40);
  EXPECT_EQ(Run(":ScaleVideo(3 -7 -8)"), Status::Done);
  EXPECT_EQ(Object<Video>(3).ScaledSize.Width, -7);
  EXPECT_EQ(Object<Video>(3).ScaledSize.Height, -8);
  EXPECT_EQ(ThePresentation().redraws, before + 3);
  EXPECT_EQ(Run(":ScaleBitmap(1 30 40) :ScaleBitmap(1 -1 50) :ScaleBitmap(1 50 -1)"), Status::Done);
  EXPECT_EQ(Object<Bitmap>(1).ScaledSize.Width, 30);
  EXPECT_EQ(Object<Bitmap>(1).ScaledSize.Height, 40);
}

TEST_F(VisiblesTest, a_transparency_outside_0_to_100_is_refused) {
  Start("{:Bitmap 1 :OrigContent :ContentRef (\"~/p\") :OrigBoxSize 9 9 :OrigTransparency 20}");
  EXPECT_EQ(Object<Bitmap>(1).Transparency, 20);
  EXPECT_EQ(Run(":SetTransparency(1 101) :SetTransparency(1 -1)"), Status::Done);
  EXPECT_EQ(Object<Bitmap>(1).Transparency, 20);
  EXPECT_EQ(Run(":SetTransparency(1 100)"), Status::Done);
  EXPECT_EQ(Object<Bitmap>(1).Transparency, 100);
  EXPECT_EQ(Run(":SetTransparency(1 0)"), Status::Done);
  EXPECT_EQ(Object<Bitmap>(1).Transparency, 0);
}

TEST_F(VisiblesTest, set_palette_ref_stores_the_palette) {
  Start(kThree);
  EXPECT_EQ(Run(":SetPaletteRef(1 9)"), Status::Done);
  EXPECT_TRUE(Object<Rectangle>(1).PaletteRef.IsPresent);
  EXPECT_EQ(Object<Rectangle>(1).PaletteRef.Reference.Number, 9);
}

}  // namespace
}  // namespace korvel::test
