// The links of a case: their events, their effects, and their textual notation.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "comparison.h"

namespace korvel::test {

struct ModelEvent {
  std::string group;  // of the source; empty: no particular source
  std::int32_t number = 0;
  EventType type = EventType::TestEvent;
  ValueKind kind = ValueKind::None;
  std::int32_t value = 0;
};
// An action of a link. The link first appends its mark to the log.
struct ModelEffect {
  enum Kind { Send, Activate, Deactivate, Transition, Fail } kind;
  ModelEvent event;    // Send
  std::int32_t link;   // Activate, Deactivate
  std::string target;  // Send, Transition: the name of the scene
};
struct ModelLink {
  std::int32_t number;  // 1 to 99 in the application, from 100 in "~/s", from 200 in "~/t"
  bool isActive, isShared;
  ModelEvent event;
  std::vector<ModelEffect> effects;
};

inline std::string ReferenceTo(std::int32_t link) {
  const char* group = link < 100 ? "a" : link < 200 ? "s" : "t";
  return std::string("(\"~/") + group + "\" " + std::to_string(link) + ")";
}
inline std::string DataText(const ModelEvent& event, bool isGeneric) {
  switch (event.kind) {
  case ValueKind::Boolean:
    return std::string(isGeneric ? ":GBoolean " : "") + (event.value != 0 ? "TRUE" : "FALSE");
  case ValueKind::Integer: return (isGeneric ? ":GInteger " : "") + std::to_string(event.value);
  case ValueKind::OctetString: return std::string(isGeneric ? ":GOctetString " : "") + "\"1\"";
  default: return "";
  }
}
inline std::string SourceText(const ModelEvent& event) {
  return "(\"" + event.group + "\" " + std::to_string(event.number) + ")";
}
inline std::string EffectText(const ModelEffect& effect) {
  switch (effect.kind) {
  case ModelEffect::Activate: return ":Activate(" + ReferenceTo(effect.link) + ")";
  case ModelEffect::Deactivate: return ":Deactivate(" + ReferenceTo(effect.link) + ")";
  case ModelEffect::Transition: return ":TransitionTo((\"" + effect.target + "\" 0))";
  case ModelEffect::Fail: return std::string(kFail);
  case ModelEffect::Send: break;
  }
  return ":SendEvent((\"" + effect.target + "\" 0) " + SourceText(effect.event) + " " +
         WordOf(effect.event.type) + " " + DataText(effect.event, true) + ")";
}
inline std::string LinksText(const std::vector<ModelLink>& links) {
  std::string text;
  for (const ModelLink& link : links) {
    text += "{:Link " + std::to_string(link.number);
    if (!link.isActive) text += " :InitiallyActive FALSE";
    if (link.isShared) text += " :Shared TRUE";
    text += " :EventSource " + SourceText(link.event) + " :EventType " + WordOf(link.event.type) +
            (link.event.kind == ValueKind::None ? "" : " :EventData ") +
            DataText(link.event, false) + " :LinkEffect (:Append((\"~/a\" 900) \"" +
            std::to_string(link.number) + " \")";
    for (const ModelEffect& effect : link.effects) text += " " + EffectText(effect);
    text += ")}\n";
  }
  return text;
}

}  // namespace korvel::test
