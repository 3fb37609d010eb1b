// What is found of a picture file, as a decoder gets it.
#pragma once

#include <string>

#include "presentation/picture_file.h"
#include "presentation/picture_limits.h"

namespace korvel::test {

// "none" when no picture is found.
inline std::string Found(const std::string& file, std::uint64_t mostNs = kLongestPicturesNs) {
  FilePieces pieces;
  if (!FindPicture(file, mostNs, pieces)) return "none";
  std::string found;
  for (const std::string_view piece : pieces) found += piece;
  return found;
}

}  // namespace korvel::test
