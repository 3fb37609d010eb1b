// Reads the sources to check that no run-time value is forgotten: each field of an ingredient that
// is not an attribute of the class tables is set when the object is prepared, is in the dump, and
// is among the values that the action tests compare. A field without one of these is listed here
// with the reason.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace korvel::test {
namespace {

std::string Source(const std::string& path) {
  std::ifstream file(std::filesystem::path(KORVEL_SOURCE_DIR) / path);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::smatch> Matches(const std::string& text, const std::string& expression) {
  const std::regex regex(expression);
  return {std::sregex_iterator(text.begin(), text.end(), regex), {}};
}

struct RunTimeValue {
  std::string className;
  std::string field;
  [[nodiscard]] std::string Name() const { return className + "." + field; }
};

// The PascalCase fields of the structs in the two headers that are not attributes.
std::vector<RunTimeValue> RunTimeValues() {
  const std::string tables = Source("src/objects/class_tables.h");
  const std::string headers =
      Source("src/objects/ingredients.h") + Source("src/objects/visibles.h");
  std::vector<RunTimeValue> values;
  for (const std::smatch& record : Matches(headers, R"(\nstruct (\w+)[^;{]*\{(\};|[^]*?\n\};))")) {
    const std::string body = record[2];
    for (const std::smatch& field :
         Matches(body, R"(\n  [\w:<>*]+ ([A-Z]\w*)( = [^;]*|\{[^;]*)?;)")) {
      const RunTimeValue value{record[1], field[1]};
      const bool isAttribute =
          std::regex_search(tables, std::regex("&" + value.className + "::" + value.field + "\\b"));
      if (!isAttribute) values.push_back(value);
    }
  }
  return values;
}

// The bodies of the functions whose parameter list matches.
std::string BodiesOf(const std::string& source, const std::string& parameters) {
  std::string bodies;
  for (const std::smatch& function : Matches(source, parameters + R"( \{([^\n]*|[^]*?\n)\}\n)")) {
    bodies += function[1];
  }
  return bodies;
}

bool Uses(const std::string& source, const std::string& field) {
  return std::regex_search(source, std::regex("[.]" + field + "\\b"));
}

// The parts of other values, which these functions handle as a whole.
bool IsPart(const RunTimeValue& value) {
  static const std::set<std::string> kParts = {"ActionSlot",    "Movement",       "ListItem",
                                               "LinkCondition", "TokenGroupItem", "Rational",
                                               "CounterTrigger"};
  return kParts.contains(value.className);
}

TEST(RunTimeValues, each_is_set_when_its_object_is_prepared) {
  static const std::set<std::string> kNotSet = {
      // The five variables share one function.
      "BooleanVariable.Value", "IntegerVariable.Value", "OctetStringVariable.Value",
      "ObjectRefVariable.Value", "ContentRefVariable.Value",
      // An object that stops loses them.
      "Interactible.HighlightStatus", "Interactible.InteractionStatus",
      // No action changes them.
      "Button.SelectionStatus", "Stream.Speed", "Stream.CounterPosition",
      "Stream.CounterEndPosition",
      // Drawings and triggers stay until an action removes them.
      "DynamicLineArt.Canvas", "Stream.CounterTriggers"};
  const std::string source = Source("src/actions/lifecycle.cpp");
  int count = 0;
  for (const RunTimeValue& value : RunTimeValues()) {
    if (IsPart(value) || kNotSet.contains(value.Name())) continue;
    ++count;
    const std::string setUp = BodiesOf(source, "bool SetUp\\(" + value.className + "& \\w+\\)");
    EXPECT_TRUE(Uses(setUp, value.field)) << value.Name();
  }
  EXPECT_GE(count, 24);
}

TEST(RunTimeValues, each_is_in_the_dump) {
  static const std::set<std::string> kNotPrinted = {
      // The five variables share one printer.
      "BooleanVariable.Value", "IntegerVariable.Value", "OctetStringVariable.Value",
      "ObjectRefVariable.Value", "ContentRefVariable.Value",
      // The format has no line for them.
      "Bitmap.ScaledSize", "Bitmap.DecodeOffset", "DynamicLineArt.Canvas", "Video.ScaledSize",
      "Video.DecodeOffset"};
  const std::string source = Source("src/dump/dump_item.cpp") +
                             Source("src/dump/dump_ingredients.cpp") +
                             Source("src/dump/dump_visibles.cpp");
  int count = 0;
  for (const RunTimeValue& value : RunTimeValues()) {
    if (IsPart(value) || kNotPrinted.contains(value.Name())) continue;
    ++count;
    const std::string printer =
        value.className == "Audio"
            ? BodiesOf(source, "void DumpAudio\\([^)]*\\)")
            : BodiesOf(source, "void Dump\\([^)]*const " + value.className + "& \\w+\\)");
    EXPECT_TRUE(Uses(printer, value.field)) << value.Name();
  }
  EXPECT_GE(count, 24);
}

TEST(RunTimeValues, each_is_among_the_values_that_the_action_tests_compare) {
  const std::string source = Source("tests/unit/actions/group_values.cpp");
  for (const RunTimeValue& value : RunTimeValues()) {
    EXPECT_TRUE(IsPart(value) || Uses(source, value.field)) << value.Name();
  }
}

}  // namespace
}  // namespace korvel::test
