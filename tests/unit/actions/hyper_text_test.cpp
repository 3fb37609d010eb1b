// Hyper texts: choosing and firing the anchors in their text.
#include "stage.h"

namespace korvel::test {
namespace {

using HyperTextTest = Stage;

constexpr char kHyperText[] =
    "{:HyperText 1 :OrigBoxSize 99 20 :OrigContent 'see =1BA=03oneone=1Ba and =1BA=03twotwo=1Ba'}"
    "{:OStringVar 2 :OrigValue \"none\"}";
TEST_F(HyperTextTest, keys_move_among_anchors_and_fire_them) {
  Start(std::string(kHyperText) + Watch(1, "AnchorFired", "fired") +
        Watch(1, "InteractionCompleted", "done"));
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
  EXPECT_EQ(Press(keys::kSelect), Status::Done);
  EXPECT_EQ(Run(":GetLastAnchorFired(1 2)"), Status::Done);
  EXPECT_EQ(Octets(2), "one");
  for (const std::int32_t key : {2, 4, keys::kSelect}) EXPECT_EQ(Press(key), Status::Done);
  EXPECT_EQ(Run(":GetLastAnchorFired(1 2)"), Status::Done);
  EXPECT_EQ(Octets(2), "two");
  for (const std::int32_t key : {1, 3, keys::kSelect}) EXPECT_EQ(Press(key), Status::Done);
  EXPECT_EQ(Run(":GetLastAnchorFired(1 2)"), Status::Done);
  EXPECT_EQ(Octets(2), "one");
  EXPECT_EQ(Press(keys::kCancel), Status::Done);
  EXPECT_EQ(TakeLog(), "fired fired fired done");
}

TEST_F(HyperTextTest, new_data_resets_the_selected_anchor) {
  Start(std::string(kHyperText) + Watch(1, "AnchorFired", "fired"));
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
  EXPECT_EQ(Press(2), Status::Done);
  EXPECT_EQ(Run(":SetData(1 '=1BA=05firsta=1Ba =1BA=04nextb=1Ba')"), Status::Done);
  EXPECT_EQ(Press(keys::kSelect), Status::Done);
  EXPECT_EQ(Object<HyperText>(1).LastAnchorFired.View(), "first");
  EXPECT_EQ(Press(2), Status::Done);
  EXPECT_EQ(Run(":SetData(1 '=1BA=04onlyc=1Ba')"), Status::Done);
  EXPECT_EQ(Press(keys::kSelect), Status::Done) << "fewer anchors than before";
  EXPECT_EQ(Object<HyperText>(1).LastAnchorFired.View(), "only");
  EXPECT_EQ(TakeLog(), "fired fired");
}

TEST_F(HyperTextTest, new_data_of_another_hyper_text_keeps_the_selected_anchor) {
  Start(std::string(kHyperText) + "{:HyperText 4 :OrigBoxSize 9 9 :OrigContent \"\"}");
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
  EXPECT_EQ(Press(2), Status::Done);
  EXPECT_EQ(Run(":SetData(4 '=1BA=04onlyc=1Ba')"), Status::Done);
  EXPECT_EQ(Press(keys::kSelect), Status::Done);
  EXPECT_EQ(Object<HyperText>(1).LastAnchorFired.View(), "two");
}

TEST_F(HyperTextTest, a_truncated_anchor_is_ignored) {
  Start("{:HyperText 1 :OrigBoxSize 9 9 :OrigContent 'x=1BA=09ab'}" +
        Watch(1, "AnchorFired", "fired"));
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
  EXPECT_EQ(Press(keys::kSelect), Status::Refused);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(HyperTextTest, anchor_codes_within_a_label_begin_no_anchor) {
  Start(Watch(1, "AnchorFired", "fired") +
        "{:HyperText 1 :OrigBoxSize 99 20 :OrigContent '=1BA=06=1BA=03onelink=1Ba'}");
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
  EXPECT_EQ(Press(2), Status::Done) << "the next anchor, if there were one";
  EXPECT_EQ(Press(keys::kSelect), Status::Done);
  EXPECT_EQ(Object<HyperText>(1).LastAnchorFired.View(), "\x1B"
                                                         "A\x03one");
}

TEST_F(HyperTextTest, the_label_of_an_anchor_may_end_the_text) {
  Start("{:HyperText 1 :OrigBoxSize 9 9 :OrigContent 'x=1BA=02ab'}");
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
  EXPECT_EQ(Press(keys::kSelect), Status::Done);
  EXPECT_EQ(Object<HyperText>(1).LastAnchorFired.View(), "ab");
}

TEST_F(HyperTextTest, an_unavailable_hyper_text_does_not_report_its_last_anchor) {
  Start("{:HyperText 1 :InitiallyActive FALSE :OrigContent \"\" :OrigBoxSize 9 9}"
        "{:OStringVar 2 :OrigValue \"kept\"}");
  EXPECT_EQ(Run(":GetLastAnchorFired(1 2)"), Status::Done);
  EXPECT_EQ(Octets(2), "kept");
}

}  // namespace
}  // namespace korvel::test
