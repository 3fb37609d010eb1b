// What every elementary action does to its target: one function for each action, declared under the
// file that holds it. The interpreter calls them with an existing target of an accepted class and
// with evaluated parameters. They return Failure or Replaced to end the action list, and anything
// else to go on.
#pragma once

#include "actions/parameters.h"

namespace korvel {

// ---- link.cpp and programs.cpp: links and resident programs ----
Status ActivateTarget(const Arguments& arguments) noexcept;
Status DeactivateTarget(const Arguments& arguments) noexcept;
Status CallProgram(const Arguments& arguments) noexcept;
Status ForkProgram(const Arguments& arguments) noexcept;

// ---- lifecycle.cpp ----
Status PreloadTarget(const Arguments& arguments) noexcept;
Status RunTarget(const Arguments& arguments) noexcept;
Status StopTarget(const Arguments& arguments) noexcept;
Status GetAvailabilityStatus(const Arguments& arguments) noexcept;
Status GetRunningStatus(const Arguments& arguments) noexcept;

// ---- groups.cpp: applications and scenes ----
Status LaunchTarget(const Arguments& arguments, const GenericValue& target) noexcept;
Status SpawnTarget(const Arguments& arguments, const GenericValue& target) noexcept;
Status TransitionToTarget(const Arguments& arguments, const GenericValue& target) noexcept;
Status QuitApplication() noexcept;
Status LockScreen(const Arguments& arguments) noexcept;
Status UnlockScreen(const Arguments& arguments) noexcept;
Status SetCachePriority(const Arguments& arguments) noexcept;
Status SetGroupTimer(const Arguments& arguments) noexcept;
Status SetInputRegister(const Arguments& arguments) noexcept;
Status SendEvent(const Arguments& arguments) noexcept;
Status GetEngineSupport(const Arguments& arguments) noexcept;

// ---- persistence.cpp ----
Status ReadPersistent(const Arguments& arguments) noexcept;
Status StorePersistent(const Arguments& arguments) noexcept;

// ---- variables.cpp ----
Status SetVariable(const Arguments& arguments) noexcept;
Status TestVariable(const Arguments& arguments) noexcept;
Status Add(const Arguments& arguments) noexcept;
Status Subtract(const Arguments& arguments) noexcept;
Status Multiply(const Arguments& arguments) noexcept;
Status Divide(const Arguments& arguments) noexcept;
Status Modulo(const Arguments& arguments) noexcept;
Status Append(const Arguments& arguments) noexcept;

// ---- token_group.cpp ----
Status Move(const Arguments& arguments) noexcept;
Status MoveTo(const Arguments& arguments) noexcept;
Status GetTokenPosition(const Arguments& arguments) noexcept;
Status CallActionSlot(const Arguments& arguments) noexcept;

// ---- list_group.cpp ----
Status AddItem(const Arguments& arguments) noexcept;
Status DelItem(const Arguments& arguments) noexcept;
Status ScrollItems(const Arguments& arguments) noexcept;
Status SetFirstItem(const Arguments& arguments) noexcept;
Status SetCellPosition(const Arguments& arguments) noexcept;
Status GetCellItem(const Arguments& arguments) noexcept;
Status GetFirstItem(const Arguments& arguments) noexcept;
Status GetListSize(const Arguments& arguments) noexcept;

// ---- list_selection.cpp ----
Status Select(const Arguments& arguments) noexcept;
Status Deselect(const Arguments& arguments) noexcept;
Status SelectItem(const Arguments& arguments) noexcept;
Status DeselectItem(const Arguments& arguments) noexcept;
Status ToggleItem(const Arguments& arguments) noexcept;
Status GetItemStatus(const Arguments& arguments) noexcept;
Status GetListItem(const Arguments& arguments) noexcept;

// ---- visibles.cpp ----
Status BringTargetToFront(const Arguments& arguments) noexcept;
Status SendTargetToBack(const Arguments& arguments) noexcept;
Status PutTargetBefore(const Arguments& arguments) noexcept;
Status PutTargetBehind(const Arguments& arguments) noexcept;
Status SetPosition(const Arguments& arguments) noexcept;
Status GetPosition(const Arguments& arguments) noexcept;
Status SetBoxSize(const Arguments& arguments) noexcept;
Status GetBoxSize(const Arguments& arguments) noexcept;
Status SetPaletteRef(const Arguments& arguments) noexcept;

// ---- content.cpp ----
Status SetData(const Arguments& arguments) noexcept;

// ---- bitmap.cpp ----
Status ScaleBitmap(const Arguments& arguments) noexcept;
Status SetTransparency(const Arguments& arguments) noexcept;
Status GetBitmapDecodeOffset(const Arguments& arguments) noexcept;
Status SetBitmapDecodeOffset(const Arguments& arguments) noexcept;

// ---- stream.cpp: streams and their components ----
Status SetCounterTrigger(const Arguments& arguments) noexcept;
Status SetVolume(const Arguments& arguments) noexcept;
Status GetVolume(const Arguments& arguments) noexcept;
Status ScaleVideo(const Arguments& arguments) noexcept;
Status SetVideoDecodeOffset(const Arguments& arguments) noexcept;
Status GetVideoDecodeOffset(const Arguments& arguments) noexcept;

// ---- line_art.cpp ----
Status SetLineWidth(const Arguments& arguments) noexcept;
Status SetLineStyle(const Arguments& arguments) noexcept;
Status SetLineColour(const Arguments& arguments) noexcept;
Status SetFillColour(const Arguments& arguments) noexcept;
Status GetLineWidth(const Arguments& arguments) noexcept;
Status GetLineStyle(const Arguments& arguments) noexcept;
Status GetLineColour(const Arguments& arguments) noexcept;
Status GetFillColour(const Arguments& arguments) noexcept;

// ---- dynamic_line_art.cpp ----
Status ClearDrawing(const Arguments& arguments) noexcept;
Status DrawArc(const Arguments& arguments) noexcept;
Status DrawLine(const Arguments& arguments) noexcept;
Status DrawOval(const Arguments& arguments) noexcept;
Status DrawPolygon(const Arguments& arguments) noexcept;
Status DrawPolyline(const Arguments& arguments) noexcept;
Status DrawRectangle(const Arguments& arguments) noexcept;
Status DrawSector(const Arguments& arguments) noexcept;

// ---- text.cpp ----
Status GetTextContent(const Arguments& arguments) noexcept;
Status GetTextData(const Arguments& arguments) noexcept;
Status SetFontRef(const Arguments& arguments) noexcept;
Status SetFontAttributes(const Arguments& arguments) noexcept;
Status SetTextColour(const Arguments& arguments) noexcept;
Status SetBackgroundColour(const Arguments& arguments) noexcept;

// ---- entry_field.cpp ----
Status GetEntryPoint(const Arguments& arguments) noexcept;
Status SetEntryPoint(const Arguments& arguments) noexcept;
Status GetOverwriteMode(const Arguments& arguments) noexcept;
Status SetOverwriteMode(const Arguments& arguments) noexcept;

// ---- hyper_text.cpp ----
Status GetLastAnchorFired(const Arguments& arguments) noexcept;

// ---- slider.cpp ----
Status StepSlider(const Arguments& arguments) noexcept;
Status SetSliderValue(const Arguments& arguments) noexcept;
Status GetSliderValue(const Arguments& arguments) noexcept;
Status SetPortion(const Arguments& arguments) noexcept;
Status GetPortion(const Arguments& arguments) noexcept;

// ---- interaction.cpp ----
Status SetHighlightStatus(const Arguments& arguments) noexcept;
Status GetHighlightStatus(const Arguments& arguments) noexcept;
Status SetInteractionStatus(const Arguments& arguments) noexcept;
Status GetInteractionStatus(const Arguments& arguments) noexcept;

}  // namespace korvel
