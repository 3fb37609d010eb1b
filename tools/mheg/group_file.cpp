// Reads a group from a file. Messages give the position of each fault.
#include "mheg/group_file.h"

#include <array>
#include <fstream>
#include <span>
#include <string_view>
#include <system_error>

#include "objects/ber/ber.h"
#include "textual/textual.h"

namespace mheg {
namespace {

std::string AtPlace(const GroupFile& file, korvel::TextPlace place) {
  return file.path.string() + ":" + std::to_string(place.line) + ":" +
         std::to_string(place.column) + ": ";
}

// A message's part that names the construct with the fault; empty if it is unknown.
std::string In(const std::string& construct) {
  return construct.empty() ? "" : "in " + construct + ": ";
}

// Far more than a group needs, but small enough for many threads to hold one file each.
constexpr std::size_t kMaxFileSize = 128U << 20;

// Reads the whole file. Returns null, or the reason why the file cannot be used.
const char* ReadBytes(const std::filesystem::path& path, std::string& bytes) {
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) return "is a folder";
  std::ifstream stream(path, std::ios::binary);
  std::array<char, 16384> chunk;
  do {
    stream.read(chunk.data(), chunk.size());
    bytes.append(chunk.data(), static_cast<std::size_t>(stream.gcount()));
    if (bytes.size() > kMaxFileSize) return "is longer than 128 MiB";
  } while (stream);
  return stream.eof() ? nullptr : "cannot be read";
}

// Some editors write this mark before the text. The notation does not allow it, so it is skipped.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Detects the form from the first byte: BER begins with a tag, which is a byte that no text begins
// with except in a byte order mark.
GroupForm FormOf(std::string_view bytes) {
  constexpr unsigned char kFirstTag = 0x80;
  const bool hasTag = !bytes.empty() && static_cast<unsigned char>(bytes.front()) >= kFirstTag;
  return hasTag && !bytes.starts_with(kByteOrderMark) ? GroupForm::Ber : GroupForm::Text;
}

void ReadText(std::string_view text, GroupFile& file) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  korvel::TextError error;
  korvel::List<korvel::MissingPart> missing;
  korvel::List<korvel::SourcePlace> places;
  const korvel::TextResult result =
      korvel::ReadTextGroup(text, file.group, error, &missing, &places);
  if (result != korvel::TextResult::Done) {
    file.messages.push_back(AtPlace(file, error.place) + In(error.construct.data()) + "found " +
                            error.found.data() + ", expected " + error.expected.data());
    return;
  }
  file.places = SourcePlaces(text, places);
  for (const korvel::MissingPart& part : missing) {
    file.messages.push_back(AtPlace(file, korvel::PlaceInText(text, part.offset)) + part.owner +
                            " lacks " + part.missing);
  }
  file.isComplete = missing.IsEmpty();
}

void ReadBer(std::string_view bytes, GroupFile& file) {
  korvel::DecodeError error;
  const std::span octets(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  if (korvel::DecodeGroup(octets, file.group, &error) == korvel::Status::Done) {
    return;
  }
  const std::string part = *error.part == 0 ? "" : std::string(" ") + error.part;
  file.messages.push_back(file.path.string() + ": byte " + std::to_string(error.offset) + ": " +
                          In(error.owner + part) + "expected " + error.expected);
  file.group.reset();
}

}  // namespace

GroupFile ReadGroupFile(const std::filesystem::path& path) {
  GroupFile file;
  file.path = path;
  std::string bytes;
  if (const char* reason = ReadBytes(path, bytes)) {
    file.messages.push_back(path.string() + ": " + reason);
    return file;
  }
  file.form = FormOf(bytes);
  file.form == GroupForm::Text ? ReadText(bytes, file) : ReadBer(bytes, file);
  return file;
}

}  // namespace mheg
