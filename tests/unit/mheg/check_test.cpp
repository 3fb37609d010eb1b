// The reports of the check on the faulty folder, the demos, the scenarios and small carousels.
#include "mheg/check/check.h"

#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <set>

#include "mheg/check/report.h"
#include "mheg/convert.h"
#include "unit/mheg/scratch_folder.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

const fs::path kSource = KORVEL_SOURCE_DIR;
const fs::path kFaulty = kSource / "tests/unit/mheg/faulty";

// The report on `path`, with paths relative to `folder`. The carousel of a test for one rule may be
// incomplete, so the findings can be limited to that rule.
std::string CheckedIn(const fs::path& folder, const fs::path& path,
                      std::optional<Rule> only = std::nullopt) {
  Findings findings = Check({path}, 2);
  std::erase_if(findings, [&](const Finding& finding) { return only && finding.rule != *only; });
  for (Finding& finding : findings) {
    finding.message.file = fs::relative(finding.message.file, folder);
  }
  return LinesOf(findings);
}

// Counts how often each file of a folder is opened during the lifetime of this object.
class OpenCounter {
 public:
  explicit OpenCounter(const fs::path& folder) : notices_(inotify_init1(IN_NONBLOCK)) {
    // Two consecutive IN_OPEN notices for one file are merged, so closings are watched too.
    EXPECT_NE(inotify_add_watch(notices_, folder.c_str(), IN_OPEN | IN_CLOSE), -1);
  }
  ~OpenCounter() { close(notices_); }
  OpenCounter(const OpenCounter&) = delete;
  OpenCounter& operator=(const OpenCounter&) = delete;

  std::map<std::string, int> Opened() const {
    std::map<std::string, int> opened;
    alignas(inotify_event) char notices[4096];
    for (ssize_t length = read(notices_, notices, sizeof notices); length > 0;
         length = read(notices_, notices, sizeof notices)) {
      for (const char* next = notices; next < notices + length;) {
        const auto* notice = reinterpret_cast<const inotify_event*>(next);
        if ((notice->mask & IN_OPEN) != 0 && notice->len > 0) ++opened[notice->name];
        next += sizeof *notice + notice->len;
      }
    }
    return opened;
  }

 private:
  int notices_;
};

TEST(Check, each_of_many_named_files_is_read_once) {
  const ScratchFolder folder;
  std::vector<fs::path> files;
  for (const char* name : {"s1", "s2", "s3", "s4"}) {
    const fs::path text = folder.Write(
        std::string(name) + ".mheg",
        "{:Scene 0 :OnStartUp (:TransitionTo((\"~/s1\" 0)) :TransitionTo((\"~/s2\" 0))) "
        ":SceneCS 720 576}");
    files.push_back(text);
    files.push_back(folder.Path() / (std::string("ber") + name));
    ASSERT_TRUE(Compile(files[files.size() - 2], files.back()).isGood);
  }
  const OpenCounter counter(folder.Path());
  EXPECT_EQ(LinesOf(Check(files, 2)), "");
  const std::map<std::string, int> opened = counter.Opened();
  EXPECT_EQ(opened.size(), 8U);
  for (const auto& [name, count] : opened) {
    // A file without ".mheg" is opened once more: its first byte shows whether it is a group.
    EXPECT_EQ(count, name.ends_with(".mheg") ? 1 : 2) << name;
  }
}

TEST(Check, exactly_the_faults_of_the_faulty_folder_are_reported) {
  EXPECT_EQ(CheckedIn(kFaulty, kFaulty), FileText(kSource / "tests/unit/mheg/faulty.expected"));
}

TEST(Check, the_demos_have_no_faults) { EXPECT_EQ(LinesOf(Check({kSource / "examples"}, 1)), ""); }

TEST(Check, the_scenarios_have_only_the_faults_that_they_show_on_purpose) {
  std::set<std::string> expected;
  std::ifstream table(kSource / "tests/unit/mheg/scenario_rules.txt");
  for (std::string line; std::getline(table, line);) {
    if (!line.empty() && line[0] != '#') expected.insert(line.substr(0, line.find(" -- ")));
  }
  std::set<std::string> found;
  for (const auto& scenario : fs::directory_iterator(kSource / "tests/scenarios")) {
    const fs::path carousel = scenario.path() / "carousel";
    if (!fs::is_directory(carousel)) continue;
    for (const Finding& finding : Check({carousel}, 1)) {
      found.insert(scenario.path().filename().string() + " " +
                   std::string(RowOf(finding.rule).name));
    }
  }
  EXPECT_EQ(found, expected);
}

TEST(Check, actions_in_the_slots_of_token_group_items_are_checked) {
  const ScratchFolder folder;
  folder.Write("s.mheg",
               "{:Scene 0 :SceneCS 720 576 :Items ({:Rectangle 1 :OrigBoxSize 1 1} {:TokenGroup 2\n"
               ":TokenGroupItems ((1 :ActionSlots (NULL (:Run(1) :Run(7))))) :MovementTable ((1))}"
               ")}");
  EXPECT_EQ(
      CheckedIn(folder.Path(), folder.Path()),
      "s.mheg:2:50: error: object 2: refers to object 7, which does not exist [unknown-object]\n");
}

