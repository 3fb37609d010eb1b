// Between writing and holding there is a moment in which another engine may write: what is held is
// compared with what was written, and whoever comes too late writes again.
#include "presentation/temporary_stream.h"

#include <array>
#include <cstdio>
#include <limits>
#include <utility>

#include "presentation/painting_time.h"

namespace korvel {

namespace {

// The number in the temporary file's name is never raised: each stream rewrites the same file.
constexpr int kTemporaryFileNumber = 0;
constexpr int kFolderBytes = 255;

std::array<char, kFolderBytes + 64> temporaryPath;  // empty when there is no folder

enum class Outcome { Done, InUse, Failed };

Outcome OutcomeOfLastError() noexcept {
  const DWORD error = GetLastError();
  const bool isInUse = error == ERROR_SHARING_VIOLATION || error == ERROR_USER_MAPPED_FILE;
  return isInUse ? Outcome::InUse : Outcome::Failed;
}

[[nodiscard]] Outcome WriteAnew(std::string_view bytes) noexcept {
  if (bytes.size() > std::numeric_limits<DWORD>::max()) return Outcome::Failed;
  HANDLE file = CreateFileA(temporaryPath.data(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                            nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return OutcomeOfLastError();
  const auto size = static_cast<DWORD>(bytes.size());
  DWORD written = 0;
  const bool isWritten = WriteFile(file, bytes.data(), size, &written, nullptr) != FALSE;
  CloseHandle(file);  // a decoder that shares with readers only must not meet a writer
  return isWritten && written == size ? Outcome::Done : Outcome::Failed;
}

[[nodiscard]] Outcome WriteAndHold(std::string_view stream, HeldFile& file) noexcept {
  const Outcome outcome = WriteAnew(stream);
  if (outcome != Outcome::Done) return outcome;
  if (!file.Hold(temporaryPath.data())) return OutcomeOfLastError();
  OctetString held;
  if (!file.Read(held)) return Outcome::Failed;
  if (held.View() == stream) return Outcome::Done;
  file.Release();
  return Outcome::InUse;
}

}  // namespace

bool HeldFile::Hold(const char* path) noexcept {
  Release();
  file_ = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                      FILE_ATTRIBUTE_NORMAL, nullptr);
  return file_ != INVALID_HANDLE_VALUE;
}

void HeldFile::Release() noexcept {
  HANDLE file = std::exchange(file_, INVALID_HANDLE_VALUE);
  if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
}

bool HeldFile::Read(OctetString& bytes) const noexcept {
  LARGE_INTEGER size{};
  if (GetFileSizeEx(file_, &size) == FALSE || size.QuadPart > std::numeric_limits<DWORD>::max() ||
      !bytes.AssignZeros(static_cast<std::size_t>(size.QuadPart))) {
    return false;
  }
  DWORD read = 0;
  return ReadFile(file_, bytes.MutableBytes(), static_cast<DWORD>(size.QuadPart), &read, nullptr) !=
             FALSE &&
         read == bytes.Length();
}

void FindTemporaryFolder() noexcept {
  std::array<char, kFolderBytes> folder{};
  const DWORD length = GetTempPathA(kFolderBytes, folder.data());
  temporaryPath = {};
  if (length == 0 || length >= folder.size()) return;
  std::snprintf(temporaryPath.data(), temporaryPath.size(), "%s\\mheg_bmp_tmpfile%03d.m2v",
                folder.data(), kTemporaryFileNumber);
}

const char* HoldTemporaryStream(std::string_view stream, HeldFile& file) noexcept {
  if (temporaryPath.front() == '\0') return nullptr;
  for (;;) {
    const Outcome outcome = WriteAndHold(stream, file);
    if (outcome == Outcome::Done) return temporaryPath.data();
    if (outcome == Outcome::Failed || !WaitAMoment()) return nullptr;
  }
}

}  // namespace korvel
