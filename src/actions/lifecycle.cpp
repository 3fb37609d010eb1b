// Prepares, activates, deactivates and stops ingredients; the actions that do this, and the events
// that report it. Preparing an ingredient sets every run-time value from its original one. Bitmaps
// fetch their content when they are drawn, not here.
#include "actions/behaviours.h"
#include "objects/class_tables.h"

namespace korvel {
namespace {

// Set the run-time values of an object. A class without its own function uses that of its nearest
// ancestor. False if memory or, during a close, time runs out.
bool SetUp(Ingredient& ingredient) { return Copy(ingredient.OriginalContent, ingredient.Content); }

template <class Variable>
requires requires(Variable& variable) { variable.OriginalValue; }
bool SetUp(Variable& variable) { return Copy(variable.OriginalValue, variable.Value); }

bool SetUp(TokenGroup& group) {
  group.TokenPosition = group.TokenGroupItems.IsEmpty() ? 0 : 1;
  return true;
}
bool SetUp(ListGroup& group) {
  List<ListItem> items;
  for (const TokenGroupItem& member : group.TokenGroupItems) {
    ListItem item;
    if (!MayContinue() || !Copy(member.AVisible, item.AVisible)) return false;
    if (items.Append(std::move(item)) == nullptr) return false;
  }
  group.ItemList = std::move(items);
  group.FirstItem = 1;
  return SetUp(static_cast<TokenGroup&>(group));
}

bool SetUp(Visible& visible) {
  visible.BoxSize = visible.OriginalBoxSize;
  visible.Position = visible.OriginalPosition;
  return Copy(visible.OriginalPaletteRef, visible.PaletteRef) &&
         SetUp(static_cast<Ingredient&>(visible));
}
bool SetUp(Bitmap& bitmap) {
  bitmap.Transparency = bitmap.OriginalTransparency;
  bitmap.ScaledSize = {kNotScaled, kNotScaled};
  bitmap.DecodeOffset = {};
  return SetUp(static_cast<Visible&>(bitmap));
}
bool SetUp(LineArt& lineArt) {
  lineArt.LineWidth = lineArt.OriginalLineWidth;
  lineArt.LineStyle = lineArt.OriginalLineStyle;
  return Copy(lineArt.OriginalRefLineColour, lineArt.RefLineColour) &&
         Copy(lineArt.OriginalRefFillColour, lineArt.RefFillColour) &&
         SetUp(static_cast<Visible&>(lineArt));
}
bool SetUp(Text& text) {
  const OctetString& content = text.OriginalContent.Data;
  const bool isIncluded = !text.OriginalContent.IsReferenced;
  text.TextData.Clear();
  return (!isIncluded || text.TextData.CopyFrom(content)) && Copy(text.OriginalFont, text.Font) &&
         SetUp(static_cast<Visible&>(text));
}
bool SetUp(EntryField& field) {
  field.EntryPoint = 0;
  field.OverwriteMode = false;
  return SetUp(static_cast<Text&>(field));
}
bool SetUp(HyperText& text) {
  text.LastAnchorFired.Clear();
  return SetUp(static_cast<Text&>(text));
}
bool SetUp(PushButton& button) {
  return button.Label.CopyFrom(button.OriginalLabel) && SetUp(static_cast<Visible&>(button));
}
bool SetUp(Slider& slider) {
  slider.SliderValue = slider.InitialValue;
  slider.Portion = slider.InitialPortion;
  return SetUp(static_cast<Visible&>(slider));
}

bool SetUp(Audio& audio) {
  audio.Volume = audio.OriginalVolume;
  return true;
}
bool SetUp(Video& video) {
  video.ScaledSize = {kNotScaled, kNotScaled};
  video.DecodeOffset = {};
  return SetUp(static_cast<Visible&>(video));
}

Change ActivateVisible(ItemType type, Ingredient& visible) {
  if (EnterDisplayStack(type, visible) == Status::Failure) return Change::Failure;
  visible.RunningStatus = true;
  return ChangeOf(RequestRedraw());
}

Change DeactivateVisible(ItemType type, Ingredient& visible) {
  visible.RunningStatus = false;
  LeaveDisplayStack(type, visible);
  const Status status = RequestRedraw();
  Interactible* interactible = InteractibleOf({type, &visible});
  if (status == Status::Failure) {
    // No event follows a failure, but a stopped object must not block other interactions.
    if (interactible != nullptr) ForgetInteraction(visible, *interactible);
    return Change::Failure;
  }
  if (IsGone(visible)) return Change::Changed;
  return interactible == nullptr ? Change::Changed
                                 : ChangeOf(EndInteraction(visible, *interactible));
}

Status StartProgram(ItemType type, Program& program) {
  if (!program.InitiallyAvailable) return Status::Done;
  return Prepare(type, program) == Change::Failure ? Status::Failure : Status::Done;
}

}  // namespace

Change Prepare(ItemType type, Ingredient& ingredient) {
  if (ingredient.AvailabilityStatus) return Change::Nothing;
  bool isSetUp = true;
  VisitIngredientClass(type,
                       [&]<class Record>() { isSetUp = SetUp(static_cast<Record&>(ingredient)); });
  if (!isSetUp) return Change::Failure;
  ingredient.AvailabilityStatus = true;
  if (Contains(kTexts, type) && ingredient.Content.IsReferenced &&
      FetchText(static_cast<Text&>(ingredient)) == Status::Failure) {
    return Change::Failure;
  }
  return Change::Changed;
}

Status EnterDisplayStack(ItemType type, Ingredient& visible) {
  Application* application = CurrentApplication();
  if (application == nullptr) return Status::Refused;
  // A visible that a transition has stopped silently still has its entry.
  LeaveDisplayStack(type, visible);
  return AppendOnTop(*application, type, visible);
}

void LeaveDisplayStack(ItemType type, Ingredient& visible) {
  Application* application = CurrentApplication();
  if (application == nullptr) return;
  RemoveFromStack(*application, type, visible);  // a visible without an entry is fine
}

Change Activate(ItemType type, Ingredient& ingredient) {
  if (ingredient.RunningStatus) return Change::Nothing;
  switch (type) {
  case ItemType::Stream: return ActivateStream(static_cast<Stream&>(ingredient));
  case ItemType::TokenGroup: return ActivateTokenGroup(static_cast<TokenGroup&>(ingredient));
  case ItemType::ListGroup: return ActivateListGroup(static_cast<ListGroup&>(ingredient));
  default: break;
  }
  if (IsVisibleClass(type)) return ActivateVisible(type, ingredient);
  ingredient.RunningStatus = true;
  return Change::Changed;
}

Change Deactivate(ItemType type, Ingredient& ingredient) {
  if (!ingredient.RunningStatus) return Change::Nothing;
  switch (type) {
  case ItemType::Stream: return DeactivateStream(static_cast<Stream&>(ingredient));
  case ItemType::TokenGroup: return DeactivateTokenGroup(static_cast<TokenGroup&>(ingredient));
  case ItemType::ListGroup: return DeactivateListGroup(static_cast<ListGroup&>(ingredient));
  default: break;
  }
  if (IsVisibleClass(type)) return DeactivateVisible(type, ingredient);
  ingredient.RunningStatus = false;
  return Change::Changed;
}

void StopSilently(ItemType type, Ingredient& ingredient) {
  if (!ingredient.RunningStatus) return;
  ingredient.RunningStatus = false;
  ClearInteraction({type, &ingredient});
}

Status RunIngredient(ItemType type, Ingredient& ingredient) {
  // A group's start makes programs available; they run when they are called.
  if (Contains(kPrograms, type)) {
    return StartProgram(type, static_cast<Program&>(ingredient));
  }
  if (Prepare(type, ingredient) == Change::Failure) return Status::Failure;
  if (IsGone(ingredient)) return Status::Replaced;
  const Change change = Activate(type, ingredient);
  if (change == Change::Failure) return Status::Failure;
  if (IsGone(ingredient)) return Status::Replaced;
  if (change == Change::Nothing || type == ItemType::Link) return Status::Done;
  return RaiseFrom(ingredient, EventType::IsRunning);
}

Status StopIngredient(ItemType type, Ingredient& ingredient) {
  const Change change = Deactivate(type, ingredient);
  if (change == Change::Failure) return Status::Failure;
  if (IsGone(ingredient)) return Status::Replaced;
  return change == Change::Changed ? RaiseFrom(ingredient, EventType::IsStopped) : Status::Done;
}

Status PreloadTarget(const Arguments& arguments) {
  auto& target = arguments.target.As<Ingredient>();
  const Change change = Prepare(arguments.target.type, target);
  if (change == Change::Failure) return Status::Failure;
  if (IsGone(target)) return Status::Replaced;
  if (change == Change::Nothing) return Status::Done;
  const Status status = RaiseFrom(target, EventType::IsAvailable);
  return status == Status::Done ? RaiseFrom(target, EventType::ContentAvailable) : status;
}

Status RunTarget(const Arguments& arguments) {
  return RunIngredient(arguments.target.type, arguments.target.As<Ingredient>());
}

Status StopTarget(const Arguments& arguments) {
  return StopIngredient(arguments.target.type, arguments.target.As<Ingredient>());
}

// Calls a program without parameters, or makes a link wait for its event. Raises no event.
Status ActivateTarget(const Arguments& arguments) {
  auto& target = arguments.target.As<Ingredient>();
  if (Activate(arguments.target.type, target) != Change::Changed) return Status::Refused;
  if (arguments.target.type != ItemType::ResidentProgram) return Status::Done;
  return RunResidentProgram(arguments.target.As<ResidentProgram>().Name.View(), {},
                            arguments.groupName);
}

Status DeactivateTarget(const Arguments& arguments) {
  auto& target = arguments.target.As<Ingredient>();
  return Deactivate(arguments.target.type, target) == Change::Changed ? Status::Done
                                                                      : Status::Refused;
}

Status GetAvailabilityStatus(const Arguments& arguments) {
  return AnswerBoolean(arguments, 0, arguments.target.object->AvailabilityStatus);
}

Status GetRunningStatus(const Arguments& arguments) {
  return AnswerBoolean(arguments, 0, arguments.target.object->RunningStatus);
}

}  // namespace korvel
