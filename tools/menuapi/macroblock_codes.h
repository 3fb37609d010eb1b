// The codes of what stands around the coefficients: ISO/IEC 13818-2, tables B.1, B.2 (intra
// pictures), B.10, B.12 and B.13.
#pragma once

#include "menuapi/code_table.h"

namespace menuapi {

// How many macroblocks on; 0 for the escape, which adds 33 to the code that follows.
inline constexpr int kIncrementEscape = 0;
inline constexpr int kIncrementOfEscape = 33;
[[nodiscard]] const CodeTable<int>& AddressIncrementCodes();

// Whether a new quantiser scale comes with the macroblock: 0 or 1.
[[nodiscard]] const CodeTable<int>& IntraTypeCodes();

// The size of a step of a vector, whose sign, unless it is 0, is the bit behind the code.
[[nodiscard]] const CodeTable<int>& MotionCodes();

// How many bits the difference of a DC coefficient has.
[[nodiscard]] const CodeTable<int>& LumaDcSizeCodes();
[[nodiscard]] const CodeTable<int>& ChromaDcSizeCodes();

}  // namespace menuapi
