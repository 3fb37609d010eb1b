// The doorway of the engine core: which application and scene run and how they come and go, events
// and links, object lookup, the display stack, timers and the persistent store. Worker thread only.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "objects/group.h"
#include "objects/ingredients.h"
#include "objects/sequence.h"
#include "objects/status.h"
#include "objects/visibles.h"
#include "objects/vocabulary.h"

namespace korvel {

// ---- What the worker loop does ----

// Finds, decodes and starts the start-up application; an empty path searches "a" and "startup".
// What still runs is given up silently first. Refused when no application could be started; every
// other result is a started engine.
Status StartEngine(std::string_view path);

// Ends the scene and the application without starting anything.
void CloseDown();

// Opens the account of one key, timer expiry or start: what its actions may cost. Once a close is
// pending, all work shares one account. Releases ended groups.
void BeginWork();

// Gives everything back at the end of the worker: ended groups with their canvases, the persistent
// store, the core's own state. To be called before the presentation closes and after CloseDown.
void ResetEngine();

// An event from outside: UserInput with a key number, or TimerFired with a timer id.
Status RaiseOutsideEvent(std::int32_t sourceNumber, EventType type, std::int32_t value);

// ---- The running groups ----

// Null while none runs. Both may change in every call that can run actions: ask again after one.
[[nodiscard]] Application* CurrentApplication();
[[nodiscard]] Scene* CurrentScene();

// Both together, for functions that decide by them without asking.
[[nodiscard]] inline RunningGroups CurrentGroups() {
  return {.application = CurrentApplication(), .scene = CurrentScene()};
}

Status Launch(std::string_view groupName);
Status Spawn(std::string_view groupName);
Status Quit();
Status TransitionTo(std::string_view groupName);

// How often the application and the scene were asked to be replaced, modulo 256. An action list
// that sees one of them change belongs to the past. Launch and TransitionTo actions count before
// they act.
struct Generations {
  std::uint8_t Application = 0;
  std::uint8_t Scene = 0;
  bool operator==(const Generations&) const = default;
};
[[nodiscard]] Generations& CurrentGenerations();

// Whether the group that holds the object has ended. To be asked after every call that can run
// actions, before the object, its list or anything else of its group is touched again.
[[nodiscard]] inline bool IsGone(const Group& group) { return group.life.isDead; }
[[nodiscard]] inline bool IsGone(const Ingredient& ingredient) {
  return ingredient.owner != nullptr && ingredient.owner->life.isDead;
}

// Held while actions, dispatch, lifecycle or a redraw are at work: ended groups are kept as long as
// one is held.
class [[nodiscard]] Busy {
 public:
  Busy();
  ~Busy();
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
};

// One level of nesting of action lists and lifecycle operations. When there are too many levels,
// says so once and IsAllowed is false: the caller then returns Failure, which unwinds everything.
class [[nodiscard]] NestingLevel {
 public:
  NestingLevel();
  ~NestingLevel();
  NestingLevel(const NestingLevel&) = delete;
  NestingLevel& operator=(const NestingLevel&) = delete;
  [[nodiscard]] bool IsAllowed() const { return isAllowed_; }

 private:
  Busy busy_;
  bool isAllowed_;
};

// Takes one action from the account of the work at hand. False when it is used up (said once):
// return Failure.
[[nodiscard]] bool TakeAction();

// Whether a loop whose length content decides may go on: false once the time that a pending close
// leaves is over. Leave the loop then, with Failure where the function has one. Costs one look at a
// flag while no close is pending.
[[nodiscard]] bool MayGoOn();

// ---- Names and files ----

// Reads the file that a group name or content reference means. Refused, after a pause, when it
// cannot be had.
Status ResolveGroup(std::string_view groupName, OctetString& bytes);

// ---- Objects ----

struct FoundObject {
  ItemType Type = ItemType::None;  // None: nothing matches
  Root* Object = nullptr;          // an Application, a Scene or an Ingredient, as Type says

  explicit operator bool() const { return Type != ItemType::None; }
  template <class T>
  [[nodiscard]] T& As() const {
    return *static_cast<T*>(Object);
  }
};

// Finds an object of the running groups by group identifier (a leading "~" is dropped) and number.
// Classes 1 to 27 are found, the components of streams among them.
[[nodiscard]] FoundObject FindObject(Scope scope, std::string_view groupIdentifier,
                                     std::int32_t number);

// ---- Events ----

// The datum of an event. Links compare booleans and integers; a link waiting for another kind never
// fires.
struct EventData {
  ValueKind Kind = ValueKind::None;
  std::int32_t Value = 0;

