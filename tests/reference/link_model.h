// A reference model of events: which links an event runs, in which order, and how their results and
// a change of scene affect the rest.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "comparison.h"
#include "link_content.h"

namespace korvel::test {

class LinkModel {
 public:
  struct Setup {
    std::vector<ModelLink> application, s, t;
    std::int32_t registerOfS, registerOfT;
  };

  explicit LinkModel(const Setup& setup) : setup_(setup), application_(setup.application) {}

  Outcome Do(const Step& step) {
    done_ = {};
    done_.status = step.action == "Key"            ? Key(step.numbers[0])
                   : step.action == "TransitionTo" ? RunEffects({StepTransition(step)}, true)
                                                   : Raise(EventOf(step));
    return done_;
  }

  std::string State() const {
    std::string text = Words(scene_);
    for (const ModelLink& link : application_) text += Words(link.isActive);
    for (const ModelLink& link : sceneLinks_) text += Words(link.isActive);
    return text;
  }

 private:
  // A name without the "~" that means the current directory.
  static std::string_view Plain(std::string_view name) {
    return name.starts_with('~') ? name.substr(1) : name;
  }

  static ModelEffect StepTransition(const Step& step) {
    return {ModelEffect::Transition, {}, 0, step.last.substr(2, step.last.find('"', 2) - 2)};
  }
  static ModelEvent EventOf(const Step& step) {
    return {step.last, step.numbers[0], static_cast<EventType>(step.numbers[1]),
            static_cast<ValueKind>(step.numbers[2]), step.numbers[3]};
  }

  static bool Matches(const ModelLink& link, const ModelEvent& event) {
    const ModelEvent& waits = link.event;
    const bool isSource = event.group.empty() || (Plain(waits.group) == Plain(event.group) &&
                                                  waits.number == event.number);
    const bool isCompared = waits.kind == ValueKind::Boolean || waits.kind == ValueKind::Integer;
    const bool isData = waits.kind == ValueKind::None ||
                        (isCompared && waits.kind == event.kind && waits.value == event.value);
    return link.isActive && isSource && waits.type == event.type && isData;
  }

  // The links are collected before the first one runs: five at most, the application's first.
  Status Raise(const ModelEvent& event) {
    std::vector<ModelLink> collected;
    for (const auto* links : {&application_, &sceneLinks_}) {
      for (const ModelLink& link : *links) {
        if (Matches(link, event) && collected.size() < 5) collected.push_back(link);
      }
    }
    Status status = Status::Done;
    const int scene = sceneCount_;
    for (const ModelLink& link : collected) {
      if (link.number >= 100 && sceneCount_ != scene) continue;  // its scene has ended
      done_.events += std::to_string(link.number) + " ";
      status = RunEffects(link.effects, link.number < 100);
      if (status == Status::Failure || status == Status::Replaced) return status;
    }
    return status;
  }

  Status RunEffects(const std::vector<ModelEffect>& effects, bool isOfApplication) {
    const int generation = generation_;
    for (const ModelEffect& effect : effects) {
      Status status = Status::Done;
      if (effect.kind == ModelEffect::Send && IsScene(effect.target)) status = Raise(effect.event);
      if (effect.kind == ModelEffect::Activate) SetActive(effect.link, true);
      if (effect.kind == ModelEffect::Deactivate) SetActive(effect.link, false);
      if (effect.kind == ModelEffect::Fail) {
        done_.messages += kFailMessage;
        return Status::Failure;
      }
      if (effect.kind == ModelEffect::Transition) {
        ++generation_;
        status = Transition(effect.target);
        if (!isOfApplication) return status;
      }
      if (status == Status::Failure) return status;
      if (generation_ != generation) return Status::Replaced;
    }
    return Status::Done;
  }

  bool IsScene(const std::string& name) const {
    return !scene_.empty() && Plain(scene_) == Plain(name);
  }

  void SetActive(std::int32_t number, bool isActive) {
    for (auto* links : {&application_, &sceneLinks_}) {
      for (ModelLink& link : *links) {
        if (link.number == number) link.isActive = isActive;
      }
    }
  }

  Status Transition(const std::string& target) {
    if (target == scene_) return Status::Refused;
    const bool isS = Plain(target) == "/s";
    if (!isS && Plain(target) != "/t") {  // the file does not exist
      const Status status = Raise({"~/a", 0, EventType::EngineEvent, ValueKind::Integer, 2});
      return status == Status::Failure ? status : Status::Refused;
    }
    for (ModelLink& link : application_) link.isActive = link.isActive && link.isShared;
    if (!scene_.empty()) {
      sceneLinks_.clear();
      static_cast<void>(Raise({scene_, 0, EventType::IsDeleted}));
    }
    ++sceneCount_;
    scene_ = isS ? "~/s" : "~/t";
    sceneLinks_ = isS ? setup_.s : setup_.t;
    for (const EventType type :
         {EventType::IsAvailable, EventType::ContentAvailable, EventType::IsRunning}) {
      static_cast<void>(Raise({scene_, 0, type}));
    }
    return Status::Done;
  }

  Status Key(std::int32_t key) {
    if (key == 16 || (key >= 100 && key <= 104)) {
      const std::int32_t value = key == 104 ? 4 : key;
      const Status status = Raise({"", 0, EventType::EngineEvent, ValueKind::Integer, value});
      if (status == Status::Failure) return status;
    }
    const auto isIn = [key](std::int32_t least, std::int32_t most) {
      return key >= least && key <= most;
    };
    const std::int32_t mask = scene_.empty()    ? 3
                              : scene_ == "~/s" ? setup_.registerOfS
                                                : setup_.registerOfT;
    const bool isOther = isIn(17, 99) || key >= 105;
    if (mask == 3 && (isIn(1, 15) || isOther)) return Status::Blocked;
    if (mask == 4 && isOther) return Status::Blocked;
    if (mask == 5 && (isIn(5, 14) || isOther)) return Status::Blocked;
    return Raise({"", 0, EventType::UserInput, ValueKind::Integer, key});
  }

  Setup setup_;
  std::vector<ModelLink> application_, sceneLinks_;
  std::string scene_;
  int generation_ = 0, sceneCount_ = 0;
  Outcome done_;
};

}  // namespace korvel::test
