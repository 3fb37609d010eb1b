// When the engine has nothing left to do, from the little that a host can see of it. Portable; who
// looks at the engine's threads and takes the pictures is left to others.
#pragma once

#include <optional>

namespace player {

// The engine's threads at one moment. The numbers count upwards.
struct EngineSight {
  unsigned mark = 0;       // the last mark that the window's thread has taken from its messages
  unsigned idleLooks = 0;  // how often the worker has found nothing queued and gone to sleep
  bool isPainted = true;   // no part of the window is to be painted
};

// Works in rounds. A round begins with a mark, which is posted to the window after all that the
// host has posted. When the mark has come out, that has been passed on to the worker; when the
// worker then finds nothing queued, it is done. The worker may itself have posted something
// meanwhile, so the picture is final only when two more rounds leave it unchanged.
class Stillness {
 public:
  explicit Stillness(unsigned mark) : mark_(mark) {}

  // Whether the round that began with the mark is over. To be asked again and again.
  [[nodiscard]] bool IsRoundOver(const EngineSight& sight);

  // Takes what the round has done to the picture: true when that is final. The next round begins
  // with the mark all the same: a timer may change a final picture.
  [[nodiscard]] bool EndRound(bool isPictureUnchanged, unsigned nextMark);

 private:
  unsigned mark_;
  std::optional<unsigned> looksAtMark_;
  unsigned roundsUnchanged_ = 0;
};

}  // namespace player
