// Reads a file with a group in either form. If that fails, the messages give the reasons.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "mheg/source_places.h"
#include "objects/ownership.h"

namespace mheg {

enum class GroupForm { Text, Ber };

struct GroupFile {
  std::filesystem::path path;
  GroupForm form = GroupForm::Text;
  korvel::OwnedGroup group;           // empty if the file could not be read
  std::vector<std::string> messages;  // each with the file and, if known, the position
  bool isComplete = true;             // no mandatory attribute is missing
  SourcePlaces places;                // of a text

  [[nodiscard]] bool IsGood() const { return group && isComplete; }
};

// Text may begin with a UTF-8 byte order mark.
[[nodiscard]] GroupFile ReadGroupFile(const std::filesystem::path& path);

}  // namespace mheg
