// A reference model of the token of token groups and list groups: movements, action slots, and
// links that react to the events of a move.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "comparison.h"

namespace korvel::test {

class TokenGroupModel {
 public:
  // An action on the group; "Fail" is one that ends its list.
  struct Effect {
    std::string action;
    std::int32_t number;
  };
  struct Slot {
    bool isNull;
    std::string mark;
    std::vector<Effect> effects;
  };
  // A link that waits for an event of the group once: it deactivates itself first.
  struct Reaction {
    std::string event;
    bool isForAnyPosition;
    std::int32_t position;
    Effect effect;
    bool isActive = false;
  };
  static constexpr std::int32_t kFirstReaction = 70;  // the object number of the first such link
  struct Setup {
    bool isActive, isListGroup;
    std::vector<std::vector<std::int32_t>> movements;
    std::vector<std::vector<Slot>> members;  // the slots of each
    std::vector<Slot> noTokenSlots;
    // At most three, because an event runs only five links, and two of those record the event.
    std::vector<Reaction> reactions;
  };

  explicit TokenGroupModel(const Setup& setup) : setup_(setup) {
    if (setup.isActive && !setup.members.empty()) token_ = 1;
  }

  Outcome Do(const Step& step) {
    done_ = {};
    const std::int32_t number = step.numbers.back();
    if (step.action == "Activate") {
      const std::int32_t index = number - kFirstReaction + 1;
      if (index <= std::ssize(setup_.reactions)) At(setup_.reactions, index).isActive = true;
    } else if (step.action == "GetTokenPosition") {
      if (setup_.isActive) integer_ = token_;
    } else {
      done_.status = Act({step.action, number});
    }
    return done_;
  }

  std::string State() const {
    std::string text = Words(token_, integer_);
    for (const Reaction& reaction : setup_.reactions) text += Words(reaction.isActive);
    return text;
  }

 private:
  Status Act(const Effect& effect) {
    if (effect.action == "Fail") {
      done_.messages += kFailMessage;
      return Status::Failure;
    }
    if (!setup_.isActive) return Status::Done;
    if (effect.action == "MoveTo") return MoveTo(effect.number);
    if (effect.action == "Move") return Move(effect.number);
    return CallActionSlot(effect.number);
  }

  Status MoveTo(std::int32_t position) {
    if (position == token_) return Status::Done;
    if (Raise("TokenMovedFrom", token_) == Status::Failure) return Status::Failure;
    token_ = position;
    return Raise("TokenMovedTo", token_);
  }

  Status Move(std::int32_t movement) {
    if (movement < 1 || movement > std::ssize(setup_.movements)) {
      done_.messages += "MovementIdentifier Error\n";
      return Status::Done;
    }
    if (token_ < 1) return Status::Done;
    const std::vector<std::int32_t>& row = At(setup_.movements, movement);
    if (token_ > std::ssize(row)) {
      done_.messages += kFailMessage;
      return Status::Failure;
    }
    return MoveTo(At(row, token_));
  }

  Status CallActionSlot(std::int32_t index) {
    if (token_ > std::ssize(setup_.members)) {
      done_.messages += "TokenGroupItem Error\n";
      return Status::Failure;
    }
    const auto& slots = token_ > 0 ? At(setup_.members, token_) : setup_.noTokenSlots;
    if (index < 1) index = 1;
    if (index > std::ssize(slots) || At(slots, index).isNull) return Status::Done;
    done_.events += Mark(At(slots, index).mark);
    for (const Effect& effect : At(slots, index).effects) {
      if (Act(effect) == Status::Failure) return Status::Failure;
    }
    return Status::Done;
  }

  // The links are collected before the first one runs.
  Status Raise(const std::string& event, std::int32_t position) {
    done_.events += Mark(event, position);
    std::vector<std::size_t> collected;
    for (std::size_t i = 0; i < setup_.reactions.size(); ++i) {
      const Reaction& reaction = setup_.reactions[i];
      const bool isPosition = reaction.isForAnyPosition || reaction.position == position;
      if (reaction.isActive && reaction.event == event && isPosition) collected.push_back(i);
    }
    for (const std::size_t i : collected) {
      setup_.reactions[i].isActive = false;
      if (Act(setup_.reactions[i].effect) == Status::Failure) return Status::Failure;
    }
    return Status::Done;
  }

  Setup setup_;
  std::int32_t token_ = 0;
  std::int32_t integer_ = -9;
  Outcome done_;
};

}  // namespace korvel::test
