// Reading whole groups and each kind of value from text.
#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "objects/objects.h"
#include "substitutes/memory.h"
#include "textual/textual.h"

namespace korvel {
namespace {

struct Reading {
  std::string text;
  OwnedGroup group;
  TextReport report;
  TextResult result = TextResult::Refused;
};

Reading ReadText(const std::string& text) {
  Reading reading;
  reading.text = text;
  reading.result = ReadTextGroup(text, reading.group, reading.report);
  EXPECT_EQ(reading.result == TextResult::Done, reading.report.errors.IsEmpty());
  return reading;
}

std::string FoundIn(const std::string& text, const TextError& error) {
  return error.length == 0 ? "the end" : text.substr(error.offset, error.length);
}
// The words and the choice that were expected, separated by "|".
std::string ExpectedIn(const TextError& error) {
  std::string expected = error.expected;
  for (const char* word : error.words) expected += std::string("|") + word;
  if (error.choice == TextChoice::Attribute) expected += "|attribute";
  if (error.choice == TextChoice::Class) expected += "|class";
  if (error.choice == TextChoice::Action) expected += "|action";
  return expected;
}
// All errors: "line:column in OWNER PART: FOUND, EXPECTED\n".
std::string ErrorsOf(const Reading& reading) {
  std::string all;
  for (const TextError& error : reading.report.errors) {
    const TextPlace place = PlaceInText(reading.text, error.offset);
    all += std::to_string(place.line) + ":" + std::to_string(place.column) + " in " + error.owner +
           " " + error.part + ": " + FoundIn(reading.text, error) + ", " + ExpectedIn(error) + "\n";
  }
  return all;
}

constexpr const char* kMenu = R"(
{:Scene ("~/menu" 0)
  :Items (
    {:Rectangle 1 :OrigBoxSize 720 576 :OrigRefFillColour '=10=20=60=00'}
    {:Text 2 :OrigContent "Press a colour key" :OrigBoxSize 400 60 :OrigPosition 80 90
      :HJustification centre}
    {:Link 3 :EventSource 0 :EventType UserInput :EventData 100
      :LinkEffect (:Add(("~/a" 1) 1) :TestVariable(("~/a" 1) 1 :GInteger 3))}
    {:Link 4 :EventSource ("~/a" 1) :EventType TestEvent :EventData TRUE
      :LinkEffect (:SetData(2 "Three times red") :SetPosition(2 :IndirectRef 5 200))}
    {:IntegerVar 5 :OrigValue 120}
  )
  :InputEventReg 4 :SceneCS 720 576
}
)";

TEST(TextReader, a_scene_is_read_into_its_records) {
  const Reading reading = ReadText(kMenu);
  ASSERT_EQ(reading.result, TextResult::Done) << ErrorsOf(reading);
  EXPECT_FALSE(IsApplication(reading.group));
  EXPECT_TRUE(reading.report.missing.IsEmpty());
  const Scene& scene = AsScene(reading.group);
  EXPECT_EQ(scene.Reference.GroupIdentifier.View(), "~/menu");
  EXPECT_EQ(scene.SceneCS.Width, 720);
  EXPECT_EQ(scene.InputEventReg, 4);
  ASSERT_EQ(scene.Items.Size(), 5U);
  const auto& text = scene.Items.At(1)->As<Text>();
  EXPECT_EQ(text.HorizontalJustification, Justification{3});
  EXPECT_EQ(text.OriginalPosition.Y, 90);
  const auto& link = scene.Items.At(3)->As<Link>();
  EXPECT_EQ(link.Condition.EventType, EventType{23});
  EXPECT_EQ(link.Condition.EventData.Kind, ValueKind::Boolean);
  ASSERT_EQ(link.LinkEffect.Size(), 2U);
  const ElementaryAction& setPosition = *link.LinkEffect.At(1);
  EXPECT_EQ(setPosition.ActionType, 93);
  EXPECT_EQ(setPosition.Parameters.At(0)->Kind, ValueKind::IndirectReference);
  EXPECT_EQ(setPosition.Parameters.At(0)->Reference.Number, 5);
  EXPECT_EQ(setPosition.Parameters.At(1)->Integer, 200);
}

// Reads a scene with these items. Only() returns the first item, as a Record.
Reading ReadItems(const std::string& items) {
  return ReadText("{:Scene (\"~/s\" 0) :Items (" + items + ")}");
}
template <class Record> const Record& Only(const Reading& reading) {
  EXPECT_EQ(reading.result, TextResult::Done) << ErrorsOf(reading);
  return reading.group->Items.At(0)->As<Record>();
}
// The only action of a link.
const ElementaryAction& OnlyAction(const Reading& reading) {
  return *Only<Link>(reading).LinkEffect.At(0);
}
Reading ReadAction(const std::string& action) {
  return ReadItems("{:Link 1 :EventSource 0 :EventType IsRunning :LinkEffect (" + action + ")}");
}
std::string KindsOf(const ElementaryAction& action) {
  std::string kinds;
  for (const GenericValue& value : action.Parameters) {
    kinds += static_cast<char>('0' + static_cast<int>(value.Kind));
  }
  return kinds;
}
TEST(TextReader, default_attributes_are_read_among_the_other_attributes_of_an_application) {
  const Reading reading = ReadText(R"({:Application ("~/a" 0)
    :TextColour '=FF=FF=FF=00' :OnRestart (:Quit(0)) :Font "Sans" :BitmapCHook 4
    :BackgroundColour 7 :StdID 2 20})");
  ASSERT_EQ(reading.result, TextResult::Done) << ErrorsOf(reading);
  EXPECT_TRUE(IsApplication(reading.group));
  const Application& application = AsApplication(reading.group);
  EXPECT_EQ(application.Defaults.TextColour.Absolute.View(), std::string("\xFF\xFF\xFF\0", 4));
  EXPECT_EQ(application.Defaults.BackgroundColour.Kind, ValueKind::Integer);
  EXPECT_EQ(application.Defaults.BackgroundColour.Index, 7);
  EXPECT_EQ(application.Defaults.Font.Name.View(), "Sans");
  EXPECT_EQ(application.Defaults.BitmapContentHook, 4);
  EXPECT_EQ(application.Defaults.TextContentHook, -1);
  EXPECT_EQ(application.OnRestart.Size(), 1U);
  EXPECT_EQ(application.Standard.MHEGStandardIdentifier, 20);
}

