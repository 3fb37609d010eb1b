// The interface of the presentation's stand-in for tests: it counts requests to draw, and tests set
// the result of the next redraw.
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
  int canvases = 0;                   // made and not released
  std::vector<std::string> drawings;  // what was done to canvases, one line for each call
  std::vector<std::string> streams;   // what streams were started and ended, likewise
  std::function<Status()> onRedraw;   // when set, gives Redraw's result
};

// The stand-in's state; a fixture resets it with `ThePresentation() = {}`.
FakePresentation& ThePresentation();

}  // namespace korvel::test
