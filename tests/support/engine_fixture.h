// The fixture for tests of the engine core: it serves content written as text as files, sends keys
// and timer expiries, and captures the engine's output and the values of the running application's
// variables. In most tests the content records what happened: links append marks to a variable, the
// notes, and the test compares the notes.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>

#include "engine/engine.h"
#include "substitutes/host.h"
#include "substitutes/memory.h"
#include "substitutes/presentation.h"
#include "support/text_content.h"

namespace korvel {

inline void PrintTo(Status status, std::ostream* out) {
  *out << "status " << static_cast<std::uint32_t>(status);
}
inline void PrintTo(ItemType type, std::ostream* out) {
  *out << "class " << static_cast<std::uint32_t>(type);
}

namespace test {

// The number of the variable that holds the notes. Every group that GroupText builds has one.
inline constexpr std::int32_t kNotes = 99;

// ---- Parts of content ----

inline std::string Quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

inline std::string Name(std::string_view group, std::int32_t number) {
  return "(" + Quoted(group) + " " + std::to_string(number) + ")";
}

// An action that adds `mark` to the notes of a group.
inline std::string Note(std::string_view mark, std::string_view group = "~/a") {
  return ":Append(" + Name(group, kNotes) + " " + Quoted(mark) + ") ";
}

inline std::string TransitionAction(std::string_view group) {
  return ":TransitionTo(" + Name(group, 0) + ") ";
}
inline std::string LaunchAction(std::string_view group) {
  return ":Launch(" + Name(group, 0) + ") ";
}
inline std::string SpawnAction(std::string_view group) { return ":Spawn(" + Name(group, 0) + ") "; }
inline std::string QuitAction() { return ":Quit(0) "; }

// A link. `source` and `event` are in the textual notation ("0", "UserInput :EventData 100").
inline std::string LinkOn(std::int32_t number, std::string_view source, std::string_view event,
                          std::string_view effect, std::string_view attributes = "") {
  return "{:Link " + std::to_string(number) + " " + std::string(attributes) + " :EventSource " +
         std::string(source) + " :EventType " + std::string(event) + " :LinkEffect (" +
         std::string(effect) + ")} ";
}

// A link that fires on a key, in an application or a scene.
inline std::string LinkOnKey(std::int32_t number, std::int32_t key, std::string_view effect,
                             std::string_view attributes = "") {
  return LinkOn(number, "0", "UserInput :EventData " + std::to_string(key), effect, attributes);
}

// Keeps an item of the application from being stopped by a transition.
inline constexpr std::string_view kShared = ":Shared TRUE";
inline constexpr std::string_view kInactive = ":InitiallyActive FALSE";

inline std::string RectangleText(std::int32_t number, std::string_view attributes = "") {
  return "{:Rectangle " + std::to_string(number) + " " + std::string(attributes) +
         " :OrigBoxSize 10 10} ";
}

inline std::string GroupText(std::string_view heading, std::string_view name,
                             std::string_view items, std::string_view attributes) {
  return "{:" + std::string(heading) + " " + Name(name, 0) + " " + std::string(attributes) +
         " :Items ({:OStringVar " + std::to_string(kNotes) + " :OrigValue \"\"} " +
         std::string(items) + ")}";
}
inline std::string ApplicationText(std::string_view name, std::string_view items,
                                   std::string_view attributes = "") {
  return GroupText("Application", name, items, attributes);
}
inline std::string SceneText(std::string_view name, std::string_view items,
                             std::string_view attributes = "") {
  return GroupText("Scene", name, items, attributes);
}

// ---- Running the engine ----

// Runs `work`, appends its standard output to `printed`, and returns its result.
template <class Work> auto WithOutputIn(std::string& printed, Work&& work) {
  struct Capture {
    explicit Capture(std::string& sink) : sink_(sink) { testing::internal::CaptureStdout(); }
    ~Capture() { sink_ += testing::internal::GetCapturedStdout(); }
    std::string& sink_;
  } capture(printed);
  return work();
}

class EngineTest : public testing::Test {
 protected:
  void SetUp() override {
    TheHost() = {};
    ThePresentation() = {};
    FailAllocation(0);
    blocksBefore_ = LiveBlocks();
  }

