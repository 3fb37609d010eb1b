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

// Traces a step of the run, its start or its end. Everything that the step causes is nested in it.
// `words` describes the step.
void TraceStep(std::string_view what, std::string_view words);

// Traces that the engine has requested a file; `file` is null if it does not exist.
void TraceFile(std::string_view path, const CarouselFile* file);
// Traces that the engine waits because a file is missing.
void TracePause(std::uint32_t milliseconds);
// Traces that the engine has set a timer.
void TraceTimer(std::uint32_t id, std::uint32_t periodMs);

}  // namespace mheg
