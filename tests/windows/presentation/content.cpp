// Builds BMP files, and converts them with GDI+.
#include "windows/presentation/content.h"

#include <fstream>
#include <iterator>

#include "presentation/i_frame.h"
#include "presentation/picture.h"
#include "support/number_bytes.h"

namespace korvel::test {

std::string BmpFile(int width, int height, const std::function<std::uint32_t(int, int)>& colourAt) {
  constexpr std::uint32_t kHeaderBytes = 54;
  const auto area = static_cast<std::uint32_t>(width * height);
  std::string bytes = "BM";
  for (const std::uint32_t number :
       {kHeaderBytes + area * 4, 0U, kHeaderBytes, 40U, static_cast<std::uint32_t>(width),
        static_cast<std::uint32_t>(-height), 0x00200001U, 0U, area * 4, 0U, 0U, 0U, 0U}) {
    bytes += Little(number, 4);
  }
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) bytes += Little(colourAt(x, y) | 0xFF000000, 4);
  }
  return bytes;
}

std::string Encoded(const std::string& bmp, const wchar_t* mimeType) {
  char folder[MAX_PATH] = {};
  GetTempPathA(MAX_PATH, folder);
  const std::string path = std::string(folder) + "korvel_presentation_test.picture";
  Picture picture;
  if (!ReadPicture(bmp, picture) || !SaveImage(picture.image, mimeType, path.c_str())) return {};
  std::string bytes = FileBytes(path);
  DeleteFileA(path.c_str());
  return bytes;
}

std::string FileBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace korvel::test