  [[nodiscard]] static EventData Boolean(bool value) { return {ValueKind::Boolean, value ? 1 : 0}; }
  [[nodiscard]] static EventData Integer(std::int32_t value) { return {ValueKind::Integer, value}; }
};

// Runs the links (five at the most) that wait for this event of this source, at once. Done when
// none fired, else the last link's result; Failure and Replaced stop the rest. The name is not read
// any more once a link runs.
Status RaiseEvent(std::string_view sourceGroup, std::int32_t sourceNumber, EventType type,
                  EventData data);
// The same with an object as the source.
Status RaiseEvent(const Root& source, EventType type, EventData data = {});
// Runs the links that wait for this event, whatever source they name.
Status RaiseEventByType(EventType type, EventData data);

// ---- The display stack of the running application ----
// All return Refused when the entry is not there (or no application runs), Failure when memory is
// out (said).

Status AppendOnTop(Application& application, ItemType kind, Ingredient& visible);
Status InsertAtPosition(Application& application, std::int32_t position, ItemType kind,
                        Ingredient& visible);  // 1-based; 1 is the bottom
Status EntryAtPosition(const Application& application, std::int32_t position,
                       StackedVisible& entry);
Status RemoveTop(Application& application, StackedVisible& entry);
Status RemoveFromStack(Application& application, ItemType kind, const Ingredient& visible);
// Kind None means any.
Status StackContains(const Application& application, ItemType kind, const Ingredient& visible);
Status InsertAtBottom(Application& application, ItemType kind, Ingredient& visible);
Status InsertBelow(Application& application, ItemType kind, Ingredient& visible,
                   const Ingredient& reference);
Status InsertAbove(Application& application, ItemType kind, Ingredient& visible,
                   const Ingredient& reference);
void ClearStack(Application& application);

// The stacking actions. A running visible is drawn again.
Status BringToFront(ItemType kind, Visible& visible);
Status SendToBack(ItemType kind, Visible& visible);
Status PutBefore(ItemType kind, Visible& visible, const Ingredient& reference);
Status PutBehind(ItemType kind, Visible& visible, const Ingredient& reference);

// ---- Redraws ----

// Asks for a redraw, unless redraws are held. The one way for actions and the engine to do so.
// Failure, to be returned at once, when an event raised while drawing asked to stop.
Status RequestRedraw();

// While one exists, requests for a redraw are dropped: a list group places its items one by one,
// and they are shown together.
class [[nodiscard]] HeldRedraws {
 public:
  HeldRedraws();
  ~HeldRedraws();
  HeldRedraws(const HeldRedraws&) = delete;
  HeldRedraws& operator=(const HeldRedraws&) = delete;
};

// ---- Timers ----

// Sets a timer of the group, or cancels it when `value` is kNoTimerValue. `absolute` is 0, 1 or
// kNotGiven.
inline constexpr std::int32_t kNoTimerValue = -1;
inline constexpr std::int32_t kNotGiven = 2;
Status SetTimer(Group& group, std::int32_t id, std::int32_t value, std::int32_t absolute);

// ---- The persistent store: named blocks of bytes, in memory for as long as the engine runs ----

// Puts a block in under a name, taking it over. Failure, said, with `data` still the caller's, when
// memory is out.
Status AppendPersistent(std::string_view name, OctetString&& data);
// Takes the first block of that name out. Refused when there is none.
Status TakePersistent(std::string_view name, OctetString& data);
Status RemovePersistent(std::string_view name);
void EmptyPersistentStore();

// ---- Resident programs ----

// The parameters of a call, borrowed for the call.
using ProgramParameters = std::span<const GenericValue* const>;

// Runs the program of that name. Refused, with nothing written, when a parameter is missing or its
// variable is not found; Failure, said, for an unknown name and for an output variable of another
// class. `groupName` is the group that references without a group identifier mean.
Status RunResidentProgram(std::string_view name, ProgramParameters parameters,
                          std::string_view groupName);

// ---- Chance ----

// The random generator's next value, 0 to 2^31 - 1. An engine start seeds it with the time.
[[nodiscard]] std::uint32_t NextRandom();

}  // namespace korvel