  void TearDown() override {
    EndEngine();
    EXPECT_EQ(LiveBlocks(), blocksBefore_) << "memory was not released";
    EXPECT_EQ(ThePresentation().canvases, 0) << "canvases were not released";
  }

  // Ends the engine as the worker does.
  void EndEngine() {
    WithOutputIn(printed_, [] {
      CloseDown();
      ResetEngine();
    });
  }

  void Serve(const std::string& file, std::string_view text) {
    TheHost().files[file] = CompileText(text);
  }
  // Serves a file that is not a group.
  void ServeBroken(const std::string& file) { TheHost().files[file] = "\x02\x01\x00"; }
  // Serve the start-up application "~/a", and a scene in the same folder.
  void ServeApplication(std::string_view items, std::string_view attributes = "") {
    Serve("a", ApplicationText("~/a", items, attributes));
  }
  void ServeScene(const std::string& file, std::string_view items,
                  std::string_view attributes = "") {
    Serve(file, SceneText("~/" + file, items, attributes));
  }

  // Runs `work` as the worker handles one key or timer: groups that have ended are released before
  // it, not after it.
  template <class Work> auto Do(Work&& work) {
    BeginWork();
    return Continue(work);
  }
  // Runs `work` as a continuation of the last Do: groups that have ended are not released first.
  template <class Work> auto Continue(Work&& work) { return WithOutputIn(printed_, work); }
  Status Start(std::string_view path = "") {
    return Do([&] { return StartEngine(path); });
  }
  // Starts the engine and enters a scene.
  void StartWithScene(std::string_view scene) {
    ASSERT_EQ(Start(), Status::Done);
    ASSERT_EQ(GoTo(scene), Status::Done);
    ASSERT_NE(CurrentScene(), nullptr);
  }
  Status GoTo(std::string_view scene) {
    return Do([&] { return TransitionTo(scene); });
  }
  Status Press(std::int32_t key) {
    return Do([&] { return RaiseOutsideEvent(0, EventType::UserInput, key); });
  }
  // Lets a timer fire, which removes it from the platform.
  Status Expire(std::int32_t timer) {
    TheHost().timers.erase(static_cast<std::uint32_t>(timer));
    return Do([&] { return RaiseOutsideEvent(0, EventType::TimerFired, timer); });
  }
  Status Raise(std::string_view group, std::int32_t number, EventType type, EventData data = {}) {
    return Do([&] { return RaiseEvent(group, number, type, data); });
  }

  // The engine's output since the last call.
  std::string Printed() { return std::exchange(printed_, {}); }

  // An object of the running groups. Reports a test failure if it does not exist.
  template <class T> static T& Find(std::int32_t number, std::string_view group = "~/a") {
    const FoundObject found = FindObject(Scope::SceneFirst, group, number);
    if (!found) {
      ADD_FAILURE() << group << " has no object " << number;
      static T nothing;
      return nothing;
    }
    return found.As<T>();
  }
  static std::string Notes(std::string_view group = "~/a") {
    return std::string(Find<OctetStringVariable>(kNotes, group).Value.View());
  }
  // The notes since the last call.
  static std::string TakeNotes(std::string_view group = "~/a") {
    std::string notes = Notes(group);
    EXPECT_TRUE(Find<OctetStringVariable>(kNotes, group).Value.Assign(""));
    return notes;
  }
  static std::int32_t IntegerOf(std::int32_t number, std::string_view group = "~/a") {
    return Find<IntegerVariable>(number, group).Value;
  }
  static std::string NameOf(const Group* group) {
    return group == nullptr ? "none" : std::string(group->Reference.GroupIdentifier.View());
  }

 private:
  std::size_t blocksBefore_ = 0;
  std::string printed_;
};

}  // namespace test
}  // namespace korvel
