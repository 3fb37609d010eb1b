// The demos when memory runs out: whichever allocation fails, nothing leaks.
#include <vector>

#include "objects/ber/ber.h"
#include "unit/demos/demo.h"

namespace korvel::test {
namespace {

using namespace keys;

class OutOfMemoryInDemos : public DemoTest {
 protected:
  // Starts the demo and presses these keys. After each kSelect all pending timers expire.
  void PlayDemo(const std::vector<std::int32_t>& pressed) {
    static_cast<void>(Start());
    for (const std::int32_t key : pressed) {
      static_cast<void>(Press(key));
      if (key != kSelect) continue;
      const auto timers = TheHost().timers;
      for (const auto& [timer, period] : timers) {
        static_cast<void>(Expire(static_cast<std::int32_t>(timer)));
      }
    }
    EndEngine();
  }

  // Runs the demo repeatedly, each time with another failing allocation: the first one, then every
  // `step`th after it.
  void FailEveryNth(std::size_t step, const std::vector<std::int32_t>& pressed) {
    PlayDemo(pressed);  // allocates what the test itself keeps
    const std::size_t blocks = LiveBlocks();
    const auto files = TheHost().files;
    std::size_t failing = 1;
    do {
      TheHost() = {};
      TheHost().files = files;
      FailAllocation(failing);
      PlayDemo(pressed);
      ASSERT_EQ(LiveBlocks(), blocks) << "allocation " << failing;
      ASSERT_TRUE(TheHost().timers.empty()) << "allocation " << failing;
      static_cast<void>(Printed());
      failing += step;
    } while (HasFailedAllocation());
    FailAllocation(0);
    EXPECT_GT(failing, 50 * step) << "the demo makes fewer allocations than expected";
  }
};

// A subject, two questions, an unfinished year, the time, the help.
TEST_F(OutOfMemoryInDemos, the_quiz_leaks_nothing) {
  ServeDemo("quiz");
  FailEveryNth(17, {kRed,    kDown,   kSelect,     kGreen,      kRight,  kSelect, kSelect, kDown,
                    kSelect, kSelect, kDigit0 + 1, kDigit0 + 9, kLeft,   kSelect, kRed,    kGreen,
                    kRight,  kSelect, kBlue,       kDown,       kSelect, kCancel});
}

TEST_F(OutOfMemoryInDemos, the_clock_leaks_nothing) {
  ServeDemo("clock");
  FailEveryNth(7, {kRed, kSelect, kGreen, kSelect, kYellow, kYellow, kRed});
}

// A scrolled list, a story, the story that its hypertext leads to.
TEST_F(OutOfMemoryInDemos, the_news_leak_nothing) {
  ServeDemo("news");
  FailEveryNth(5, {kDown, kUp, kSelect, kSelect, kGreen, kCancel, kRed});
}

TEST_F(OutOfMemoryInDemos, the_canvas_leaks_nothing) {
  ServeDemo("paint");
  FailEveryNth(3, {kRight, kSelect, kDigit0 + 6, kSelect, kRed, kGreen, kYellow, kBlue});
}

class OutOfMemoryInWelcome : public DemoTest {
 protected:
  void SetUp() override {
    DemoTest::SetUp();
    ServeDemo("welcome");
    ASSERT_EQ(TheHost().files.count("a"), 1U);
  }

  // Starts the demo and goes through every scene: down, OK, right, blue, yellow, blue, five times
  // red, green, blue.
  void PlayAll() {
    static_cast<void>(Start());
    for (const std::int32_t key : {2, 15, 4, 103, 102, 103, 100, 100, 100, 100, 100, 101, 103}) {
      static_cast<void>(Press(key));
    }
    EndEngine();
  }
};

TEST_F(OutOfMemoryInWelcome, decoding_is_refused_and_leaks_nothing_whichever_allocation_fails) {
  for (const char* name : {"a", "menu", "about", "counter", "move"}) {
    SCOPED_TRACE(name);
    const std::string& file = TheHost().files[name];
    const std::size_t blocks = LiveBlocks();
    const std::size_t failures = FailEachInTurn(
        [&file] {
          OwnedGroup group;
          const auto* bytes = reinterpret_cast<const std::uint8_t*>(file.data());
          return DecodeGroup({bytes, file.size()}, group);
        },
        [blocks](Status status, bool hasFailed) {
          EXPECT_EQ(status, hasFailed ? Status::Refused : Status::Done);
          EXPECT_EQ(LiveBlocks(), blocks);
        });
    EXPECT_GT(failures, 4U);
  }
}

TEST_F(OutOfMemoryInWelcome, starting_and_playing_leak_nothing_whichever_allocation_fails) {
  PlayAll();
  const std::size_t blocks = LiveBlocks();
  TheHost().fetched.clear();
  PlayAll();
  const auto expectedFiles = TheHost().fetched;
  ASSERT_EQ(expectedFiles, (std::vector<std::string>{"a", "menu", "move", "menu", "about", "menu",
                                                     "counter", "menu"}));
  std::size_t failing = 0;
  do {
    const auto files = TheHost().files;
    TheHost() = {};
    TheHost().files = files;
    FailAllocation(++failing);
    PlayAll();
    ASSERT_EQ(LiveBlocks(), blocks) << "allocation " << failing;
    static_cast<void>(Printed());
  } while (HasFailedAllocation());
  FailAllocation(0);
  EXPECT_EQ(TheHost().fetched, expectedFiles);
  EXPECT_GT(failing, 200U);
}

}  // namespace
}  // namespace korvel::test