TEST(TextReader, an_application_without_attributes_has_default_values) {
  const Reading reading = ReadText("{:Application 0}");
  ASSERT_EQ(reading.result, TextResult::Done);
  const Application& application = AsApplication(reading.group);
  EXPECT_FALSE(application.Reference.GroupIdentifier.IsPresent());
  EXPECT_EQ(application.OriginalGroupCachePriority, 127);
  EXPECT_EQ(application.Defaults.BackgroundColour.Index, -1);
  EXPECT_EQ(application.Defaults.TextColour.Kind, ValueKind::None);
  EXPECT_TRUE(application.Items.IsEmpty());
}

TEST(TextReader, keywords_are_read_in_any_case_and_attributes_in_any_order) {
  const Reading reading =
      ReadText("{:scene (\"~/s\" 0) :NEXTSCENES ((\"~/x\" 5)) :sceneCS 1 2 :aspectratio 16 9 "
               ":movingcursor true}");
  ASSERT_EQ(reading.result, TextResult::Done);
  const Scene& scene = AsScene(reading.group);
  EXPECT_EQ(scene.NextScenes.At(0)->Weight, 5);
  EXPECT_EQ(scene.SceneCS.Height, 2);
  EXPECT_EQ(scene.Aspect.Width, 16);
  EXPECT_TRUE(scene.MovingCursor);
}

TEST(TextReader, content_is_included_or_referenced_with_or_without_parentheses) {
  const auto content = [](const std::string& text) {
    return ReadItems("{:Bitmap 1 :OrigBoxSize 1 1 :OrigContent " + text + " :CHook 3}");
  };
  const Reading included = content("\"data\"");
  EXPECT_FALSE(Only<Bitmap>(included).OriginalContent.IsReferenced);
  for (const char* text : {":ContentRef (\"~/p.png\" :ContentSize 9 :CCPriority 5)",
                           ":ContentRef \"~/p.png\" :ContentSize 9 :CCPriority 5"}) {
    const Reading referenced = content(text);
    const Bitmap& bitmap = Only<Bitmap>(referenced);
    EXPECT_TRUE(bitmap.OriginalContent.IsReferenced);
    EXPECT_EQ(bitmap.OriginalContent.Data.View(), "~/p.png");
    EXPECT_EQ(bitmap.OriginalContent.Size, 9);
    EXPECT_EQ(bitmap.OriginalContent.CachePriority, 5);
    EXPECT_EQ(bitmap.ContentHOOK, 3);
  }
  const Reading plain = content(":ContentRef (\"~/p.png\")");
  EXPECT_EQ(Only<Bitmap>(plain).OriginalContent.CachePriority, 127);
}

TEST(TextReader, each_variable_class_reads_a_value_of_its_type) {
  EXPECT_TRUE(Only<BooleanVariable>(ReadItems("{:BooleanVar 1 :OrigValue TRUE}")).OriginalValue);
  EXPECT_EQ(Only<IntegerVariable>(ReadItems("{:IntegerVar 1 :OrigValue -5}")).OriginalValue, -5);
  EXPECT_EQ(
      Only<OctetStringVariable>(ReadItems("{:OStringVar 1 :OrigValue \"x\"}")).OriginalValue.View(),
      "x");
  EXPECT_EQ(
      Only<ObjectRefVariable>(ReadItems("{:ObjectRefVar 1 :OrigValue :ObjectRef (\"~/a\" 4)}"))
          .OriginalValue.Number,
      4);
  for (const char* path : {"\"~/c\"", "(\"~/c\")"}) {
    EXPECT_EQ(Only<ContentRefVariable>(
                  ReadItems("{:ContentRefVar 1 :OrigValue :ContentRef " + std::string(path) + "}"))
                  .OriginalValue.Path.View(),
              "~/c");
  }
}

