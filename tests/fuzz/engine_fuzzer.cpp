// Plays carousels of any groups in the engine core as a worker would: starts, keys, timer expiries,
// actions, files that fail or change, redraws that raise events, allocations that fail, restarts
// and closes. The invariants must hold after every step, a close must release everything, and a
// sound application must run afterwards.
#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "actions/actions.h"
#include "engine/core.h"
#include "fuzz/engine/carousel.h"
#include "fuzz/engine/invariants.h"
#include "substitutes/host.h"
#include "substitutes/memory.h"
#include "substitutes/presentation.h"

namespace korvel::test {
namespace {

// Far below the engine's own limit: content that loops forever then takes milliseconds, not
// seconds.
constexpr std::uint32_t kMostActionsOfStep = 2000;
constexpr std::uint32_t kMostSteps = 64;
// Makes strings that content doubles repeatedly fail soon.
constexpr std::size_t kLargestBlock = 1 << 18;

// An application that sets its variable when a key is pressed.
constexpr std::string_view kSoundApplication =
    "{:Application (\"~/a\" 0) :Items ({:IntegerVar 1 :OrigValue 0} {:Link 2 :EventSource 0 "
    ":EventType UserInput :EventData 100 :LinkEffect (:SetVariable(1 :GInteger 42))})}";
constexpr std::int32_t kSoundResult = 42;

void Reset() {
  TheHost() = {};
  ThePresentation() = {};
  FailAllocation(0);
}

class Player {
 public:
  explicit Player(Choices& choices) : choices_(choices) {
    for (const KnownObject& object : choices.known) {
      if (Contains(kGroups, object.type)) groups_.push_back(object);
    }
  }

  // Plays one run of the engine, from its start to the end of its worker.
  void Play() {
    TheHost().millisecondsPerReading = OneOf(std::array<std::uint32_t, 4>{0, 1, 50, 500});
    ThePresentation().onRedraw = [this] { return Paint(); };
    TheHost().onFetch = [this] {
      if (!changesFetchedFiles_) return;
      TheHost().milliseconds += 500;
      ChangeFile();
    };
    Work([] { static_cast<void>(StartEngine({})); });
    for (std::uint32_t step = 0; step < kMostSteps && MayRun(); ++step) {
      if (choices_.IsExhausted() && step > 16) break;
      Step();
    }
    End();
  }

 private:
  template <class T, std::size_t kSize> T OneOf(const std::array<T, kSize>& values) {
    return values[choices_.StepBelow(kSize)];
  }

  // Runs one unit of the worker's work, and then the restart that it may have requested.
  void Work(const std::function<void()>& run) {
    BeginWork();
    paintings_ = 0;
    Require(TheCore().ended == nullptr, "ended groups are released before the next work");
    TheCore().actionsLeft = std::min(TheCore().actionsLeft, kMostActionsOfStep);
    run();
    FailAllocation(0);
    CheckState();
    if (TheHost().restarts.empty() || IsClosing()) return;
    const RestartReason reason = TheHost().restarts.front();
    TheHost().restarts.clear();
    if (++restarts_ > kMostRestarts) return;
    TheHost().mayRun = true;
    Work([&] {
      if (reason == RestartReason::Tune) {
        CloseDown();
      } else {
        EmptyPersistentStore();
      }
      if (StartEngine({}) == Status::Refused) TheHost().mayRun = false;
    });
  }

  void Step() {
    constexpr std::array<std::int32_t, 21> kKeys = {1,  2,  3,  4,  5,  6,  7,   8,   9,   10, 11,
                                                    14, 15, 15, 15, 16, 17, 100, 101, 103, 104};
    switch (choices_.StepBelow(28)) {
    case 0:
    case 1:
    case 2:
    case 3: return Raise(EventType::UserInput, OneOf(kKeys));
    case 4:
    case 5: return ExpireTimer();
    case 6: return Raise(EventType::TimerFired, static_cast<std::int32_t>(choices_.StepBelow(8)));
    case 7: return ChangeFile();
    case 8: failingAllocation_ = 1 + choices_.StepBelow(256) * choices_.StepBelow(4); return;
    case 9:
      if (choices_.StepBelow(4) == 0) TheHost().checksUntilClose = 1 + choices_.StepBelow(64);
      return;
    case 10:
      raisesInRedraws_ = choices_.StepBelow(2) == 0;
      changesFetchedFiles_ = choices_.StepBelow(4) == 0;
      return;
    case 11: return EnterScene();
    case 12:
      return Raise(static_cast<EventType>(choices_.StepBelow(34)),
                   static_cast<std::int32_t>(choices_.StepBelow(8)));
    default: return RunSomeActions();
    }
  }

  void Raise(EventType type, std::int32_t value) {
    const auto source = static_cast<std::int32_t>(choices_.StepBelow(32));
    // A timer that fires is no longer pending.
    if (type == EventType::TimerFired) TheHost().timers.erase(static_cast<std::uint32_t>(value));
    ArmFailure();
    Work([&] { static_cast<void>(RaiseOutsideEvent(source, type, value)); });
  }

  void ExpireTimer() {
    auto& timers = TheHost().timers;
    if (timers.empty()) return;
    const auto timer = std::next(timers.begin(), choices_.StepBelow(256) % timers.size());
    Raise(EventType::TimerFired, static_cast<std::int32_t>(timer->first));
  }

