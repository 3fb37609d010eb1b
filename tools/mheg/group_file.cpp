// Reading a group from a file, with messages that lead to the place of a fault.
#include "mheg/group_file.h"

#include <fstream>
#include <iterator>
#include <span>

#include "objects/ber/ber.h"
#include "textual/textual.h"

namespace mheg {
namespace {

std::string AtPlace(const GroupFile& file, korvel::TextPlace place) {
  return file.path.string() + ":" + std::to_string(place.line) + ":" +
         std::to_string(place.column) + ": ";
}

// The construct that a fault stands in, where that is known.
std::string In(const std::string& construct) {
  return construct.empty() ? "" : "in " + construct + ": ";
}

void ReadText(GroupFile& file) {
  bool isApplication = false;
  korvel::TextError error;
  korvel::List<korvel::MissingPart> missing;
  const korvel::TextResult result =
      korvel::ReadTextGroup(file.bytes, file.group, isApplication, &error, &missing);
  if (result != korvel::TextResult::Done) {
    file.messages.push_back(AtPlace(file, error.place) + In(error.construct.data()) + "found " +
                            error.found.data() + ", expected " + error.expected.data());
    return;
  }
  for (const korvel::MissingPart& part : missing) {
    file.messages.push_back(AtPlace(file, korvel::PlaceInText(file.bytes, part.offset)) +
                            part.owner + " lacks " + part.missing);
  }
  file.isComplete = missing.IsEmpty();
}

void ReadBer(GroupFile& file) {
  bool isApplication = false;
  korvel::DecodeError error;
  const std::span bytes(reinterpret_cast<const std::uint8_t*>(file.bytes.data()),
                        file.bytes.size());
  if (korvel::DecodeGroup(bytes, file.group, isApplication, &error) == korvel::Status::Done) {
    return;
  }
  const std::string part = *error.part == 0 ? "" : std::string(" ") + error.part;
  file.messages.push_back(file.path.string() + ": byte " + std::to_string(error.offset) + ": " +
                          In(error.owner + part) + "expected " + error.expected);
  file.group.Reset();
}

}  // namespace

GroupForm FormOf(std::string_view bytes) {
  constexpr unsigned char kFirstTag = 0x80;
  const bool isBer = !bytes.empty() && static_cast<unsigned char>(bytes.front()) >= kFirstTag;
  return isBer ? GroupForm::Ber : GroupForm::Text;
}

GroupFile ReadGroupFile(const std::filesystem::path& path) {
  GroupFile file;
  file.path = path;
  std::ifstream stream(path, std::ios::binary);
  file.bytes.assign(std::istreambuf_iterator<char>(stream), {});
  if (!stream) {
    file.messages.push_back(path.string() + ": cannot be read");
    return file;
  }
  file.form = FormOf(file.bytes);
  file.form == GroupForm::Text ? ReadText(file) : ReadBer(file);
  return file;
}

}  // namespace mheg
