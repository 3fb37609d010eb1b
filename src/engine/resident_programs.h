// The built-in programs that content calls by a three-letter name, for the dispatcher that finds
// them, reads their parameters and writes their results. A program sees values only, each at its
// place in the program's signature.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "objects/values.h"

namespace korvel {

inline constexpr std::size_t kMostProgramParameters = 6;

// The inputs, read, and the outputs, to be filled in. Only the field of the kind that the signature
// names counts.
using ProgramValues = std::array<GenericValue, kMostProgramParameters>;

// What programs keep between calls.
struct ProgramSettings {
  std::int32_t TuneInfo = 0;
  std::int32_t WidescreenAlignment = 1;
  bool SubtitleMode = false;
};

// Each returns false when memory is out.

// ---- date_programs.cpp ----
[[nodiscard]] bool GetCurrentDate(ProgramValues& values) noexcept;
[[nodiscard]] bool FormatDate(ProgramValues& values) noexcept;
[[nodiscard]] bool GetDayOfWeek(ProgramValues& values) noexcept;

// ---- text_programs.cpp ----
[[nodiscard]] bool GetStringLength(ProgramValues& values) noexcept;
[[nodiscard]] bool GetSubstring(ProgramValues& values) noexcept;
[[nodiscard]] bool SearchSubstring(ProgramValues& values) noexcept;
[[nodiscard]] bool SearchAndExtractSubstring(ProgramValues& values) noexcept;
[[nodiscard]] bool CastToContentReference(ProgramValues& values) noexcept;
[[nodiscard]] bool CastToObjectReference(ProgramValues& values) noexcept;

// ---- service_programs.cpp ----
[[nodiscard]] bool GetServiceIndex(ProgramValues& values) noexcept;
[[nodiscard]] bool GetBasicServiceInformation(ProgramValues& values) noexcept;
[[nodiscard]] bool TuneToIndex(ProgramValues& values) noexcept;
[[nodiscard]] bool SetTuneInfo(ProgramValues& values) noexcept;

// ---- receiver_programs.cpp ----
[[nodiscard]] bool GetRandomNumber(ProgramValues& values) noexcept;
[[nodiscard]] bool GetBootInfo(ProgramValues& values) noexcept;
[[nodiscard]] bool CheckContentReference(ProgramValues& values) noexcept;
[[nodiscard]] bool CheckGroupReference(ProgramValues& values) noexcept;
[[nodiscard]] bool SetWidescreenAlignment(ProgramValues& values) noexcept;
[[nodiscard]] bool GetDisplayAspectRatio(ProgramValues& values) noexcept;
[[nodiscard]] bool SetSubtitleMode(ProgramValues& values) noexcept;
[[nodiscard]] bool WhoAmI(ProgramValues& values) noexcept;
[[nodiscard]] bool DoNothing(ProgramValues& values) noexcept;

}  // namespace korvel
