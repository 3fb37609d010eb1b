// The graph of carousels: applications, scenes, the transitions between them, and the files that
// they show.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace mheg {

enum class GraphForm : std::uint8_t { Dot, Svg };

// Prints the graph of these files and folders to a file or, if `output` is empty, to the standard
// output: in the language of Graphviz, or as the picture that its program dot draws. An edge is
// labelled with the keys and events that cause it. An event that actions cause, such as TestEvent,
// is traced back to the keys that cause those actions, within the group and its application.
// If a group cannot be read, dot is missing or the file cannot be written, reports that and returns
// false.
[[nodiscard]] bool PrintGraph(const std::vector<std::filesystem::path>& paths, GraphForm form,
                              const std::filesystem::path& output);

}  // namespace mheg
