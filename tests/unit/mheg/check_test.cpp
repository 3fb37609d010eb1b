// What the check reports: exactly the faults that were put in, and nothing about the demos.
#include "mheg/check/check.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "mheg/convert.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

const fs::path kSource = KORVEL_SOURCE_DIR;
const fs::path kFaulty = kSource / "tests/unit/mheg/faulty";

std::string Joined(const std::vector<std::string>& lines) {
  std::string all;
  for (const std::string& line : lines) all += line + "\n";
  return all;
}

// The reports with the folder's name taken off their front.
std::string CheckedIn(const fs::path& folder, const fs::path& path) {
  std::string all;
  for (const std::string& line : Check({path}, 2)) {
    all += line.substr(folder.string().size() + 1) + "\n";
  }
  return all;
}

std::string FileText(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// A folder that is there while a test runs.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (fs::temp_directory_path() / "mheg-test-XXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ~ScratchFolder() { fs::remove_all(path_); }
  [[nodiscard]] const fs::path& Path() const { return path_; }
  fs::path Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path_ / name, std::ios::binary) << bytes;
    return path_ / name;
  }

 private:
  fs::path path_;
};

TEST(Check, the_faulty_folder_gives_exactly_the_expected_reports) {
  EXPECT_EQ(CheckedIn(kFaulty, kFaulty), FileText(kSource / "tests/unit/mheg/faulty.expected"));
}

TEST(Check, the_demos_are_clean) { EXPECT_EQ(Joined(Check({kSource / "examples"}, 1)), ""); }

TEST(Check, a_single_file_is_reported_alone_and_knows_its_folder) {
  EXPECT_EQ(CheckedIn(kFaulty, kFaulty / "missing.mheg"),
            "missing.mheg:3:5: Text lacks :OrigBoxSize\n"
            "missing.mheg:4:63: SetPosition lacks a parameter\n");
}

TEST(Check, a_group_in_ber_lacks_what_nobody_would_write) {
  const ScratchFolder folder;
  folder.Write("s.mheg",
               "{:Scene 0 :Items ({:Text 1 :OrigBoxSize 0 0} {:IntegerVar 2 "
               ":OrigValue 0} {:Link 3 :EventSource 0 :EventType IsRunning :LinkEffect ()}"
               " {:ResidentPrg 4 :Name \"\"})}");
  ASSERT_TRUE(Compile(folder.Path() / "s.mheg", folder.Path() / "s").isGood);
  fs::remove(folder.Path() / "s.mheg");
  EXPECT_EQ(CheckedIn(folder.Path(), folder.Path()),
            "s: object 1: Text lacks :OrigBoxSize\ns: object 1: lies outside the scene\n"
            "s: object 3: Link lacks :LinkEffect\n");
}

TEST(Check, a_visible_that_is_moved_may_begin_outside) {
  const ScratchFolder folder;
  folder.Write("s.mheg",
               "{:Scene 0 :OnStartUp (:SetPosition(:IndirectRef 2 0 0)) :Items ({:Rectangle 1 "
               ":OrigBoxSize 9 9 :OrigPosition 900 0} {:ObjectRefVar 2 :OrigValue :ObjectRef 1})}");
  EXPECT_EQ(CheckedIn(folder.Path(), folder.Path()), "");
}

TEST(Check, each_folder_with_a_start_up_application_is_a_carousel) {
  const ScratchFolder folder;
  for (const char* demo : {"one", "two"}) {
    fs::create_directory(folder.Path() / demo);
    folder.Write(std::string(demo) + "/a.mheg",
                 "{:Application (\"~/a\" 0) :OnStartUp (:TransitionTo((\"~/s\" 0)))}");
  }
  folder.Write("one/s.mheg", "{:Scene (\"~/s\" 0)}");
  EXPECT_EQ(CheckedIn(folder.Path(), folder.Path()),
            "two/a.mheg: object 0: refers to the group ~/s, which is not there\n");
}

}  // namespace
}  // namespace mheg