TEST(TextReader, the_tables_of_token_and_list_groups_are_read) {
  const Reading reading = ReadItems(R"({:ListGroup 1
    :MovementTable ((1 2 3) ())
    :TokenGroupItems ((5) (6 :ActionSlots ((:Run(2) :Stop(3)) NULL)))
    :NoTokenActionSlots (NULL ())
    :Positions ((10 20) (30 40)) :WrapAround TRUE})");
  const auto& list = Only<ListGroup>(reading);
  ASSERT_EQ(list.MovementTable.Size(), 2U);
  EXPECT_EQ(*list.MovementTable.At(0)->Targets.At(2), 3);
  ASSERT_EQ(list.TokenGroupItems.Size(), 2U);
  const TokenGroupItem& second = *list.TokenGroupItems.At(1);
  EXPECT_EQ(second.AVisible.Number, 6);
  EXPECT_EQ(second.ActionSlots.At(0)->Actions.Size(), 2U);
  EXPECT_TRUE(second.ActionSlots.At(1)->IsNull);
  EXPECT_TRUE(list.NoTokenActionSlots.At(0)->IsNull);
  EXPECT_FALSE(list.NoTokenActionSlots.At(1)->IsNull);
  EXPECT_EQ(list.Positions.At(1)->Y, 40);
  EXPECT_TRUE(list.WrapAround);
}

TEST(TextReader, streams_accept_only_components_and_groups_only_items) {
  const Reading reading = ReadItems(R"({:Stream 1 :Multiplex (
    {:Audio 2 :ComponentTag 5 :OrigVolume 3}
    {:Video 3 :OrigBoxSize 720 576 :ComponentTag 6 :Termination freeze}
    {:RTGraphics 4 :OrigBoxSize 1 1 :ComponentTag 7}) :Storage memory :Looping 0})");
  const auto& stream = Only<Stream>(reading);
  ASSERT_EQ(stream.Multiplex.Size(), 3U);
  EXPECT_EQ(stream.Multiplex.At(0)->As<Audio>().OriginalVolume, 3);
  EXPECT_EQ(stream.Multiplex.At(1)->As<Video>().Termination, Termination{1});
  EXPECT_EQ(stream.Multiplex.At(2)->Type(), ItemType::RTGraphics);
  EXPECT_EQ(stream.Storage, Storage{1});
  EXPECT_EQ(ReadItems("{:Audio 2 :ComponentTag 5}").result, TextResult::Refused);
  EXPECT_EQ(ReadItems("{:Stream 1 :Multiplex ({:Text 2 :OrigBoxSize 1 1})}").result,
            TextResult::Refused);
}

TEST(TextReader, enumeration_words_are_numbered_from_1) {
  const Reading reading = ReadItems(
      "{:EntryField 1 :OrigBoxSize 1 1 :StartCorner lower-right :LineOrientation Vertical "
      ":VJustification JUSTIFIED :InputType listed}");
  const auto& field = Only<EntryField>(reading);
  EXPECT_EQ(field.StartCorner, StartCorner{4});
  EXPECT_EQ(field.LineOrientation, LineOrientation{1});
  EXPECT_EQ(field.VerticalJustification, Justification{4});
  EXPECT_EQ(field.InputType, InputType{4});
  EXPECT_EQ(ReadItems("{:Slider 1 :OrigBoxSize 1 1 :Orientation centre}").result,
            TextResult::Refused)
      << "the word belongs to another enumeration";
}

TEST(TextReader, event_data_is_a_boolean_an_integer_or_a_string) {
  const auto kind = [](const std::string& data) {
    return Only<Link>(ReadItems("{:Link 1 :EventSource 0 :EventType UserInput :EventData " + data +
                                " :LinkEffect ()}"))
        .Condition.EventData.Kind;
  };
  EXPECT_EQ(kind("FALSE"), ValueKind::Boolean);
  EXPECT_EQ(kind("15"), ValueKind::Integer);
  EXPECT_EQ(kind("'=00'"), ValueKind::OctetString);
}

TEST(TextReader, composite_parameters_are_flattened) {
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":Call(1 2 :GBoolean TRUE :GInteger :IndirectRef 3 "
                                          ":GOctetString \"x\" :GObjectRef 4 "
                                          ":GContentRef :ContentRef \"~/c\")"))),
            "415346");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":ReadPersistent(0 1 (2 3) \"ram://x\")"))), "4443");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":DrawPolygon(1 ((1 2) (3 4) (5 :IndirectRef 6)))"))),
            "222225");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetTimer(0 1 500 :AbsoluteTime TRUE)"))), "221");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetTimer(0 1 500)"))), "22");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetTimer(0 1)"))), "2");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetSpeed(0 1 2)"))), "22");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetSpeed(0 1)"))), "2");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetCounterTrigger(0 1 2)"))), "22");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":TransitionTo((\"~/s\" 0) NULL 7)"))), "02");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":TransitionTo((\"~/s\" 0))"))), "");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetFillColour(1 :NewColourIndex 3)"))), "2");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetFillColour(1 :NewAbsoluteColour '=00=00=00')"))),
            "3");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetFillColour(1)"))), "");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetFontRef(1 \"Sans\")"))), "3");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetFontRef(1 9)"))), "4");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SendEvent(0 1 UserInput :GInteger 15)"))), "422");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SendEvent(0 1 6)"))), "42");
}

