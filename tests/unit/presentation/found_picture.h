// What is found of a picture file, as a decoder gets it.
#pragma once

#include <string>

#include "presentation/picture_file.h"

namespace korvel::test {

// "none" when no picture is found.
inline std::string Found(const std::string& file) {
  FilePieces pieces;
  if (!FindPicture(file, pieces)) return "none";
  std::string found;
  for (const std::string_view piece : pieces) found += piece;
  return found;
}

}  // namespace korvel::test
