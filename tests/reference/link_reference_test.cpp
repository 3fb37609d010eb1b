// Compares the dispatch of events with its reference model: links of an application and of two
// scenes send events, activate each other, change the scene and fail.
#include <algorithm>
#include <array>
#include <map>
#include <string>

#include "comparison.h"
#include "link_content.h"
#include "link_model.h"

namespace korvel::test {
namespace {

// An effect sends only events that come later in this list, so that links do not call each other
// forever.
constexpr std::array kTypes = {EventType::UserInput, EventType::EngineEvent, EventType::TestEvent,
                               EventType::StreamEvent, EventType::TimerFired};
constexpr std::array kSceneTypes = {EventType::IsAvailable, EventType::ContentAvailable,
                                    EventType::IsRunning, EventType::IsDeleted};

struct LinkSubject {
  using Model = LinkModel;
  using Setup = Model::Setup;

  static ModelEvent RandomEvent(Random& random, std::size_t firstType) {
    static const std::vector<std::string> kGroups = {"~/a", "/a", "~/s", "/s", "~/t", "~/x"};
    static const std::vector<ValueKind> kKinds = {
        ValueKind::None,    ValueKind::None,    ValueKind::None,       ValueKind::None,
        ValueKind::Boolean, ValueKind::Integer, ValueKind::OctetString};
    ModelEvent event;
    event.group = random.OneIn(6) ? random.Of(kGroups) : "~/a";
    event.number = random.OneIn(8) ? random.Between(0, 2) : 0;
    const auto last = static_cast<std::int32_t>(kTypes.size()) - 1;
    // One of the types occurs more often, so that events with more links than run are frequent.
    const std::size_t type =
        static_cast<std::size_t>(random.Between(static_cast<std::int32_t>(firstType), last));
    event.type = kTypes[firstType <= 2 && random.OneIn(2) ? 2 : type];
    event.kind = random.Of(kKinds);
    if (event.kind == ValueKind::Boolean) event.value = random.Between(0, 1);
    if (event.kind == ValueKind::Integer) event.value = RandomData(random);
    return event;
  }
  static std::int32_t RandomData(Random& random) {
    static const std::vector<std::int32_t> kValues = {1, 1, 1, 1, 0, 2, 4, 16, 100, -2147483647};
    return random.Of(kValues);
  }
  static std::int32_t RandomLink(Random& random) {
    return 100 * random.Between(0, 2) + random.Between(1, 6);
  }

  static std::vector<ModelLink> RandomLinks(Random& random, std::int32_t first) {
    static const std::vector<std::string> kTargets = {"~/s", "~/t", "/s", "/t", "~/none"};
    std::vector<ModelLink> links;
    const std::int32_t count = random.Between(0, 12);
    for (std::int32_t i = 0; i < count; ++i) {
      ModelLink link{first + i, !random.OneIn(4), random.OneIn(2), RandomEvent(random, 0), {}};
      const bool isSceneEvent = random.OneIn(6);
      if (isSceneEvent) {
        link.event = {random.OneIn(2) ? "~/s" : "/t", 0,
                      kSceneTypes[static_cast<std::size_t>(random.Between(0, 3))]};
      }
      const std::int32_t effects = random.Between(0, 3);
      const std::size_t type = static_cast<std::size_t>(
          std::find(kTypes.begin(), kTypes.end(), link.event.type) - kTypes.begin());
      for (std::int32_t e = 0; e < effects; ++e) {
        ModelEffect effect{random.OneIn(2) ? ModelEffect::Activate : ModelEffect::Deactivate,
                           {},
                           RandomLink(random),
                           ""};
        if (!isSceneEvent && type + 1 < kTypes.size() && random.OneIn(2)) {
          effect.kind = ModelEffect::Send;
          effect.event = RandomEvent(random, type + 1);
          effect.target = random.OneIn(2) ? "~/s" : "/t";
        }
        if (!isSceneEvent && random.OneIn(12)) {
          effect.kind = ModelEffect::Transition;
          effect.target = random.Of(kTargets);
          // The event for a missing scene must come later in the list, too.
          if (type >= 1 && effect.target == "~/none") effect.target = "~/s";
        }
        if (!isSceneEvent && random.OneIn(20)) effect.kind = ModelEffect::Fail;
        link.effects.push_back(effect);
      }
      links.push_back(link);
    }
    return links;
  }

  static Setup MakeSetup(Random& random) {
    return {RandomLinks(random, 1), RandomLinks(random, 101), RandomLinks(random, 201),
            random.Between(0, 6), random.Between(0, 6)};
  }

  static std::vector<Step> MakeSteps(Random& random, const Setup& /*setup*/) {
    static const std::vector<std::int32_t> kKeys = {0,  1,  2,  4,   5,   14, 15,
                                                    16, 17, 99, 100, 104, 105};
    static const std::vector<std::string> kTargets = {"~/s", "~/t", "/s", "~/none"};
    std::vector<Step> steps;
    for (std::int32_t count = random.Between(1, 8); count > 0; --count) {
      const ModelEvent event = RandomEvent(random, 0);
      const std::vector<std::int32_t> numbers = {
          event.number, static_cast<std::int32_t>(event.type),
          static_cast<std::int32_t>(event.kind), event.value};
      const std::vector<Step> choices = {
          {"Raise", numbers, event.group},
          {"Raise", numbers, event.group},
          {"Raise", numbers},
          {"Key", {random.Of(kKeys)}},
          {"TransitionTo", {}, "(\"" + random.Of(kTargets) + "\" 0)"},
      };
      steps.push_back(random.Of(choices));
    }
    return steps;
  }

  static std::string Items(const Setup& setup) { return LinksText(setup.application); }
  static std::map<std::string, std::string> Scenes(const Setup& setup) {
    const auto scene = [](const char* name, const auto& links, std::int32_t inputRegister) {
      return "{:Scene (\"~/" + std::string(name) + "\" 0) :Items (" + LinksText(links) +
             ") :InputEventReg " + std::to_string(inputRegister) + " :SceneCS 720 576}";
    };
    return {{"s", scene("s", setup.s, setup.registerOfS)},
            {"t", scene("t", setup.t, setup.registerOfT)}};
  }

  static std::string EngineState(const Setup& /*setup*/) {
    const Scene* scene = CurrentScene();
    std::string text = Words(scene == nullptr ? "" : scene->Reference.GroupIdentifier.View());
    const auto add = [&text](const List<Item>& items) {
      for (const Item& item : items) {
        if (item.Type() == ItemType::Link) text += Words(item.As<Link>().RunningStatus);
      }
    };
    add(CurrentApplication()->Items);
    if (scene != nullptr) add(scene->Items);
    return text;
  }
};

TEST(LinkReference, links_run_like_their_model) { CompareWithEngine<LinkSubject>(500); }

}  // namespace
}  // namespace korvel::test
