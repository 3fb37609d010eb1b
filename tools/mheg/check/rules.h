// The rules of the check, each with its name, its level and the sentence that reports and the
// documentation use. docs/checks.md has a row for each rule, and tests/unit/mheg/rules has a case
// for each.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace mheg {

enum class Level : std::uint8_t {
  Error,    // something is missing, or the engine abandons an action list
  Warning,  // the engine skips something silently
  Note,     // probably not what the author meant
};

enum class Rule : std::uint8_t {
  InvalidGroup,
  NoGroups,
  FileName,
  DuplicateNumber,
  UnknownObject,
  UnknownGroup,
  MissingContent,
  TransitionToItself,
  EndlessStart,
  UnreachableScene,
  NoWayOut,
  WrongTarget,
  IdleAction,
  WrongType,
  EndlessTest,
  UnknownProgram,
  ProgramParameters,
  NoSuchMovement,
  NoSuchSlot,
  ImpossibleEvent,
  ImpossibleData,
  UnknownKey,
  BlockedKey,
  UnknownEngineEvent,
  TimerNeverSet,
  NeverTested,
  InactiveLink,
  SixthLink,
  NoInteraction,
  IdleSlider,
  SliderLimits,
  NoSceneSize,
  InputRegister,
  ColourLength,
  FontAttributes,
  OutsideScene,
  PartlyOutsideScene,
  TextTooLarge,
  IdleClass,
  IdleAttribute,
};

struct RuleRow {
  Rule rule;
  std::string_view name;
  Level level;
  std::string_view sentence;
};

