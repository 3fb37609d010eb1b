// The built-in programs that content calls by a three-letter name. A dispatcher reads their
// parameters and writes their results to variables; a program itself only sees an array of values,
// in the order of its signature.
#pragma once

#include <array>
#include <cstdint>

#include "objects/program_table.h"
#include "objects/values.h"

namespace korvel {

// The inputs, and the outputs for the program to fill in. Only the field of the kind in the
// signature is used.
using ProgramValues = std::array<GenericValue, kMostProgramParameters>;

// The settings that programs keep between calls.
struct ProgramSettings {
  std::int32_t tuneInfo = 0;
  std::int32_t widescreenAlignment = 1;
  bool subtitleMode = false;
};

// Each returns false if memory runs out.

// ---- date_programs.cpp ----
[[nodiscard]] bool GetCurrentDate(ProgramValues& values);
[[nodiscard]] bool FormatDate(ProgramValues& values);
[[nodiscard]] bool GetDayOfWeek(ProgramValues& values);

// ---- text_programs.cpp ----
[[nodiscard]] bool GetStringLength(ProgramValues& values);
[[nodiscard]] bool GetSubstring(ProgramValues& values);
[[nodiscard]] bool SearchSubstring(ProgramValues& values);
[[nodiscard]] bool SearchAndExtractSubstring(ProgramValues& values);
[[nodiscard]] bool CastToContentReference(ProgramValues& values);
[[nodiscard]] bool CastToObjectReference(ProgramValues& values);

// ---- receiver_programs.cpp ----
[[nodiscard]] bool GetRandomNumber(ProgramValues& values);
[[nodiscard]] bool GetBootInfo(ProgramValues& values);
[[nodiscard]] bool CheckContentReference(ProgramValues& values);
[[nodiscard]] bool CheckGroupReference(ProgramValues& values);
[[nodiscard]] bool SetWidescreenAlignment(ProgramValues& values);
[[nodiscard]] bool GetDisplayAspectRatio(ProgramValues& values);
[[nodiscard]] bool SetSubtitleMode(ProgramValues& values);
[[nodiscard]] bool WhoAmI(ProgramValues& values);
[[nodiscard]] bool GetServiceIndex(ProgramValues& values);
[[nodiscard]] bool GetBasicServiceInformation(ProgramValues& values);
[[nodiscard]] bool TuneToIndex(ProgramValues& values);
[[nodiscard]] bool SetTuneInfo(ProgramValues& values);
[[nodiscard]] bool DoNothing(ProgramValues& values);

}  // namespace korvel
