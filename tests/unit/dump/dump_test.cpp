// The lines of the dump, to the letter, and where they stand in the tree.
#include "dump/dump.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "dump/printers.h"
#include "objects/ber/ber.h"
#include "objects/objects.h"
#include "support/sample_groups.h"
#include "textual/textual.h"

namespace korvel {
namespace {

template <class Print>
std::string Printed(Print&& print) {
  std::FILE* stream = std::tmpfile();
  print(stream);
  std::string text;
  std::rewind(stream);
  for (int c = std::fgetc(stream); c != EOF; c = std::fgetc(stream)) text += static_cast<char>(c);
  std::fclose(stream);
  return text;
}

OwnedGroup Read(const std::string& text) {
  OwnedGroup group;
  bool isApplication = false;
  TextError error;
  EXPECT_EQ(ReadTextGroup(text, group, isApplication, &error), TextResult::Done)
      << text << "\n"
      << error.place.line << ":" << error.place.column << " expected " << error.expected.data();
  return group;
}

std::string DumpOf(const OwnedGroup& group) {
  return Printed([&group](std::FILE* stream) {
    if (group.IsApplication()) {
      DumpApplication(group.AsApplication(), 0, stream);
    } else {
      DumpScene(group.AsScene(), 0, stream);
    }
  });
}
std::string DumpOfText(const std::string& text) { return DumpOf(Read(text)); }
std::string DumpOfItem(const std::string& item) {
  return DumpOfText("{:Scene (\"~/s\" 0) :Items (" + item + ")}");
}

bool Has(const std::string& dump, const std::string& lines) {
  return dump.find(lines) != std::string::npos;
}

// The lines of an ingredient without content whose heading stands behind `prefix`.
std::string IngredientLines(const std::string& prefix, int number) {
  return prefix + "|---Ingredient:\n" + prefix + "|   |---Root\n" + prefix +
         "|   |---ObjectReference:(NULL " + std::to_string(number) + ")\n" + prefix +
         "|   |---AvailabilityStatus: FALSE\n" + prefix + "|   |---RunningStatus: FALSE\n" +
         prefix + "|---InitiallyActive: TRUE\n" + prefix + "|---ContentHOOK: 0\n" + prefix +
         "|---OriginalContent: NULL\n" + prefix + "|---OriginalContentSize: 0\n" + prefix +
         "|---OriginalContentCachePriority: 127\n" + prefix + "|---Shared: FALSE\n" + prefix +
         "|---Content: NULL\n" + prefix + "|---ContentSize: 0\n" + prefix +
         "|---ContentCachePriority: 127\n";
}

TEST(Dump, an_application_is_printed_line_by_line) {
  EXPECT_EQ(DumpOfText("{:Application (\"~/a\" 0) :OnRestart (:Quit(0)) :TextColour '=41=00' "
                       ":Font (\"~/f\" 3) :FontAttributes \"plain\"}"),
            "|---Application:\n"
            "|   |   |---Root:\n"
            "|   |   |---ObjectReference:(~/a 0)\n"
            "|   |   |---AvailabilityStatus: FALSE\n"
            "|   |   |---RunningStatus: FALSE\n"
            "|   |---JointIsoItuIdentifier: 2\n"
            "|   |---MHEGStandardIdentifier: 19\n"
            "|   |---StandardVersion: 1\n"
            "|   |---ObjectInformation: NULL\n"
            "|   |---OriginalGroupCachePriority: 127\n"
            "|   |---GroupCachePriority: 127\n"
            "|   |---OnStartUp:\n"
            "|   |   |---No Action Class\n"
            "|   |---OnCloseDown:\n"
            "|   |   |---No Action Class\n"
            "|   |---Items:\n"
            "|   |   |---No Items\n"
            "|---OnSpawnCloseDown:\n"
            "|   |---No Action Class\n"
            "|---OnRestart:\n"
            "|   |---Quit:\n"
            "|   |   |---ObjectReference(NULL 0)\n"
            "|   |   |---No parameters\n"
            "|---CharacterSet: 0\n"
            "|---BackgroundColour:\n"
            "|   |---Integer: -1\n"
            "|---TextColour:\n"
            "|   |---OctetString: length(2) data(A) hex(4100)\n"
            "|---Font:\n"
            "|   |---ObjectReference:(~/f 3)\n"
            "|---FontAttributes: plain\n"
            "|---BitmapContentHook: -1\n"
            "|---StreamContentHook: -1\n"
            "|---TextContentHook: -1\n"
            "|---LineArtContentHook: -1\n"
            "|---InterchangedProgramContentHook: -1\n"
            "|---ButtonRefColour:\n"
            "|   |---None 0\n"
            "|---HighlightRefColour:\n"
            "|   |---None 0\n"
            "|---SliderRefColour:\n"
            "|   |---None 0\n"
            "|---LockCount: 0\n"
            "|---DispalyStack:\n");
}

TEST(Dump, a_scene_is_printed_behind_its_group_part) {
  const std::string dump = DumpOfText(
      "{:Scene 0 :InputEventReg 4 :SceneCS 720 576 :MovingCursor TRUE :NextScenes ((\"~/n\" 7))}");
  EXPECT_EQ(dump.rfind("|---SCene:\n|   |   |---Root:\n|   |   |---ObjectReference:(NULL 0)\n", 0),
            0U);
  EXPECT_TRUE(Has(dump, "|   |   |---No Items\n"
                        "|---InputEventReg: 4\n"
                        "|---SceneCS: 720 576\n"
                        "|---AspectRatio:\n"
                        "|   |---Width: 4\n"
                        "|   |---Height: 3\n"
                        "|---MovingCursor: TRUE\n"
                        "|---NextScene:\n"
                        "|   |---Scene Ref: ~/n, weight 7\n"));
  EXPECT_TRUE(Has(DumpOfText("{:Scene 0}"), "|---NextScene:\n|   |---No next Scenes\n"));
}

TEST(Dump, depth_moves_the_whole_tree) {
  const OwnedGroup group = Read("{:Scene 0}");
  const std::string dump =
      Printed([&](std::FILE* stream) { DumpScene(group.AsScene(), 2, stream); });
  EXPECT_EQ(dump.rfind("|   |   |---SCene:\n|   |   |   |   |---Root:\n", 0), 0U);
}

TEST(Dump, an_item_stands_at_depth_two_and_its_base_one_deeper) {
  const std::string dump = DumpOfItem("{:Bitmap 1 :OrigBoxSize 10 20 :Tiling TRUE}");
  EXPECT_TRUE(Has(dump, "|   |   |---Bitmap:\n|   |   |   |---Visible:\n|   |   |   |   |---"
                        "Presentable:\n" +
                            IngredientLines("|   |   |   |   |   ", 1) +
                            "|   |   |   |---OriginalBoxSize:\n"
                            "|   |   |   |   |---X: 10\n"
                            "|   |   |   |   |---Y: 20\n"
                            "|   |   |   |---OriginalPosition:\n"
                            "|   |   |   |   |---X: 0\n"
                            "|   |   |   |   |---Y: 0\n"
                            "|   |   |   |---OriginalPaletteRef\n"
                            "|   |   |   |   |---ObjectReference: NULL\n"
                            "|   |   |   |---BoxSize:\n"
                            "|   |   |   |   |---X: 0\n"
                            "|   |   |   |   |---Y: 0\n"
                            "|   |   |   |---Position:\n"
                            "|   |   |   |   |---X: 0\n"
                            "|   |   |   |   |---Y: 0\n"
                            "|   |   |   |---PaletteRef: NULL\n"
                            "|   |   |---Tiling: TRUE\n"
                            "|   |   |---OriginalTransparency: 0\n"
                            "|   |   |---Transparency: 0\n"))
      << dump;
}

TEST(Dump, a_link_has_its_condition_and_its_actions) {
  EXPECT_TRUE(Has(DumpOfItem("{:Link 1 :EventSource (\"~/a\" 2) :EventType TestEvent :EventData "
                             "TRUE :LinkEffect (:SetPosition(3 :IndirectRef 4 -5) :DelItem(6 7) "
                             ":SetData(8 :NewRefContent (:ContentRef \"~/c\" :NewContentSize 9 "
                             ":NewCCPriority NULL)) :Append(:IndirectRef (\"~/a\" 1) \"x\"))}"),
                  "|   |   |---Link:\n" + IngredientLines("|   |   |   ", 1) +
                      "|   |   |---Link Condition:\n"
                      "|   |   |   |---Event SourceType:4\n"
                      "|   |   |   |---Event Source:\n"
                      "|   |   |   |   |---ObjectReference:(~/a 2)\n"
                      "|   |   |   |---Event Type: TestEvent\n"
                      "|   |   |   |---Event Data:\n"
                      "|   |   |   |   |---Boolean: TRUE\n"
                      "|   |   |---Action Queue:\n"
                      "|   |   |   |---SetPosition:\n"
                      "|   |   |   |   |---ObjectReference(NULL 3)\n"
                      "|   |   |   |   |---IndirectObjectReference(NULL 4)\n"
                      "|   |   |   |   |---Integer: -5\n"
                      "|   |   |   |---DelItem\n"
                      "|   |   |   |   |---ObjectReference(NULL 6)\n"
                      "|   |   |   |   |---ObjectReference(NULL 7)\n"
                      "|   |   |   |---SetData:\n"
                      "|   |   |   |   |---ObjectReference(NULL 8)\n"
                      "|   |   |   |   |---ContentReference: \"~/c\"\n"
                      "|   |   |   |   |---Integer: 9\n"
                      "|   |   |   |   |---Not define parameter type: 0\n"
                      "|   |   |   |---Append:\n"
                      "|   |   |   |   |---IndirectObjectReference(~/a 1)\n"
                      "|   |   |   |   |---OctetString: \"x\"\n"));
}

std::string EventTypeLine(std::int32_t type) {
  const OwnedGroup group = Read("{:Scene 0 :Items ({:Link 1})}");
  group->Items.At(0)->As<Link>().Condition.EventType = type;
  const std::string dump = DumpOf(group);
  const std::size_t start = dump.find("|---Event Source:");
  const std::size_t line = dump.find("|---Event Type: ", start);
  return dump.substr(line + 4, dump.find('\n', line) - line - 4);
}

TEST(Dump, is_available_has_no_name_and_is_running_its_own_spelling) {
  EXPECT_EQ(EventTypeLine(1), "Event Type: Not define event type 1");
  EXPECT_EQ(EventTypeLine(0), "Event Type: Not define event type 0");
  EXPECT_EQ(EventTypeLine(32), "Event Type: Not define event type 32");
  EXPECT_EQ(EventTypeLine(4), "Event Type: IsRuning");
}

TEST(Dump, every_other_event_has_its_name) {
  for (std::int32_t type = 2; type <= 31; ++type) {
    if (type == 4) continue;
    EXPECT_EQ(EventTypeLine(type),
              std::string("Event Type: ") + kEventWords[static_cast<std::size_t>(type) - 1]);
  }
}

TEST(Dump, every_action_has_its_name_and_a_colon_but_for_del_item) {
  for (int number = 0; number <= 120; ++number) {
    ActionList actions;
    ElementaryAction action;
    action.ActionType = static_cast<std::uint8_t>(number);
    action.Target.Kind = ValueKind::ObjectReference;
    ASSERT_NE(actions.Append(std::move(action)), nullptr);
    const std::string dump =
        Printed([&](std::FILE* stream) { korvel::Dump(Tree(0, stream), actions); });
    std::string expected = "Not define function type: " + std::to_string(number);
    if (number >= 1 && number <= 110) {
      expected = FindAction(static_cast<std::uint8_t>(number))->name;
      if (number != 12) expected += ":";
    }
    EXPECT_EQ(dump,
              "|---" + expected + "\n|   |---ObjectReference(NULL 0)\n|   |---No parameters\n");
  }
}

std::string ParameterLine(GenericValue value) {
  return Printed([&](std::FILE* stream) { DumpParameter(Tree(0, stream), value); });
}

TEST(Dump, absent_strings_of_parameters_are_null) {
  GenericValue value;
  value.Kind = ValueKind::OctetString;
  EXPECT_EQ(ParameterLine(std::move(value)), "|---OctetString: NULL\n");
  GenericValue content;
  content.Kind = ValueKind::ContentReference;
  EXPECT_EQ(ParameterLine(std::move(content)), "|---ContentReference: NULL\n");
  GenericValue condition;
  condition.Kind = static_cast<ValueKind>(7);
  EXPECT_EQ(ParameterLine(std::move(condition)), "|---LinkCondition:\n");
  GenericValue unknown;
  unknown.Kind = static_cast<ValueKind>(8);
  EXPECT_EQ(ParameterLine(std::move(unknown)), "|---Not define parameter type: 8\n");
}

TEST(Dump, event_data_of_every_kind_has_its_line) {
  const auto dataLine = [](GenericValue data) {
    const OwnedGroup group = Read("{:Scene 0 :Items ({:Link 1})}");
    group->Items.At(0)->As<Link>().Condition.EventData = std::move(data);
    const std::string dump = DumpOf(group);
    const std::size_t line = dump.find("|---", dump.find("|---Event Data:") + 4);
    return dump.substr(line + 4, dump.find('\n', line) - line - 4);
  };
  EXPECT_EQ(dataLine({}), "None 0");
  GenericValue integer;
  integer.Kind = ValueKind::Integer;
  integer.Integer = 100;
  EXPECT_EQ(dataLine(std::move(integer)), "Integer: 100");
  GenericValue octets;
  octets.Kind = ValueKind::OctetString;
  ASSERT_TRUE(octets.Octets.Assign("AB\n"));
  EXPECT_EQ(dataLine(std::move(octets)).substr(0, 29), "OctetString: length(3) data(A");
  GenericValue indirect;
  indirect.Kind = ValueKind::IndirectReference;
  indirect.Reference.Number = 6;
  EXPECT_EQ(dataLine(std::move(indirect)), "IndirectObjectReference: 6");
}

TEST(Dump, every_class_has_its_heading) {
  const std::pair<const char*, const char*> kHeadings[] = {
      {"{:ResidentPrg 1}", "ResidentProgram:"},
      {"{:RemotePrg 1}", "RemoteProgram:"},
      {"{:InterchgPrg 1}", "InterchangedProgram:"},
      {"{:Palette 1}", "Palette:"},
      {"{:Font 1}", "Font:"},
      {"{:CursorShape 1}", "CursorShape:"},
      {"{:BooleanVar 1}", "BooleanVariable:"},
      {"{:IntegerVar 1}", "IntegerVariable:"},
      {"{:OStringVar 1}", "OctetStringVariable:"},
      {"{:ObjectRefVar 1}", "ObjectRefVariable:"},
      {"{:ContentRefVar 1}", "ContentRefVariable:"},
      {"{:Link 1}", "Link:"},
      {"{:Stream 1}", "Stream:"},
      {"{:Bitmap 1}", "Bitmap:"},
      {"{:LineArt 1}", "Lineart:"},
      {"{:DynamicLineArt 1}", "DynamicLineart:"},
      {"{:Rectangle 1}", "Rectangle:"},
      {"{:HotSpot 1}", "Hotspot:"},
      {"{:SwitchButton 1}", "SwitchButton:"},
      {"{:PushButton 1}", "PushButton:"},
      {"{:Text 1}", "Text:"},
      {"{:EntryField 1}", "EntryField:"},
      {"{:HyperText 1}", "HyperText:"},
      {"{:Slider 1}", "Slider:"},
      {"{:TokenGroup 1}", "TokenGroup:"},
      {"{:ListGroup 1}", "ListGroup:"}};
  for (const auto& [text, heading] : kHeadings) {
    EXPECT_TRUE(Has(DumpOfItem(text), "Items:\n|   |   |---" + std::string(heading) + "\n"))
        << heading;
  }
}

TEST(Dump, an_unknown_kind_of_item_is_named_by_its_number) {
  Palette record;
  Item item(static_cast<ItemType>(22), &record);
  const auto print = [&](auto dump) {
    return Printed([&](std::FILE* stream) { dump(Tree(0, stream), item); });
  };
  EXPECT_EQ(print(DumpItem), "|---Not define 22\n");
  EXPECT_EQ(print(DumpComponent), "|---Not define multiplex type: 22\n");
  testing::internal::CaptureStdout();
  item = Item();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Unknown ItemType\n");
}

TEST(Dump, a_variable_of_an_unknown_type_says_so) {
  const Palette record;
  const std::string dump =
      Printed([&](std::FILE* stream) { DumpVariable(Tree(0, stream), ItemType::Palette, record); });
  EXPECT_TRUE(Has(dump, "\n|---Not define variable type\n"));
}

TEST(Dump, variables_print_their_values_by_type) {
  EXPECT_TRUE(Has(DumpOfItem("{:IntegerVar 1 :OrigValue -3}"),
                  "|   |   |   |---Variable:\n" + IngredientLines("|   |   |   |   ", 1) +
                      "|   |   |   |---OriginalValue: -3\n|   |   |   |---Value: 0\n"));
  EXPECT_TRUE(Has(DumpOfItem("{:BooleanVar 1 :OrigValue TRUE}"),
                  "|---OriginalValue: TRUE\n|   |   |   |---Value: FALSE\n"));
  EXPECT_TRUE(Has(DumpOfItem("{:OStringVar 1 :OrigValue \"x\"}"),
                  "|---OriginalValue: x\n|   |   |   |---Value: NULL\n"));
  EXPECT_TRUE(Has(DumpOfItem("{:ObjectRefVar 1 :OrigValue :ObjectRef 4}"),
                  "|---OriginalValue:\n|   |   |   |   |---ObjectReference:(NULL 4)\n"
                  "|   |   |   |---Value:\n"));
  EXPECT_TRUE(Has(DumpOfItem("{:ContentRefVar 1 :OrigValue :ContentRef \"~/c\"}"),
                  "|---OriginalValue: ~/c\n"));
}

TEST(Dump, programs_print_their_name) {
  const std::string dump = DumpOfItem("{:RemotePrg 1 :Name \"x\" :ConnectionTag 4}");
  EXPECT_TRUE(Has(dump, "|   |   |---RemoteProgram:\n|   |   |   |---Program:\n" +
                            IngredientLines("|   |   |   |   ", 1) +
                            "|   |   |   |---Name: x\n|   |   |   |---InitiallyAvailable: TRUE\n"
                            "|   |   |---ProgramConnectionTag: 4\n"));
  EXPECT_TRUE(Has(DumpOfItem("{:ResidentPrg 1 :InitiallyAvailable FALSE}"),
                  "|---Name: NULL\n|   |   |   |---InitiallyAvailable: FALSE\n"));
}

TEST(Dump, token_and_list_groups_print_their_tables) {
  const std::string dump = DumpOfItem(
      "{:ListGroup 1 :MovementTable ((1 2)) :TokenGroupItems ((5 :ActionSlots (NULL (:Run(2)))))"
      " :Positions ((10 -20)) :MultipleSelection TRUE}");
  EXPECT_TRUE(Has(dump, "|   |   |---ListGroup:\n|   |   |   |---TokenGroup:\n"
                        "|   |   |   |   |---Presentable:\n" +
                            IngredientLines("|   |   |   |   |   ", 1) +
                            "|   |   |   |   |---TokenManager:\n"
                            "|   |   |   |   |---MovementTable:\n"
                            "|   |   |   |   |   |---Movement:\n"
                            "|   |   |   |   |   |   |---1\n"
                            "|   |   |   |   |   |   |---2\n"
                            "|   |   |   |   |---TokenPosition: 0\n"
                            "|   |   |   |---TokenGroupItems:\n"
                            "|   |   |   |   |---Item:\n"
                            "|   |   |   |   |---AVisible:\n"
                            "|   |   |   |   |   |---ObjectReference:(NULL 5)\n"
                            "|   |   |   |   |---ActionSlots:\n"
                            "|   |   |   |   |   |---Slot:\n"
                            "|   |   |   |   |   |---Action: NULL\n"
                            "|   |   |   |   |   |---Slot:\n"
                            "|   |   |   |   |   |---Action:\n"
                            "|   |   |   |   |   |   |---Run:\n"
                            "|   |   |   |   |   |   |   |---ObjectReference(NULL 2)\n"
                            "|   |   |   |   |   |   |   |---No parameters\n"
                            "|   |   |   |---NoTokenActionSlots:\n"
                            "|   |   |   |   |---No ActionSlots\n"
                            "|   |   |---Positions:\n"
                            "|   |   |   |---Position:(10 , -20)\n"
                            "|   |   |---WrapAround: FALSE\n"
                            "|   |   |---MultipleSelection: TRUE\n"
                            "|   |   |---ItemList:\n"
                            "|   |   |---FirstItem: 1\n"))
      << dump;
  const std::string empty = DumpOfItem("{:ListGroup 1}");
  EXPECT_TRUE(Has(empty, "|---No MovementTable\n"));
  EXPECT_TRUE(Has(empty, "|---TokenGroupItems:\n|   |   |   |   |---No TokenGroupItems\n"));
  EXPECT_TRUE(Has(empty, "|---Positions:\n|   |   |   |---No Position\n"));
}

TEST(Dump, streams_print_their_components) {
  const std::string dump = DumpOfItem(
      "{:Stream 1 :Multiplex ({:Audio 2 :ComponentTag 5 :OrigVolume 3} {:Video 3 :ComponentTag 6 "
      ":Termination freeze} {:RTGraphics 4 :ComponentTag 7}) :Looping 0}");
  EXPECT_TRUE(Has(dump, "|   |   |---Multiplex:\n|   |   |   |---Audio:\n"
                        "|   |   |   |   |---Presentable:\n"));
  EXPECT_TRUE(Has(dump, "|   |   |   |---OriginalVolume: 3\n|   |   |   |---Volume: 0\n"
                        "|   |   |   |---ComponentTag: 5\n|   |   |   |---Video:\n"
                        "|   |   |   |   |---Visible:\n"));
  EXPECT_TRUE(Has(dump, "|   |   |   |---Termination: Freeze\n|   |   |   |---ComponentTag: 6\n"
                        "|   |   |   |---RTGraphics:\n"));
  EXPECT_TRUE(Has(dump, "|   |   |   |---Termination: Disappear\n|   |   |   |---ComponentTag: 7\n"
                        "|   |   |---Storage: stream\n|   |   |---Looping: 0\n"
                        "|   |   |---Speed: (1, 1)\n|   |   |---CounterPosition: 0\n"
                        "|   |   |---CounterEndPosition: -1\n|   |   |---CounterTriggers: NULL\n"));
}

TEST(Dump, line_art_of_every_kind_prints_fill_before_line) {
  const std::string lines =
      "|---BorderedBoundingBox: TRUE\n@|---OriginalLineWidth: 3\n@|---OriginalLineStyle: 1\n"
      "@|---OriginalRefFillColour:\n@|   |---Integer: -1\n@|---OriginalRefLineColour:\n"
      "@|   |---Integer: 7\n@|---LineWidth: 1\n@|---LineStyle: 1\n@|---RefFillColour:\n"
      "@|   |---Integer: -1\n@|---RefLineColour:\n@|   |---Integer: -1\n";
  const auto at = [&lines](const std::string& prefix) {
    std::string all = lines;
    for (std::size_t i = all.find('@'); i != std::string::npos; i = all.find('@')) {
      all.replace(i, 1, prefix);
    }
    return all;
  };
  const std::string attributes = " 1 :OrigLineWidth 3 :OrigRefLineColour 7}";
  EXPECT_TRUE(Has(DumpOfItem("{:LineArt" + attributes), at("|   |   ")));
  EXPECT_TRUE(Has(DumpOfItem("{:Rectangle" + attributes), at("|   |   |   ")));
  EXPECT_TRUE(Has(DumpOfItem("{:Rectangle" + attributes),
                  "|---Rectangle:\n|   |   |   |---Lineart:\n|   |   |   |   |---Visible:\n"));
  EXPECT_TRUE(Has(DumpOfItem("{:DynamicLineArt" + attributes), at("|   |   |   ")));
}

TEST(Dump, text_prints_its_layout_in_words) {
  const std::string dump =
      DumpOfItem("{:Text 1 :OrigFont \"Sans\" :HJustification justified :VJustification end "
                 ":LineOrientation vertical :StartCorner lower-left :TextWrapping TRUE}");
  EXPECT_TRUE(Has(dump, "|   |   |---OriginalFont:\n"
                        "|   |   |   |---OctetString: length(4) data(Sans) hex(53616E73)\n"
                        "|   |   |---FontAttributes: NULL\n|   |   |---TextColour:\n"
                        "|   |   |   |---None 0\n|   |   |---BackgroundColour:\n"
                        "|   |   |   |---None 0\n|   |   |---CharacterSet: 0\n"
                        "|   |   |---HorizontalJustification: Justified\n"
                        "|   |   |---VerticalJustification: End\n"
                        "|   |   |---LineOrientation: Vertical\n"
                        "|   |   |---StartCorner: lower_left\n|   |   |---TextWrapping: TRUE\n"
                        "|   |   |---TextData: NULL\n|   |   |---Font:\n|   |   |   |---None 0\n"));
}

TEST(Dump, every_word_of_text_layout_has_its_spelling) {
  const OwnedGroup group = Read("{:Scene 0 :Items ({:Text 1})}");
  auto& text = group->Items.At(0)->As<Text>();
  const char* const kJustifications[] = {"Not Define", "Start",     "End",
                                         "Centre",     "Justified", "Not Define"};
  const char* const kOrientations[] = {"Not Define", "Vertical",   "Horizontal",
                                       "Not Define", "Not Define", "Not Define"};
  const char* const kCorners[] = {"Not Define", "upper_left",  "upper_right",
                                  "lower_left", "lower_right", "Not Define"};
  for (std::int32_t value = 0; value < 6; ++value) {
    text.HorizontalJustification = text.VerticalJustification = value;
    text.LineOrientation = text.StartCorner = value;
    const std::string dump = DumpOf(group);
    const auto index = static_cast<std::size_t>(value);
    const auto line = [&dump](const char* label, const char* word) {
      return Has(dump, std::string("|---") + label + ": " + word + "\n");
    };
    EXPECT_TRUE(line("HorizontalJustification", kJustifications[index])) << value;
    EXPECT_TRUE(line("VerticalJustification", kJustifications[index])) << value;
    EXPECT_TRUE(line("LineOrientation", kOrientations[index])) << value;
    EXPECT_TRUE(line("StartCorner", kCorners[index])) << value;
  }
}

TEST(Dump, entry_fields_and_hypertexts_are_texts_and_interactibles) {
  const std::string field =
      DumpOfItem("{:EntryField 1 :InputType listed :CharList \"ab\" :ObscuredInput TRUE "
                 ":MaxLength 4 :HighlightRefColour 3}");
  EXPECT_TRUE(Has(field, "|---EntryField:\n|   |   |   |---Text:\n|   |   |   |   |---Visible:\n"));
  EXPECT_TRUE(Has(field, "|   |   |   |---Interactible:\n|   |   |   |---EngineResp: TRUE\n"
                         "|   |   |   |---HighlightRefColour:\n|   |   |   |   |---Integer: 3\n"
                         "|   |   |   |---HighlightStatus: FALSE\n"
                         "|   |   |   |---InteractionStatus: FALSE\n"
                         "|   |   |---InputType: listed\n|   |   |---CharList: ab\n"
                         "|   |   |---ObsuredInput: TRUE\n|   |   |---MaxLength: 4\n"
                         "|   |   |---EntryPoint: 0\n|   |   |---OverwriteMode: FALSE\n"));
  EXPECT_TRUE(Has(DumpOfItem("{:HyperText 1}"), "|   |   |---LastAnchorFired: NULL\n"));
}

TEST(Dump, buttons_are_printed_from_the_base_on) {
  const std::string dump =
      DumpOfItem("{:SwitchButton 1 :ButtonStyle checkbox :OrigLabel \"ok\" :CharacterSet 2}");
  EXPECT_TRUE(Has(dump, "|   |   |---SwitchButton:\n|   |   |   |---PushButton:\n"
                        "|   |   |   |   |---Button:\n|   |   |   |   |   |---Visible:\n"));
  EXPECT_TRUE(Has(dump, "|   |   |   |   |---ButtonRefColour:\n|   |   |   |   |   |---None 0\n"
                        "|   |   |   |   |---SelectionStatus: FALSE\n"
                        "|   |   |   |---OriginalLabel: ok\n|   |   |   |---Label: NULL\n"
                        "|   |   |   |---CharacterSet: 2\n|   |   |---ButtonStyle: CheckButton\n"));
  EXPECT_TRUE(Has(DumpOfItem("{:HotSpot 1}"), "|---Hotspot:\n|   |   |   |---Button:\n"));
}

TEST(Dump, the_style_of_a_slider_has_the_label_of_its_orientation) {
  const std::string dump = DumpOfItem(
      "{:Slider 1 :Orientation left :MaxValue 9 :MinValue 1 :InitialValue 4 :InitialPortion 2 "
      ":StepSize 3}");
  EXPECT_TRUE(Has(dump, "|   |   |---Orientation: left\n|   |   |---InitialValue: 4\n"
                        "|   |   |---MinValue: 1\n|   |   |---MaxValue: 9\n"
                        "|   |   |---InitialPortion: 2\n|   |   |---StepSize: 3\n"
                        "|   |   |---Orientation: normal\n|   |   |---SliderRefColour:\n"
                        "|   |   |   |---None 0\n|   |   |---SliderValue: 0\n"
                        "|   |   |---Portion: 0\n"));
}

TEST(Dump, every_enumeration_has_its_words_and_a_line_for_the_rest) {
  const OwnedGroup group =
      Read("{:Scene 0 :Items ({:Slider 1} {:EntryField 2} {:SwitchButton 3} {:Stream 4 :Multiplex "
           "({:Video 5})})}");
  const auto with = [&group](auto& field, std::int32_t value) {
    field = value;
    return DumpOf(group);
  };
  auto& slider = group->Items.At(0)->As<Slider>();
  EXPECT_TRUE(Has(with(slider.Orientation, 2), "|---Orientation: right\n"));
  EXPECT_TRUE(Has(with(slider.Orientation, 3), "|---Orientation: up\n"));
  EXPECT_TRUE(Has(with(slider.Orientation, 4), "|---Orientation: down\n"));
  EXPECT_TRUE(Has(with(slider.Orientation, 5), "|---Not define orientation type value: 5\n"));
  EXPECT_TRUE(Has(with(slider.SliderStyle, 2), "|---Orientation: thermometer\n"));
  EXPECT_TRUE(Has(with(slider.SliderStyle, 3), "|---Orientation: proportional\n"));
  EXPECT_TRUE(Has(with(slider.SliderStyle, 4), "|---Not define slider style type value: 4\n"));
  auto& field = group->Items.At(1)->As<EntryField>();
  EXPECT_TRUE(Has(with(field.InputType, 1), "|---InputType: alpha\n"));
  EXPECT_TRUE(Has(with(field.InputType, 2), "|---InputType: numeric\n"));
  EXPECT_TRUE(Has(with(field.InputType, 3), "|---InputType: any\n"));
  EXPECT_TRUE(Has(with(field.InputType, 5), "|---Not define InputType value: 5\n"));
  auto& button = group->Items.At(2)->As<SwitchButton>();
  EXPECT_TRUE(Has(with(button.ButtonStyle, 1), "|---ButtonStyle: PushButton\n"));
  EXPECT_TRUE(Has(with(button.ButtonStyle, 2), "|---ButtonStyle: RadioButton\n"));
  EXPECT_TRUE(Has(with(button.ButtonStyle, 0), "|---Not define Button style value: 0\n"));
  auto& stream = group->Items.At(3)->As<Stream>();
  EXPECT_TRUE(Has(with(stream.Storage, 1), "|---Storage: memory\n"));
  EXPECT_TRUE(Has(with(stream.Storage, 7), "|---Not define Stroage type: 7\n"));
  auto& video = stream.Multiplex.At(0)->As<Video>();
  EXPECT_TRUE(Has(with(video.Termination, 3), "|---Not define termination value: 3\n"));
}

TEST(Dump, references_are_printed_with_a_colon_in_records_and_without_in_parameters) {
  const std::string dump = DumpOfItem(
      "{:Bitmap 1 :OrigPaletteRef (\"~/a\" 9)} {:Link 2 :EventSource 3 :EventType IsRunning "
      ":LinkEffect (:SetPaletteRef(1 (\"~/a\" 8)))}");
  EXPECT_TRUE(Has(dump, "|---OriginalPaletteRef\n|   |   |   |   |---ObjectReference:(~/a 9)\n"));
  EXPECT_TRUE(Has(dump, "|---ObjectReference(~/a 8)\n"));
}

TEST(Dump, a_palette_in_use_has_no_lines_of_its_own) {
  const OwnedGroup group = Read("{:Scene 0 :Items ({:Bitmap 1})}");
  group->Items.At(0)->As<Bitmap>().PaletteRef.IsPresent = true;
  EXPECT_TRUE(Has(DumpOf(group), "|---PaletteRef: Not Define Struct\n"));
}

TEST(Dump, text_and_ber_of_a_group_are_printed_alike) {
  for (std::uint32_t seed = 0; seed < 200; ++seed) {
    const OwnedGroup group = test::MakeRandomGroup(seed);
    OctetString text;
    ASSERT_EQ(WriteTextGroup(*group.Get(), text), Status::Done);
    if (text.Length() > kMaxTextSize) continue;
    const OwnedGroup read = Read(std::string(text.View()));
    OctetString bytes;
    ASSERT_EQ(EncodeGroup(*group.Get(), bytes), Status::Done);
    OwnedGroup decoded;
    bool isApplication = false;
    const auto* begin = reinterpret_cast<const std::uint8_t*>(bytes.Text());
    ASSERT_EQ(DecodeGroup({begin, bytes.Length()}, decoded, isApplication), Status::Done);
    EXPECT_EQ(DumpOf(read), DumpOf(decoded)) << "seed " << seed;
  }
}

}  // namespace
}  // namespace korvel
