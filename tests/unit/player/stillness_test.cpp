// Tests the decision whether the engine is idle and its picture final, with made-up states of its
// threads.
#include "player/stillness.h"

#include <gtest/gtest.h>

namespace {

using player::Stillness;

// Ends a round: the window receives the mark and the worker polls twice.
void PassRound(Stillness& stillness, unsigned mark) {
  EXPECT_FALSE(stillness.IsRoundOver({.mark = mark, .idlePolls = 0}));
  EXPECT_TRUE(stillness.IsRoundOver({.mark = mark, .idlePolls = 2}));
}

TEST(Stillness, round_lasts_until_the_window_has_received_the_mark) {
  Stillness stillness(7);
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 6, .idlePolls = 10}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 6, .idlePolls = 20}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 7, .idlePolls = 30}));
  EXPECT_TRUE(stillness.IsRoundOver({.mark = 7, .idlePolls = 32}));
}

TEST(Stillness, round_lasts_until_the_worker_has_polled_twice_after_the_mark) {
  Stillness stillness(1);
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idlePolls = 5}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idlePolls = 5}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idlePolls = 6}));
  EXPECT_TRUE(stillness.IsRoundOver({.mark = 1, .idlePolls = 7}));
}

TEST(Stillness, the_count_of_polls_may_wrap_around) {
  Stillness stillness(1);
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idlePolls = ~0U}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idlePolls = 0}));
  EXPECT_TRUE(stillness.IsRoundOver({.mark = 1, .idlePolls = 1}));
}

TEST(Stillness, round_lasts_until_the_window_is_painted) {
  Stillness stillness(1);
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idlePolls = 0, .isPainted = false}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idlePolls = 9, .isPainted = false}));
  EXPECT_TRUE(stillness.IsRoundOver({.mark = 1, .idlePolls = 9, .isPainted = true}));
}

TEST(Stillness, picture_is_final_when_two_more_rounds_leave_it_unchanged) {
  Stillness stillness(1);
  PassRound(stillness, 1);
  EXPECT_FALSE(stillness.EndRound(false, 2));
  PassRound(stillness, 2);
  EXPECT_FALSE(stillness.EndRound(true, 3));
  PassRound(stillness, 3);
  EXPECT_TRUE(stillness.EndRound(true, 4));
}

TEST(Stillness, picture_stays_final_until_it_changes) {
  Stillness stillness(1);
  EXPECT_FALSE(stillness.EndRound(false, 2));
  EXPECT_FALSE(stillness.EndRound(true, 3));
  EXPECT_TRUE(stillness.EndRound(true, 4));
  EXPECT_TRUE(stillness.EndRound(true, 5));
  EXPECT_FALSE(stillness.EndRound(false, 6));
}

TEST(Stillness, changed_picture_needs_two_more_rounds_again) {
  Stillness stillness(1);
  EXPECT_FALSE(stillness.EndRound(false, 2));
  EXPECT_FALSE(stillness.EndRound(true, 3));
  EXPECT_FALSE(stillness.EndRound(false, 4));
  EXPECT_FALSE(stillness.EndRound(true, 5));
  EXPECT_TRUE(stillness.EndRound(true, 6));
}

TEST(Stillness, next_round_counts_polls_from_its_own_mark) {
  Stillness stillness(1);
  PassRound(stillness, 1);
  EXPECT_FALSE(stillness.EndRound(false, 2));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idlePolls = 50}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 2, .idlePolls = 60}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 2, .idlePolls = 61}));
  EXPECT_TRUE(stillness.IsRoundOver({.mark = 2, .idlePolls = 62}));
}

}  // namespace
