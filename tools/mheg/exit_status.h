// The exit statuses of the tool; 0 is a run in which everything was good.
#pragma once

namespace mheg {

inline constexpr int kBadInput = 1;  // a file cannot be read or written, is no group, or has faults
inline constexpr int kWrongUse = 2;  // wrong arguments

}  // namespace mheg
