// The codes of a macroblock other than those of AC coefficients: ISO/IEC 13818-2, tables B.1, B.2
// (intra pictures), B.10, B.12 and B.13.
#pragma once

#include "menuapi/code_table.h"

namespace menuapi {

// The distance to the next macroblock; 0 is the escape, which adds 33 to the code that follows.
inline constexpr int kIncrementEscape = 0;
inline constexpr int kIncrementOfEscape = 33;
[[nodiscard]] const CodeTable<int>& AddressIncrementCodes();

// 1 if the macroblock sets a new quantiser scale, otherwise 0.
[[nodiscard]] const CodeTable<int>& IntraTypeCodes();

// The magnitude of a vector component. Unless it is 0, the bit after the code is its sign.
[[nodiscard]] const CodeTable<int>& MotionCodes();

// The number of bits in the difference of a DC coefficient.
[[nodiscard]] const CodeTable<int>& LumaDcSizeCodes();
[[nodiscard]] const CodeTable<int>& ChromaDcSizeCodes();

}  // namespace menuapi
