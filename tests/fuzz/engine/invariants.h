// Rules that the engine's state must obey whatever content does. A violation is reported to
// standard error and ends the process, as a sanitizer does.
#pragma once

namespace korvel::test {

// Reports `rule` and ends the process, unless `holds` is true.
void Require(bool holds, const char* rule);

// May be called while actions run. The link table, the display stack and the class variables refer
// only to running groups, and the display stack agrees with the visibles' own counts.
void CheckRegisters();

// May be called while actions run, and is cheap: lists and events do not nest deeper than the
// limit.
void CheckNesting();

// For use between two steps. Also checks that no action or event is in progress, only available
// objects run, at most one interaction is in progress and its object runs, the timers agree with
// those of the platform, and the index finds the same objects as a search of all items.
void CheckState();

}  // namespace korvel::test
