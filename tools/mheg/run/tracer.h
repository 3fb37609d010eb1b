// The trace of a run: one line for each event, link, action and consequence, nested by indentation,
// with the reason if something is skipped. The core reports to it through its observer; the
// functions here report the rest. Nothing is printed unless a trace was started.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "mheg/carousel_files.h"
#include "mheg/run/trace_line.h"
#include "objects/group.h"

namespace mheg {

void StartTrace(TraceForm form);
[[nodiscard]] bool IsTracing();

// A step of the run, the start or the end: everything that it causes is nested in it. `words` says
// what it is.
void TraceStep(std::string_view what, std::string_view words);

// The engine has asked for a file, which is null if there is none.
void TraceFile(std::string_view path, const CarouselFile* file);
// The engine waits, because a file is missing.
void TracePause(std::uint32_t milliseconds);
void TraceTimer(std::uint32_t id, std::uint32_t periodMs);

}  // namespace mheg
