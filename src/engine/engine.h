// The doorway of the engine core: which application and scene run and how they come and go, events
// and links, object lookup, the display stack, timers and the persistent store. Worker thread only.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "objects/group.h"
#include "objects/ingredients.h"
#include "objects/list.h"
#include "objects/status.h"
#include "objects/visibles.h"
#include "objects/vocabulary.h"

namespace korvel {

// ---- The worker loop ----

// Finds, decodes and starts the start-up application; an empty path tries "a" and "startup". Groups
// that still run are first ended without events. Refused if no application could be started; every
// other result means that the engine has started.
Status StartEngine(std::string_view path);

// Ends the scene and the application without starting anything.
void CloseDown();

// Begins the work of one key, timer expiry or start, with its limit on the number of actions. Once
// a close is pending, all work shares one limit. Releases ended groups.
void BeginWork();

// Releases everything when the worker ends: ended groups with their canvases, the persistent store,
// the core's own state. Must be called after CloseDown and before the presentation closes.
void ResetEngine();

// Raises an event from outside: UserInput with a key number, TimerFired with a timer id, or another
// input event. Only the last kind uses `sourceNumber`.
Status RaiseOutsideEvent(std::int32_t sourceNumber, EventType type, std::int32_t value);

// ---- The running groups ----

// Null while none runs. Every call that can run actions may change both.
[[nodiscard]] Application* CurrentApplication();
[[nodiscard]] Scene* CurrentScene();

// Both, for functions that take the groups as a parameter.
[[nodiscard]] inline RunningGroups CurrentGroups() {
  return {.application = CurrentApplication(), .scene = CurrentScene()};
}

Status Launch(std::string_view groupName);
Status Spawn(std::string_view groupName);
Status Quit();
Status TransitionTo(std::string_view groupName);

// The numbers of Launch and of TransitionTo actions so far, modulo 256. Each of these actions
// counts itself before it replaces anything. An action list ends when one of the numbers changes.
struct Generations {
  std::uint8_t application = 0;
  std::uint8_t scene = 0;
  bool operator==(const Generations&) const = default;
};
[[nodiscard]] Generations& CurrentGenerations();

// Whether the group that holds the object has ended. Callers must check this after every call that
// can run actions, before they touch the object, its list or anything else of its group.
[[nodiscard]] inline bool IsGone(const Group& group) { return group.life.isDead; }
[[nodiscard]] inline bool IsGone(const Ingredient& ingredient) {
  return ingredient.owner != nullptr && ingredient.owner->life.isDead;
}

// Exists while actions, dispatch, a lifecycle operation or a redraw runs. Ended groups are not
// released while one exists.
class [[nodiscard]] Busy {
 public:
  Busy();
  ~Busy();
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
};

// One level of nesting of action lists and lifecycle operations. IsAllowed is false with too many
// levels, and for the rest of this work once a limit on nesting or actions is exceeded; the first
// excess prints a message. The caller then returns Failure, which unwinds everything.
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

// Counts one action of the current work. False, with a message the first time, when the limit is
// reached: the caller then returns Failure.
[[nodiscard]] bool TakeAction();

// Whether a loop whose length content decides may continue. False once a pending close has used up
// its time or its actions: the loop must then end, with Failure if the function can return it.
// Cheap while no close is pending.
[[nodiscard]] bool MayContinue();

// ---- Names and files ----

// Reads the file of a group name or content reference. Refused if the name cannot be a file name,
// memory runs out or, after a pause of half a second, the file cannot be read.
Status ResolveGroup(std::string_view groupName, OctetString& bytes);

// ---- Objects ----

struct FoundObject {
  ItemType type = ItemType::None;  // None: nothing matches
  Root* object = nullptr;          // an Application, a Scene or an Ingredient, as `type` says

