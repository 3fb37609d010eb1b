// Compares the files of group names and content references with the reference model.
#include <string>

#include "appearance/content_file.h"
#include "comparison.h"
#include "path_model.h"
#include "substitutes/host.h"
#include "support/text_content.h"

namespace korvel::test {
namespace {

struct PathSubject {
  using Model = PathModel;
  using Setup = Model::Setup;

  static Setup MakeSetup(Random& /*random*/) { return {}; }

  static std::string RandomName(Random& random) {
    static const std::vector<std::string> kStarts = {
        "~/", "~/", "~//", "/", "DSM:/", "DSM://", "DSM://", "DSM:", "CI:", "~", ""};
    static const std::vector<std::string> kParts = {"/", "/",  "/../", "/../", "..", ".",
                                                    "a", "bc", "d/",   "e/f",  "~",  "DSM:"};
    std::string name = random.Of(kStarts);
    for (std::int32_t count = random.Between(0, 6); count > 0; --count) name += random.Of(kParts);
    return name;
  }

  static std::vector<Step> MakeSteps(Random& random, const Setup& /*setup*/) {
    std::vector<Step> steps;
    for (std::int32_t count = random.Between(1, 10); count > 0; --count) {
      static const std::vector<std::string> kActions = {"Resolve", "Resolve", "Content",
                                                        "Launch",  "Launch",  "Spawn"};
      steps.push_back({random.Of(kActions), {random.OneIn(4) ? 0 : 1}, RandomName(random)});
    }
    return steps;
  }

  static std::string Items(const Setup& /*setup*/) { return ""; }

  // Runs `work` and returns the paths that it fetched.
  template <class Work> static Outcome Fetch(bool exists, Work work) {
    static const std::string kApplication = CompileText("{:Application (\"~/a\" 0)}");
    TheHost().files.clear();
    TheHost().fetched.clear();
    TheHost().onFetch = [exists] {
      if (exists) TheHost().files[TheHost().fetched.back()] = kApplication;
    };
    BeginWork();
    Outcome outcome{work(), "", "", 0};
    TheHost().onFetch = {};
    for (const std::string& path : TheHost().fetched) outcome.events += "[" + path + "]";
    return outcome;
  }

  static Outcome Play(const Step& step) {
    const std::string& name = step.last;
    if (step.action == "Content") {
      OctetString path;
      EXPECT_TRUE(ContentPath(name, path));
      return {Status::Done, std::string(path.View()), "", 0};
    }
    return Fetch(step.numbers[0] == 1, [&] {
      OctetString bytes;
      if (step.action == "Launch") return Launch(name);
      return step.action == "Spawn" ? Spawn(name) : ResolveGroup(name, bytes);
    });
  }

  static std::string EngineState(const Setup& /*setup*/) {
    OctetString bytes;
    return Fetch(false, [&] { return ResolveGroup("~/x", bytes); }).events;
  }
};

TEST(PathReference, names_mean_the_same_files_as_in_the_model) {
  CompareWithEngine<PathSubject>(2000);
}

}  // namespace
}  // namespace korvel::test
