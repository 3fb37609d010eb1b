// A file with a group in either form, read and decoded, or the messages that say why it could not
// be.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "objects/ownership.h"

namespace mheg {

enum class GroupForm { Text, Ber };

struct GroupFile {
  std::filesystem::path path;
  GroupForm form = GroupForm::Text;
  korvel::OwnedGroup group;           // empty when the file could not be read
  std::vector<std::string> messages;  // each with the file and the place
  bool isComplete = true;             // nothing that an author must write is missing

  [[nodiscard]] bool IsGood() const { return group && isComplete; }
};

// Text may begin with a UTF-8 byte order mark.
[[nodiscard]] GroupFile ReadGroupFile(const std::filesystem::path& path);

}  // namespace mheg
