// The classes, attributes and actions that have no effect in this engine. docs/behaviour.md lists
// them too; a test compares the two.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include "mheg/check/departures.h"
#include "objects/action_table.h"
#include "objects/vocabulary.h"

namespace mheg {

// Their objects are never drawn, heard or called.
inline constexpr korvel::ClassSet kIdleClasses =
    korvel::kButtons | korvel::SetOf(korvel::ItemType::LineArt, korvel::ItemType::RTGraphics,
                                     korvel::ItemType::Font, korvel::ItemType::CursorShape,
                                     korvel::ItemType::RemoteProgram,
                                     korvel::ItemType::InterchangedProgram);

struct IdleAttribute {
  korvel::ClassSet classes;
  std::string_view keyword;
};

// Attributes of the other classes. Those that describe the content to receivers and services
// (:StdID, :SceneCS, :CHook, :ComponentTag and so on) are not listed, because an author expects no
// visible effect of them.
inline constexpr std::array kIdleAttributes = {
    IdleAttribute{korvel::SetOf(korvel::ItemType::Application), ":CharacterSet"},
    IdleAttribute{korvel::SetOf(korvel::ItemType::Application), ":Font"},
    IdleAttribute{korvel::SetOf(korvel::ItemType::Application), ":ButtonRefColour"},
    IdleAttribute{korvel::SetOf(korvel::ItemType::Application), ":HighlightRefColour"},
    IdleAttribute{korvel::SetOf(korvel::ItemType::Scene), ":AspectRatio"},
    IdleAttribute{korvel::SetOf(korvel::ItemType::Scene), ":MovingCursor"},
    IdleAttribute{korvel::SetOf(korvel::ItemType::Rectangle), ":BBBox"},
    IdleAttribute{korvel::SetOf(korvel::ItemType::Rectangle, korvel::ItemType::DynamicLineArt),
                  ":OrigContent"},
    IdleAttribute{korvel::kTexts, ":OrigFont"},
    IdleAttribute{korvel::kTexts, ":CharacterSet"},
    IdleAttribute{korvel::kTexts, ":LineOrientation"},
    IdleAttribute{korvel::kTexts, ":StartCorner"},
    IdleAttribute{korvel::kInteractibles, ":EngineResp"},
    IdleAttribute{korvel::kInteractibles, ":HighlightRefColour"},
};

[[nodiscard]] constexpr bool IsIdleAttribute(korvel::ItemType type, std::string_view keyword) {
  return std::any_of(
      kIdleAttributes.begin(), kIdleAttributes.end(), [&](const IdleAttribute& attribute) {
        return korvel::Contains(attribute.classes, type) && attribute.keyword == keyword;
      });
}

// An action that accepts no class is not performed, except those that lead out of a group.
[[nodiscard]] constexpr bool IsIdleAction(const korvel::ActionRow& row) {
  return row.accepts == 0 && !IsDeparture(row.action);
}

}  // namespace mheg