TEST(TextReader, an_omitted_size_of_new_content_is_null_before_a_priority) {
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetData(1 \"x\")"))), "3");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetData(1 :NewRefContent (:ContentRef \"~/c\"))"))),
            "6");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(
                ":SetData(1 :NewRefContent (:ContentRef (\"~/c\") :NewContentSize 5))"))),
            "62");
  EXPECT_EQ(KindsOf(OnlyAction(
                ReadAction(":SetData(1 :NewRefContent (:ContentRef \"~/c\" :NewCCPriority 5))"))),
            "602");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetData(1 :NewRefContent (:IndirectRef 4 "
                                          ":NewContentSize NULL :NewCCPriority NULL))"))),
            "500");
}

TEST(TextReader, an_omitted_size_of_new_content_is_null_after_an_indirect_reference) {
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetData(1 :IndirectRef 4)"))), "5");
  EXPECT_EQ(KindsOf(OnlyAction(ReadAction(":SetData(1 :NewRefContent (:IndirectRef 4))"))), "50");
}

TEST(TextReader, a_target_may_be_indirect) {
  const Reading reading = ReadAction(":Run(:IndirectRef (\"~/a\" 3))");
  EXPECT_EQ(OnlyAction(reading).Target.Kind, ValueKind::IndirectReference);
  EXPECT_EQ(OnlyAction(reading).Target.Reference.Number, 3);
}

TEST(TextReader, step_and_stop_have_their_own_numbers) {
  EXPECT_EQ(OnlyAction(ReadAction(":Stop(1)")).ActionType, 102);
  EXPECT_EQ(OnlyAction(ReadAction(":Step(1 5)")).ActionType, 101);
}

TEST(TextReader, an_error_reports_its_position_its_construct_and_what_was_expected) {
  struct Case {
    const char* text;
    const char* error;
  };
  const Case cases[] = {
      {"", "1:1 in  : the end, {\n"},
      {"{:Text 1}", "1:2 in  : :Text, |class\n"},
      {"{:Scene 0} {", "1:12 in  : {, the end of the text\n"},
      {"{:Scene 0} 5", "1:12 in  : 5, the end of the text\n"},
      {"{:Scene :Items ()}", "1:9 in Scene : :Items, an object number or (\"group\" number)\n"},
      {"{:Scene (\"~/s\" 0 5)}", "1:18 in Scene : 5, )\n"},
      {"{:Scene (5 0)}", "1:10 in Scene : 5, a string\n"},
      {"{:Scene 0\n  :SceneCS 720 :InputEventReg 1}",
       "2:16 in Scene :SceneCS: :InputEventReg, an integer\n"},
      {"{:Scene 0\n  :OrigBoxSize 1 1}", "2:3 in Scene : :OrigBoxSize, }|attribute\n"},
      {"{:Scene 0 :SceneCS 1 2 :SceneCS 1 2}",
       "1:24 in Scene : :SceneCS, each attribute only once\n"},
      {"{:Scene 0 :Items :SceneCS 1 2}", "1:18 in Scene :Items: :SceneCS, (\n"},
      {"{:Scene 0 :Items ({:Nothing})}", "1:20 in Scene :Items: :Nothing, |class\n"},
      {"{:Scene 0 :Items ({:Run 1})}", "1:20 in Scene :Items: :Run, |class\n"},
      {"{:Scene 0 :Items (5)}", "1:19 in Scene :Items: 5, ) or {\n"},
      {"{:Application 0 :Items (", "1:25 in Application :Items: the end, ) or {\n"},
      {"{:Scene 0 :Items ({:Text 1 :TextWrapping 5})}",
       "1:42 in Text :TextWrapping: 5, |TRUE|FALSE\n"},
      {"{:Scene 0 :Items ({:Text 1 :OrigBoxSize 1 1}) :MovingCursor 1}",
       "1:61 in Scene :MovingCursor: 1, |TRUE|FALSE\n"},
      {"{:Scene 0 :OnStartUp (:Run(2) :Add(3 TRUE))}", "1:38 in Add : TRUE, an integer\n"},
      {"{:Scene 0 :OnStartUp (:Run(2) 5)}", "1:31 in Scene :OnStartUp: 5, )|action\n"},
      {"{:Scene 0 :OnStartUp (:Text(1))}", "1:23 in Scene :OnStartUp: :Text, )|action\n"},
      {"{:Scene 0 :OnStartUp (:Run(1 2))}", "1:30 in Run : 2, )\n"},
      {"{:Scene 0 :OnStartUp (:SetData(1 :NewRefContent 5))}", "1:49 in SetData : 5, (\n"},
      {"{:Scene 0 :OnStartUp (:SetData(1 :NewRefContent (:IndirectRef 2 3)))}",
       "1:65 in SetData : 3, )\n"},
      {"{:Scene 0 :OnStartUp (:DrawPolygon(1 (5)))}", "1:39 in DrawPolygon : 5, (\n"},
      {"{:Scene 0 :OnStartUp (:DrawPolygon(1 ((1 2 3))))}", "1:44 in DrawPolygon : 3, )\n"},
      {"{:Scene 0 :OnStartUp (:SetPosition(1 2 3 4))}", "1:42 in SetPosition : 4, )\n"},
      {"{:Scene 0 :Items ({:Text 1 :OrigBoxSize 1 1 :HJustification center})}",
       "1:61 in Text :HJustification: center, |start|end|centre|justified\n"},
      {"{:Scene 0 :Items ({:Link 1 :EventData NULL })}",
       "1:39 in Link :EventData: NULL, a boolean, an integer or a string\n"}};
  for (const Case& expected : cases) EXPECT_EQ(ErrorsOf(ReadText(expected.text)), expected.error);
}