  void EnterScene() {
    const ObjectName scene = choices_.ObjectOf(SetOf(ItemType::Scene));
    if (CurrentApplication() == nullptr) return;
    ArmFailure();
    Work([&] { static_cast<void>(TransitionTo(scene.group.value_or("~/s"))); });
  }

  // Runs actions as a running group would.
  void RunSomeActions() {
    const bool isScene = choices_.StepBelow(2) == 0 && CurrentScene() != nullptr;
    Group* const group = isScene ? static_cast<Group*>(CurrentScene()) : CurrentApplication();
    if (group == nullptr) return;
    choices_.groupName = NameOf(*group);
    choices_.lastAction = kActionCount;
    choices_.known = groups_;
    for (const Group* running :
         {static_cast<Group*>(CurrentScene()), static_cast<Group*>(CurrentApplication())}) {
      if (running != nullptr) AddKnown(*running, choices_);
    }
    ActionList actions;
    GroupMaker<Choices>(choices_).Fill(actions);
    ArmFailure();
    Work([&] {
      static_cast<void>(RunActions(isScene ? Scope::SceneFirst : Scope::ApplicationFirst,
                                   {&actions, group}, NameOf(*group)));
    });
  }

  void ChangeFile() {
    auto& files = TheHost().files;
    if (files.empty()) return;
    const auto anyFile = [&] {
      return std::next(files.begin(), choices_.StepBelow(256) % files.size());
    };
    std::string& bytes = anyFile()->second;
    switch (choices_.StepBelow(4)) {
    case 0: files.erase(anyFile()); return;
    case 1: bytes = anyFile()->second; return;
    case 2: bytes.resize(bytes.size() / 2); return;
    default:
      if (!bytes.empty()) {
        bytes[choices_.StepBelow(256) * 7 % bytes.size()] =
            static_cast<char>(choices_.StepBelow(256));
      }
      return;
    }
  }

  // Makes an allocation fail in the next unit of work, if an earlier step has chosen one.
  void ArmFailure() { FailAllocation(std::exchange(failingAllocation_, 0)); }

  // Reads the display stack as a painting does and, if the input chooses so, raises the event of a
  // missing picture for each visible.
  Status Paint() {
    CheckNesting();
    if (paintings_++ < kMostCheckedPaintings) CheckRegisters();
    if (IsClosing() || std::exchange(isPainting_, true)) return Status::Done;
    const Busy busy;
    const Status result = raisesInRedraws_ ? RaiseForStack() : Status::Done;
    isPainting_ = false;
    return result;
  }

  static Status RaiseForStack() {
    Application* const application = CurrentApplication();
    if (application == nullptr) return Status::Done;
    std::vector<StackedVisible> entries;
    for (const StackedVisible& entry : application->DisplayStack) entries.push_back(entry);
    for (const StackedVisible& entry : entries) {
      if (IsClosing()) return Status::Done;
      if (IsGone(*entry.visible)) continue;
      const Status result = RaiseEvent(*application, EventType::EngineEvent,
                                       EventData::Integer(engineEvents::kContentReferenceError));
      if (result == Status::Failure) return result;
      if (IsGone(*application)) break;
    }
    return Status::Done;
  }

  void End() {
    Work([] { CloseDown(); });
    ResetEngine();
    Require(CurrentApplication() == nullptr && CurrentScene() == nullptr,
            "a close ends all groups");
  }

  static constexpr int kMostRestarts = 3;
  static constexpr int kMostCheckedPaintings = 20;  // per step: each check visits all objects

  Choices& choices_;
  std::vector<KnownObject> groups_;  // the carousel's groups
  int restarts_ = 0;
  int paintings_ = 0;
  std::size_t failingAllocation_ = 0;
  bool raisesInRedraws_ = false;
  bool changesFetchedFiles_ = false;  // fetches take long and may find a file that has changed
  bool isPainting_ = false;
};

// The state that an ended engine leaves must allow the next one to run.
void PlaySoundApplication() {
  static const std::string compiled = CompileGroup(kSoundApplication);
  Reset();
  TheHost().files["a"] = compiled;
  BeginWork();
  Require(StartEngine({}) == Status::Done, "a sound application starts");
  BeginWork();
  static_cast<void>(RaiseOutsideEvent(0, EventType::UserInput, keys::kRed));
  const FoundObject variable = FindObject(Scope::ApplicationFirst, "~/a", 1);
  Require(variable && variable.As<IntegerVariable>().Value == kSoundResult,
          "a sound application reacts to a key");
  CheckState();
  CloseDown();
  ResetEngine();
}

}  // namespace
}  // namespace korvel::test

extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*arguments*/) {
  korvel::test::LoadSeeds();
  korvel::test::LimitBlocks(korvel::test::kLargestBlock);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace korvel::test;
  Choices choices({bytes, size});
  const auto files = MakeCarousel(choices);
  const std::size_t blocks = korvel::test::LiveBlocks();
  Reset();
  TheHost().files = files;
  Player(choices).Play();
  Require(ThePresentation().canvases == 0, "a close releases every canvas");
  PlaySoundApplication();
  Require(LiveBlocks() == blocks, "a close releases all memory");
  return 0;
}