inline constexpr std::array kRules = {
    // Groups, objects and files.
    RuleRow{Rule::InvalidGroup, "invalid-group", Level::Error,
            "A file is not a group, or a mandatory part is missing."},
    RuleRow{Rule::NoGroups, "no-groups", Level::Error, "A folder has no groups."},
    RuleRow{Rule::FileName, "file-name", Level::Warning,
            "The name of a group does not lead to its file, so references by that name fail."},
    RuleRow{Rule::DuplicateNumber, "duplicate-number", Level::Error,
            "Two objects have the same number, so the second one is never found."},
    RuleRow{Rule::UnknownObject, "unknown-object", Level::Error,
            "A reference names an object that does not exist."},
    RuleRow{Rule::UnknownGroup, "unknown-group", Level::Error,
            "A reference names a group that has no file."},
    RuleRow{Rule::MissingContent, "missing-content", Level::Error,
            "An object takes its content from a file that does not exist."},
    // How groups lead to each other.
    RuleRow{Rule::TransitionToItself, "transition-to-itself", Level::Warning,
            "A scene has a transition to itself, which the engine ignores."},
    RuleRow{Rule::EndlessStart, "endless-start", Level::Error,
            "Groups lead to each other as soon as they start, without end."},
    RuleRow{Rule::UnreachableScene, "unreachable-scene", Level::Warning,
            "Nothing leads from the start-up application to a scene."},
    RuleRow{Rule::NoWayOut, "no-way-out", Level::Note,
            "Nothing leads out of a scene, and the carousel has others."},
    // Actions.
    RuleRow{Rule::WrongTarget, "wrong-target", Level::Warning,
            "An action has a target of a class that it does not accept, so it does nothing."},
    RuleRow{Rule::IdleAction, "idle-action", Level::Warning,
            "The engine does not perform an action."},
    RuleRow{Rule::WrongType, "wrong-type", Level::Warning,
            "A variable is compared with a value of another type, or set to one."},
    RuleRow{Rule::EndlessTest, "endless-test", Level::Error,
            "A link tests a variable again in reaction to its test, with the same result, so it "
            "never ends."},
    RuleRow{Rule::UnknownProgram, "unknown-program", Level::Error,
            "There is no resident program of that name, so a call ends the action list."},
    RuleRow{Rule::ProgramParameters, "program-parameters", Level::Error,
            "A call has parameters that the resident program does not accept."},
    RuleRow{Rule::NoSuchMovement, "no-such-movement", Level::Error,
            "A token group lacks a movement, or a movement leads out of the group."},
    RuleRow{Rule::NoSuchSlot, "no-such-slot", Level::Warning,
            "No member of a token group has that action slot."},
    // Links that never fire.
    RuleRow{Rule::ImpossibleEvent, "impossible-event", Level::Warning,
            "A link waits for an event that its source never raises."},
    RuleRow{Rule::ImpossibleData, "impossible-data", Level::Warning,
            "A link waits for data of a type that its event never has."},
    RuleRow{Rule::UnknownKey, "unknown-key", Level::Warning,
            "A link waits for a key that no receiver has."},
    RuleRow{Rule::BlockedKey, "blocked-key", Level::Warning,
            "A link waits for a key that the scene's input event register blocks."},
    RuleRow{Rule::UnknownEngineEvent, "unknown-engine-event", Level::Warning,
            "A link waits for an engine event that the engine never raises."},
    RuleRow{Rule::TimerNeverSet, "timer-never-set", Level::Warning,
            "A link waits for a timer that no action sets."},
    RuleRow{Rule::NeverTested, "never-tested", Level::Warning,
            "A link waits for the test of a variable that no action tests."},
    RuleRow{Rule::InactiveLink, "inactive-link", Level::Warning,
            "A link is not active at the start, and no action activates it."},
    RuleRow{Rule::SixthLink, "sixth-link", Level::Warning,
            "Five links before this one wait for the same event, and one event runs only five."},
    // Objects that take keys.
    RuleRow{Rule::NoInteraction, "no-interaction", Level::Warning,
            "No action begins the interaction of an entry field or hypertext, so it gets no key."},
    RuleRow{Rule::IdleSlider, "idle-slider", Level::Note,
            "No action begins the interaction of a slider or sets its value."},
    RuleRow{Rule::SliderLimits, "slider-limits", Level::Warning,
            "The limits, the step and the initial value of a slider contradict each other."},
    // Appearance.
    RuleRow{Rule::NoSceneSize, "no-scene-size", Level::Warning, "A scene has no :SceneCS."},
    RuleRow{Rule::InputRegister, "input-register", Level::Warning,
            "The input event register is not 3, 4 or 5, so it blocks no keys."},
    RuleRow{Rule::ColourLength, "colour-length", Level::Warning,
            "A colour does not have 3 or 4 bytes, so it is not set."},
    RuleRow{Rule::FontAttributes, "font-attributes", Level::Warning,
            "Font attributes cannot be read, so the engine uses its default."},
    RuleRow{Rule::OutsideScene, "outside-scene", Level::Warning,
            "A visible lies outside the scene."},
    RuleRow{Rule::PartlyOutsideScene, "partly-outside-scene", Level::Warning,
            "A visible lies partly outside the scene."},
    RuleRow{Rule::TextTooLarge, "text-too-large", Level::Note,
            "A text is larger than its box, by an estimate."},
    RuleRow{Rule::IdleClass, "idle-class", Level::Warning,
            "An object is of a class without effect."},
    RuleRow{Rule::IdleAttribute, "idle-attribute", Level::Note, "An attribute has no effect."},
};

consteval bool RulesAreInOrder() {
  for (std::size_t i = 0; i < kRules.size(); ++i) {
    if (static_cast<std::size_t>(kRules[i].rule) != i) return false;
  }
  return true;
}
static_assert(RulesAreInOrder());

[[nodiscard]] constexpr const RuleRow& RowOf(Rule rule) {
  return kRules[static_cast<std::size_t>(rule)];
}

// Null if no rule has that name.
[[nodiscard]] constexpr const RuleRow* FindRule(std::string_view name) {
  for (const RuleRow& row : kRules) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

[[nodiscard]] constexpr std::string_view NameOf(Level level) {
  switch (level) {
  case Level::Error: return "error";
  case Level::Warning: return "warning";
  case Level::Note: return "note";
  }
  return "";
}

}  // namespace mheg
