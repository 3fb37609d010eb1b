// Calling resident programs, asking what the engine supports, and the persistent store.
#include <random>
#include <tuple>

#include "stage.h"

namespace korvel::test {
namespace {

using ProgramsTest = Stage;

constexpr char kProgram[] =
    "{:ResidentPrg 1 :Name \"GSL\"} {:ResidentPrg 2 :Name \"XYZ\"} {:BooleanVar 3 :OrigValue FALSE}"
    "{:IntegerVar 4 :OrigValue 0} {:OStringVar 5 :OrigValue \"four\"} {:IntegerVar 6 :OrigValue 7}"
    "{:ResidentPrg 7 :Name \"DBG\"}";

TEST_F(ProgramsTest, a_call_tells_whether_the_program_ran) {
  Start(kProgram);
  EXPECT_EQ(Run(":Call(1 3 :GOctetString \"abc\" :GObjectRef 4)"), Status::Done);
  EXPECT_TRUE(Boolean(3));
  EXPECT_EQ(Integer(4), 3);
  EXPECT_EQ(Run(":Call(1 3 :GOctetString :IndirectRef 5 :GInteger :IndirectRef 4)"), Status::Done);
  EXPECT_EQ(Integer(4), 4);
}

TEST_F(ProgramsTest, a_call_whose_variable_is_missing_is_false_and_the_list_goes_on) {
  Start(kProgram);
  EXPECT_EQ(Run(":SetVariable(3 :GBoolean TRUE) :Call(1 3 :GOctetString \"abc\" :GObjectRef 77)"
                ":Add(6 1)"),
            Status::Done);
  EXPECT_FALSE(Boolean(3));
  EXPECT_EQ(Integer(6), 8);
}

TEST_F(ProgramsTest, an_unknown_program_and_a_wrong_output_end_the_list) {
  Start(kProgram);
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":SetVariable(3 :GBoolean TRUE) :Call(2 3) :Add(6 1)"), Status::Failure);
  EXPECT_FALSE(Boolean(3));
  EXPECT_EQ(Run(":SetVariable(3 :GBoolean TRUE)"
                ":Call(1 3 :GOctetString \"abc\" :GObjectRef 5) :Add(6 1)"),
            Status::Failure);
  EXPECT_FALSE(Boolean(3));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "GetItemType Error\nGetItemType Error\n");
  EXPECT_EQ(Integer(6), 7);
}

TEST_F(ProgramsTest, a_fork_runs_the_program_and_tells_that_it_has_ended) {
  Start(std::string(kProgram) + Watch(1, "AsynchStopped", "ended"));
  EXPECT_EQ(Run(":Fork(1 3 :GOctetString \"abcde\" :GObjectRef 4)"), Status::Done);
  EXPECT_TRUE(Boolean(3));
  EXPECT_EQ(Integer(4), 5);
  EXPECT_EQ(TakeLog(), "ended");
  EXPECT_EQ(Run(":Call(1 3 :GOctetString \"abcde\" :GObjectRef 4)"), Status::Done);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(ProgramsTest, activating_a_program_calls_it_without_parameters) {
  Start(kProgram);
  EXPECT_EQ(Run(":Activate(7)"), Status::Done);
  EXPECT_TRUE(IsRunning(7));
  EXPECT_EQ(Run(":Deactivate(7) :Activate(1)"), Status::Done);
  EXPECT_FALSE(IsRunning(7));
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":Activate(2)"), Status::Failure);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "GetItemType Error\n");
}

TEST_F(ProgramsTest, variables_of_programs_are_looked_for_in_the_application_first) {
  StartWithScene("{:IntegerVar 1 :Shared TRUE :OrigValue 0}",
                 "{:ResidentPrg 2 :Name \"GSL\"} {:BooleanVar 3 :OrigValue FALSE}");
  EXPECT_EQ(Run(R"(:Call(2 3 :GOctetString "ab" :GObjectRef ("~/a" 1)))", Scope::SceneFirst),
            Status::Done);
  EXPECT_EQ(FindObject(Scope::ApplicationFirst, "~/a", 1).As<IntegerVariable>().Value, 2);
}

