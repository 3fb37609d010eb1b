// The texts of the fixed messages. The observer prints them.
#include "objects/messages.h"

#include <cstdarg>

#include "objects/observer.h"

namespace korvel {

const char* TextOf(Message message) {
  switch (message) {
  case Message::ParserFailed: return "Parser failed\n";
  case Message::StartupError: return "startup error\n";
  case Message::LaunchError: return "Launch error\n";
  case Message::SpawnError: return "Spawn error\n";
  case Message::ParseError: return "Parse error\n";
  case Message::TransitionToError: return "TransitionTo error\n";
  case Message::UnknownAction: return "RunActions error ActionIndex %d\n";
  case Message::NestingTooDeep: return "Event nesting too deep\n";
  case Message::TooManyActions: return "Too many actions\n";
  case Message::UnknownItemType: return "Unknown ItemType\n";
  case Message::GetItemTypeError: return "GetItemType Error\n";
  case Message::MonthError: return "Month error\n";
  case Message::MovementIdentifierError: return "MovementIdentifier Error\n";
  case Message::ElementError: return "Element Error\n";
  case Message::TokenGroupItemError: return "TokenGroupItem Error\n";
  case Message::TokenGroupActivationError: return "TokenGroup Activation Error\n";
  case Message::SetLineColourError: return "MHEG_DYNAMICLINEART_SetLineColour Error\n";
  case Message::SetFillColourError: return "MHEG_DYNAMICLINEART_SetFillColour Error\n";
  case Message::TextLength: return "%d\n";
  case Message::UnknownWord: return "Error string : %s\n";
  case Message::NoMemoryForEvent: return "Can't allocate memory for new event\n";
  case Message::NoMemoryForDisplayStack: return "Can't allocate memory for DisplayStack\n";
  case Message::NoMemoryForDisplayStackItem: return "Can't allocate memory for DisplayStack item\n";
  case Message::NoMemoryForPersistent: return "Can't allocate memory for Persistent\n";
  case Message::NoMemoryForPersistentName: return "Can't allocate memory for Persistent FileName\n";
  case Message::NoMemoryForOctets: return "Can't allocate memory for CharVal\n";
  case Message::NoMemoryForReference: return "Can't allocate memory for ObjectRefVal\n";
  case Message::NoMemoryForAppended: return "Can't allocate memory for NewVariableValue\n";
  case Message::NoMemoryForTextData: return "Can't allocate memory for TextData\n";
  case Message::NoMemoryForLongerText: return "Can't allocate memory for NewStr\n";
  case Message::NoMemoryForTextVariable: return "Can't allocate memory for TextContentVar\n";
  case Message::NoMemoryForAnchorVariable: return "Can't allocate memory for LastAnchorFiredVar\n";
  case Message::NoMemoryForPoints: return "Can't allocate memory for Points\n";
  case Message::NoMemoryForParameterGroup:
    return "Can't allocate memory for GroupId in Parameter\n";
  case Message::NoMemoryForGroup: return "Can't allocate memory for %s%s%s GroupIdentifier\n";
  }
  return "";
}

void Say(Message message, ...) {
  std::va_list values;
  va_start(values, message);
  PrintMessage(TextOf(message), values);
  va_end(values);
}

}  // namespace korvel