TEST(TextReader, an_error_within_a_token_is_reported_once_and_its_value_is_read) {
  struct Case {
    const char* text;
    const char* error;
  };
  const Case cases[] = {
      {"{:Scene 0 :SceneCS 0x1F 5}", "1:20 in Scene :SceneCS: 0x1F, a decimal number\n"},
      {"{:Scene 0 :SceneCS 0X1f 5}", "1:20 in Scene :SceneCS: 0X1f, a decimal number\n"},
      {"{:Scene 0 :SceneCS 0x0 5}", "1:20 in Scene :SceneCS: 0x0, a decimal number\n"},
      {"{:Scene 0 :SceneCS 0x 5}", "1:20 in Scene :SceneCS: 0x, a decimal number\n"},
      {"{:Scene 0 :SceneCS - 5}", "1:20 in Scene :SceneCS: -, a digit after the -\n"},
      {"{:Scene 0 :SceneCS 07 5}", "1:20 in Scene :SceneCS: 07, a number without a leading zero\n"},
      {"{:Scene 0 :SceneCS 99999999999 5}", "1:20 in Scene :SceneCS: 99999999999, "
                                            "a number from -2147483648 to 2147483647\n"},
      {"{:Scene 0 :ObjectInfo \"open}", "1:23 in Scene :ObjectInfo: \"open, "
                                        "the quote that ends this string\n"},
      {"{:Scene 0 /* note */ :SceneCS 7 5}",
       "1:11 in Scene : /*, //, which begins a comment up to the end of the line\n"},
      {"{:Scene 0 /* note\n :SceneCS 7 5}",
       "1:11 in Scene : /*, //, which begins a comment up to the end of the line\n"},
      {"{:Scene 0 :Items ({:Palette 1 :Shared TRUE :OrigContent :ContentRef)})}",
       "1:57 in Palette :OrigContent: :ContentRef, a space after this word\n"},
      {"{:Scene 0 \xC8}", "1:11 in Scene : \xC8, }|attribute\n"},
      {"{\x1B:Scene 0}", "1:2 in  : \x1B, |class\n"}};
  for (const Case& expected : cases) EXPECT_EQ(ErrorsOf(ReadText(expected.text)), expected.error);
}

TEST(TextReader, reading_continues_after_an_error_at_the_next_attribute_action_or_object) {
  EXPECT_EQ(ErrorsOf(ReadText("{:Scene x :SceneCS 720 y :Foo 1 :MovingCursor z :OnStartUp (:Run(a) "
                              ":Bar(1) :Stop(b)) :Items (c {:Baz 1} {:Text 1 :TextWrapping d}) "
                              ":InputEventReg e}")),
            "1:9 in Scene : x, an object number or (\"group\" number)\n"
            "1:24 in Scene :SceneCS: y, an integer\n"
            "1:26 in Scene : :Foo, }|attribute\n"
            "1:47 in Scene :MovingCursor: z, |TRUE|FALSE\n"
            "1:66 in Run : a, an object number or (\"group\" number)\n"
            "1:69 in Scene :OnStartUp: :Bar, )|action\n"
            "1:83 in Stop : b, an object number or (\"group\" number)\n"
            "1:95 in Scene :Items: c, ) or {\n"
            "1:98 in Scene :Items: :Baz, |class\n"
            "1:129 in Text :TextWrapping: d, |TRUE|FALSE\n"
            "1:148 in Scene :InputEventReg: e, an integer\n");
}

