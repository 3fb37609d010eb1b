// Parses and compiles groups in the textual notation.
#include "support/text_content.h"

#include <gtest/gtest.h>

#include "objects/ber/ber.h"
#include "textual/textual.h"

namespace korvel {
namespace {

OwnedGroup Read(std::string_view text) {
  OwnedGroup group;
  TextReport report;
  EXPECT_EQ(ReadTextGroup(text, group, report), TextResult::Done);
  for (const TextError& error : report.errors) {
    ADD_FAILURE() << "expected " << error.expected << " before " << text.substr(error.offset, 40);
  }
  return group;
}

}  // namespace

OwnedGroup ParseText(std::string_view text) {
  OwnedGroup group = Read(text);
  if (group) {
    EXPECT_EQ(CompleteReferences(group->Reference.GroupIdentifier.View(), *group), Status::Done);
  }
  return group;
}

std::string CompileText(std::string_view text) {
  const OwnedGroup group = Read(text);
  OctetString bytes;
  if (group) {
    EXPECT_EQ(EncodeGroup(*group, bytes), Status::Done);
  }
  return std::string(bytes.View());
}

}  // namespace korvel
