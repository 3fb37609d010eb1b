// Decides when the engine has nothing left to do, from the little that a host can observe.
// Portable; engine_watch.h observes the threads, and the session takes the pictures.
#pragma once

#include <optional>

namespace player {

// The engine's threads at one moment. The numbers count upwards.
struct EngineSight {
  unsigned mark = 0;       // the last mark that the window's thread has received
  unsigned idleLooks = 0;  // how often the worker has found nothing queued and slept
  bool isPainted = true;   // no part of the window needs painting
};

// Works in rounds. A round begins with a mark, which is posted to the window after everything that
// the host has posted. When the mark has been received, all of that is queued for the worker; when
// the worker then finds nothing queued, it is done. The worker may have posted something itself
// meanwhile, so the picture is final only if two more rounds leave it unchanged.
class Stillness {
 public:
  explicit Stillness(unsigned mark) : mark_(mark) {}

  // Whether the round that began with the mark is over. Ask repeatedly.
  [[nodiscard]] bool IsRoundOver(const EngineSight& sight);

  // Records the picture after a round: true if it is final. The next round begins with the mark
  // anyway: a timer may change a final picture.
  [[nodiscard]] bool EndRound(bool isPictureUnchanged, unsigned nextMark);

 private:
  unsigned mark_;
  std::optional<unsigned> looksAtMark_;
  unsigned roundsUnchanged_ = 0;
};

}  // namespace player