TEST_F(ProgramsTest, the_engine_tells_what_it_supports) {
  Start("{:BooleanVar 1 :OrigValue FALSE}");
  const auto supports = [](const std::string& feature) {
    Object<BooleanVariable>(1).Value = false;
    EXPECT_EQ(Run(":GetEngineSupport(0 \"" + feature + "\" 1)"), Status::Done);
    return Boolean(1);
  };
  for (const char* feature :
       {"ApplicationStacking", "ASt", "OverlappingVisibles(9)", "OvV(1)", "MultipleAudioStreams(1)",
        "MAS(0)", "MultipleVideoStreams(1)", "MVS(1)", "SceneCoordinateSystem(720,576)",
        "SCS(720,576)", "SceneAspectRatio(4,3)", "SAR(4,3)", "BitmapScaling(4,10,10)", "BSc(2,1,1)",
        "VideoScaling(10,360,288)", "VSc(10,1,1)", "UKEngineProfile(1)", "UEP(1)"}) {
    EXPECT_TRUE(supports(feature)) << feature;
  }
  for (const char* feature : {"",           "ast",
                              "ASt(1)",     "OvV",
                              "OvV(1,2)",   "MAS(2)",
                              "MVS(2)",     "SCS(720,575)",
                              "SCS(720)",   "SAR(16,9)",
                              "BSc(2,0,1)", "VSc(10,1)",
                              "UEP(2)",     "UEP(1",
                              "UEP(1)x",    "UEP( 1)",
                              "UEP()",      "AncillaryConnections",
                              "ACo",        "Cloning",
                              "Clo",        "FreeMovingCursor",
                              "FMC",        "Scaling",
                              "Sca",        "TrickModes",
                              "TrM",        "VideoDecodeOffset(1,2)",
                              "VDO(1,2)",   "BDO(1,2)",
                              "DLF(1)",     "Anything"}) {
    EXPECT_FALSE(supports(feature)) << feature;
  }
}

constexpr char kStored[] =
    "{:BooleanVar 1 :OrigValue TRUE} {:IntegerVar 2 :OrigValue -2} {:OStringVar 3 :OrigValue "
    "\"text\"} {:ObjectRefVar 4 :OrigValue :ObjectRef (\"~/g\" 5)} {:ContentRefVar 5 :OrigValue "
    ":ContentRef \"~/c\"} {:BooleanVar 9 :OrigValue FALSE} {:OStringVar 10 :OrigValue \"name\"}"
    "{:Link 11 :InitiallyActive FALSE :EventSource 0 :EventType IsRunning :LinkEffect ()}"
    "{:IntegerVar 12 :OrigValue 9} {:OStringVar 13 :OrigValue \"keep\"}";

std::string TakeStored(std::string_view name) {
  OctetString data;
  return TakePersistent(name, data) == Status::Done ? std::string(data.View()) : "nothing";
}

TEST_F(ProgramsTest, stored_values_are_read_back_once) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (1 2 3 4 5) \"name\")"), Status::Done);
  EXPECT_TRUE(Boolean(9));
  EXPECT_EQ(Run(":SetVariable(1 :GBoolean FALSE) :SetVariable(2 :GInteger 0)"
                ":SetVariable(3 :GOctetString \"\") :SetVariable(4 :GObjectRef (\"~/h\" 6))"
                ":SetVariable(5 :GContentRef :ContentRef \"~/d\") :SetVariable(9 :GBoolean FALSE)"
                ":ReadPersistent(0 9 (1 2 3 4 5) :IndirectRef 10)"),
            Status::Done);
  EXPECT_TRUE(Boolean(9));
  EXPECT_TRUE(Boolean(1));
  EXPECT_EQ(Integer(2), -2);
  EXPECT_EQ(Octets(3), "text");
  EXPECT_EQ(Object<ObjectRefVariable>(4).Value.GroupIdentifier.View(), "~/g");
  EXPECT_EQ(Object<ObjectRefVariable>(4).Value.Number, 5);
  EXPECT_EQ(Object<ContentRefVariable>(5).Value.Path.View(), "~/c");
  EXPECT_EQ(TakeStored("name"), "nothing");
}

TEST_F(ProgramsTest, values_are_stored_without_header_lowest_byte_first) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (1 2 3 4 5) \"name\")"), Status::Done);
  EXPECT_EQ(TakeStored("name"), std::string("\x01"
                                            "\xFE\xFF\xFF\xFF"
                                            "\x04\0\0\0text"
                                            "\x03\0\0\0~/g\x05\0\0\0"
                                            "\x03\0\0\0~/c",
                                            1 + 4 + 8 + 11 + 7));
}

