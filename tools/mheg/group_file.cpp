// Detects the form of the file, decodes the group, and turns errors into messages.
#include "mheg/group_file.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <utility>

#include "mheg/read_file.h"
#include "mheg/text_messages.h"
#include "objects/ber/ber.h"
#include "textual/textual.h"

namespace mheg {
namespace {

// Some editors write this mark at the start of a file. The notation does not allow it, so it is
// skipped.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsUtf16(std::string_view bytes) {
  return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

// Detects the form by the first byte: BER begins with a tag of at least 0x80. Text begins with such
// a byte only if it has a byte order mark.
GroupForm FormOf(std::string_view bytes) {
  constexpr unsigned char kFirstTag = 0x80;
  const bool hasTag = !bytes.empty() && static_cast<unsigned char>(bytes.front()) >= kFirstTag;
  return hasTag && !bytes.starts_with(kByteOrderMark) ? GroupForm::Ber : GroupForm::Text;
}

void ReadText(std::string bytes, GroupFile& file) {
  if (bytes.starts_with(kByteOrderMark)) bytes.erase(0, kByteOrderMark.size());
  korvel::TextReport report;
  (void)korvel::ReadTextGroup(bytes, file.group, report);
  // Messages quote at most the first byte that exceeds the maximum size.
  bytes.resize(std::min(bytes.size(), korvel::kMaxTextSize + 1));
  AddMessages(bytes, report, file);
  file.places = SourcePlaces(bytes, report.places);
  file.isComplete = report.missing.IsEmpty();
  file.text = std::move(bytes);
}

void ReadBer(std::string_view bytes, GroupFile& file) {
  korvel::DecodeError error;
  const std::span octets(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  if (korvel::DecodeGroup(octets, file.group, &error) == korvel::Status::Done) {
    return;
  }
  std::string text = "byte " + std::to_string(error.offset) + ": ";
  if (*error.owner != 0) text.append("in ").append(error.owner);
  if (*error.part != 0) text.append(" ").append(error.part);
  if (*error.owner != 0) text += ": ";
  file.messages.push_back({file.path, text + "expected " + error.expected});
  file.group.reset();
}

}  // namespace

GroupFile ReadGroupFile(const std::filesystem::path& path) {
  GroupFile file;
  file.path = path;
  std::string bytes;
  if (const char* reason = ReadBytes(path, bytes)) {
    file.messages.push_back({path, reason});
    return file;
  }
  if (IsUtf16(bytes)) {
    file.messages.push_back({path, "is text in UTF-16, expected UTF-8"});
    return file;
  }
  file.form = FormOf(bytes);
  file.form == GroupForm::Text ? ReadText(std::move(bytes), file) : ReadBer(bytes, file);
  return file;
}

}  // namespace mheg
