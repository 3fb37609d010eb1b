// Decides whether the engine is idle, from the facts that a host can observe. Portable:
// engine_watch.h observes the threads, and the session takes the pictures.
#pragma once

#include <optional>

namespace player {

// The state of the engine's threads at one moment. The numbers only increase.
struct EngineState {
  unsigned mark = 0;       // the last mark that the window's thread has received
  unsigned idlePolls = 0;  // how often the worker has found no queued work and slept
  bool isPainted = true;   // no part of the window needs painting
};

// Works in rounds. Each round begins with a mark, which is posted to the window after all of the
// host's other messages. Once the window has received the mark, the work that those messages cause
// is in the worker's queue. The round is over when the worker finds its queue empty and the window
// is painted. The worker may have posted messages itself meanwhile, so the picture is final only if
// two more rounds leave it unchanged.
class Stillness {
 public:
  explicit Stillness(unsigned mark) : mark_(mark) {}

  // Whether the current round is over. The caller polls this.
  [[nodiscard]] bool IsRoundOver(const EngineState& state);

  // Ends a round and begins the next one with `nextMark`. Returns true if the picture is final; a
  // timer may still change it later.
  [[nodiscard]] bool EndRound(bool isPictureUnchanged, unsigned nextMark);

 private:
  unsigned mark_;
  std::optional<unsigned> pollsAtMark_;
  unsigned roundsUnchanged_ = 0;
};

}  // namespace player
