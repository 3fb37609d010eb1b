// Picture files before they are decoded: their kind, the size they claim, and the pieces that make
// up the picture. What else a file may hold (texts, profiles, more frames) is never seen anyway and
// can take a decoder any time, so it is not handed on. Portable.
#pragma once

#include <cstdint>
#include <string_view>

#include "objects/sequence.h"

namespace korvel {

// Parts of a file that follow each other in what the decoder gets. They borrow from the file.
using FilePieces = Sequence<std::string_view>;

// Finds the pieces of a PNG, GIF, JPEG, BMP, TIFF or ICO file. Of a PNG, GIF or JPEG file that is
// cut short those that are there. False for any other file, when decoding and painting it could
// take more than `mostNs` nanoseconds of processor time, and when memory is out.
[[nodiscard]] bool FindPicture(std::string_view file, std::uint64_t mostNs,
                               FilePieces& pieces) noexcept;

// The same for a file of a certain kind, which is known by the signature that it begins with.
using PictureFinder = bool(std::string_view file, std::uint64_t mostNs,
                           FilePieces& pieces) noexcept;
[[nodiscard]] PictureFinder FindPngPicture;
[[nodiscard]] PictureFinder FindGifPicture;
[[nodiscard]] PictureFinder FindJpegPicture;
[[nodiscard]] PictureFinder FindBmpPicture;
[[nodiscard]] PictureFinder FindTiffPicture;
[[nodiscard]] PictureFinder FindIcoPicture;

// An ICO file may hold a whole PNG file.
inline constexpr std::string_view kPngSignature = "\x89PNG\r\n\x1A\n";

}  // namespace korvel
