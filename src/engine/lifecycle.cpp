// The operations that replace the running groups: Launch, Spawn, Quit, TransitionTo, the engine
// start and the close-down. The new group is fetched and decoded before anything running is
// touched.

#include "actions/actions.h"
#include "engine/core.h"
#include "objects/ber/ber.h"
#include "objects/messages.h"
#include "objects/observer.h"
#include "platform/clocks.h"
#include "platform/running.h"

namespace korvel {
namespace {

Status RefuseClass(Message message) {
  Say(message);
  return Refuse(Reason::NotAnApplication);
}

bool Decode(const OctetString& bytes, OwnedGroup& group) {
  const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.Text());
  const bool isDecoded = DecodeGroup({first, bytes.Length()}, group) == Status::Done &&
                         NameOf(*group).size() <= kLongestGroupName && IndexObjects(*group);
  if (!isDecoded) ObserveReason(Reason::NotAGroup, 0);
  return isDecoded;
}

Status RaiseReferenceError(const ObjectReference& source) {
  const Status status =
      RaiseEvent(source.GroupIdentifier.View(), source.Number, EventType::EngineEvent,
                 EventData::Integer(engineEvents::kGroupReferenceError));
  return status == Status::Failure ? Status::Failure : Status::Refused;
}

// Reads the file of a group that an action names. Raises an engine event of the running application
// if the file cannot be read.
Status FetchNamedGroup(std::string_view groupName, OctetString& bytes) {
  if (ResolveGroup(groupName, bytes) == Status::Done) return Status::Done;
  const Application* application = CurrentApplication();
  return application == nullptr ? Status::Refused : RaiseReferenceError(application->Reference);
}

// Fetches and decodes a group, which must be an application.
Status ReadApplication(std::string_view groupName, Message message, OwnedGroup& group) {
  OctetString bytes;
  const Status status = FetchNamedGroup(groupName, bytes);
  if (status != Status::Done) return status;
  if (!Decode(bytes, group)) return Status::Failure;
  return IsApplication(group) ? Status::Done : RefuseClass(message);
}

ApplicationStack& TheStack() { return TheCore().applicationStack; }

bool PushCurrentApplication() {
  const Application* application = CurrentApplication();
  const std::string_view name = application == nullptr ? std::string_view{} : NameOf(*application);
  OctetString copy;
  if (!copy.Assign(name)) return false;
  TheStack().Append(std::move(copy));
  return true;
}

Status QuitToNothing() {
  TheCore().links.Clear();
  EmptyPersistentStore();
  RequestRestart(RestartReason::QuitWithoutParent);
  return Status::Failure;
}

// The application on top of the stack becomes current again. It is not started: its OnStartUp does
// not run and its links do not wait for events.
Status QuitToParent(const ObjectReference& quitting) {
  ApplicationStack& stack = TheStack();
  OctetString bytes;
  if (ResolveGroup(stack.Last().View(), bytes) != Status::Done) {
    return RaiseReferenceError(quitting);
  }
  stack.RemoveLast();
  OwnedGroup group;
  if (!Decode(bytes, group)) return Status::Failure;
  if (!IsApplication(group)) return RefuseClass(Message::SpawnError);
  AdoptApplication(std::move(group));
  return Status::Done;
}

// Stops the application's items that are not shared, because the scene ends. No event is raised,
// and a visible keeps its place in the display stack.
void StopUnsharedItems(Application& application) {
  for (const Item& item : application.Items) {
    const bool isStopped = item.Type() >= ItemType::Link && item.Type() <= ItemType::SwitchButton &&
                           !item.Record()->Shared;
    if (isStopped) StopSilently(item.Type(), *item.Record());
  }
}

// Ends the running groups and starts the named application. `name` must not belong to one of those
// groups.
Status Replace(const OctetString& name, Message message,
               bool (*setDirectory)(std::string_view groupName)) {
  OwnedGroup group;
  Status status = ReadApplication(name.View(), message, group);
  if (status == Status::Done) status = EndRunningGroups();
  if (status != Status::Done) return status;
  Application& application = AdoptApplication(std::move(group));
  return setDirectory(name.View()) ? StartApplication(application) : Status::Failure;
}

}  // namespace

Status StartEngine(std::string_view path) {
  const NestingLevel level;
  EndRunningGroupsSilently();
  TheStack().Clear();
  TheCore().currentDirectory.Clear();
  TheCore().sceneStartTime = 0;
  TheCore().random = SecondsNow();
  TheCore().programSettings = {};

  OctetString bytes;
  if (!FetchStartUp(path, bytes)) return Status::Refused;
  OwnedGroup group;
  if (!Decode(bytes, group)) {
    Say(Message::ParserFailed);
    return Status::Refused;
  }
  if (!IsApplication(group)) return RefuseClass(Message::StartupError);
  return StartApplication(AdoptApplication(std::move(group)));
}

Status Launch(std::string_view groupName) {
  const NestingLevel level;
  if (!level.IsAllowed()) return Status::Failure;
  OctetString name;
  if (!name.Assign(groupName)) return Status::Failure;
  return Replace(name, Message::LaunchError, SetDirectoryOfLaunched);
}

Status Spawn(std::string_view groupName) {
  const NestingLevel level;
  if (!level.IsAllowed()) return Status::Failure;
  if (TheStack().IsFull()) return Refuse(Reason::TooManyApplications);
  OctetString name;
  if (!name.Assign(groupName) || !PushCurrentApplication()) return Status::Failure;
  return Replace(name, Message::SpawnError, SetDirectoryOfSpawned);
}

Status Quit() {
  const NestingLevel level;
  if (!level.IsAllowed()) return Status::Failure;
  ObjectReference quitting;
  const Application* application = CurrentApplication();
  if (application != nullptr && !Copy(application->Reference, quitting)) return Status::Failure;
  const Status status = EndRunningGroups();
  if (status != Status::Done) return status;
  return TheStack().IsEmpty() ? QuitToNothing() : QuitToParent(quitting);
}

Status TransitionTo(std::string_view groupName) {
  const NestingLevel level;
  if (!level.IsAllowed()) return Status::Failure;
  const Scene* scene = CurrentScene();
  if (groupName.empty()) return Refuse(Reason::NoName);
  if (scene != nullptr && NameOf(*scene) == groupName) return Refuse(Reason::SameScene);
  OctetString name;
  if (!name.Assign(groupName)) return Status::Failure;
  OctetString bytes;
  Status status = FetchNamedGroup(name.View(), bytes);
  if (status != Status::Done) return status;
  OwnedGroup group;
  if (!Decode(bytes, group)) {
    Say(Message::ParseError);
    return Status::Failure;
  }
  if (IsApplication(group)) return RefuseClass(Message::TransitionToError);

  if (CurrentApplication() != nullptr) StopUnsharedItems(*CurrentApplication());
  status = EndScene();
  return status == Status::Done ? StartScene(AdoptScene(std::move(group))) : status;
}

void CloseDown() {
  // A link that waits for IsDeleted may have stopped this or started other groups. Groups that
  // still run are ended without events.
  static_cast<void>(EndRunningGroups());
  EndRunningGroupsSilently();
}

void ResetEngine() {
  EndRunningGroupsSilently();
  ReleaseEndedGroups();
  TheStack().Clear();
  EmptyPersistentStore();
  TheCore().currentDirectory.Clear();
  TheCore().closeNoticedAt.reset();
}

}  // namespace korvel
