// Both conversions write the output only if the whole input has been read and is valid.
#include "mheg/convert.h"

#include "mheg/group_file.h"
#include "mheg/write_file.h"
#include "objects/ber/ber.h"
#include "textual/textual.h"

namespace mheg {
namespace {

Outcome Failed(Outcome outcome, const std::filesystem::path& path, const std::string& reason) {
  outcome.messages.push_back({path, reason});
  outcome.isGood = false;
  return outcome;
}

Outcome Write(std::string_view bytes, const std::filesystem::path& output, Outcome outcome) {
  if (!WriteFile(output, bytes)) return Failed(std::move(outcome), output, "cannot be written");
  return outcome;
}

}  // namespace

Outcome CompileSource(const std::filesystem::path& input, CompiledGroup& compiled) {
  GroupFile file = ReadGroupFile(input);
  Outcome outcome{std::move(file.messages), file.IsGood()};
  if (!outcome.isGood) return outcome;
  if (file.form != GroupForm::Text) return Failed(std::move(outcome), input, "is not a text");
  korvel::OctetString bytes;
  if (korvel::EncodeGroup(*file.group, bytes) != korvel::Status::Done) {
    return Failed(std::move(outcome), input, "cannot be encoded: out of memory");
  }
  compiled = {std::string(bytes.View()), std::string(file.group->Reference.GroupIdentifier.View()),
              std::move(file.places)};
  return outcome;
}

Outcome Compile(const std::filesystem::path& input, const std::filesystem::path& output) {
  CompiledGroup compiled;
  Outcome outcome = CompileSource(input, compiled);
  if (!outcome.isGood) return outcome;
  return Write(compiled.bytes, output, std::move(outcome));
}

Outcome Decompile(const std::filesystem::path& input, const std::filesystem::path& output) {
  GroupFile file = ReadGroupFile(input);
  Outcome outcome{std::move(file.messages), file.IsGood()};
  if (!outcome.isGood) return outcome;
  if (file.form != GroupForm::Ber) return Failed(std::move(outcome), input, "is text already");
  korvel::OctetString text;
  korvel::WordlessValue wordless;
  if (korvel::WriteTextGroup(*file.group, text, &wordless) != korvel::Status::Done) {
    return Failed(std::move(outcome), input,
                  "object " + std::to_string(wordless.object) + ": the notation has no word for " +
                      wordless.keyword + " " + std::to_string(wordless.number));
  }
  if (text.Length() > korvel::kMaxTextSize) {
    outcome.messages.push_back({output, "longer than " + std::to_string(korvel::kMaxTextSize) +
                                            " bytes, which is the most that a text "
                                            "can have to be compiled again"});
  }
  return Write(text.View(), output, std::move(outcome));
}

}  // namespace mheg
