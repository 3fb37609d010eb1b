// Controls the substitute for the presentation in tests: it counts requests to draw, and tests set
// the result of Redraw.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/canvases.h"
#include "platform/screen.h"
#include "presentation/presentation.h"

namespace korvel::test {

struct FakePresentation {
  int redraws = 0;
  int clears = 0;
  int updates = 0;
  int canvases = 0;                   // canvases that exist now
  std::vector<std::string> drawings;  // calls on canvases, one line each
  std::vector<std::string> streams;   // streams started and ended, one line each
  std::function<Status()> onRedraw;   // if set, returns Redraw's result
};

// The substitute's state; a fixture resets it with `ThePresentation() = {}`.
FakePresentation& ThePresentation();

}  // namespace korvel::test
