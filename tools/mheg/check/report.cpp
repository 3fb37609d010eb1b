// Prints findings as text, JSON or SARIF. docs/checks.md describes these forms.
#include "mheg/check/report.h"

#include <cstdio>

#include "mheg/json.h"
#include "mheg/path_text.h"

namespace mheg {
namespace {

std::string TextOf(const Finding& finding) {
  if (!finding.object) return finding.message.text;
  return "object " + std::to_string(*finding.object) + ": " + finding.message.text;
}

std::string NumberOrNothing(std::uint32_t number) {
  return number == 0 ? "" : std::to_string(number);
}

std::string JsonOf(const Finding& finding) {
  const RuleRow& row = RowOf(finding.rule);
  return JsonObject({{"file", JsonString(GenericTextOf(finding.message.file))},
                     {"line", NumberOrNothing(finding.message.place.line)},
                     {"column", NumberOrNothing(finding.message.place.column)},
                     {"object", finding.object ? std::to_string(*finding.object) : ""},
                     {"level", JsonString(NameOf(row.level))},
                     {"rule", JsonString(row.name)},
                     {"text", JsonString(finding.message.text)}});
}

// A relative reference, or a file URI for an absolute path.
std::string UriOf(const std::filesystem::path& path) {
  constexpr std::string_view kPlain = "-._~/:!$&'()*+,;=@";
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string uri = path.is_absolute() ? path.has_root_name() ? "file:///" : "file://" : "";
  for (const char c : GenericTextOf(path)) {
    const auto code = static_cast<unsigned char>(c);
    const bool isAlphanumeric =
        (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    if (isAlphanumeric || kPlain.find(c) != std::string_view::npos) {
      uri += c;
    } else {
      uri += {'%', kDigits[code >> 4U], kDigits[code & 15U]};
    }
  }
  return uri;
}

std::string SarifText(std::string_view text) { return JsonObject({{"text", JsonString(text)}}); }

std::string SarifRule(const RuleRow& row) {
  return JsonObject(
      {{"id", JsonString(row.name)},
       {"shortDescription", SarifText(row.sentence)},
       {"defaultConfiguration", JsonObject({{"level", JsonString(NameOf(row.level))}})}});
}

std::string SarifResult(const Finding& finding) {
  const RuleRow& row = RowOf(finding.rule);
  std::string region;
  if (finding.message.place.line > 0) {
    region = JsonObject({{"startLine", std::to_string(finding.message.place.line)},
                         {"startColumn", std::to_string(finding.message.place.column)}});
  }
  const std::string file = JsonObject({{"uri", JsonString(UriOf(finding.message.file))}});
  const std::string location = JsonObject({{"artifactLocation", file}, {"region", region}});
  return JsonObject({{"ruleId", JsonString(row.name)},
                     {"ruleIndex", std::to_string(static_cast<int>(finding.rule))},
                     {"level", JsonString(NameOf(row.level))},
                     {"message", SarifText(TextOf(finding))},
                     {"locations", "[" + JsonObject({{"physicalLocation", location}}) + "]"}});
}

std::string SarifReport(const Findings& findings) {
  const std::string driver = JsonObject({{"name", JsonString("mheg check")},
                                         {"semanticVersion", JsonString(TOOL_VERSION)},
                                         {"rules", JsonArray(kRules, SarifRule)}});
  const std::string run = JsonObject({{"tool", JsonObject({{"driver", driver}})},
                                      {"columnKind", JsonString("unicodeCodePoints")},
                                      {"results", JsonArray(findings, SarifResult)}});
  return JsonObject({{"$schema", JsonString("https://json.schemastore.org/sarif-2.1.0.json")},
                     {"version", JsonString("2.1.0")},
                     {"runs", "[" + run + "]"}});
}

}  // namespace

Messages MessagesOf(const Findings& findings) {
  Messages messages;
  for (const Finding& finding : findings) {
    const RuleRow& row = RowOf(finding.rule);
    Message& message = messages.emplace_back(finding.message);
    message.file = PathOf(GenericTextOf(finding.message.file));
    message.text = std::string(NameOf(row.level)) + ": " + TextOf(finding) + " [" +
                   std::string(row.name) + "]";
  }
  return messages;
}

void PrintReport(const Findings& findings, ReportForm form) {
  switch (form) {
  case ReportForm::Text: return Print(MessagesOf(findings), stdout);
  case ReportForm::Json: std::puts(JsonArray(findings, JsonOf).c_str()); return;
  case ReportForm::Sarif: std::puts(SarifReport(findings).c_str()); return;
  }
}

}  // namespace mheg
