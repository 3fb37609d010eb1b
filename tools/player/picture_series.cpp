// The list is in the format of ffmpeg's concat demuxer, which ignores the duration of the last
// picture, so that picture is listed twice.
#include "player/picture_series.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <system_error>
#include <utility>

namespace player {
namespace {

constexpr std::uint64_t kShortestDurationMs = 40;
constexpr std::uint64_t kMsPerSecond = 1000;

}  // namespace

PictureSeries::PictureSeries(std::filesystem::path folder, std::uint64_t start)
    : folder_(std::move(folder)), shownSince_(start), nextTime_(start) {
  std::error_code ignored;  // writing the first picture then fails
  std::filesystem::create_directories(folder_, ignored);
}

void PictureSeries::Add(Picture&& picture, std::uint64_t now) {
  nextTime_ = now + kShortestDurationMs;
  if (picture == last_) return;
  EndPicture(now);
  last_ = std::move(picture);
  shownSince_ = now;
  std::array<char, 16> name{};
  std::snprintf(name.data(), name.size(), "%04u.png", ++count_);
  name_ = name.data();
  isWritten_ = writer_.Write(last_, folder_ / name_) && isWritten_;
}

void PictureSeries::EndPicture(std::uint64_t now) {
  if (count_ == 0) return;
  std::array<char, 64> duration{};
  const std::uint64_t shown = now - shownSince_;
  std::snprintf(duration.data(), duration.size(), "%u.%03u",
                static_cast<unsigned>(shown / kMsPerSecond),
                static_cast<unsigned>(shown % kMsPerSecond));
  list_ += "file " + name_ + "\nduration " + duration.data() + "\n";
}

bool PictureSeries::End(std::uint64_t now) {
  EndPicture(now);
  if (count_ > 0) list_ += "file " + name_ + "\n";
  std::ofstream stream(folder_ / "series.ffconcat", std::ios::binary);
  stream << list_;
  stream.close();
  return stream && isWritten_;
}

}  // namespace player
