// Picture files as bytes, made by the tests themselves.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "presentation/gdi_plus.h"

namespace korvel::test {

// An uncompressed picture (BMP) of that size; `colourAt` gives 0xRRGGBB.
[[nodiscard]] std::string BmpFile(int width, int height,
                                  const std::function<std::uint32_t(int, int)>& colourAt);

// The same as a file of another kind, by GDI+'s own encoder ("image/png", "image/jpeg").
[[nodiscard]] std::string Encoded(const std::string& bmp, const wchar_t* mimeType);

// The whole file; empty when it is not there.
[[nodiscard]] std::string FileBytes(const std::string& path);

}  // namespace korvel::test
