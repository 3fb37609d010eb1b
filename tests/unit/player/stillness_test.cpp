// Tests the decision whether the engine is idle and its picture final. Plain numbers represent its
// threads.
#include "player/stillness.h"

#include <gtest/gtest.h>

namespace {

using player::Stillness;

// Ends a round: the window has reached the mark and the worker has looked twice.
void PassRound(Stillness& stillness, unsigned mark) {
  EXPECT_FALSE(stillness.IsRoundOver({.mark = mark, .idleLooks = 0}));
  EXPECT_TRUE(stillness.IsRoundOver({.mark = mark, .idleLooks = 2}));
}

TEST(Stillness, round_lasts_until_the_window_has_reached_the_mark) {
  Stillness stillness(7);
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 6, .idleLooks = 10}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 6, .idleLooks = 20}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 7, .idleLooks = 30}));
  EXPECT_TRUE(stillness.IsRoundOver({.mark = 7, .idleLooks = 32}));
}

TEST(Stillness, round_lasts_until_the_worker_has_looked_twice_after_the_mark) {
  Stillness stillness(1);
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idleLooks = 5}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idleLooks = 5}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idleLooks = 6}));
  EXPECT_TRUE(stillness.IsRoundOver({.mark = 1, .idleLooks = 7}));
}

TEST(Stillness, the_count_of_looks_may_wrap) {
  Stillness stillness(1);
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idleLooks = ~0U}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idleLooks = 0}));
  EXPECT_TRUE(stillness.IsRoundOver({.mark = 1, .idleLooks = 1}));
}

TEST(Stillness, round_lasts_until_the_window_is_painted) {
  Stillness stillness(1);
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idleLooks = 0, .isPainted = false}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idleLooks = 9, .isPainted = false}));
  EXPECT_TRUE(stillness.IsRoundOver({.mark = 1, .idleLooks = 9, .isPainted = true}));
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

TEST(Stillness, next_round_counts_looks_from_its_own_mark) {
  Stillness stillness(1);
  PassRound(stillness, 1);
  EXPECT_FALSE(stillness.EndRound(false, 2));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 1, .idleLooks = 50}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 2, .idleLooks = 60}));
  EXPECT_FALSE(stillness.IsRoundOver({.mark = 2, .idleLooks = 61}));
  EXPECT_TRUE(stillness.IsRoundOver({.mark = 2, .idleLooks = 62}));
}

}  // namespace
