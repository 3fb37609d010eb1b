// A series of pictures of a run, for documents: numbered PNG files, one after each change, and a
// list of them with their durations, from which ffmpeg makes an animation.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "player/screenshot.h"

namespace player {

class PictureSeries {
 public:
  // The series begins at `start`. Times are in milliseconds.
  PictureSeries(std::filesystem::path folder, std::uint64_t start);

  // Whether a new picture may be added: at most 25 a second.
  [[nodiscard]] bool IsDue(std::uint64_t now) const { return now >= nextTime_; }

  // Writes the picture as 0001.png and so on, unless it is the same as the last one.
  void Add(Picture&& picture, std::uint64_t now);

  // Writes the list, series.ffconcat. Returns false if a file of the series could not be written.
  [[nodiscard]] bool End(std::uint64_t now);

 private:
  void EndPicture(std::uint64_t now);

  PictureWriter writer_;
  std::filesystem::path folder_;
  Picture last_;
  std::string name_;  // of the last picture
  std::uint64_t shownSince_;
  std::uint64_t nextTime_;
  unsigned count_ = 0;
  bool isWritten_ = true;
  std::string list_ = "ffconcat version 1.0\n";
};

}  // namespace player
