// The doorway of the dump: a group printed as an indented tree, to show the contents of a decoded
// file. The engine never prints one; tools and a debugger do. Nothing is allocated.
#pragma once

#include <cstdio>

#include "objects/group.h"

namespace korvel {

// Prints a group. Its first line begins with `depth` copies of "|   " and one "|---". The fields of
// its own class are on the same level, those of each base class one level deeper.
void DumpApplication(const Application& application, int depth, std::FILE* stream);
void DumpScene(const Scene& scene, int depth, std::FILE* stream);

}  // namespace korvel
