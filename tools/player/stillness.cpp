// Compares differences of counts, which stay correct if the counts wrap around.
#include "player/stillness.h"

namespace player {
namespace {

// The first poll may have begun before the mark was received, so a second one is needed.
constexpr unsigned kIdlePolls = 2;

constexpr unsigned kRoundsUnchanged = 2;

}  // namespace

bool Stillness::IsRoundOver(const EngineState& state) {
  if (state.mark != mark_) return false;
  if (!pollsAtMark_) pollsAtMark_ = state.idlePolls;
  return state.isPainted && state.idlePolls - *pollsAtMark_ >= kIdlePolls;
}

bool Stillness::EndRound(bool isPictureUnchanged, unsigned nextMark) {
  roundsUnchanged_ = isPictureUnchanged ? roundsUnchanged_ + 1 : 0;
  mark_ = nextMark;
  pollsAtMark_.reset();
  return roundsUnchanged_ >= kRoundsUnchanged;
}

}  // namespace player
