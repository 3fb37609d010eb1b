// Objects and links are found through indexes. On random groups the indexes must give the same
// results as a walk over the items in order: the first object, and the first five links.
#include <random>
#include <sstream>
#include <vector>

#include "engine/core.h"
#include "objects/limits.h"
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

constexpr const char* kNames[] = {"~/a", "/a", "~/menu", "/menu", "~/next", "~/other", ""};
constexpr std::int32_t kLargestNumber = 5;

// ---- The plain walk ----

FoundObject FirstIn(const List<Item>& items, std::string_view name, std::int32_t number) {
  for (const Item& item : items) {
    const ObjectReference& reference = item.Record()->Reference;
    const bool isFindable = item.Type() <= ItemType::SwitchButton;
    if (isFindable && reference.Number == number &&
        IsSameGroup(reference.GroupIdentifier.View(), name)) {
      return {item.Type(), item.Record()};
    }
    if (item.Type() != ItemType::Stream) continue;
    const FoundObject found = FirstIn(item.As<Stream>().Multiplex, name, number);
    if (found) return found;
  }
  return {};
}

FoundObject FirstIn(Scope scope, std::string_view name, std::int32_t number) {
  Group* groups[] = {CurrentApplication(), CurrentScene()};
  for (Group* group : groups) {
    if (group != nullptr && number == 0 && IsSameGroup(NameOf(*group), name)) {
      return {group->type, group};
    }
  }
  if (scope == Scope::SceneFirst) std::swap(groups[0], groups[1]);
  for (const Group* group : groups) {
    const FoundObject found =
        group == nullptr ? FoundObject{} : FirstIn(group->Items, name, number);
    if (found) return found;
  }
  return {};
}

struct Event {
  std::string_view source;  // the group of the source
  std::int32_t number = 0;
  EventType type{};
  EventData data;
  bool hasSource = true;
};

bool WaitsFor(const Link& link, bool isOfScene, const Event& event) {
  const LinkCondition& condition = link.Condition;
  if (!link.RunningStatus || condition.EventType != event.type) return false;
  if (event.hasSource &&
      (condition.EventSource.Number != event.number ||
       !IsSameGroup(condition.EventSource.GroupIdentifier.View(), event.source))) {
    return false;
  }
  const std::string_view name = link.Reference.GroupIdentifier.View();
  if (isOfScene && event.hasSource && name != NameOf(*CurrentScene())) return false;
  if (isOfScene && !IsSameGroup(name, NameOf(*CurrentScene()))) return false;
  const GenericValue& data = condition.EventData;
  if (data.Kind == ValueKind::None) return true;
  if (data.Kind != event.data.kind) return false;
  if (data.Kind == ValueKind::Integer) return data.Integer == event.data.value;
  return data.Kind == ValueKind::Boolean && data.Boolean == (event.data.value != 0);
}

// The marks of the first five links that wait for the event. A mark is the text that the effect of
// the link appends to the notes.
std::string MarksOfFirstLinks(const Event& event) {
  std::ostringstream marks;
  std::size_t count = 0;
  for (const Group* group :
       {static_cast<Group*>(CurrentApplication()), static_cast<Group*>(CurrentScene())}) {
    if (group == nullptr) continue;
    for (const Item& item : group->Items) {
      if (item.Type() != ItemType::Link || count == kMostLinksOfEvent) continue;
      const auto& link = item.As<Link>();
      if (!WaitsFor(link, group == CurrentScene(), event)) continue;
      marks << link.LinkEffect.At(0)->Parameters.At(0)->Octets.View();
      ++count;
    }
  }
  return marks.str();
}

// ---- Random content ----

class FirstMatch : public EngineTest {
 protected:
  template <class Choices> auto OneOf(const Choices& choices) {
    return choices[random_() % std::size(choices)];
  }
  std::int32_t Number(std::int32_t most) {
    return static_cast<std::int32_t>(random_() % static_cast<std::uint32_t>(most));
  }

  // An item's own reference: a number, often with the name of some group.
  std::string OwnReference() {
    const std::int32_t number = 1 + Number(kLargestNumber);
    const std::string name = OneOf(kNames);
    return name.empty() ? std::to_string(number) : Name(name, number);
  }

