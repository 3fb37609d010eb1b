// Builds scenes from items in the textual notation, and starts them in the engine.
#include "stage.h"

#include <utility>

#include "actions/actions.h"
#include "objects/ber/ber.h"
#include "substitutes/host.h"
#include "substitutes/presentation.h"
#include "textual/textual.h"

namespace bench {
namespace {

using korvel::Status;

constexpr std::size_t kMostBytesOfPart = 50000;

korvel::OwnedGroup Read(const std::string& items) {
  korvel::OwnedGroup group;
  const std::string text = "{:Scene (\"~/s\" 0) :Items (" + items + ")}";
  const auto result = korvel::ReadTextGroup(text, group);
  if (result != korvel::TextResult::Done) Fail("a scene cannot be read: " + text);
  return group;
}

}  // namespace

korvel::OwnedGroup SceneOf(const std::vector<std::string>& items) {
  korvel::OwnedGroup scene = Read("");
  std::string part;
  const auto addPart = [&] {
    const korvel::OwnedGroup read = Read(std::exchange(part, {}));
    for (korvel::Item& item : read->Items) {
      Require(scene->Items.Append(std::move(item)) != nullptr, "no memory");
    }
  };
  for (const std::string& item : items) {
    part += item;
    if (part.size() > kMostBytesOfPart) addPart();
  }
  addPart();
  return scene;
}

std::string BytesOf(const korvel::Group& group) {
  korvel::OctetString bytes;
  Require(korvel::EncodeGroup(group, bytes) == Status::Done, "a group cannot be encoded");
  return std::string(bytes.View());
}

void EnterScene(const korvel::Group& scene) {
  korvel::CloseDown();
  korvel::ResetEngine();
  auto& host = korvel::test::TheHost() = {};
  host.files["a"] = BytesOf(*[] {
    korvel::OwnedGroup application;
    const auto result = korvel::ReadTextGroup("{:Application (\"~/a\" 0)}", application);
    Require(result == korvel::TextResult::Done, "the application cannot be read");
    return application;
  }());
  host.files["s"] = BytesOf(scene);
  korvel::BeginWork();
  Require(korvel::StartEngine("") == Status::Done, "the application does not start");
  korvel::BeginWork();
  Require(korvel::TransitionTo(kScene) == Status::Done && korvel::CurrentScene() != nullptr,
          "the scene does not start");
}

korvel::FoundObject ObjectOf(std::int32_t number) {
  const auto found = korvel::FindObject(korvel::Scope::SceneFirst, kScene, number);
  Require(bool(found), "an object is missing");
  return found;
}

std::string ActionHolder(int number, const std::string& actions) {
  return LinkOn(number, 0, "UserInput :EventData 100000", actions);
}

Work RunEffect(int number, double units) {
  const auto& link = Object<korvel::Link>(number);
  return {[&link] {
            korvel::BeginWork();
            const auto status = korvel::RunActions(korvel::Scope::SceneFirst,
                                                   {&link.LinkEffect, link.owner}, kScene);
            Require(status == Status::Done, "an action failed");
          },
          units};
}

std::string IntegerVariable(int number) {
  return "{:IntegerVar " + std::to_string(number) + " :OrigValue 0}\n";
}

std::string Rectangle(int number, std::string_view attributes) {
  return "{:Rectangle " + std::to_string(number) + " " + std::string(attributes) +
         " :OrigBoxSize 40 20}\n";
}

std::string LinkOn(int number, int source, const std::string& event, const std::string& effect) {
  return "{:Link " + std::to_string(number) + " :EventSource " + std::to_string(source) +
         " :EventType " + event + " :LinkEffect (" + effect + ")}\n";
}

}  // namespace bench
