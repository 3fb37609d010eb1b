// Starts the engine with the substitutes, and runs actions in it.
#include "stage.h"
#include "actions/actions.h"

#include <utility>

#include "support/text_content.h"

namespace korvel::test {
namespace {

constexpr int kLog = 900;

}  // namespace

void Stage::AddFile(const std::string& path, const std::string& text) {
  TheHost().files[path] = CompileText(text);
}

void Stage::AddScene(const std::string& name, const std::string& items,
                     const std::string& attributes) {
  AddFile(name, "{:Scene (\"~/" + name + "\" 0) " + attributes + " :Items (" + items +
                    ") :InputEventReg 4 :SceneCS 720 576}");
}

void Stage::Start(const std::string& items, const std::string& attributes) {
  AddFile("a", "{:Application (\"~/a\" 0) " + attributes + " :Items ({:OStringVar " +
                   std::to_string(kLog) + " :Shared TRUE :OrigValue \"\"} " + items + ")}");
  EXPECT_EQ(StartEngine(""), Status::Done);
}

void Stage::StartWithScene(const std::string& items, const std::string& sceneItems) {
  AddScene("s", sceneItems);
  Start(items);
  EXPECT_EQ(Run(R"(:TransitionTo(("~/s" 0)))"), Status::Replaced);
  ASSERT_NE(CurrentScene(), nullptr);
}

std::string Stage::Watch(int source, const std::string& event, const std::string& mark,
                         const std::string& data) {
  return "{:Link " + std::to_string(nextLink_++) + " :Shared TRUE :EventSource " +
         std::to_string(source) + " :EventType " + event +
         (data.empty() ? "" : " :EventData " + data) + " :LinkEffect (:Append(" +
         std::to_string(kLog) + " \"" + mark + " \"))} ";
}

std::string Stage::WatchBoolean(int source, const std::string& event, const std::string& mark) {
  return Watch(source, event, mark + "+", "TRUE") + Watch(source, event, mark + "-", "FALSE");
}

std::string Stage::WatchInteger(int source, const std::string& event, const std::string& mark,
                                int first, int last) {
  std::string links;
  for (int value = first; value <= last; ++value) {
    links += Watch(source, event, mark + std::to_string(value), std::to_string(value));
  }
  return links;
}

Status Stage::Run(const std::string& actions, Scope scope) {
  Group* holder =
      scope == Scope::ApplicationFirst ? static_cast<Group*>(CurrentApplication()) : CurrentScene();
  EXPECT_NE(holder, nullptr);
  if (holder == nullptr) return Status::Blocked;
  const std::string name(holder->Reference.GroupIdentifier.View());
  const OwnedGroup group =
      ParseText("{:Application (\"" + name + "\" 0) :OnCloseDown (" + actions + ")}");
  if (!group) return Status::Blocked;
  return RunActions(scope, {&group->OnCloseDown, holder}, name);
}

Status Stage::RunOne(Action action, int target, List<GenericValue> parameters) {
  ElementaryAction one;
  one.ActionType = static_cast<std::uint8_t>(action);
  one.Target = ReferenceValue(target);
  one.Parameters = std::move(parameters);
  ActionList list;
  EXPECT_NE(list.Append(std::move(one)), nullptr);
  return RunActions(Scope::ApplicationFirst, {&list, CurrentApplication()}, "~/a");
}

std::string Stage::TakeLog() {
  OctetString& log = Object<OctetStringVariable>(kLog).Value;
  std::string text(log.View());
  EXPECT_TRUE(log.Assign({}));
  if (!text.empty()) text.pop_back();
  return text;
}

FoundObject Stage::Find(int number) {
  FoundObject found = FindObject(Scope::SceneFirst, "~/s", number);
  if (!found) found = FindObject(Scope::ApplicationFirst, "~/a", number);
  EXPECT_TRUE(static_cast<bool>(found)) << "object " << number;
  return found;
}

std::string Stage::Stack() {
  std::string numbers;
  for (const StackedVisible& entry : CurrentApplication()->DisplayStack) {
    if (!numbers.empty()) numbers += ' ';
    numbers += std::to_string(entry.visible->Reference.Number);
  }
  return numbers;
}

GenericValue IntegerValue(std::int32_t number) {
  GenericValue value;
  value.Kind = ValueKind::Integer;
  value.Integer = number;
  return value;
}

GenericValue OctetsValue(std::string_view octets) {
  GenericValue value;
  value.Kind = ValueKind::OctetString;
  EXPECT_TRUE(value.Octets.Assign(octets));
  return value;
}

GenericValue ReferenceValue(int number) {
  GenericValue value;
  value.Kind = ValueKind::ObjectReference;
  value.Reference.Number = number;
  return value;
}

}  // namespace korvel::test
