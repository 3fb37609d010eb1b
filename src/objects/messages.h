// The fixed messages that the engine prints to standard output. They are the only diagnostics that
// an application's author sees, so their texts never change.
#pragma once

#include <cstdint>

namespace korvel {

enum class Message : std::uint8_t {
  // Starting and replacing groups.
  ParserFailed,
  StartupError,
  LaunchError,
  SpawnError,
  ParseError,
  TransitionToError,
  // Action lists and their limits.
  UnknownAction,  // its number, an int
  NestingTooDeep,
  TooManyActions,
  // Objects, actions and resident programs.
  UnknownItemType,
  GetItemTypeError,
  MonthError,
  MovementIdentifierError,
  ElementError,
  TokenGroupItemError,
  TokenGroupActivationError,
  SetLineColourError,
  SetFillColourError,
  TextLength,   // GetTextData reports the length of the text, an int
  UnknownWord,  // in the textual notation: the word
  // Memory has run out.
  NoMemoryForEvent,
  NoMemoryForDisplayStack,
  NoMemoryForDisplayStackItem,
  NoMemoryForPersistent,
  NoMemoryForPersistentName,
  NoMemoryForOctets,
  NoMemoryForReference,
  NoMemoryForAppended,
  NoMemoryForTextData,
  NoMemoryForLongerText,
  NoMemoryForTextVariable,
  NoMemoryForAnchorVariable,
  NoMemoryForPoints,
  NoMemoryForParameterGroup,
  NoMemoryForGroup,  // the class, then either " " and the attribute, or "" and ""
};

// The text of a message as printf formats it, with its line end.
[[nodiscard]] const char* TextOf(Message message);

// Prints a message. The values after it are those in the comments on `Message`, in that order.
void Say(Message message, ...);

}  // namespace korvel
