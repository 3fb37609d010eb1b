// Builds picture files for the tests.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "presentation/gdi_plus.h"

namespace korvel::test {

// An uncompressed BMP file of this size; `colourAt` returns 0xRRGGBB.
[[nodiscard]] std::string BmpFile(int width, int height,
                                  const std::function<std::uint32_t(int, int)>& colourAt);

// A valid PNG file of one colour, 0xRRGGBB. The file has only a few kilobytes at any picture size.
[[nodiscard]] std::string FlatPng(std::uint32_t width, std::uint32_t height, std::uint32_t colour);

// A chunk of a PNG file.
[[nodiscard]] std::string PngChunk(const std::string& name, const std::string& data);
// A file as from FlatPng, with these chunks between its header and its pixels.
[[nodiscard]] std::string FlatPngWith(std::uint32_t width, std::uint32_t height,
                                      std::uint32_t colour, const std::string& chunks);

// `count` zero bytes, compressed as in PNG and TIFF files.
[[nodiscard]] std::string ZlibOfZeros(std::uint64_t count);

// A GIF file of `frames` green frames of 1 x 1 on a screen of this size.
[[nodiscard]] std::string GifFile(int frames, std::uint16_t width = 1, std::uint16_t height = 1);

// Converts a BMP file to another format with GDI+'s own encoder ("image/png", "image/jpeg",
// "image/tiff").
[[nodiscard]] std::string Encoded(const std::string& bmp, const wchar_t* mimeType);

// The file's bytes; empty if it does not exist.
[[nodiscard]] std::string FileBytes(const std::string& path);

}  // namespace korvel::test
