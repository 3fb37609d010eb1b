// Turns the errors in source text and its missing parts into messages for the author.
#pragma once

#include <string_view>

#include "mheg/group_file.h"

namespace mheg {

// Adds the messages of a report to the file's, in the order of the text.
void AddMessages(std::string_view text, const korvel::TextReport& report, GroupFile& file);

}  // namespace mheg
