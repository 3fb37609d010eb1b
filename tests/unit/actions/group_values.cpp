// Attributes are printed in the textual notation. The class tables do not describe run-time values,
// so they are listed here, class by class.
#include "group_values.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <type_traits>
#include <vector>

#include "stage.h"
#include "textual/textual.h"

namespace korvel::test {
namespace {

class ValueLines {
 public:
  std::string Take() { return std::move(lines_); }

  void AddApplication(const Application& application) {
    AddGroup(application);
    Name(application.Reference);
    Add("LockCount", application.LockCount);
    Add("DisplayStack", application.DisplayStack);
  }

  void AddGroup(const Group& group) {
    AddText(group);
    AddRoot(group);
    Add("GroupCachePriority", group.GroupCachePriority);
    Add("Timers", group.Timers);
    Add("isDying", group.life.isDying);
    Add("isDead", group.life.isDead);
    for (const Item& item : group.Items) AddItem(item);
  }

  void AddLine(const std::string& line) { (lines_ += line) += '\n'; }

 private:
  void AddText(const Group& group) {
    OctetString text;
    EXPECT_EQ(WriteTextGroup(group, text), Status::Done);
    lines_ += text.View();
  }

  void AddRoot(const Root& root) {
    Name(root.Reference);
    Add("AvailabilityStatus", root.AvailabilityStatus);
    Add("RunningStatus", root.RunningStatus);
  }

  void AddItem(const Item& item) {
    VisitIngredientClass(item.Type(), [&]<class Record>() {
      const auto& record = item.As<Record>();
      AddRoot(record);
      Add("Content", record.Content);
      AddInvisible(record);
      AddVisible(record);
    });
  }

  template <class Record> void AddInvisible(const Record& record) {
    if constexpr (requires { record.OriginalValue; }) Add("Value", record.Value);
    if constexpr (std::is_base_of_v<TokenGroup, Record>) Add("TokenPosition", record.TokenPosition);
    if constexpr (std::is_base_of_v<ListGroup, Record>) {
      Add("ItemList", record.ItemList);
      Add("FirstItem", record.FirstItem);
    }
    if constexpr (std::is_base_of_v<Audio, Record>) Add("Volume", record.Volume);
    if constexpr (std::is_base_of_v<Stream, Record>) {
      Add("Speed", record.Speed.Numerator, record.Speed.Denominator);
      Add("CounterPosition", record.CounterPosition);
      Add("CounterEndPosition", record.CounterEndPosition);
      Add("CounterTriggers", record.CounterTriggers);
      for (const Item& component : record.Multiplex) AddItem(component);
    }
  }

  template <class Record> void AddVisible(const Record& record) {
    if constexpr (std::is_base_of_v<Visible, Record>) {
      Add("BoxSize", record.BoxSize);
      Add("Position", record.Position);
      Add("PaletteRef", record.PaletteRef);
    }
    if constexpr (std::is_base_of_v<LineArt, Record>) {
      Add("Line", record.LineWidth, static_cast<std::int32_t>(record.LineStyle));
      Add("RefLineColour", record.RefLineColour);
      Add("RefFillColour", record.RefFillColour);
    }
    if constexpr (requires { record.Canvas; }) Add("Canvas", record.Canvas != nullptr);
    if constexpr (requires { record.Transparency; }) Add("Transparency", record.Transparency);
    if constexpr (requires { record.ScaledSize; }) {
      Add("ScaledSize", record.ScaledSize);
      Add("DecodeOffset", record.DecodeOffset);
    }
    if constexpr (std::is_base_of_v<Text, Record>) {
      Add("TextData", record.TextData);
      Add("Font", record.Font);
    }
    if constexpr (std::is_base_of_v<Interactible, Record>) AddInteractible(record);
  }

