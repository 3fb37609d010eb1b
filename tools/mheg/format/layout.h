// The layout of a source file: line breaks, indentation and spaces. Words, values and comments, and
// their order, do not change.
#pragma once

#include <string>
#include <string_view>

namespace mheg {

// The maximum length of a line, in characters. An object or a list of actions that is longer gets a
// line for each attribute or action. A value is never divided, so a line may still be longer.
inline constexpr std::size_t kLineWidth = 100;

// Lays out source text as decompiling does: two spaces of indentation for each level, a line for
// each attribute, object and action. In addition:
// - An object or a list of actions that the author has written on one line stays on one line.
// - A list of values keeps its line breaks.
// - Comments stay on a line of their own, or at the end of their line.
// - Consecutive empty lines become one.
// Laying out the result again does not change it. The text must have no errors.
[[nodiscard]] std::string LayOut(std::string_view text);

}  // namespace mheg