  std::string RandomItem() {
    const std::string heading =
        OneOf(std::vector<std::string>{"Rectangle", "IntegerVar", "BooleanVar", "Font", "Stream"});
    const std::string start = "{:" + heading + " " + OwnReference() + " :InitiallyActive FALSE ";
    if (heading == "Rectangle") return start + ":OrigBoxSize 1 1}";
    if (heading == "IntegerVar") return "{:IntegerVar " + OwnReference() + " :OrigValue 1}";
    if (heading == "BooleanVar") return "{:BooleanVar " + OwnReference() + " :OrigValue TRUE}";
    if (heading == "Font") return "{:Font " + OwnReference() + " :OrigContent \"f\"}";
    return start + ":Multiplex ({:Audio " + OwnReference() + " :ComponentTag 1} {:Video " +
           OwnReference() + " :InitiallyActive FALSE :ComponentTag 2 :OrigBoxSize 1 1})}";
  }

  std::string RandomLink(char mark) {
    const std::string data = OneOf(std::vector<std::string>{"", "", ":EventData 1", ":EventData 2",
                                                            ":EventData TRUE", ":EventData FALSE"});
    const std::string name = OneOf(kNames);
    const std::string active = random_() % 5 == 0 ? " :InitiallyActive FALSE" : "";
    return "{:Link " + OwnReference() + active + " :EventSource " + Name(name, Number(3)) +
           " :EventType " +
           OneOf(std::vector<std::string>{"TestEvent", "UserInput", "EngineEvent"}) + " " + data +
           " :LinkEffect (" + Note(std::string(1, mark)) + ")} ";
  }

  std::string RandomItems() {
    std::string items;
    const std::int32_t count = Number(25);
    for (std::int32_t i = 0; i < count; ++i) items += RandomItem();
    return items;
  }
  std::string RandomLinks(char firstMark) {
    std::string links;
    const std::int32_t count = Number(20);
    for (std::int32_t i = 0; i < count; ++i) links += RandomLink(static_cast<char>(firstMark + i));
    return links;
  }

  static void CompareObjects() {
    for (const Scope scope : {Scope::ApplicationFirst, Scope::SceneFirst}) {
      for (const char* name : kNames) {
        for (std::int32_t number = -1; number <= kLargestNumber + 1; ++number) {
          const FoundObject expected = FirstIn(scope, name, number);
          const FoundObject found = FindObject(scope, name, number);
          ASSERT_EQ(found.object, expected.object) << name << " " << number;
          ASSERT_EQ(found.type, expected.type) << name << " " << number;
        }
      }
    }
  }

  void CompareLinks() {
    for (const EventType type :
         {EventType::TestEvent, EventType::UserInput, EventType::EngineEvent}) {
      for (const EventData data :
           {EventData{}, EventData::Integer(1), EventData::Integer(2), EventData::Boolean(true),
            EventData::Boolean(false), EventData{ValueKind::OctetString, 0}}) {
        for (const char* source : kNames) {
          for (std::int32_t number = 0; number < 4; ++number) {
            CompareLinks({source, number, type, data});
          }
        }
        CompareLinks({"", 0, type, data, false});
      }
    }
  }

  void CompareLinks(const Event& event) {
    const std::string expected = MarksOfFirstLinks(event);
    const Status status = Do([&] {
      return event.hasSource ? RaiseEvent(event.source, event.number, event.type, event.data)
                             : RaiseEventByType(event.type, event.data);
    });
    ASSERT_EQ(status, Status::Done);
    ASSERT_EQ(TakeNotes(), expected) << event.source << " " << event.number;
  }

 private:
  std::mt19937 random_{1};
};

TEST_F(FirstMatch, the_index_finds_the_same_objects_as_a_walk) {
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE(round);
    ServeApplication(RandomItems());
    ServeScene("menu", RandomItems());
    ServeScene("next", RandomItems());
    ASSERT_EQ(Start(), Status::Done);
    CompareObjects();
    for (const char* scene : {"~/menu", "~/next"}) {
      ASSERT_EQ(GoTo(scene), Status::Done);
      CompareObjects();
    }
    if (HasFatalFailure()) return;
  }
}

TEST_F(FirstMatch, the_index_finds_the_same_links_as_a_walk) {
  for (int round = 0; round < 20; ++round) {
    SCOPED_TRACE(round);
    ServeApplication(RandomLinks('a'));
    ServeScene("menu", RandomLinks('A'));
    ServeScene("next", RandomLinks('A'));
    ASSERT_EQ(Start(), Status::Done);
    CompareLinks();
    for (const char* scene : {"~/menu", "~/next"}) {
      ASSERT_EQ(GoTo(scene), Status::Done);
      CompareLinks();
    }
    if (HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace korvel::test
