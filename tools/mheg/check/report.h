// Prints the findings of a check.
#pragma once

#include <cstdint>

#include "mheg/check/finding.h"

namespace mheg {

// Text is for people, in the layout that editors recognise. JSON is an array with an object for
// each finding. SARIF 2.1.0 is for code hosting services.
enum class ReportForm : std::uint8_t { Text, Json, Sarif };

// The findings as messages with the level, the object and the rule. As in all forms, paths have "/"
// as separator on every platform.
[[nodiscard]] Messages MessagesOf(const Findings& findings);

// Prints the whole report on the standard output.
void PrintReport(const Findings& findings, ReportForm form);

}  // namespace mheg
