// The observer: the core reports to these functions what happens while content runs, and why it
// skips a link, an action or a key. The library links functions that do nothing, except that
// messages are printed (observer.cpp); a tool links its own. Worker thread only. Everything is
// borrowed for the call. An observer changes nothing and calls nothing that can run actions.
#pragma once

#include <cstdarg>
#include <cstdint>
#include <string_view>

#include "objects/ingredients.h"
#include "objects/status.h"
#include "objects/vocabulary.h"

namespace korvel {

// Why the core skips something. The comment names the detail that is reported with it, if any.
enum class Reason : std::uint8_t {
  // Links.
  NotActive,
  OtherScene,    // the link belongs to a scene that is not the current one
  TooManyLinks,  // the event has its five links; any further ones are not reported
  GroupEnded,    // an earlier link of the same event ended the link's group
  Stopped,       // an earlier link of the same event failed or replaced a group
  // Keys and timers.
  KeyTaken,      // by the interaction in progress
  KeyBlocked,    // the input event register
  UnknownTimer,  // the timer's number, which the current scene has not set
  // Actions.
  UnreadableParameter,  // its place, from 1
  NoTarget,
  ClassNotAccepted,  // the class of the target
  NotAvailable,      // the target or, for an answer, its variable
  NotRunning,        // the target
  WrongKind,         // the value does not suit the class of the variable
  NoAnswerVariable,  // its place, from 1: there is no such variable, or it is of another class
  DivisionByZero,
  SamePosition,     // the token is already there
  NoSuchPosition,   // the position: there is no such member, slot, item or movement
  InteractionBusy,  // the target does not run, or another interaction is in progress
  // Groups.
  SameScene,            // a transition to the current scene
  NoName,               // there is no group name, or it cannot be a file name
  NotReadable,          // the file of the group cannot be read
  NotAGroup,            // the file cannot be decoded
  NotAnApplication,     // or, for a transition, not a scene
  TooManyApplications,  // spawned, and waiting for the current one to quit
  // The rest of an action list.
  ListEnds,  // a launch or a transition ends the list, even if it was refused
};

// An event is raised: by an object or, in the second form, from any source. The links that it runs
// follow.
void ObserveEvent(std::string_view sourceGroup, std::int32_t sourceNumber, EventType type,
                  EventData data);
void ObserveEvent(EventType type, EventData data);

// A link runs. Its actions follow, if it has any.
void ObserveLink(const Link& link);
void ObserveSkippedLink(const Link& link, Reason reason);

// An action begins; everything that it causes is reported before the next action or the end of the
// same list. `list` is the same object for all actions of one run of a list.
void ObserveAction(const ActionHolder& list, const ElementaryAction& action);
// The action that began last in its list has ended with another status than Done. That of a
// skipped action is Refused.
void ObserveActionStatus(Status status);
void ObserveListEnd(const ActionHolder& list);

// Why the action that began last, the key or the timer was skipped.
void ObserveReason(Reason reason, std::int32_t detail);

// A variable has a new value.
void ObserveValue(const Ingredient& variable);

// A group becomes the current one of its kind; a group has ended.
void ObserveGroupStart(const Group& group);
void ObserveGroupEnd(const Group& group);

// Prints a message, given as text and values for printf.
void PrintMessage(const char* text, std::va_list values);

// Reports why the current action is skipped, and returns the status for that.
inline Status Refuse(Reason reason, std::int32_t detail = 0) {
  ObserveReason(reason, detail);
  return Status::Refused;
}

}  // namespace korvel
