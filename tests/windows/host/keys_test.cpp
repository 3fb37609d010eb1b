// Tests which keys of the keyboard reach content, and with which key numbers.
#include <gmock/gmock.h>

#include <cstdio>
#include <map>
#include <string>

#include "host/host_state.h"
#include "host/threads.h"
#include "objects/vocabulary.h"
#include "windows/host/host_threads.h"

namespace korvel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr WPARAM kCtrl = 17;
constexpr WPARAM kAlt = 18;
constexpr WPARAM kDigit1 = '1';  // raised as "6 6"
constexpr WPARAM kDigit2 = '2';  // raised as "6 7"

TEST(KeyTable, gives_each_listed_key_its_number) {
  const std::map<std::uint32_t, std::int32_t> listed = {
      {13, 15},  {27, 16},  {37, 3},   {38, 1},   {39, 4},  {40, 2},   {48, 5},   {49, 6},
      {50, 7},   {51, 8},   {52, 9},   {53, 10},  {54, 11}, {55, 12},  {56, 13},  {57, 14},
      {96, 5},   {97, 6},   {98, 7},   {99, 8},   {100, 9}, {101, 10}, {102, 11}, {103, 12},
      {104, 13}, {105, 14}, {66, 103}, {71, 101}, {73, 17}, {82, 100}, {84, 104}, {89, 102}};
  for (std::uint32_t key = 0; key < 300; ++key) {
    const auto found = listed.find(key);
    EXPECT_EQ(UserInputKey(key), found == listed.end() ? kNoUserInput : found->second) << key;
  }
  EXPECT_EQ(UserInputKey(0xFFFFFFFF), kNoUserInput);
}

class Keys : public HostThreads {
 protected:
  void ReleaseKeys(const std::vector<WPARAM>& virtualKeys) {
    for (const WPARAM key : virtualKeys) Post(WM_KEYUP, key);
  }
};

TEST_F(Keys, reach_content_in_the_order_they_were_pressed) {
  Start();
  PostKeys({13, 103, 55, 'R'});
  FinishPosted();
  EXPECT_THAT(Raised(), ElementsAre("6 15", "6 12", "6 12", "6 100"));
}

TEST_F(Keys, that_are_not_in_the_table_raise_nothing) {
  Start();
  PostKeys({12, 'A', 'Z', 106, 255});
  FinishPosted();
  EXPECT_THAT(Raised(), IsEmpty());
}

TEST_F(Keys, are_dropped_while_ctrl_and_alt_are_both_down) {
  Start();
  PostKeys({kCtrl, kAlt, kDigit1});
  FinishPosted();
  EXPECT_THAT(Raised(), IsEmpty());
  ReleaseKeys({kCtrl});
  PostKeys({kDigit2});
  FinishPosted();
  EXPECT_THAT(Raised(), ElementsAre("6 7"));
}

TEST_F(Keys, are_raised_again_when_alt_is_released_first) {
  Start();
  PostKeys({kCtrl, kAlt, kDigit1});
  ReleaseKeys({kAlt});
  PostKeys({kDigit2});
  FinishPosted();
  EXPECT_THAT(Raised(), ElementsAre("6 7"));
}

TEST_F(Keys, are_raised_again_when_ctrl_is_released_while_alt_is_down) {
  Start();
  Post(WM_SYSKEYDOWN, kAlt);
  PostKeys({kCtrl, kDigit1});
  Post(WM_SYSKEYUP, kCtrl);
  PostKeys({kDigit2});
  FinishPosted();
  EXPECT_THAT(Raised(), ElementsAre("6 7"));
}

TEST_F(Keys, are_raised_again_when_the_window_loses_the_focus) {
  Start();
  PostKeys({kCtrl, kAlt, kDigit1});
  Post(WM_KILLFOCUS);
  PostKeys({kDigit2});
  FinishPosted();
  EXPECT_THAT(Raised(), ElementsAre("6 7"));
}

TEST_F(Keys, are_raised_while_only_one_modifier_is_down) {
  Start();
  PostKeys({kCtrl, kDigit1});
  ReleaseKeys({kCtrl});
  PostKeys({kAlt, kDigit2});
  FinishPosted();
  EXPECT_THAT(Raised(), ElementsAre("6 6", "6 7"));
}

TEST_F(Keys, include_alt_when_it_arrives_as_a_system_key) {
  Start();
  Post(WM_SYSKEYDOWN, kAlt);
  PostKeys({kCtrl, kDigit1});
  FinishPosted();
  EXPECT_THAT(Raised(), IsEmpty());
  Post(WM_SYSKEYUP, kAlt);
  PostKeys({kDigit2});
  FinishPosted();
  EXPECT_THAT(Raised(), ElementsAre("6 7"));
}

TEST_F(Keys, that_are_modifiers_redraw_and_raise_nothing) {
  Start();
  journal.Clear();
  PostKeys({kCtrl});
  ReleaseKeys({kCtrl});
  PostKeys({kAlt});
  WaitForLine("Redraw", 2);
  EXPECT_THAT(Raised(), IsEmpty());
}

TEST_F(Keys, are_traced_around_their_queueing) {
  std::FILE* trace = std::tmpfile();
  ASSERT_NE(trace, nullptr);
  SetTraceStream(trace);
  Start();
  Post(WM_KEYDOWN, VK_RETURN);
  FinishPosted();
  Close();
  SetTraceStream(nullptr);
  std::rewind(trace);
  std::string lines(4096, 0);
  lines.resize(std::fread(lines.data(), 1, lines.size(), trace));
  std::fclose(trace);
  EXPECT_NE(lines.find("thread1 enter CS !!\nthread1 leave CS !!\n"), std::string::npos) << lines;
}

TEST_F(Keys, queue_nothing_when_they_are_released) {
  Start();
  journal.Clear();
  ReleaseKeys({13, kDigit1});
  FinishPosted();
  const auto lines = WorkerLines();
  ASSERT_GE(lines.size(), 2U);
  EXPECT_EQ(lines[1], "EmptyPersistentStore") << "the restart must be handled first";
}

}  // namespace
}  // namespace korvel::test
