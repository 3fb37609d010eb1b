// The file of content that is drawn: its path, and the size that its header claims. Sizes are read
// before anything is decoded, because a decoder allocates whatever a file claims. Portable.
#pragma once

#include <cstdint>
#include <string_view>

#include "appearance/yuv.h"
#include "objects/limits.h"
#include "objects/octet_string.h"
#include "objects/values.h"

namespace korvel {

// The path of the file that a content reference names: everything up to and including the first '/'
// is removed ("~/", "DSM:/"), and the other '/' become '\'. Unlike the names of groups, it does not
// depend on the current directory. False if memory runs out.
[[nodiscard]] bool ContentPath(std::string_view reference, OctetString& path);

// The bytes of a picture: included content is borrowed from the object, referenced content is read
// into `file`. False if there are none.
[[nodiscard]] bool ReadPictureContent(const ContentBody& content, OctetString& file,
                                      std::string_view& bytes);

// Whether a picture of that size, in pixels, is decoded. Accepts any 32-bit sides.
[[nodiscard]] constexpr bool IsDecodableSize(std::uint64_t width, std::uint64_t height) {
  return width > 0 && height > 0 && width * height <= kMostPicturePixels;
}

// Whether GDI+ may decode a file: it is not too long, and if it is a PNG, GIF, BMP or JPEG file,
// the size in its header and the number of a JPEG's scans are within the limits. Files of other
// formats are not examined. Under Wine GDI+ decodes a picture as soon as it loads it, so the size
// must be known first.
[[nodiscard]] bool MayBeDecoded(std::string_view file);

// Reads the frame size in the sequence header at the start of an MPEG-2 stream. False, with `size`
// unchanged, if the stream does not start with one, if the stream or the frame exceeds the limits
// on pictures, or if an extension adds to the size: the decoder reads the size again, and would
// write a larger frame than the header says.
[[nodiscard]] bool FindFrameSize(std::string_view stream, FrameSize& size);

}  // namespace korvel