// Any list of variables comes back as it was stored, whatever the values, a variable twice in it
// too.
TEST_F(ProgramsTest, random_lists_of_variables_come_back) {
  Start(kStored);
  std::mt19937 random(1);  // NOLINT: the same lists every time
  const auto randomText = [&random] {
    std::string text(random() % 300, ' ');
    for (char& byte : text) byte = static_cast<char>(random());
    return text;
  };
  const auto fill = [&] {
    Object<BooleanVariable>(1).Value = random() % 2 == 0;
    Object<IntegerVariable>(2).Value = static_cast<std::int32_t>(random());
    EXPECT_TRUE(Object<OctetStringVariable>(3).Value.Assign(randomText()));
    EXPECT_TRUE(Object<ObjectRefVariable>(4).Value.GroupIdentifier.Assign(randomText()));
    Object<ObjectRefVariable>(4).Value.Number = static_cast<std::int32_t>(random());
    EXPECT_TRUE(Object<ContentRefVariable>(5).Value.Path.Assign(randomText()));
  };
  const auto values = [] {
    const ObjectReference& reference = Object<ObjectRefVariable>(4).Value;
    return std::tuple(Boolean(1), Integer(2), Octets(3),
                      std::string(reference.GroupIdentifier.View()), reference.Number,
                      std::string(Object<ContentRefVariable>(5).Value.Path.View()));
  };
  for (int round = 0; round < 50; ++round) {
    std::string list = "1 2 3 4 5";
    for (auto more = random() % 6; more > 0; --more) {
      list += " " + std::to_string(random() % 5 + 1);
    }
    fill();
    const auto stored = values();
    EXPECT_EQ(Run(":StorePersistent(0 9 (" + list + ") \"name\")"), Status::Done);
    fill();
    EXPECT_EQ(Run(":ReadPersistent(0 9 (" + list + ") \"name\")"), Status::Done);
    EXPECT_EQ(values(), stored) << list;
  }
}

TEST_F(ProgramsTest, reading_what_was_never_stored_resets_and_succeeds) {
  Start(kStored);
  EXPECT_EQ(Run(":ReadPersistent(0 9 (1 2 3 4 5) \"other\")"), Status::Done);
  EXPECT_TRUE(Boolean(9));
  EXPECT_FALSE(Boolean(1));
  EXPECT_EQ(Integer(2), 0);
  EXPECT_EQ(Octets(3), "");
  EXPECT_TRUE(Object<ObjectRefVariable>(4).Value.GroupIdentifier.View().empty());
  EXPECT_EQ(Object<ObjectRefVariable>(4).Value.Number, 0);
  EXPECT_TRUE(Object<ContentRefVariable>(5).Value.Path.View().empty());
}

TEST_F(ProgramsTest, a_second_store_replaces_the_first) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (3) \"name\") :StorePersistent(0 9 (1) \"name\")"),
            Status::Done);
  EXPECT_EQ(TakeStored("name"), "\x01");
  EXPECT_EQ(TakeStored("name"), "nothing");
}

TEST_F(ProgramsTest, what_is_no_variable_ends_the_action_with_the_success_untouched) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (1) \"name\") :SetVariable(9 :GBoolean FALSE)"
                ":ReadPersistent(0 9 (11) \"name\")"),
            Status::Done);
  EXPECT_FALSE(Boolean(9));
  EXPECT_EQ(TakeStored("name"), "nothing") << "the entry has been taken";
  EXPECT_EQ(Run(":StorePersistent(0 9 (1 11) \"name\") :StorePersistent(0 9 (77) \"name\")"),
            Status::Done);
  EXPECT_FALSE(Boolean(9));
  EXPECT_EQ(TakeStored("name"), "nothing");
}

TEST_F(ProgramsTest, an_entry_that_is_too_short_resets_from_there_on) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (1) \"name\") :ReadPersistent(0 9 (1 12 13) \"name\")"),
            Status::Done);
  EXPECT_TRUE(Boolean(1));
  EXPECT_EQ(Integer(12), 0);
  EXPECT_EQ(Octets(13), "");
  EXPECT_TRUE(Boolean(9));
}

TEST_F(ProgramsTest, a_number_read_as_a_length_does_not_read_past_the_entry) {
  Start(kStored);
  EXPECT_EQ(Run(":SetVariable(2 :GInteger 2147483647) :StorePersistent(0 9 (2 1) \"name\")"
                ":ReadPersistent(0 9 (3 1) \"name\")"),
            Status::Done);
  EXPECT_EQ(Octets(3), "");
  EXPECT_FALSE(Boolean(1)) << "everything behind a short value is reset";
}

TEST_F(ProgramsTest, a_reference_cut_off_in_its_number_is_reset) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (3) \"name\") :ReadPersistent(0 9 (4) \"name\")"),
            Status::Done);
  EXPECT_TRUE(Object<ObjectRefVariable>(4).Value.GroupIdentifier.View().empty());
  EXPECT_EQ(Object<ObjectRefVariable>(4).Value.Number, 0);
}

TEST_F(ProgramsTest, nothing_is_stored_while_the_success_variable_is_not_available) {
  Start(kStored);
  Object<BooleanVariable>(9).AvailabilityStatus = false;
  EXPECT_EQ(Run(":StorePersistent(0 9 (1) \"name\")"), Status::Done);
  EXPECT_EQ(TakeStored("name"), "nothing");
}

TEST_F(ProgramsTest, quitting_to_nothing_empties_the_store) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (1) \"name\") :Quit(0)"), Status::Failure);
  EXPECT_EQ(TakeStored("name"), "nothing");
}

}  // namespace
}  // namespace korvel::test
