// Compares the token of token groups and list groups with its reference model.
#include <string>

#include "comparison.h"
#include "token_group_model.h"

namespace korvel::test {
namespace {

struct TokenGroupSubject {
  using Model = TokenGroupModel;
  using Setup = Model::Setup;

  static Model::Effect RandomEffect(Random& random) {
    const std::int32_t n = random.Around(-2, 6);
    const std::vector<Model::Effect> choices = {
        {"MoveTo", n}, {"MoveTo", n}, {"Move", n}, {"Move", n}, {"Fail", 0}};
    return random.Of(choices);
  }
  static std::vector<Model::Slot> RandomSlots(Random& random, const std::string& name) {
    std::vector<Model::Slot> slots(static_cast<std::size_t>(random.Between(0, 3)));
    for (std::size_t i = 0; i < slots.size(); ++i) {
      slots[i] = {random.OneIn(4), name + std::to_string(i), {}};
      if (random.OneIn(2)) slots[i].effects.push_back(RandomEffect(random));
      if (random.OneIn(4)) slots[i].effects.push_back(RandomEffect(random));
    }
    return slots;
  }

  static Setup MakeSetup(Random& random) {
    Setup setup{!random.OneIn(20), random.OneIn(2), {}, {}, RandomSlots(random, "none"), {}};
    setup.movements.resize(static_cast<std::size_t>(random.Between(0, 4)));
    for (auto& row : setup.movements) {
      row.resize(static_cast<std::size_t>(random.Between(0, 5)));
      for (std::int32_t& target : row) target = random.Around(-1, 6);
    }
    for (std::int32_t count = random.Between(0, 4); count > 0; --count) {
      setup.members.push_back(RandomSlots(random, "slot" + std::to_string(count) + "."));
    }
    for (std::int32_t count = random.Between(0, 3); count > 0 && random.OneIn(2); --count) {
      Model::Reaction reaction{random.OneIn(2) ? "TokenMovedFrom" : "TokenMovedTo", random.OneIn(3),
                               random.Between(-1, 5), RandomEffect(random)};
      if (random.OneIn(4)) reaction.effect = {"CallActionSlot", random.Between(0, 3)};
      setup.reactions.push_back(reaction);
    }
    return setup;
  }

  static std::vector<Step> MakeSteps(Random& random, const Setup& /*setup*/) {
    std::vector<Step> steps;
    for (std::int32_t count = random.Between(1, 15); count > 0; --count) {
      const std::int32_t n = random.Around(-2, 6);
      const std::vector<Step> choices = {
          {"MoveTo", {50, n}},
          {"Move", {50, random.Around(0, 4)}},
          {"Move", {50, random.Around(1, 4)}},
          {"CallActionSlot", {50, random.Around(-1, 4)}},
          {"CallActionSlot", {50, random.Around(1, 3)}},
          {"GetTokenPosition", {50, 60}},
          {"Activate", {Model::kFirstReaction + random.Between(0, 2)}},
          {"Activate", {Model::kFirstReaction + random.Between(0, 2)}}};
      steps.push_back(random.Of(choices));
    }
    return steps;
  }

  static std::string EffectText(const Model::Effect& effect) {
    if (effect.action == "Fail") return std::string(kFail);
    return ":" + effect.action + "(50 " + std::to_string(effect.number) + ")";
  }
  static std::string SlotsText(const std::vector<Model::Slot>& slots) {
    std::string text;
    for (const Model::Slot& slot : slots) {
      if (slot.isNull) {
        text += "NULL ";
        continue;
      }
      text += "(:Append(900 \"" + slot.mark + " \")";
      for (const Model::Effect& effect : slot.effects) text += " " + EffectText(effect);
      text += ") ";
    }
    return text;
  }

  static std::string Items(const Setup& setup) {
    std::string text, members, movements;
    for (std::size_t i = 1; i <= setup.members.size(); ++i) {
      const std::string number = std::to_string(i);
      text += "{:Rectangle " + number + " :InitiallyActive FALSE :OrigBoxSize 9 9}\n";
      members += "(" + number + " :ActionSlots (" + SlotsText(setup.members[i - 1]) + "))\n";
    }
    for (const auto& row : setup.movements) {
      movements += "(";
      for (const std::int32_t target : row) movements += std::to_string(target) + " ";
      movements += ")";
    }
    text += "{:IntegerVar 60 :OrigValue -9}\n";
    text += setup.isListGroup ? "{:ListGroup" : "{:TokenGroup";
    text += " 50 :MovementTable (" + movements + ")\n :TokenGroupItems (" + members +
            ") :NoTokenActionSlots (" + SlotsText(setup.noTokenSlots) + ")";
    if (setup.isListGroup) text += " :Positions ()";
    if (!setup.isActive) text += " :InitiallyActive FALSE";
    text += "}\n" + WatchLinks(50, "TokenMovedFrom") + WatchLinks(50, "TokenMovedTo");
    std::int32_t number = Model::kFirstReaction;
    for (const Model::Reaction& reaction : setup.reactions) {
      text += "{:Link " + std::to_string(number) + " :InitiallyActive FALSE :EventSource 50" +
              " :EventType " + reaction.event;
      if (!reaction.isForAnyPosition) text += " :EventData " + std::to_string(reaction.position);
      text += " :LinkEffect (:Deactivate(" + std::to_string(number++) + ") " +
              EffectText(reaction.effect) + ")}\n";
    }
    return text;
  }

  static std::string EngineState(const Setup& setup) {
    std::string text =
        Words(ObjectOf<TokenGroup>(50).TokenPosition, ObjectOf<IntegerVariable>(60).Value);
    for (std::size_t i = 0; i < setup.reactions.size(); ++i) {
      text +=
          Words(ObjectOf<Link>(Model::kFirstReaction + static_cast<std::int32_t>(i)).RunningStatus);
    }
    return text;
  }
};

TEST(TokenGroupReference, a_token_moves_like_its_model) {
  CompareWithEngine<TokenGroupSubject>(500);
}

}  // namespace
}  // namespace korvel::test
