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

// A valid PNG file of one colour, 0xRRGGBB: a few kilobytes, whatever its size.
[[nodiscard]] std::string FlatPng(std::uint32_t width, std::uint32_t height, std::uint32_t colour);

// A chunk of a PNG file.
[[nodiscard]] std::string PngChunk(const std::string& name, const std::string& data);
// A file like that with these chunks between its header and its picture.
[[nodiscard]] std::string FlatPngWith(std::uint32_t width, std::uint32_t height,
                                      std::uint32_t colour, const std::string& chunks);

// So many zero bytes, compressed as in PNG and TIFF files.
[[nodiscard]] std::string ZlibOfZeros(std::uint64_t count);

// A GIF file of so many green frames of 1 x 1 on a screen of that size.
[[nodiscard]] std::string GifFile(int frames, std::uint16_t width = 1, std::uint16_t height = 1);

// A BMP file as a file of another kind, by GDI+'s own encoder ("image/png", "image/jpeg",
// "image/tiff").
[[nodiscard]] std::string Encoded(const std::string& bmp, const wchar_t* mimeType);

// The whole file; empty when it is not there.
[[nodiscard]] std::string FileBytes(const std::string& path);

}  // namespace korvel::test
