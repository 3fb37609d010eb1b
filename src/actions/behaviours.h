// What every elementary action does to its target: one function for each action, declared under the
// file that holds it. The interpreter calls them with an existing target of an accepted class and
// with evaluated parameters. They return Failure or Replaced to end the action list, and anything
// else to go on.
#pragma once

#include "actions/parameters.h"

namespace korvel {

// ---- link.cpp and programs.cpp: links and resident programs ----
Status ActivateTarget(const Arguments& arguments);
Status DeactivateTarget(const Arguments& arguments);
Status CallProgram(const Arguments& arguments);
Status ForkProgram(const Arguments& arguments);

// ---- lifecycle.cpp ----
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

// ---- content.cpp ----
Status SetData(const Arguments& arguments);

// ---- bitmap.cpp ----
Status ScaleBitmap(const Arguments& arguments);
Status SetTransparency(const Arguments& arguments);
Status GetBitmapDecodeOffset(const Arguments& arguments);
Status SetBitmapDecodeOffset(const Arguments& arguments);

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
