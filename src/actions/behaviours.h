// The behaviour of each class: first the functions that the behaviours share, then one function for
// each elementary action, listed under the file that holds it. The interpreter calls these
// functions with an existing target of an accepted class and with evaluated parameters. They return
// Failure or Replaced to end the action list, and anything else to continue.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "actions/actions.h"
#include "actions/parameters.h"
#include "objects/messages.h"
#include "objects/visibles.h"
#include "objects/vocabulary.h"

namespace korvel {

// ---- answers.cpp: events, redraws and answers ----

// Raises an event of the object. Callers must return Failure and Replaced immediately: after
// Replaced the object itself has ended. Done in every other case, even if other groups were
// replaced.
Status RaiseFrom(const Ingredient& object, EventType type, EventData data = {});

// Raises an EngineEvent of the running application. Callers must return Failure immediately.
Status RaiseEngineEvent(std::int32_t number);

// Requests a redraw if the object is running. Callers must return Failure and Replaced immediately,
// as for RaiseFrom.
Status RedrawIfRunning(const Ingredient& object);

// Write an answer into the variable that the parameter at `place` names. Refused if the variable is
// not of the class.
Status AnswerBoolean(const Arguments& arguments, std::size_t place, bool value);
Status AnswerInteger(const Arguments& arguments, std::size_t place, std::int32_t value);
// Prints `message` and returns Failure if memory runs out.
Status AnswerOctets(const Arguments& arguments, std::size_t place, std::string_view value,
                    Message message);
Status AnswerReference(const Arguments& arguments, std::size_t place, const ObjectReference& value);
// Writes both numbers or, if one of the two variables is of another class, neither.
Status AnswerPair(const Arguments& arguments, std::int32_t first, std::int32_t second);

// ---- lifecycle.cpp: preparing, activating and stopping ----

// Whether objects of the class are in the display stack while they run.
[[nodiscard]] constexpr bool IsVisibleClass(ItemType type) {
  return Contains(kVisibles | kButtons, type);
}

// Puts a visible on top of the application's display stack, or removes it. Failure if memory runs
// out.
Status EnterDisplayStack(ItemType type, Ingredient& visible);
void LeaveDisplayStack(ItemType type, Ingredient& visible);

// Activate and Deactivate for the classes that need more than a flag and the display stack. Each is
// in the file of its class.
Change ActivateStream(Stream& stream);
Change DeactivateStream(Stream& stream);
Change ActivateTokenGroup(TokenGroup& group);
Change DeactivateTokenGroup(TokenGroup& group);
Change ActivateListGroup(ListGroup& group);
Change DeactivateListGroup(ListGroup& group);

// Fetches the text that the object's content names. If the file cannot be read, the text is
// unchanged and EngineEvent 3 is raised. Callers must return Failure immediately.
Status FetchText(Text& text);

// ---- interaction.cpp: highlight and interaction ----

// Engine-wide state of the classes. An engine start resets it, and a group that ends removes its
// own objects.
struct ClassVariables {
  FoundObject interactingObject;  // the interaction in progress, one at a time
  std::size_t chosenAnchor = 0;   // the 0-based current anchor of an interacting hyper text
};
[[nodiscard]] ClassVariables& CurrentClassVariables();

// The part of an entry field, hyper text or slider that can be highlighted and interacted with.
// Null for every other class.
[[nodiscard]] Interactible* InteractibleOf(const FoundObject& object);

// Ends the interaction of an object without an event.
void ForgetInteraction(const Ingredient& object, Interactible& interactible);

// Ends the interaction of an object that stops: clears its flag and raises InteractionCompleted.
Status EndInteraction(Ingredient& object, Interactible& interactible);

// Ends the highlight and the interaction of an object without events.
void ClearInteraction(const FoundObject& object);

// Offer a key to an object; the file of its class lists its keys. False if it does not use the key,
// which is then passed to the scene; otherwise `result` is the result of the key.
[[nodiscard]] bool TakeKey(EntryField& field, std::int32_t key, Status& result);
[[nodiscard]] bool TakeKey(HyperText& text, std::int32_t key, Status& result);
[[nodiscard]] bool TakeKey(Slider& slider, std::int32_t key, Status& result);

// Enters one character into an entry field by the rules of its mode and maximum length.
Status EnterCharacter(EntryField& field, char character);

// Selects the first anchor again, as at the start of an interaction: new data has replaced the
// anchor that the viewer chose.
void ForgetChosenAnchor(const HyperText& text);

// ---- line_art.cpp: colours ----

// Reads the action's first parameter as a colour: an index or an absolute colour, given directly or
// held by an integer or octet string variable. Refused, with `colour` unchanged, if it is neither.
Status ReadColour(const Arguments& arguments, ColourValue& colour);

// ---- list_layout.cpp: the items in the cells of a list group ----
// Places of items and cells count from 1; 0 means none.

[[nodiscard]] std::int32_t ItemCount(const ListGroup& group);
[[nodiscard]] std::int32_t CellCount(const ListGroup& group);

// The item at a place, or null.
[[nodiscard]] ListItem* ItemAt(ListGroup& group, std::int32_t place);

// The place of the item that refers to the object, or 0.
[[nodiscard]] std::int32_t PlaceOf(const ListGroup& group, const ObjectReference& object);

// The place of the item that the layout puts into a cell, or 0.
[[nodiscard]] std::int32_t ItemInCell(const ListGroup& group, std::int32_t cell);

// The first item: one of the items if the list wraps around, possibly outside them otherwise.
[[nodiscard]] std::int32_t EffectiveFirstItem(const ListGroup& group);

// Puts the items into the cells and removes the others from the screen, without events; then
// requests a redraw if the group is running. Callers must return Failure and Replaced immediately.
Status LayOut(ListGroup& group);

// Removes an item's visible from the screen, without events.
void Withdraw(const ListGroup& group, ListItem& item);

// ---- programs.cpp ----
Status CallProgram(const Arguments& arguments);
Status ForkProgram(const Arguments& arguments);

// ---- lifecycle.cpp ----
Status ActivateTarget(const Arguments& arguments);
Status DeactivateTarget(const Arguments& arguments);
Status PreloadTarget(const Arguments& arguments);
Status RunTarget(const Arguments& arguments);
Status StopTarget(const Arguments& arguments);
Status GetAvailabilityStatus(const Arguments& arguments);
Status GetRunningStatus(const Arguments& arguments);

// ---- groups.cpp: applications and scenes ----
Status LaunchTarget(const Arguments& arguments, const GenericValue& target);
Status SpawnTarget(const Arguments& arguments, const GenericValue& target);
Status TransitionToTarget(const Arguments& arguments, const GenericValue& target);
Status QuitApplication();
Status LockScreen(const Arguments& arguments);
Status UnlockScreen(const Arguments& arguments);
Status SetCachePriority(const Arguments& arguments);
Status SetGroupTimer(const Arguments& arguments);
Status SetInputRegister(const Arguments& arguments);
Status SendEvent(const Arguments& arguments);

// ---- engine_support.cpp ----
Status GetEngineSupport(const Arguments& arguments);

// ---- persistence.cpp ----
Status ReadPersistent(const Arguments& arguments);
Status StorePersistent(const Arguments& arguments);

// ---- variables.cpp ----
Status SetVariable(const Arguments& arguments);
Status TestVariable(const Arguments& arguments);
Status Add(const Arguments& arguments);
Status Subtract(const Arguments& arguments);
Status Multiply(const Arguments& arguments);
Status Divide(const Arguments& arguments);
Status Modulo(const Arguments& arguments);
Status Append(const Arguments& arguments);

// ---- token_group.cpp ----
Status Move(const Arguments& arguments);
Status MoveTo(const Arguments& arguments);
Status GetTokenPosition(const Arguments& arguments);
Status CallActionSlot(const Arguments& arguments);

// ---- list_group.cpp ----
Status AddItem(const Arguments& arguments);
Status DelItem(const Arguments& arguments);
Status ScrollItems(const Arguments& arguments);
Status SetFirstItem(const Arguments& arguments);
Status SetCellPosition(const Arguments& arguments);
Status GetCellItem(const Arguments& arguments);
Status GetFirstItem(const Arguments& arguments);
Status GetListSize(const Arguments& arguments);

// ---- list_selection.cpp ----
Status Select(const Arguments& arguments);
Status Deselect(const Arguments& arguments);
Status SelectItem(const Arguments& arguments);
Status DeselectItem(const Arguments& arguments);
Status ToggleItem(const Arguments& arguments);
Status GetItemStatus(const Arguments& arguments);
Status GetListItem(const Arguments& arguments);

// ---- visibles.cpp ----
Status BringTargetToFront(const Arguments& arguments);
Status SendTargetToBack(const Arguments& arguments);
Status PutTargetBefore(const Arguments& arguments);
Status PutTargetBehind(const Arguments& arguments);
Status SetPosition(const Arguments& arguments);
Status GetPosition(const Arguments& arguments);
Status SetBoxSize(const Arguments& arguments);
Status GetBoxSize(const Arguments& arguments);
Status SetPaletteRef(const Arguments& arguments);
Status ScaleBitmap(const Arguments& arguments);
Status SetTransparency(const Arguments& arguments);
Status GetBitmapDecodeOffset(const Arguments& arguments);
Status SetBitmapDecodeOffset(const Arguments& arguments);

// ---- content.cpp ----
Status SetData(const Arguments& arguments);

// ---- stream.cpp: streams and their components ----
Status SetCounterTrigger(const Arguments& arguments);
Status SetVolume(const Arguments& arguments);
Status GetVolume(const Arguments& arguments);
Status ScaleVideo(const Arguments& arguments);
Status SetVideoDecodeOffset(const Arguments& arguments);
Status GetVideoDecodeOffset(const Arguments& arguments);

// ---- line_art.cpp ----
Status SetLineWidth(const Arguments& arguments);
Status SetLineStyle(const Arguments& arguments);
Status SetLineColour(const Arguments& arguments);
Status SetFillColour(const Arguments& arguments);
Status GetLineWidth(const Arguments& arguments);
Status GetLineStyle(const Arguments& arguments);
Status GetLineColour(const Arguments& arguments);
Status GetFillColour(const Arguments& arguments);

// ---- dynamic_line_art.cpp ----
Status ClearDrawing(const Arguments& arguments);
Status DrawArc(const Arguments& arguments);
Status DrawLine(const Arguments& arguments);
Status DrawOval(const Arguments& arguments);
Status DrawPolygon(const Arguments& arguments);
Status DrawPolyline(const Arguments& arguments);
Status DrawRectangle(const Arguments& arguments);
Status DrawSector(const Arguments& arguments);

// ---- text.cpp ----
Status GetTextContent(const Arguments& arguments);
Status GetTextData(const Arguments& arguments);
Status SetFontRef(const Arguments& arguments);
Status SetFontAttributes(const Arguments& arguments);
Status SetTextColour(const Arguments& arguments);
Status SetBackgroundColour(const Arguments& arguments);

// ---- entry_field.cpp ----
Status GetEntryPoint(const Arguments& arguments);
Status SetEntryPoint(const Arguments& arguments);
Status GetOverwriteMode(const Arguments& arguments);
Status SetOverwriteMode(const Arguments& arguments);

// ---- hyper_text.cpp ----
Status GetLastAnchorFired(const Arguments& arguments);

// ---- slider.cpp ----
Status StepSlider(const Arguments& arguments);
Status SetSliderValue(const Arguments& arguments);
Status GetSliderValue(const Arguments& arguments);
Status SetPortion(const Arguments& arguments);
Status GetPortion(const Arguments& arguments);

// ---- interaction.cpp ----
Status SetHighlightStatus(const Arguments& arguments);
Status GetHighlightStatus(const Arguments& arguments);
Status SetInteractionStatus(const Arguments& arguments);
Status GetInteractionStatus(const Arguments& arguments);

}  // namespace korvel
