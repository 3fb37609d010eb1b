// Whole scenes: decoding and releasing them, and starting and ending them.
#include "sample_scene.h"
#include "substitutes/host.h"

namespace bench {
namespace {

// Ends the scene for an empty one and starts it again, which includes decoding it.
Work StartAndEnd(int objects) {
  EnterScene(*SampleScene(objects));
  const korvel::OwnedGroup empty = SceneOf({});
  Require(empty->Reference.GroupIdentifier.Assign("~/e"), "no memory");
  korvel::test::TheHost().files["e"] = BytesOf(*empty);
  return {[] {
    for (const std::string_view name : {std::string_view("~/e"), kScene}) {
      korvel::BeginWork();
      Require(korvel::TransitionTo(name) == korvel::Status::Done, "a scene does not start");
    }
    korvel::test::TheHost().fetched.clear();
  }};
}

}  // namespace

std::vector<Workload> GroupWorkloads() {
  return {
      {"decode/scene",
       {2'000, 60'000, 4'000'000},
       [](int bytes) { return DecodeAndRelease(BytesOf(*SampleSceneOfBytes(bytes))); }},
      {"lifecycle/start_and_end", {10, 100, 1000, 10'000, 100'000}, StartAndEnd},
  };
}

}  // namespace bench
