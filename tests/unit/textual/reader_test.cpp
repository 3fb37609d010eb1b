// What the reader makes of whole groups and of each kind of value.
#include <gtest/gtest.h>

#include <string>

#include "objects/objects.h"
#include "textual/textual.h"

namespace korvel {
namespace {

struct Reading {
  OwnedGroup group;
  bool isApplication = false;
  TextError error;
  List<MissingPart> missing;
  TextResult result = TextResult::Refused;
};

Reading ReadText(const std::string& text) {
  Reading reading;
  reading.result =
      ReadTextGroup(text, reading.group, reading.isApplication, &reading.error, &reading.missing);
  return reading;
}

constexpr const char* kMenu = R"(
{:Scene ("~/menu" 0)
  :Items (
    {:Rectangle 1 :OrigBoxSize 720 576 :OrigRefFillColour '=10=20=60=00'}
    {:Text 2 :OrigContent "Press a colour key" :OrigBoxSize 400 60 :OrigPosition 80 90 :HJustification centre}
    {:Link 3 :EventSource 0 :EventType UserInput :EventData 100
      :LinkEffect (:Add(("~/a" 1) 1) :TestVariable(("~/a" 1) 1 :GInteger 3))}
    {:Link 4 :EventSource ("~/a" 1) :EventType TestEvent :EventData TRUE
      :LinkEffect (:SetData(2 "Three times red") :SetPosition(2 :IndirectRef 5 200))}
    {:IntegerVar 5 :OrigValue 120}
  )
  :InputEventReg 4 :SceneCS 720 576
}
)";

TEST(TextReader, a_scene_becomes_its_records) {
  const Reading reading = ReadText(kMenu);
  ASSERT_EQ(reading.result, TextResult::Done) << reading.error.expected.data();
  EXPECT_FALSE(reading.isApplication);
  EXPECT_TRUE(reading.missing.IsEmpty());
  const Scene& scene = reading.group.AsScene();
  EXPECT_EQ(scene.Reference.GroupIdentifier.View(), "~/menu");
  EXPECT_EQ(scene.SceneCS.Width, 720);
  EXPECT_EQ(scene.InputEventReg, 4);
  ASSERT_EQ(scene.Items.Size(), 5U);
  const auto& text = scene.Items.At(1)->As<Text>();
  EXPECT_EQ(text.HorizontalJustification, 3);
  EXPECT_EQ(text.OriginalPosition.Y, 90);
  const auto& link = scene.Items.At(3)->As<Link>();
  EXPECT_EQ(link.Condition.EventType, 23);
  EXPECT_EQ(link.Condition.EventData.Kind, ValueKind::Boolean);
  ASSERT_EQ(link.LinkEffect.Size(), 2U);
  const ElementaryAction& setPosition = *link.LinkEffect.At(1);
  EXPECT_EQ(setPosition.ActionType, 93);
  EXPECT_EQ(setPosition.Parameters.At(0)->Kind, ValueKind::IndirectReference);
  EXPECT_EQ(setPosition.Parameters.At(0)->Reference.Number, 5);
  EXPECT_EQ(setPosition.Parameters.At(1)->Integer, 200);
}

}  // namespace
}  // namespace korvel
