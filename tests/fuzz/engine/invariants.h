// What must hold for the engine's state at any time, whatever content does. A violation is reported
// to standard error and ends the process, as a sanitizer does.
#pragma once

namespace korvel::test {

// Ends the process with the rule, unless it holds.
void Require(bool holds, const char* rule);

// While actions run: every register refers to living groups only, and the display stack agrees with
// the visibles' own counts.
void CheckRegisters();

// While actions run: their lists and events do not nest deeper than the limit. Cheap.
void CheckNesting();

// Between two steps also: nothing is left on the call stack; only what is available runs; one
// interaction at most is in progress, of a running object; the timers are those of the platform;
// the index finds the same objects as a walk.
void CheckState();

}  // namespace korvel::test
