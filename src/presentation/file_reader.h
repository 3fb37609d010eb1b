// The one reader of picture files: nothing else touches their bytes. Beyond the end everything is
// zero, so that a file that is cut short claims a size of zero at worst.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace korvel {

class FileReader {
 public:
  explicit FileReader(std::string_view file) noexcept : file_(file) {}

  [[nodiscard]] bool IsAtEnd() const noexcept { return at_ == file_.size(); }
  [[nodiscard]] std::size_t At() const noexcept { return at_; }

  // What was read since a place.
  [[nodiscard]] std::string_view Since(std::size_t start) const noexcept {
    return file_.substr(start, at_ - start);
  }

  void Skip(std::size_t count) noexcept { at_ += std::min(count, file_.size() - at_); }

  [[nodiscard]] std::uint32_t Byte() noexcept {
    return IsAtEnd() ? 0 : static_cast<std::uint8_t>(file_[at_++]);
  }
  [[nodiscard]] std::uint32_t Big16() noexcept {
    const std::uint32_t high = Byte();
    return high << 8 | Byte();
  }
  [[nodiscard]] std::uint32_t Big32() noexcept {
    const std::uint32_t high = Big16();
    return high << 16 | Big16();
  }
  [[nodiscard]] std::uint32_t Little16() noexcept {
    const std::uint32_t low = Byte();
    return low | Byte() << 8;
  }
  [[nodiscard]] std::uint32_t Little32() noexcept {
    const std::uint32_t low = Little16();
    return low | Little16() << 16;
  }

  // Goes on to the byte after the next one of this value.
  void SkipPast(char value) noexcept {
    const std::size_t found = file_.find(value, at_);
    at_ = found == std::string_view::npos ? file_.size() : found + 1;
  }

 private:
  std::string_view file_;
  std::size_t at_ = 0;
};

}  // namespace korvel
