// The base of every item, and the invisible ingredients: links, programs, variables, token and list
// groups. An "Original" attribute is the decoded value; the one of the same name without "Original"
// is the run-time value, which Prepare sets from the original and actions change.
#pragma once

#include <cstdint>

#include "objects/group.h"
#include "objects/values.h"

namespace korvel {

struct Ingredient : Root {
  bool InitiallyActive = true;
  bool Shared = false;
  std::int32_t ContentHOOK = 0;
  ContentBody OriginalContent;
  ContentBody Content = ContentBody::NotPrepared();

  // The group that holds it, directly or in a Stream; set when the group becomes current.
  Group* owner = nullptr;
  // The number of its entries in the display stack: 0 or 1 in a running engine.
  std::uint32_t stackEntries = 0;
};

struct LinkCondition {
  [[no_unique_address]] ObjectReference EventSource;
  korvel::EventType EventType{};  // a link with an unknown event type never fires
  GenericValue EventData;         // None, Boolean, Integer or OctetString
  bool operator==(const LinkCondition&) const = default;
};

struct Link : Ingredient {
  LinkCondition Condition;
  ActionList LinkEffect;
};

struct Program : Ingredient {
  OctetString Name;
  bool InitiallyAvailable = true;
};
struct ResidentProgram : Program {};
struct InterchangedProgram : Program {};
struct RemoteProgram : Program {
  std::int32_t ProgramConnectionTag = 0;
};

struct Palette : Ingredient {};
struct Font : Ingredient {};
struct CursorShape : Ingredient {};

struct BooleanVariable : Ingredient {
  bool OriginalValue = false;
  bool Value = false;
};
struct IntegerVariable : Ingredient {
  std::int32_t OriginalValue = 0;
  std::int32_t Value = 0;
};
struct OctetStringVariable : Ingredient {
  OctetString OriginalValue;
  OctetString Value;
};
struct ObjectRefVariable : Ingredient {
  ObjectReference OriginalValue;
  ObjectReference Value;
};
struct ContentRefVariable : Ingredient {
  ContentReference OriginalValue;
  ContentReference Value;
};

// One entry of an ActionSlots list: a list of actions, or NULL.
struct ActionSlot {
  bool IsNull = true;
  ActionList Actions;
  bool operator==(const ActionSlot&) const = default;
};

struct TokenGroupItem {
  ObjectReference AVisible;
  List<ActionSlot> ActionSlots;
  bool operator==(const TokenGroupItem&) const = default;
};

// One movement: the target position for each token position, from position 1 on.
struct Movement {
  List<std::int32_t> Targets;
  bool operator==(const Movement&) const = default;
};

struct TokenGroup : Ingredient {
  List<Movement> MovementTable;
  List<TokenGroupItem> TokenGroupItems;
  List<ActionSlot> NoTokenActionSlots;

  std::int32_t TokenPosition = 0;  // 1-based; 0 while no member holds the token
};

struct ListItem {
  [[no_unique_address]] ObjectReference AVisible;
  bool IsSelected = false;
  bool IsPresented = false;
};

struct ListGroup : TokenGroup {
  List<Position> Positions;
  bool WrapAround = false;
  bool MultipleSelection = false;

  List<ListItem> ItemList;
  std::int32_t FirstItem = 1;  // 1-based; may lie outside the items
};

}  // namespace korvel