TEST(TextReader, a_wrong_bracket_is_reported_as_one_error) {
  const std::string tail = " {:Text 3 :OrigBoxSize 1 x})}";
  const std::string tailError = " in Text :OrigBoxSize: x, an integer\n";
  struct Case {
    const char* items;
    const char* error;
  };
  const Case cases[] = {
      {"{:Text 1 :OrigBoxSize 1 1 {:Text 2 :OrigBoxSize 1 1}", "1:45 in Text : {, }|attribute\n"},
      {"{:Text 1 :OrigBoxSize 1 1}}", "1:45 in Scene :Items: }, ) or {\n"},
      {"{:Text 1 :OrigBoxSize 1 1)}", "1:44 in Text : ), }|attribute\n"},
      {"{:Link 1 :LinkEffect (:Run(1) :EventSource 0 :EventType IsRunning}",
       "1:49 in Link :LinkEffect: :EventSource, )|action\n"},
      {"{:Link 1 :LinkEffect (:Run(1 :Stop(1)) :EventSource 0 :EventType IsRunning}",
       "1:48 in Run : :Stop, )\n"},
      {"{:Link 1 :LinkEffect (:Run(1))) :EventSource 0 :EventType IsRunning}",
       "1:49 in Link : ), }|attribute\n"},
      {"{:Link 1 :LinkEffect (x :EventSource 0) :EventType IsRunning}",
       "1:41 in Link :LinkEffect: x, )|action\n"}};
  for (const Case& each : cases) {
    const std::string text = std::string("{:Scene 0 :Items (") + each.items + tail;
    const std::string position = "1:" + std::to_string(text.rfind('x') + 1);
    EXPECT_EQ(ErrorsOf(ReadText(text)), each.error + position + tailError) << text;
  }
}

TEST(TextReader, a_text_that_does_not_begin_with_a_brace_has_one_error) {
  EXPECT_EQ(ErrorsOf(ReadText(":Scene 0 :SceneCS x}")), "1:1 in  : :Scene, {\n");
}

TEST(TextReader, an_error_after_the_group_is_reported) {
  EXPECT_EQ(ErrorsOf(ReadText("{:Scene 0} \"")),
            "1:12 in Scene : \", the quote that ends this string\n");
  EXPECT_EQ(ErrorsOf(ReadText("{:Scene 0} /* x")),
            "1:12 in Scene : /*, //, which begins a comment up to the end of the line\n");
  EXPECT_EQ(ErrorsOf(ReadText("{:Scene 0} x")), "1:12 in  : x, the end of the text\n");
}

TEST(TextReader, an_object_with_an_error_is_not_reported_as_incomplete) {
  const Reading reading = ReadText("{:Scene 0 :Items ({:Text 1 :OrigBoxSise 1 1} {:Text 2})}");
  EXPECT_EQ(reading.report.errors.Size(), 1U);
  ASSERT_EQ(reading.report.missing.Size(), 1U);
  EXPECT_EQ(reading.report.missing[0].offset, 45U);
}

TEST(TextReader, at_most_twenty_errors_are_reported) {
  std::string items;
  for (int number = 1; number <= 30; ++number) items += "{:IntegerVar 1 :OrigValue x} ";
  EXPECT_EQ(ReadText("{:Scene 0 :Items (" + items + ")}").report.errors.Size(), 20U);
}

// Reading a text again for each of its errors or brackets would take minutes.
TEST(TextReader, reading_takes_linear_time_for_any_error) {
  const char* const parts[] = {
      "{",     "}",          "(",       ")",    "{:Text 1 ",
      ":Run(", ":SceneCS",   ":a)",     "/* ",  "\"\n",
      "'\n",   "\"a\n\"b\n", "x ",      "1 ",   "07 ",
      "\xC8",  "(x ",        "{:Text ", "{:x ", ":Items ({:Text 1 :OrigBoxSize ("};
  for (const char* part : parts) {
    for (const char* head :
         {"", "{:Scene 0 ", "{:Scene 0 :Items (", "{:Scene 0 x :OnStartUp (:Run("}) {
      std::string text = head;
      while (text.size() < 60'000) text += part;
      const auto begin = std::chrono::steady_clock::now();
      EXPECT_EQ(ReadText(text).result, TextResult::Refused) << head << part;
      EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3)) << head << part;
    }
  }
}

// The number is fixed, because callers without these headers see only the number.
TEST(TextReader, every_invalid_text_returns_1) {
  for (const std::string& text :
       {std::string("{:Scene 0x1}"), std::string("{:Scene -}"), std::string("{:Foo 0}"),
        std::string("{:Scene 0 /}"), std::string("{:Text 1}"), std::string("{:Scene 0"),
        std::string("\xC8"), std::string("\x7F"), std::string("{:Scene 0 :ObjectInfo \"x"),
        "{:Scene 0}" + std::string(65526, ' ')}) {
    EXPECT_EQ(static_cast<int>(ReadText(text).result), 1) << text.substr(0, 40);
    EXPECT_FALSE(ReadText(text).group);
  }
  EXPECT_EQ(static_cast<int>(ReadText("{:Scene 0}" + std::string(65525, ' ')).result), 0);
}

