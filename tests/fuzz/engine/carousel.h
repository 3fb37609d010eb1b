// The carousels that the engine's fuzzer plays: a demo or a picture test of this repository with
// changed records, or groups that are generated as a whole.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "choices.h"

namespace korvel::test {

// Compiles the carousels of the demos and the picture tests. Must be called before MakeCarousel.
void LoadSeeds();

// The bytes of a group in the textual notation, which must be correct.
std::string CompileGroup(std::string_view text);

// Makes a carousel, and adds its objects to those that `choices` knows. Returns the files by name.
std::map<std::string, std::string> MakeCarousel(Choices& choices);

// Adds a group and its objects to those that `choices` knows.
void AddKnown(const Group& group, Choices& choices);

}  // namespace korvel::test
