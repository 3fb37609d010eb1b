// How the check follows transitions: groups whose starts form an endless cycle, and scenes that
// nothing leads to.
#include <gtest/gtest.h>

#include "mheg/check/check.h"
#include "unit/mheg/scratch_folder.h"

namespace mheg {
namespace {

// The findings for a carousel of an application "a" and the scenes "one" and "two" with these
// attributes: the names of the files and rules.
std::string FindingsIn(const std::string& application, const std::string& first,
                       const std::string& second) {
  const ScratchFolder folder;
  folder.Write("a.mheg", "{:Application (\"~/a\" 0) " + application + "}");
  folder.Write("one.mheg", "{:Scene (\"~/one\" 0) :SceneCS 720 576 " + first + "}");
  folder.Write("two.mheg", "{:Scene (\"~/two\" 0) :SceneCS 720 576 " + second + "}");
  std::string rules;
  for (const Finding& finding : Check({folder.Path()}, 1)) {
    rules += finding.message.file.stem().string() + " " + std::string(RowOf(finding.rule).name);
    rules += "\n";
  }
  return rules;
}

constexpr const char* kToOne = ":OnStartUp (:TransitionTo((\"~/one\" 0)))";
constexpr const char* kToTwo = ":OnStartUp (:TransitionTo((\"~/two\" 0)))";

TEST(Navigation, an_endless_cycle_of_starts_is_reported_for_its_groups_only) {
  EXPECT_EQ(FindingsIn(kToOne, kToTwo, kToOne), "one endless-start\ntwo endless-start\n");
}

TEST(Navigation, launching_the_own_application_may_close_an_endless_cycle) {
  EXPECT_EQ(FindingsIn(kToOne, ":OnStartUp (:Launch((\"~/a\" 0)))", kToOne),
            "a endless-start\none endless-start\ntwo unreachable-scene\n");
}

TEST(Navigation, starts_that_an_event_may_divert_are_not_reported) {
  const std::string diverted = std::string(kToTwo) +
                               " :Items ({:IntegerVar 1 :OrigValue 0} {:Link 2 :EventSource 1 "
                               ":EventType TestEvent :LinkEffect (:TransitionTo((\"~/a\" 0)))})";
  EXPECT_EQ(FindingsIn(kToOne, diverted, kToOne).find("endless-start"), std::string::npos);
}

TEST(Navigation, all_scenes_are_reached_if_a_variable_names_a_target) {
  const std::string byVariable =
      std::string(kToOne) + " :Items ({:OStringVar 1 :OrigValue \"~/two\"} {:Link 2 :Shared TRUE "
                            ":EventSource 0 :EventType UserInput :LinkEffect (:TransitionTo("
                            ":IndirectRef 1))})";
  EXPECT_EQ(FindingsIn(byVariable, "", ""), "");
}

TEST(Navigation, scenes_that_only_lead_to_each_other_are_not_reached) {
  const std::string toTwo = ":Items ({:Link 2 :EventSource 0 :EventType UserInput "
                            ":LinkEffect (:TransitionTo((\"~/two\" 0)))})";
  const std::string toOne = ":Items ({:Link 2 :EventSource 0 :EventType UserInput "
                            ":LinkEffect (:TransitionTo((\"~/one\" 0)))})";
  EXPECT_EQ(FindingsIn("", toTwo, toOne), "one unreachable-scene\ntwo unreachable-scene\n");
}

}  // namespace
}  // namespace mheg