TEST(TextReader, an_unknown_word_is_printed) {
  OwnedGroup group;
  testing::internal::CaptureStdout();
  const TextResult result = ReadTextGroup("{:Scene 0 :Foo}", group);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Error string : :FOO}\n");
  EXPECT_EQ(result, TextResult::Refused);
}

TEST(TextReader, an_unknown_word_is_not_printed_if_the_caller_receives_the_error) {
  testing::internal::CaptureStdout();
  const Reading reading = ReadText("{:Scene 0 :Foo}");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(reading.result, TextResult::Refused);
}

TEST(TextReader, a_failure_returns_no_group) {
  OwnedGroup group;
  EXPECT_EQ(ReadTextGroup("{:Scene 0 :Items ({:Palette 1} {:Palette})}", group),
            TextResult::Refused);
  EXPECT_FALSE(group);
}

std::string MissingOf(const Reading& reading) {
  std::string all;
  for (const MissingPart& part : reading.report.missing) {
    all += std::to_string(part.offset) + " " + part.owner + " " +
           (*part.name == 0 ? std::to_string(part.parameter) : part.name) + "\n";
  }
  return all;
}

TEST(TextReader, missing_attributes_are_listed_but_do_not_fail) {
  const Reading reading = ReadText(
      "{:Scene 0 :Items ({:Link 1} {:Text 2} {:IntegerVar 3} {:TokenGroup 4} {:ResidentPrg 5}"
      " {:Stream 6})}");
  EXPECT_EQ(reading.result, TextResult::Done);
  EXPECT_EQ(MissingOf(reading),
            "18 Link :EventSource\n18 Link :EventType\n18 Link :LinkEffect\n28 Text :OrigBoxSize\n"
            "38 IntegerVar :OrigValue\n54 TokenGroup :TokenGroupItems\n"
            "70 ResidentPrg :Name\n87 Stream :Multiplex\n");
}

TEST(TextReader, missing_parameters_shorten_the_list_and_are_listed) {
  const Reading reading = ReadAction(":SetPosition(1 2) :Run(1) :TestVariable(1) :TransitionTo(2)");
  EXPECT_EQ(KindsOf(OnlyAction(reading)), "2");
  EXPECT_EQ(MissingOf(reading), "100 SetPosition 1\n125 TestVariable 0\n");
  EXPECT_TRUE(MissingOf(ReadAction(":SetLineColour(1) :SetSpeed(1 2) :SetTimer(0 1)")).empty());
}

// One of each construct.
constexpr const char* kEachConstruct =
    R"({:Application ("~/a" 0) :StdID 2 19 :OnStartUp (:Run(("~/a" 1)))
  :BackgroundColour '=00=00=00' :TextColour 3 :Font "Sans" :BitmapCHook 4 :Items (
  {:Bitmap 1 :OrigContent :ContentRef ("~/p" :ContentSize 9 :CCPriority 5) :OrigBoxSize 1 2
    :Tiling TRUE :OrigPaletteRef ("~/a" 9)}
  {:Text 2 :OrigContent "t" :OrigBoxSize 1 1 :OrigFont 9 :HJustification centre}
  {:ObjectRefVar 4 :OrigValue :ObjectRef ("~/b" 5)}
  {:ContentRefVar 5 :OrigValue :ContentRef ("~/c")}
  {:ListGroup 6 :MovementTable ((1 2) ()) :TokenGroupItems ((1 :ActionSlots ((:Run(2)) NULL)))
    :Positions ((10 20))}
  {:Stream 7 :Multiplex ({:Audio 8 :ComponentTag 5}) :Looping 0}
  {:Link 9 :EventSource ("~/a" 0) :EventType UserInput :EventData FALSE :LinkEffect (
    :Call(1 2 :GBoolean TRUE :GInteger :IndirectRef 3 :GOctetString "x" :GObjectRef ("~/b" 4)
      :GContentRef :ContentRef "~/c")
    :ReadPersistent(("~/a" 0) 1 (2 ("~/b" 3)) "n")
    :DrawPolygon(1 ((1 2) (3 :IndirectRef 6)))
    :SetTimer(0 1 500 :AbsoluteTime TRUE)
    :SetSpeed(0 1 2)
    :TransitionTo(("~/s" 0) NULL 7)
    :SetFillColour(1 :NewColourIndex 3) :SetFillColour(1 :NewAbsoluteColour '=00=00=00')
    :SetFontRef(1 "Sans") :SetFontRef(1 9)
    :SendEvent(0 1 UserInput :GInteger 15) :SendEvent(0 1 6)
    :SetData(1 :NewRefContent (:ContentRef ("~/c") :NewContentSize 5 :NewCCPriority NULL))
    :SetData(1 :IndirectRef 4) :SetData(1 :NewRefContent (:IndirectRef 4))
    :SetData(1 :NewRefContent (:IndirectRef 4 :NewCCPriority 5)))})})";

