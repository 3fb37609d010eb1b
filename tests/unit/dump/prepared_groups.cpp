// Sets the values object by object. The numbers are those in the texts.
#include "unit/dump/prepared_groups.h"

#include <gtest/gtest.h>

#include <string_view>

#include "objects/objects.h"

namespace korvel {
namespace {

void Set(OctetString& field, std::string_view text) { ASSERT_TRUE(field.Assign(text)); }

void Set(ObjectReference& field, std::string_view group, std::int32_t number) {
  Set(field.GroupIdentifier, group);
  field.Number = number;
}

template <class T> void Add(List<T>& list, T&& value) {
  ASSERT_NE(list.Append(std::move(value)), nullptr);
}

void SetUp(Root& root) { root.AvailabilityStatus = root.RunningStatus = true; }

// The item with that number. Items are numbered from 1 in order.
template <class Record> Record& At(Group& group, std::int32_t number) {
  auto& record = group.Items.At(static_cast<std::size_t>(number) - 1)->As<Record>();
  EXPECT_EQ(record.Reference.Number, number);
  return record;
}

void RunVariables(Group& group) {
  At<BooleanVariable>(group, 2).Value = true;
  At<IntegerVariable>(group, 3).Value = -5;
  Set(At<OctetStringVariable>(group, 4).Value, "new");
  Set(At<ObjectRefVariable>(group, 5).Value, "~/other", 4);
  Set(At<ContentRefVariable>(group, 6).Value.Path, "~/new");
}

void RunBitmap(Bitmap& bitmap) {
  Set(bitmap.Content.Data, "~/new");
  bitmap.Content.Size = 9;
  bitmap.Content.CachePriority = 8;
  bitmap.BoxSize = {3, 4};
  bitmap.Position = {-1, 2};
  bitmap.PaletteRef.IsPresent = true;
  bitmap.Transparency = 50;
}

void RunLineArt(LineArt& lineArt) {
  lineArt.LineWidth = 4;
  lineArt.LineStyle = LineStyle{3};
  lineArt.RefFillColour.Index = 5;
  lineArt.RefLineColour.Kind = ValueKind::OctetString;
  Set(lineArt.RefLineColour.Absolute, "ABCD");
}

void RunEntryField(EntryField& field) {
  Set(field.TextData, "typed");
  field.Font.Kind = ValueKind::OctetString;
  Set(field.Font.Name, "Sans");
  field.HighlightStatus = field.InteractionStatus = true;
  field.EntryPoint = 3;
  field.OverwriteMode = true;
}

void RunHyperText(HyperText& text) {
  Set(text.TextData, "read");
  text.Font.Kind = ValueKind::ObjectReference;
  text.Font.Reference.Number = 7;
  text.HighlightStatus = true;
  Set(text.LastAnchorFired, "anchor");
}

void RunButtons(Group& group) {
  At<HotSpot>(group, 11).SelectionStatus = true;
  auto& button = At<PushButton>(group, 12);
  Set(button.Label, "pushed");
  button.InteractionStatus = button.SelectionStatus = true;
}

void RunStream(Stream& stream) {
  stream.Speed = {2, 3};
  stream.CounterPosition = 4;
  stream.CounterEndPosition = 5;
  Add(stream.CounterTriggers, CounterTrigger{1, 10});
  Add(stream.CounterTriggers, CounterTrigger{2, 20});
  auto& audio = stream.Multiplex.At(0)->As<Audio>();
  SetUp(audio);
  audio.Volume = -6;
}

void RunListGroup(ListGroup& list) {
  list.TokenPosition = 1;
  ListItem own;
  own.AVisible.Number = 7;
  Add(list.ItemList, std::move(own));
  ListItem other;
  Set(other.AVisible, "~/other", 8);
  Add(list.ItemList, std::move(other));
  list.FirstItem = 2;
}

ElementaryAction ActionOf(int number) {
  ElementaryAction action;
  action.ActionType = static_cast<std::uint8_t>(number);
  action.Target.Kind = ValueKind::ObjectReference;
  action.Target.Reference.Number = 1;
  return action;
}

// Append, with a target without a kind and a parameter of every kind that holds no value.
ElementaryAction ActionWithoutValues() {
  ElementaryAction action = ActionOf(4);
  action.Target = {};
  for (const int kind : {3, 6, 7, 8}) {
    GenericValue value;
    value.Kind = static_cast<ValueKind>(kind);
    Add(action.Parameters, std::move(value));
  }
  return action;
}

}  // namespace

void MakeRunning(Group& group) {
  SetUp(group);
  for (Item& item : group.Items) SetUp(*item.Record());
  GenericValue& data = At<Link>(group, 1).Condition.EventData;
  data.Kind = ValueKind::IndirectReference;
  data.Reference.Number = 6;
  RunVariables(group);
  RunBitmap(At<Bitmap>(group, 7));
  RunLineArt(At<Rectangle>(group, 8));
  RunEntryField(At<EntryField>(group, 9));
  RunHyperText(At<HyperText>(group, 10));
  RunButtons(group);
  At<Slider>(group, 13).SliderValue = 6;
  At<Slider>(group, 13).Portion = 2;
  RunStream(At<Stream>(group, 14));
  RunListGroup(group.Items.At(14)->As<ListGroup>());
}

void MakeRunningApplication(Application& application) {
  SetUp(application);
  application.GroupCachePriority = 7;
  application.LockCount = 2;
  for (Item& item : application.Items) {
    Add(application.DisplayStack, StackedVisible{item.Type(), item.Record()});
  }
}

void MakeUnknown(Group& group) {
  constexpr auto kNoClass = static_cast<ItemType>(22);
  static Palette foreign;  // an item of no class does not release its record
  for (const int number : {0, 111, 112, 113, 114, 115, 116, 117, 118, 119, 120, 255}) {
    Add(group.OnStartUp, ActionOf(number));
  }
  Add(group.OnCloseDown, ActionWithoutValues());
  auto& link = At<Link>(group, 1);
  link.Condition.EventType = EventType{32};
  link.Condition.EventData.Kind = ValueKind::ObjectReference;
  auto& text = At<Text>(group, 2);
  text.HorizontalJustification = Justification{0};
  text.VerticalJustification = Justification{5};
  text.LineOrientation = LineOrientation{3};
  text.StartCorner = StartCorner{5};
  At<EntryField>(group, 3).InputType = InputType{5};
  At<SwitchButton>(group, 4).ButtonStyle = ButtonStyle{4};
  At<Slider>(group, 5).Orientation = Orientation{5};
  At<Slider>(group, 5).SliderStyle = SliderStyle{4};
  auto& stream = At<Stream>(group, 6);
  stream.Storage = Storage{3};
  stream.Multiplex.At(0)->As<Video>().Termination = Termination{3};
  Add(stream.Multiplex, Item(kNoClass, &foreign));
  Add(group.Items, Item(kNoClass, &foreign));
}

}  // namespace korvel
