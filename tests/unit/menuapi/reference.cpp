// Runs ffmpeg on numbered files: it writes the streams s0, s1, ..., reads the streams i0, i1, ...
// and writes the frames o0, o1, ...
#include "unit/menuapi/reference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace menuapi::test {

namespace fs = std::filesystem;

namespace {

std::string Number(std::size_t number) { return std::to_string(number); }

// Counts the differences between two planes. The plane of the reference may be wider.
void ComparePlane(const std::uint8_t* reference, int referenceWidth, const std::uint8_t* plane,
                  int width, int height, Difference& difference) {
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int distance = std::abs(reference[y * referenceWidth + x] - plane[y * width + x]);
      difference.largest = std::max(difference.largest, distance);
      if (distance > 0) ++difference.count;
    }
  }
}

}  // namespace

Reference::Reference() {
  std::string name = (fs::temp_directory_path() / "menuapi-test-XXXXXX").string();
  folder_ = mkdtemp(name.data());
}

Reference::~Reference() { fs::remove_all(folder_); }

std::vector<Bytes> Reference::Encode(const std::string& source,
                                     const std::vector<std::string>& options) const {
  std::string arguments = "-f lavfi -i \"" + source + "\"";
  for (std::size_t index = 0; index < options.size(); ++index) {
    const std::string codec =
        options[index].find("-c:v") == std::string::npos ? " -c:v mpeg2video -f mpeg2video" : "";
    arguments += " -frames:v 1 -g 1 -bf 0 -pix_fmt yuv420p" + codec + " " + options[index] + " s" +
                 Number(index);
  }
  Run(arguments);
  std::vector<Bytes> streams;
  for (std::size_t index = 0; index < options.size(); ++index) {
    streams.push_back(Load("s" + Number(index)));
  }
  return streams;
}

Bytes Reference::Encode(const std::string& source, const std::string& options) const {
  return Encode(source, std::vector<std::string>{options}).front();
}

std::vector<Bytes> Reference::Decode(const std::vector<Bytes>& streams) const {
  std::string inputs;
  std::string outputs;
  for (std::size_t index = 0; index < streams.size(); ++index) {
    std::ofstream(folder_ / ("i" + Number(index)), std::ios::binary)
        .write(reinterpret_cast<const char*>(streams[index].data()),
               static_cast<std::streamsize>(streams[index].size()));
    inputs += " -idct faani -f mpegvideo -i i" + Number(index);
    outputs +=
        " -map " + Number(index) + " -frames:v 1 -pix_fmt yuv420p -f rawvideo o" + Number(index);
  }
  Run(inputs + outputs);
  std::vector<Bytes> planes;
  for (std::size_t index = 0; index < streams.size(); ++index) {
    planes.push_back(Load("o" + Number(index)));
  }
  return planes;
}

Bytes Reference::Decode(const Bytes& stream) const {
  return Decode(std::vector<Bytes>{stream}).front();
}

void Reference::Run(const std::string& arguments) const {
  const std::string command =
      "cd '" + folder_.string() + "' && ffmpeg -nostdin -v error -y " + arguments;
  EXPECT_EQ(std::system(command.c_str()), 0) << command;
}

Bytes Reference::Load(const std::string& name) const {
  std::ifstream file(folder_ / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

Difference Compare(FrameSize size, const Bytes& reference, std::span<const std::uint8_t> planes) {
  const int chromaWidth = (size.width + 1) / 2;
  const int chromaHeight = (size.height + 1) / 2;
  const auto luma = static_cast<std::size_t>(size.width * size.height);
  const auto chroma = static_cast<std::size_t>(chromaWidth * chromaHeight);
  Difference difference;
  EXPECT_EQ(reference.size(), luma + 2 * chroma);
  if (reference.size() != luma + 2 * chroma) return difference;
  ComparePlane(reference.data(), size.width, planes.data(), size.width, size.height, difference);
  const std::size_t ourChroma = (planes.size() - luma) / 2;
  for (std::size_t plane = 0; plane < 2; ++plane) {
    ComparePlane(reference.data() + luma + plane * chroma, chromaWidth,
                 planes.data() + luma + plane * ourChroma, size.width / 2, size.height / 2,
                 difference);
  }
  return difference;
}

}  // namespace menuapi::test
