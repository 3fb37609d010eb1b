// The interpreter of action lists: for each action it evaluates the parameters, resolves the
// target, checks that the target's class is accepted, and calls the behaviour. behaviours.h lists
// the files of the behaviours.

#include "actions/actions.h"
#include "actions/behaviours.h"
#include "engine/engine.h"
#include "objects/messages.h"

namespace korvel {
namespace {

// One line per action, in numeric order. The compiler reports a missing action.
Status Perform(Action action, const Arguments& arguments, const GenericValue& target) {
  switch (action) {
  case Action::Activate: return ActivateTarget(arguments);
  case Action::Add: return Add(arguments);
  case Action::AddItem: return AddItem(arguments);
  case Action::Append: return Append(arguments);
  case Action::BringToFront: return BringTargetToFront(arguments);
  case Action::Call: return CallProgram(arguments);
  case Action::CallActionSlot: return CallActionSlot(arguments);
  case Action::Clear: return ClearDrawing(arguments);
  case Action::Clone: return Status::Done;            // not performed
  case Action::CloseConnection: return Status::Done;  // not performed
  case Action::Deactivate: return DeactivateTarget(arguments);
  case Action::DelItem: return DelItem(arguments);
  case Action::Deselect: return Deselect(arguments);
  case Action::DeselectItem: return DeselectItem(arguments);
  case Action::Divide: return Divide(arguments);
  case Action::DrawArc: return DrawArc(arguments);
  case Action::DrawLine: return DrawLine(arguments);
  case Action::DrawOval: return DrawOval(arguments);
  case Action::DrawPolygon: return DrawPolygon(arguments);
  case Action::DrawPolyline: return DrawPolyline(arguments);
  case Action::DrawRectangle: return DrawRectangle(arguments);
  case Action::DrawSector: return DrawSector(arguments);
  case Action::Fork: return ForkProgram(arguments);
  case Action::GetAvailabilityStatus: return GetAvailabilityStatus(arguments);
  case Action::GetBoxSize: return GetBoxSize(arguments);
  case Action::GetCellItem: return GetCellItem(arguments);
  case Action::GetCursorPosition: return Status::Done;  // not performed
  case Action::GetEngineSupport: return GetEngineSupport(arguments);
  case Action::GetEntryPoint: return GetEntryPoint(arguments);
  case Action::GetFillColour: return GetFillColour(arguments);
  case Action::GetFirstItem: return GetFirstItem(arguments);
  case Action::GetHighlightStatus: return GetHighlightStatus(arguments);
  case Action::GetInteractionStatus: return GetInteractionStatus(arguments);
  case Action::GetItemStatus: return GetItemStatus(arguments);
  case Action::GetLabel: return Status::Done;  // not performed
  case Action::GetLastAnchorFired: return GetLastAnchorFired(arguments);
  case Action::GetLineColour: return GetLineColour(arguments);
  case Action::GetLineStyle: return GetLineStyle(arguments);
  case Action::GetLineWidth: return GetLineWidth(arguments);
  case Action::GetListItem: return GetListItem(arguments);
  case Action::GetListSize: return GetListSize(arguments);
  case Action::GetOverwriteMode: return GetOverwriteMode(arguments);
  case Action::GetPortion: return GetPortion(arguments);
  case Action::GetPosition: return GetPosition(arguments);
  case Action::GetRunningStatus: return GetRunningStatus(arguments);
  case Action::GetSelectionStatus: return Status::Done;  // not performed
  case Action::GetSliderValue: return GetSliderValue(arguments);
  case Action::GetTextContent: return GetTextContent(arguments);
  case Action::GetTextData: return GetTextData(arguments);
  case Action::GetTokenPosition: return GetTokenPosition(arguments);
  case Action::GetVolume: return GetVolume(arguments);
  case Action::Launch: return LaunchTarget(arguments, target);
  case Action::LockScreen: return LockScreen(arguments);
  case Action::Modulo: return Modulo(arguments);
  case Action::Move: return Move(arguments);
  case Action::MoveTo: return MoveTo(arguments);
  case Action::Multiply: return Multiply(arguments);
  case Action::OpenConnection: return Status::Done;  // not performed
  case Action::Preload: return PreloadTarget(arguments);
  case Action::PutBefore: return PutTargetBefore(arguments);
  case Action::PutBehind: return PutTargetBehind(arguments);
  case Action::Quit: return QuitApplication();
  case Action::ReadPersistent: return ReadPersistent(arguments);
  case Action::Run: return RunTarget(arguments);
  case Action::ScaleBitmap: return ScaleBitmap(arguments);
  case Action::ScaleVideo: return ScaleVideo(arguments);
  case Action::ScrollItems: return ScrollItems(arguments);
  case Action::Select: return Select(arguments);
  case Action::SelectItem: return SelectItem(arguments);
  case Action::SendEvent: return SendEvent(arguments);
  case Action::SendToBack: return SendTargetToBack(arguments);
  case Action::SetBoxSize: return SetBoxSize(arguments);
  case Action::SetCachePriority: return SetCachePriority(arguments);
  case Action::SetCounterEndPosition: return Status::Refused;  // streams ignore it
  case Action::SetCounterPosition: return Status::Refused;     // streams ignore it
  case Action::SetCounterTrigger: return SetCounterTrigger(arguments);
  case Action::SetCursorPosition: return Status::Done;  // not performed
  case Action::SetCursorShape: return Status::Done;     // not performed
  case Action::SetData: return SetData(arguments);
  case Action::SetEntryPoint: return SetEntryPoint(arguments);
  case Action::SetFillColour: return SetFillColour(arguments);
  case Action::SetFirstItem: return SetFirstItem(arguments);
  case Action::SetFontRef: return SetFontRef(arguments);
  case Action::SetHighlightStatus: return SetHighlightStatus(arguments);
  case Action::SetInteractionStatus: return SetInteractionStatus(arguments);
  case Action::SetLabel: return Status::Done;  // not performed
  case Action::SetLineColour: return SetLineColour(arguments);
  case Action::SetLineStyle: return SetLineStyle(arguments);
  case Action::SetLineWidth: return SetLineWidth(arguments);
  case Action::SetOverwriteMode: return SetOverwriteMode(arguments);
  case Action::SetPaletteRef: return SetPaletteRef(arguments);
  case Action::SetPortion: return SetPortion(arguments);
  case Action::SetPosition: return SetPosition(arguments);
  case Action::SetSliderValue: return SetSliderValue(arguments);
  case Action::SetSpeed: return Status::Refused;  // streams ignore it
  case Action::SetTimer: return SetGroupTimer(arguments);
  case Action::SetTransparency: return SetTransparency(arguments);
  case Action::SetVariable: return SetVariable(arguments);
  case Action::SetVolume: return SetVolume(arguments);
  case Action::Spawn: return SpawnTarget(arguments, target);
  case Action::Step: return StepSlider(arguments);
  case Action::Stop: return StopTarget(arguments);
  case Action::StorePersistent: return StorePersistent(arguments);
  case Action::Subtract: return Subtract(arguments);
  case Action::TestVariable: return TestVariable(arguments);
  case Action::Toggle: return Status::Done;  // not performed
  case Action::ToggleItem: return ToggleItem(arguments);
  case Action::TransitionTo: return TransitionToTarget(arguments, target);
  case Action::Unload: return Status::Done;  // not performed
  case Action::UnlockScreen: return UnlockScreen(arguments);
  case Action::SetInputRegister: return SetInputRegister(arguments);
  case Action::SetCellPosition: return SetCellPosition(arguments);
  case Action::GetBitmapDecodeOffset: return GetBitmapDecodeOffset(arguments);
  case Action::SetBitmapDecodeOffset: return SetBitmapDecodeOffset(arguments);
  case Action::SetBackgroundColour: return SetBackgroundColour(arguments);
  case Action::SetTextColour: return SetTextColour(arguments);
  case Action::SetFontAttributes: return SetFontAttributes(arguments);
  case Action::SetVideoDecodeOffset: return SetVideoDecodeOffset(arguments);
  case Action::GetVideoDecodeOffset: return GetVideoDecodeOffset(arguments);
  }
  return Status::Refused;
}

// An action is skipped without a message if its parameters cannot be read, or its target is not
// found or not of an accepted class. Actions that accept no class need no target.
Status PerformOne(const ReferenceContext& context, const ActionRow& row,
                  const ElementaryAction& action) {
  Arguments arguments{context};
  arguments.given = &action.Parameters;
  if (!EvaluateParameters(row, arguments)) return Status::Refused;
  if (row.accepts != 0) {
    arguments.target = FindTarget(context, action.Target);
    const ItemType type = arguments.target.type;
    if (!Contains(row.accepts, type)) {
      return Refuse(type == ItemType::None ? Reason::NoTarget : Reason::ClassNotAccepted,
                    static_cast<std::int32_t>(type));
    }
  }
  return Perform(row.action, arguments, action.Target);
}

Status RunList(Scope scope, const ActionHolder& list, std::string_view groupName) {
  const ReferenceContext context{scope, WithoutTilde(groupName)};
  const Generations& generations = CurrentGenerations();
  const Generations remembered = generations;
  Status result = Status::Done;
  for (const ElementaryAction& action : *list.actions) {
    if (!TakeAction()) return Status::Failure;
    const ActionRow* row = FindAction(action.ActionType);
    if (row == nullptr) {
      Say(Message::UnknownAction, action.ActionType);
      result = Status::Refused;
      continue;
    }
    ObserveAction(list, action);
    const Status status = PerformOne(context, *row, action);
    if (status != Status::Done) {
      ObserveActionStatus(status);
      if (status == Status::Failure || status == Status::Replaced) return status;
    }
    if (generations != remembered) {
      if (&action + 1 != list.actions->end()) ObserveReason(Reason::ListEnds, 0);
      // A scene's own list ends with the result of the transition that it requested.
      const bool isOwnTransition =
          row->action == Action::TransitionTo && scope == Scope::SceneFirst;
      return isOwnTransition ? status : Status::Replaced;
    }
    if (list.holder != nullptr && IsGone(*list.holder)) return Status::Replaced;
  }
  return result;
}

}  // namespace

Status RunActions(Scope scope, const ActionHolder& owner, std::string_view groupName) {
  if (owner.actions == nullptr || owner.actions->IsEmpty()) return Status::Done;
  const NestingLevel level;
  if (!level.IsAllowed()) return Status::Failure;
  const Status status = RunList(scope, owner, groupName);
  ObserveListEnd(owner);
  return status;
}

}  // namespace korvel
