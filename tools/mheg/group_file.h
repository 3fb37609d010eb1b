// Reads a file with a group in either form. If that fails, the messages give the reasons.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "mheg/message.h"
#include "mheg/source_places.h"
#include "objects/ownership.h"

namespace mheg {

enum class GroupForm { Text, Ber };

struct GroupFile {
  std::filesystem::path path;
  GroupForm form = GroupForm::Text;
  korvel::OwnedGroup group;  // empty if the file could not be read
  Messages messages;         // errors, each with its position if known
  bool isComplete = true;    // no mandatory part is missing; always true for BER
  std::string text;          // without a byte order mark; empty for BER
  SourcePlaces places;       // empty for BER

  [[nodiscard]] bool IsGood() const { return group && isComplete; }
};

// Text may begin with a UTF-8 byte order mark.
[[nodiscard]] GroupFile ReadGroupFile(const std::filesystem::path& path);

}  // namespace mheg
