// Reads groups from text and prints them, for the tests of the dump.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "dump/dump.h"
#include "objects/ownership.h"
#include "textual/textual.h"

namespace korvel {

// Returns the text that print(stream) writes.
template <class Print> std::string Printed(Print&& print) {
  std::FILE* stream = std::tmpfile();
  print(stream);
  std::string text;
  std::rewind(stream);
  for (int c = std::fgetc(stream); c != EOF; c = std::fgetc(stream)) text += static_cast<char>(c);
  std::fclose(stream);
  return text;
}

// Reads the group without completing its references.
inline OwnedGroup Read(const std::string& text) {
  OwnedGroup group;
  EXPECT_EQ(ReadTextGroup(text, group), TextResult::Done) << text;
  return group;
}

inline std::string DumpOf(const OwnedGroup& group) {
  return Printed([&group](std::FILE* stream) {
    if (IsApplication(group)) {
      DumpApplication(AsApplication(group), 0, stream);
    } else {
      DumpScene(AsScene(group), 0, stream);
    }
  });
}

}  // namespace korvel
