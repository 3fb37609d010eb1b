// The objects that the 100 actions of a list address: ten objects, spread evenly over the numbers 1
// to `size`. They are as many at every size, so that the processor's caches hold them at every
// size.
#pragma once

namespace bench {

inline constexpr int kActions = 100;
inline constexpr int kTargets = 10;

// The target of the action at a place from 0 on.
constexpr int TargetAt(int place, int size) { return (place % kTargets + 1) * (size / kTargets); }

constexpr bool IsTarget(int number, int size) { return number % (size / kTargets) == 0; }

}  // namespace bench
