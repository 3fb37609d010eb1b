// Calling resident programs, and querying what the engine supports.
#include "stage.h"

namespace korvel::test {
namespace {

using ProgramsTest = Stage;

constexpr char kProgram[] =
    "{:ResidentPrg 1 :Name \"GSL\"} {:ResidentPrg 2 :Name \"XYZ\"} {:BooleanVar 3 :OrigValue FALSE}"
    "{:IntegerVar 4 :OrigValue 0} {:OStringVar 5 :OrigValue \"four\"} {:IntegerVar 6 :OrigValue 7}"
    "{:ResidentPrg 7 :Name \"DBG\"}";

TEST_F(ProgramsTest, a_successful_call_sets_the_success_variable) {
  Start(kProgram);
  EXPECT_EQ(Run(":Call(1 3 :GOctetString \"abc\" :GObjectRef 4)"), Status::Done);
  EXPECT_TRUE(Boolean(3));
  EXPECT_EQ(Integer(4), 3);
  EXPECT_EQ(Run(":Call(1 3 :GOctetString :IndirectRef 5 :GInteger :IndirectRef 4)"), Status::Done);
  EXPECT_EQ(Integer(4), 4);
}

TEST_F(ProgramsTest, a_call_with_a_missing_variable_fails_and_the_list_continues) {
  Start(kProgram);
  EXPECT_EQ(Run(":SetVariable(3 :GBoolean TRUE) :Call(1 3 :GOctetString \"abc\" :GObjectRef 77)"
                ":Add(6 1)"),
            Status::Done);
  EXPECT_FALSE(Boolean(3));
  EXPECT_EQ(Integer(6), 8);
}

TEST_F(ProgramsTest, an_unknown_program_or_an_output_of_another_class_ends_the_list) {
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

TEST_F(ProgramsTest, a_fork_runs_the_program_and_raises_asynch_stopped) {
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

TEST_F(ProgramsTest, program_variables_are_searched_in_the_application_first) {
  StartWithScene("{:IntegerVar 1 :Shared TRUE :OrigValue 0}",
                 "{:ResidentPrg 2 :Name \"GSL\"} {:BooleanVar 3 :OrigValue FALSE}");
  EXPECT_EQ(Run(R"(:Call(2 3 :GOctetString "ab" :GObjectRef ("~/a" 1)))", Scope::SceneFirst),
            Status::Done);
  EXPECT_EQ(FindObject(Scope::ApplicationFirst, "~/a", 1).As<IntegerVariable>().Value, 2);
}

TEST_F(ProgramsTest, the_engine_reports_what_it_supports) {
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
  for (const char* feature : {"",
                              "ast",
                              "ASt(1)",
                              "OvV",
                              "OvV(1,2)",
                              "MAS(2)",
                              "MVS(2)",
                              "SCS(720,575)",
                              "SCS(720)",
                              "SAR(16,9)",
                              "BSc(2,0,1)",
                              "VSc(10,1)",
                              "UEP(2)",
                              "UEP(1",
                              "UEP(1)x",
                              "UEP( 1)",
                              "UEP()",
                              "AncillaryConnections",
                              "ACo",
                              "Cloning",
                              "Clo",
                              "FreeMovingCursor",
                              "FMC",
                              "Scaling",
                              "Sca",
                              "TrickModes",
                              "TrM",
                              "VideoDecodeOffset(1,2)",
                              "VDO(1,2)",
                              "BDO(1,2)",
                              "DLF(1)",
                              "Anything",
                              "MAS",
                              "UEP",
                              "SCS(719,576)",
                              "SAR(4,2)",
                              "SAR",
                              "BSc(2,1,0)",
                              "VSc(1,2,3,4)",
                              "UEP(0)"}) {
    EXPECT_FALSE(supports(feature)) << feature;
  }
}

}  // namespace
}  // namespace korvel::test