  template <class Record> void AddInteractible(const Record& record) {
    Add("HighlightStatus", record.HighlightStatus);
    Add("InteractionStatus", record.InteractionStatus);
    if constexpr (std::is_base_of_v<EntryField, Record>) {
      Add("EntryPoint", record.EntryPoint);
      Add("OverwriteMode", record.OverwriteMode);
    }
    if constexpr (requires { record.LastAnchorFired; }) {
      Add("LastAnchorFired", record.LastAnchorFired);
    }
    if constexpr (requires { record.SelectionStatus; }) {
      Add("SelectionStatus", record.SelectionStatus);
    }
    if constexpr (requires { record.Label; }) Add("Label", record.Label);
    if constexpr (std::is_base_of_v<Slider, Record>) {
      Add("SliderValue", record.SliderValue);
      Add("Portion", record.Portion);
    }
  }

  // Sets the object that the following values belong to.
  void Name(const ObjectReference& reference) {
    object_ = std::string(reference.GroupIdentifier.View()) + " ";
    object_ += std::to_string(reference.Number) + " ";
  }

  template <class... Values> void Add(const char* name, const Values&... values) {
    (lines_ += object_) += name;
    PrintAll(values...);
    lines_ += '\n';
  }

  template <class... Values> void PrintAll(const Values&... values) { (Print(values), ...); }
  void Print(bool value) { lines_ += value ? " TRUE" : " FALSE"; }
  void Print(std::int32_t value) { (lines_ += ' ') += std::to_string(value); }
  void Print(const OctetString& value) {
    value.IsPresent() ? ((lines_ += " \"") += value.View()) += '"' : lines_ += " absent";
  }
  void Print(const ObjectReference& value) { PrintAll(value.GroupIdentifier, value.Number); }
  void Print(const OptionalReference& value) { PrintAll(value.IsPresent, value.Reference); }
  void Print(ValueKind value) { Print(static_cast<std::int32_t>(value)); }
  void Print(const ColourValue& value) { PrintAll(value.Kind, value.Index, value.Absolute); }
  void Print(const FontBody& value) { PrintAll(value.Kind, value.Name, value.Reference); }
  void Print(const ContentReference& value) { Print(value.Path); }
  void Print(const ContentBody& value) {
    PrintAll(value.Data, value.IsReferenced, value.Size, value.CachePriority);
  }
  void Print(const CounterTrigger& value) { PrintAll(value.Identifier, value.Position); }
  void Print(const ListItem& value) {
    PrintAll(value.AVisible, value.IsSelected, value.IsPresented);
  }
  void Print(const Timer& value) { PrintAll(value.id, value.value, value.isAbsolute, value.owner); }
  void Print(const StackedVisible& value) {
    PrintAll(static_cast<std::int32_t>(value.kind), value.visible->Reference);
  }
  void Print(const BoxSize& value) { PrintAll(value.Width, value.Height); }
  void Print(const Position& value) { PrintAll(value.X, value.Y); }
  template <class Entry> void Print(const List<Entry>& list) {
    for (const Entry& entry : list) {
      Print(entry);
      lines_ += ';';
    }
  }

  std::string object_;
  std::string lines_;
};

std::vector<std::string> SortedLines(const std::string& text) {
  std::vector<std::string> sorted;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) sorted.push_back(line);
  std::sort(sorted.begin(), sorted.end());
  return sorted;
}

}  // namespace

std::string RunningGroupValues() {
  ValueLines lines;
  lines.AddApplication(*CurrentApplication());
  lines.AddGroup(*CurrentScene());
  for (const auto& [id, period] : TheHost().timers) {
    lines.AddLine("timer " + std::to_string(id) + " " + std::to_string(period));
  }
  for (const std::string& drawing : ThePresentation().drawings) lines.AddLine(drawing);
  return lines.Take();
}

std::string Difference(const std::string& one, const std::string& other) {
  if (one == other) return "";
  const auto lines = SortedLines(one);
  const auto otherLines = SortedLines(other);
  std::vector<std::string> changed;
  std::set_symmetric_difference(lines.begin(), lines.end(), otherLines.begin(), otherLines.end(),
                                std::back_inserter(changed));
  std::string all;
  for (const std::string& line : changed) all += "\n" + line;
  return all.empty() ? "\nthe order of lines" : all;
}

}  // namespace korvel::test
