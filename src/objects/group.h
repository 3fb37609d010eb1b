// The groups: Application and Scene. A group owns everything that was decoded with it. The engine
// must end a running group before the group is released.
#pragma once

#include <cstdint>

#include "objects/index.h"
#include "objects/item.h"
#include "objects/list.h"
#include "objects/values.h"

namespace korvel {

// The base of every object: its reference and the two statuses that Prepare and Activate set.
struct Root {
  ObjectReference Reference;
  bool AvailabilityStatus = false;
  bool RunningStatus = false;
};

struct StandardIdentifier {
  std::int32_t JointIsoItuIdentifier = 2;
  std::int32_t MHEGStandardIdentifier = 19;
  bool operator==(const StandardIdentifier&) const = default;
};

// Whether a group has ended. Its links and action lists may still be on the call stack then, so its
// memory is kept until nothing runs. After every call that can run actions, callers check `isDead`
// before they touch the group again.
struct Life {
  bool isDying = false;  // its end has begun
  bool isDead = false;   // ended: the engine no longer finds it, and releases it once nothing runs
};

// A pending timer of a group. The platform timer of the same id is shared by all groups.
struct Timer {
  std::int32_t id = 0;
  std::int32_t value = 0;   // milliseconds, as last set
  bool isAbsolute = false;  // `value` counts from the start of the process
  ObjectReference owner;    // the group that set it first
};

// An object that a group holds: an item, or a component of a stream.
struct HeldObject {
  ItemType type = ItemType::None;
  Ingredient* record = nullptr;
};

struct Group : Root {
  explicit Group(ItemType groupType) : type(groupType) {}
  // Whether both have the same class, own reference and attributes; run-time values may differ.
  bool operator==(const Group& other) const;

  ItemType type;  // Application or Scene
  StandardIdentifier Standard;
  std::int32_t StandardVersion = 1;
  OctetString ObjectInformation;
  std::int32_t OriginalGroupCachePriority = 127;
  std::int32_t GroupCachePriority = 127;
  ActionList OnStartUp;
  ActionList OnCloseDown;
  List<Item> Items;  // in the order in which they were encoded

  Life life;
  Index<std::int32_t, HeldObject> objects;  // by number; the engine fills it before the group runs
  List<Timer> Timers;
  Group* nextEnded = nullptr;  // the next ended group that waits for release
};

struct DefaultAttributes {
  std::int32_t CharacterSet = 0;
  ColourValue BackgroundColour = ColourValue::NotSet();
  std::int32_t TextContentHook = -1;
  ColourValue TextColour;
  FontBody Font;
  OctetString FontAttributes;
  std::int32_t InterchangedProgramContentHook = -1;
  std::int32_t StreamContentHook = -1;
  std::int32_t BitmapContentHook = -1;
  std::int32_t LineArtContentHook = -1;
  ColourValue ButtonRefColour;
  ColourValue HighlightRefColour;
  ColourValue SliderRefColour;
  bool operator==(const DefaultAttributes&) const = default;
};

// One visible of the display stack, borrowed from its group. `kind` is its class.
struct StackedVisible {
  ItemType kind = ItemType::None;
  Ingredient* visible = nullptr;
};

struct Application : Group {
  Application() : Group(ItemType::Application) {}

  ActionList OnSpawnCloseDown;
  ActionList OnRestart;
  DefaultAttributes Defaults;

  std::int32_t LockCount = 0;  // screen-lock nesting
  // The application's and the scene's visibles, bottom-most first.
  List<StackedVisible> DisplayStack;
};

struct NextScene {
  OctetString SceneReference;
  std::int32_t Weight = 0;
  bool operator==(const NextScene&) const = default;
};

struct SceneCoordinateSystem {
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  bool operator==(const SceneCoordinateSystem&) const = default;
};

struct AspectRatio {
  std::int32_t Width = 4;
  std::int32_t Height = 3;
  bool operator==(const AspectRatio&) const = default;
};

struct Scene : Group {
  Scene() : Group(ItemType::Scene) {}

  std::int32_t InputEventReg = 0;
  SceneCoordinateSystem SceneCS;
  AspectRatio Aspect;
  bool MovingCursor = false;
  List<NextScene> NextScenes;
};

// The running application and scene, borrowed; null while none runs.
struct RunningGroups {
  Application* application = nullptr;
  Scene* scene = nullptr;
};

// Which group is searched first when a reference is resolved.
enum class Scope : std::uint8_t { SceneFirst = 0, ApplicationFirst = 1 };

// An action list and the group that owns it. The list stops running when that group ends.
struct ActionHolder {
  const ActionList* actions = nullptr;
  Group* holder = nullptr;
};

}  // namespace korvel
