// The expectations of a script, each of which compares the state of the content:
//   scene NAME, application NAME       the current one; "none" if there is none
//   variable [GROUP] N VALUE           its value in the notation; quotes may be omitted
//   text [GROUP] N TEXT                the text that a Text, EntryField or HyperText shows
//   running [GROUP] N, stopped [GROUP] N, available [GROUP] N
//   position [GROUP] N X Y
//   list [GROUP] N FIRST [ITEM ...]    the first item that a list group shows, and the numbers of
//                                      its items, with a * after those that are selected
//   silence                            the engine has printed no message
// Without a group, N is an object of the current scene or, if the scene has no object of that
// number, of the application.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace mheg {

// Whether the words have one of these forms. Otherwise describes the forms in `problem`.
[[nodiscard]] bool IsExpectation(const std::vector<std::string>& words, std::string& problem);

// Empty if the running content meets the expectation; otherwise its actual state. The words must be
// an expectation.
[[nodiscard]] std::optional<std::string> FindDifference(const std::vector<std::string>& words);

}  // namespace mheg