TEST(Check, a_single_file_is_checked_within_its_folder) {
  EXPECT_EQ(CheckedIn(kFaulty, kFaulty / "missing.mheg"),
            "missing.mheg:3:5: error: Text lacks :OrigBoxSize [invalid-group]\n"
            "missing.mheg:4:79: error: SetPosition lacks y [invalid-group]\n");
}

TEST(Check, empty_mandatory_attributes_in_ber_are_reported_as_missing_except_numbers_and_boxes) {
  const ScratchFolder folder;
  folder.Write("s.mheg",
               "{:Scene 0 :Items ({:Text 1 :OrigBoxSize 0 0} {:IntegerVar 2 "
               ":OrigValue 0} {:Link 3 :EventSource 0 :EventType IsRunning :LinkEffect ()}"
               " {:ResidentPrg 4 :Name \"\"})}");
  ASSERT_TRUE(Compile(folder.Path() / "s.mheg", folder.Path() / "s").isGood);
  fs::remove(folder.Path() / "s.mheg");
  EXPECT_EQ(CheckedIn(folder.Path(), folder.Path(), Rule::InvalidGroup),
            "s: error: object 3: Link lacks :LinkEffect [invalid-group]\n");
}

TEST(Check, a_visible_that_an_indirect_action_may_move_may_start_outside_the_scene) {
  const ScratchFolder folder;
  folder.Write("s.mheg",
               "{:Scene 0 :OnStartUp (:SetPosition(:IndirectRef 2 0 0)) :Items ({:Rectangle 1 "
               ":OrigBoxSize 9 9 :OrigPosition 900 0} {:ObjectRefVar 2 :OrigValue :ObjectRef 1})}");
  EXPECT_EQ(CheckedIn(folder.Path(), folder.Path(), Rule::OutsideScene), "");
}

// A link that waits for a timer of the scene.
std::string TimerLink(int number, const std::string& data) {
  return "{:Link " + std::to_string(number) + " :EventSource 0 :EventType TimerFired " + data +
         " :LinkEffect ()}";
}

TEST(Check, five_links_without_data_block_a_sixth_link_with_data_but_not_the_reverse) {
  const ScratchFolder folder;
  std::string anyFirst;
  std::string anyLast;
  for (int number = 1; number <= 5; ++number) {
    anyFirst += TimerLink(number, "");
    anyLast += TimerLink(number, ":EventData 7");
  }
  folder.Write("1.mheg", "{:Scene 0 :Items (" + anyFirst + TimerLink(6, ":EventData 7") + ")}");
  folder.Write("2.mheg", "{:Scene 0 :Items (" + anyLast + TimerLink(6, "") + ")}");
  folder.Write("3.mheg", "{:Scene 0 :Items (" + anyLast + TimerLink(6, ":EventData 8") + ")}");
  EXPECT_EQ(CheckedIn(folder.Path(), folder.Path(), Rule::SixthLink),
            "1.mheg:1:329: warning: object 6: never fires: five links before it wait for the same "
            "event [sixth-link]\n");
}

TEST(Check, activation_by_another_scene_counts_only_for_links_of_the_application) {
  const ScratchFolder folder;
  const std::string link = "{:Link 1 :InitiallyActive FALSE :EventSource 0 :EventType IsRunning "
                           ":LinkEffect ()}";
  folder.Write("a.mheg",
               "{:Application (\"~/a\" 0) :OnStartUp (:Activate((\"~/one\" 1))) :Items (" + link +
                   ")}");
  folder.Write("one.mheg", "{:Scene (\"~/one\" 0) :Items (" + link + ")}");
  folder.Write("two.mheg", "{:Scene (\"~/two\" 0) :OnStartUp (:Activate((\"~/a\" 1)) "
                           ":Activate((\"~/three\" 1))) :Items (" +
                               link + ")}");
  folder.Write("three.mheg", "{:Scene (\"~/three\" 0) :Items (" + link + ")}");
  EXPECT_EQ(
      CheckedIn(folder.Path(), folder.Path(), Rule::InactiveLink),
      "three.mheg:1:40: warning: object 1: never fires: nothing activates it [inactive-link]\n"
      "two.mheg:1:97: warning: object 1: never fires: nothing activates it "
      "[inactive-link]\n");
}

TEST(Check, each_folder_with_a_start_up_application_is_a_carousel) {
  const ScratchFolder folder;
  for (const char* demo : {"one", "two"}) {
    fs::create_directory(folder.Path() / demo);
    folder.Write(std::string(demo) + "/a.mheg",
                 "{:Application (\"~/a\" 0) :OnStartUp (:TransitionTo((\"~/s\" 0)))}");
  }
  folder.Write("one/s.mheg", "{:Scene (\"~/s\" 0)}");
  EXPECT_EQ(CheckedIn(folder.Path(), folder.Path(), Rule::UnknownGroup),
            "two/a.mheg:1:37: error: object 0: refers to the group ~/s, which is not there "
            "[unknown-group]\n");
}

}  // namespace
}  // namespace mheg
