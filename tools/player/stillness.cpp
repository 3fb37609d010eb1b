// Compares differences of counts, which stay correct when the counts wrap around.
#include "player/stillness.h"

namespace player {
namespace {

// The first poll may have begun before the mark was received, so a second one is needed.
constexpr unsigned kIdleLooks = 2;

constexpr unsigned kRoundsUnchanged = 2;

}  // namespace

bool Stillness::IsRoundOver(const EngineSight& sight) {
  if (sight.mark != mark_) return false;
  if (!looksAtMark_) looksAtMark_ = sight.idleLooks;
  return sight.isPainted && sight.idleLooks - *looksAtMark_ >= kIdleLooks;
}

bool Stillness::EndRound(bool isPictureUnchanged, unsigned nextMark) {
  roundsUnchanged_ = isPictureUnchanged ? roundsUnchanged_ + 1 : 0;
  mark_ = nextMark;
  looksAtMark_.reset();
  return roundsUnchanged_ >= kRoundsUnchanged;
}

}  // namespace player
