// The objects that the 100 actions of a list address: ten at every size, so that the
// processor's caches hold them, spread evenly over the numbers 1 to `size`.
#pragma once

namespace bench {

inline constexpr int kActions = 100;
inline constexpr int kTargets = 10;

// The target of the action with this index.
constexpr int TargetAt(int index, int size) { return (index % kTargets + 1) * (size / kTargets); }

constexpr bool IsTarget(int number, int size) { return number % (size / kTargets) == 0; }

}  // namespace bench