  explicit operator bool() const { return type != ItemType::None; }
  template <class T> [[nodiscard]] T& As() const { return *static_cast<T*>(object); }
};

// Calls `visit` with the variable as a record of its own class and returns its result. Returns
// `otherwise` when the object is not a variable.
template <class Result, class Visit>
Result VisitVariable(const FoundObject& found, Result otherwise, Visit&& visit) {
  switch (found.type) {
  case ItemType::BooleanVariable: return visit(found.As<BooleanVariable>());
  case ItemType::IntegerVariable: return visit(found.As<IntegerVariable>());
  case ItemType::OctetStringVariable: return visit(found.As<OctetStringVariable>());
  case ItemType::ObjectRefVariable: return visit(found.As<ObjectRefVariable>());
  case ItemType::ContentRefVariable: return visit(found.As<ContentRefVariable>());
  default: return otherwise;
  }
}

// Finds an object of the running groups by the name of its group (a leading "~" is dropped) and
// number. Finds the groups themselves (number 0), their items and the components of streams, but
// not palettes, remote and interchanged programs, fonts and cursor shapes: actions cannot target
// these.
[[nodiscard]] FoundObject FindObject(Scope scope, std::string_view name, std::int32_t number);

// ---- Events ----

// Runs the links (five at most) that wait for this event from this source. Done if none ran,
// otherwise the result of the last one; Failure and Replaced skip the rest. `sourceGroup` is not
// read after the first link has run.
Status RaiseEvent(std::string_view sourceGroup, std::int32_t sourceNumber, EventType type,
                  EventData data);
// The same with an object as the source.
Status RaiseEvent(const Root& source, EventType type, EventData data = {});
// Runs the links that wait for this event from any source.
Status RaiseEventByType(EventType type, EventData data);

// ---- The display stack of the running application ----
// A returned Status is Failure, with a message, if memory runs out; a bool is false if there is no
// such entry. Positions are 1-based; 1 is the bottom. To search, kind None means any.

Status AppendOnTop(Application& application, ItemType kind, Ingredient& visible);
Status InsertAtPosition(Application& application, std::int32_t position, ItemType kind,
                        Ingredient& visible);
[[nodiscard]] bool EntryAtPosition(const Application& application, std::int32_t position,
                                   StackedVisible& entry);
[[nodiscard]] bool RemoveTop(Application& application, StackedVisible& entry);
bool RemoveFromStack(Application& application, ItemType kind, const Ingredient& visible);
[[nodiscard]] bool StackContains(const Application& application, ItemType kind,
                                 const Ingredient& visible);
Status InsertAtBottom(Application& application, ItemType kind, Ingredient& visible);
// Inserts on top if the reference is not in the stack.
Status InsertBelow(Application& application, ItemType kind, Ingredient& visible,
                   const Ingredient& reference);
// Refused if the reference is not in the stack.
Status InsertAbove(Application& application, ItemType kind, Ingredient& visible,
                   const Ingredient& reference);
// Removes the visibles that a group holds.
void RemoveGroupFromStack(Application& application, const Group& group);
void ClearStack(Application& application);

// The stacking actions: PutBefore puts the visible directly above the reference, PutBehind directly
// below. Refused if no application runs, the visible is not available, or one of the two is not in
// the stack. A running visible is drawn again.
Status BringToFront(ItemType kind, Visible& visible);
Status SendToBack(ItemType kind, Visible& visible);
Status PutBefore(ItemType kind, Visible& visible, const Ingredient& reference);
Status PutBehind(ItemType kind, Visible& visible, const Ingredient& reference);

// ---- Redraws ----

// Requests a redraw, unless redraws are held. Actions and the engine use only this function.
// Failure, which callers must return immediately, if an event raised while drawing failed.
Status RequestRedraw();

// While one exists, requests for a redraw are dropped. Its owner requests one redraw afterwards, so
// that the items of a list group, which are placed one by one, appear together.
class [[nodiscard]] HeldRedraws {
 public:
  HeldRedraws();
  ~HeldRedraws();
  HeldRedraws(const HeldRedraws&) = delete;
  HeldRedraws& operator=(const HeldRedraws&) = delete;
};

// ---- Timers ----

// The value that cancels a timer.
inline constexpr std::int32_t kNoTimerValue = -1;
// Sets a timer of the group, in milliseconds. The period of an absolute timer is `value`, a time
// since the process started, minus the time at which the scene started. A pending timer stays
// absolute or relative as it was first set: `isAbsolute` is then ignored.
Status SetTimer(Group& group, std::int32_t id, std::int32_t value, bool isAbsolute);

// ---- The persistent store: named blocks of bytes, in memory for as long as the engine runs ----

// Stores a block under a name and takes ownership of it. Failure, with a message and `data`
// unchanged, if memory runs out.
Status AppendPersistent(std::string_view name, OctetString&& data);
// Remove the first block of that name; TakePersistent also returns it. False if there is none.
bool TakePersistent(std::string_view name, OctetString& data);
bool RemovePersistent(std::string_view name);
void EmptyPersistentStore();

// ---- Resident programs ----

// The parameters, borrowed for the call.
using ProgramParameters = std::span<const GenericValue>;

// Runs the program of that name. Refused, with nothing written, if a parameter is missing or its
// variable is not found. Failure, with a message, for an unknown name and for an output variable of
// another class; also Failure if the program itself fails. `groupName` is the group of references
// without a group identifier.
Status RunResidentProgram(std::string_view name, ProgramParameters parameters,
                          std::string_view groupName);

// ---- Random numbers ----

// The random generator's next value, 0 to 2^31 - 1. An engine start seeds it with the time.
[[nodiscard]] std::uint32_t NextRandom();

}  // namespace korvel