// The text split into brackets, strings and words.
std::vector<std::pair<std::size_t, std::size_t>> TokensOf(const std::string& text) {
  std::vector<std::pair<std::size_t, std::size_t>> tokens;
  for (std::size_t begin = text.find_first_not_of(" \n"); begin != std::string::npos;) {
    const char first = text[begin];
    std::size_t end = begin + 1;
    if (first == '"' || first == '\'') {
      end = text.find(first, end) + 1;
    } else if (std::string("(){}").find(first) == std::string::npos) {
      end = text.find_first_of(" \n(){}", end);
    }
    tokens.emplace_back(begin, end - begin);
    begin = text.find_first_not_of(" \n", end);
  }
  return tokens;
}

// "memory" is only a value of :Storage, which the text does not have.
TEST(TextReader, a_wrong_word_in_place_of_any_token_is_the_first_error) {
  const std::string text = kEachConstruct;
  const Reading whole = ReadText(text);
  ASSERT_EQ(whole.result, TextResult::Done) << ErrorsOf(whole);
  EXPECT_TRUE(whole.report.missing.IsEmpty());
  for (const auto& [begin, length] : TokensOf(text)) {
    std::string broken = text;
    broken.replace(begin, length, " memory ");
    const Reading reading = ReadText(broken);
    EXPECT_EQ(reading.result, TextResult::Refused) << broken.substr(begin);
    EXPECT_EQ(FoundIn(broken, reading.report.errors[0]), "memory") << broken.substr(begin);
    EXPECT_FALSE(reading.group);
    for (std::size_t i = 1; i < reading.report.errors.Size(); ++i) {
      EXPECT_GT(reading.report.errors[i].offset, reading.report.errors[i - 1].offset)
          << ErrorsOf(reading);
    }
  }
}

TEST(TextReader, at_most_one_error_is_reported_at_each_position) {
  const std::string text = kEachConstruct;
  const auto tokens = TokensOf(text);
  std::mt19937 random(1);  // NOLINT: the same texts every time
  for (int round = 0; round < 3000; ++round) {
    std::string broken = text;
    for (int count = 0; count < 3; ++count) {
      const auto& [begin, length] = tokens[random() % tokens.size()];
      const auto& [from, taken] = tokens[random() % tokens.size()];
      if (begin + length > broken.size()) continue;
      const std::size_t replaced = random() % 2 == 0 ? length : 0;
      const std::string other = random() % 3 == 0 ? "" : " " + text.substr(from, taken) + " ";
      broken.replace(begin, replaced, other);
    }
    const Reading reading = ReadText(broken);
    std::set<std::uint32_t> offsets;
    for (const TextError& error : reading.report.errors) {
      EXPECT_TRUE(offsets.insert(error.offset).second) << broken << ErrorsOf(reading);
    }
    if (HasFailure()) break;
  }
}

TEST(TextReader, without_memory_a_text_with_errors_is_refused_as_well) {
  for (const char* text : {"{:Scene 0 :a_long_unknown_keyword", "{:Scene 0 a_long_unknown_word",
                           "{:Scene 0 :SceneCS{ 1 2}", "{:Scene 0 /* */ }", "{:Scene 07 }"}) {
    OwnedGroup group;
    TextReport report;
    const std::size_t failures = test::FailEachInTurn(
        [&] { return ReadTextGroup(text, group, report); },
        [text](TextResult result, bool) { EXPECT_NE(result, TextResult::Done) << text; });
    EXPECT_GT(failures, 0U);
  }
}

TEST(TextReader, every_failed_allocation_refuses_the_text_and_leaks_nothing) {
  const std::string text = kEachConstruct;
  const std::size_t before = test::LiveBlocks();
  std::size_t refused = 0;
  OwnedGroup group;
  test::FailEachInTurn([&] { return ReadTextGroup(text, group); },
                       [&](TextResult result, bool hasFailed) {
                         EXPECT_EQ(result == TextResult::Done, !hasFailed);
                         EXPECT_EQ(static_cast<bool>(group), !hasFailed);
                         refused += result == TextResult::NoMemory ? 1 : 0;
                       });
  group.reset();
  EXPECT_EQ(refused, 1U) << "only an allocation of the group record returns NoMemory";
  EXPECT_EQ(test::LiveBlocks(), before);
}

TEST(TextReader, without_memory_to_list_a_missing_part_the_text_is_refused) {
  const std::string text = "{:Scene 0 :Items ({:Link 1 :LinkEffect (:Add(2) "
                           ":DrawPolygon(3 ((1))))})}";
  EXPECT_EQ(MissingOf(ReadText(text)), "46 Add 0\n66 a point y\n18 Link :EventSource\n"
                                       "18 Link :EventType\n");
  int reported = 0;
  test::FailEachInTurn([&text] { return ReadText(text); },
                       [&reported](const Reading& reading, bool hasFailed) {
                         EXPECT_EQ(reading.result == TextResult::Done, !hasFailed);
                         EXPECT_EQ(static_cast<bool>(reading.group), !hasFailed);
                         for (const TextError& error : reading.report.errors) {
                           EXPECT_STREQ(error.expected, "more memory");
                           ++reported;
                         }
                       });
  EXPECT_GT(reported, 0);
}

}  // namespace
}  // namespace korvel
