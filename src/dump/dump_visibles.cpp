// Prints the fields of visible ingredients. The words are fixed, with their misspellings ("Not
// Define", "ObsuredInput"), because tools compare dumps.
#include "dump/tree.h"

namespace korvel {
namespace {

void DumpOriginalPalette(const Tree& tree, const OptionalReference& palette) {
  tree.Line("OriginalPaletteRef");
  if (!palette.IsPresent) return tree.Deeper().Line("ObjectReference: NULL");
  tree.Deeper().ReferenceLine(palette.Reference);
}

// "Label: word", or "Label: Not Define" for an unknown number.
void DumpWordOrNone(const Tree& tree, const char* label, const char* word) {
  tree.Line("%s: %s", label, word != nullptr ? word : "Not Define");
}

void DumpJustification(const Tree& tree, const char* label, Justification value) {
  DumpWordOrNone(tree, label, WordAmong({"Start", "End", "Centre", "Justified"}, value));
}

}  // namespace

void Dump(const Tree& tree, const Visible& visible) {
  tree.Deeper().Line("Presentable:");
  DumpPresentable(tree.Deeper(), visible);
  tree.Size("OriginalBoxSize", visible.OriginalBoxSize);
  tree.Place("OriginalPosition", visible.OriginalPosition);
  DumpOriginalPalette(tree, visible.OriginalPaletteRef);
  tree.Size("BoxSize", visible.BoxSize);
  tree.Place("Position", visible.Position);
  tree.Line("PaletteRef: %s", visible.PaletteRef.IsPresent ? "Not Define Struct" : "NULL");
}

void Dump(const Tree& tree, const Interactible& interactible) {
  tree.Boolean("EngineResp", interactible.EngineResp);
  tree.Colour("HighlightRefColour", interactible.HighlightRefColour);
  tree.Boolean("HighlightStatus", interactible.HighlightStatus);
  tree.Boolean("InteractionStatus", interactible.InteractionStatus);
}

void Dump(const Tree& tree, const Bitmap& bitmap) {
  DumpBase<Visible>(tree, "Visible:", bitmap);
  tree.Boolean("Tiling", bitmap.Tiling);
  tree.Number("OriginalTransparency", bitmap.OriginalTransparency);
  tree.Number("Transparency", bitmap.Transparency);
}

void Dump(const Tree& tree, const LineArt& lineArt) {
  DumpBase<Visible>(tree, "Visible:", lineArt);
  tree.Boolean("BorderedBoundingBox", lineArt.BorderedBoundingBox);
  tree.Number("OriginalLineWidth", lineArt.OriginalLineWidth);
  tree.Number("OriginalLineStyle", static_cast<std::int32_t>(lineArt.OriginalLineStyle));
  tree.Colour("OriginalRefFillColour", lineArt.OriginalRefFillColour);
  tree.Colour("OriginalRefLineColour", lineArt.OriginalRefLineColour);
  tree.Number("LineWidth", lineArt.LineWidth);
  tree.Number("LineStyle", static_cast<std::int32_t>(lineArt.LineStyle));
  tree.Colour("RefFillColour", lineArt.RefFillColour);
  tree.Colour("RefLineColour", lineArt.RefLineColour);
}

void Dump(const Tree& tree, const Text& text) {
  DumpBase<Visible>(tree, "Visible:", text);
  tree.Font("OriginalFont", text.OriginalFont);
  tree.String("FontAttributes", text.FontAttributes);
  tree.Colour("TextColour", text.TextColour);
  tree.Colour("BackgroundColour", text.BackgroundColour);
  tree.Number("CharacterSet", text.CharacterSet);
  DumpJustification(tree, "HorizontalJustification", text.HorizontalJustification);
  DumpJustification(tree, "VerticalJustification", text.VerticalJustification);
  DumpWordOrNone(tree, "LineOrientation",
                 WordAmong({"Vertical", "Horizontal"}, text.LineOrientation));
  DumpWordOrNone(
      tree, "StartCorner",
      WordAmong({"upper_left", "upper_right", "lower_left", "lower_right"}, text.StartCorner));
  tree.Boolean("TextWrapping", text.TextWrapping);
  tree.String("TextData", text.TextData);
  tree.Font("Font", text.Font);
}

void Dump(const Tree& tree, const EntryField& field) {
  DumpBase<Text>(tree, "Text:", field);
  DumpBase<Interactible>(tree, "Interactible:", field);
  tree.Word("InputType", field.InputType, WordOf(field.InputType), "Not define InputType value: ");
  tree.String("CharList", field.CharList);
  tree.Boolean("ObsuredInput", field.ObsuredInput);
  tree.Number("MaxLength", field.MaxLength);
  tree.Number("EntryPoint", field.EntryPoint);
  tree.Boolean("OverwriteMode", field.OverwriteMode);
}

void Dump(const Tree& tree, const HyperText& text) {
  DumpBase<Text>(tree, "Text:", text);
  DumpBase<Interactible>(tree, "Interactible:", text);
  tree.String("LastAnchorFired", text.LastAnchorFired);
}

void Dump(const Tree& tree, const Button& button) {
  DumpBase<Visible>(tree, "Visible:", button);
  DumpBase<Interactible>(tree, "Interactible:", button);
  tree.Colour("ButtonRefColour", button.ButtonRefColour);
  tree.Boolean("SelectionStatus", button.SelectionStatus);
}

void Dump(const Tree& tree, const PushButton& button) {
  DumpBase<Button>(tree, "Button:", button);
  tree.String("OriginalLabel", button.OriginalLabel);
  tree.String("Label", button.Label);
  tree.Number("CharacterSet", button.CharacterSet);
}

void Dump(const Tree& tree, const SwitchButton& button) {
  DumpBase<PushButton>(tree, "PushButton:", button);
  tree.Word("ButtonStyle", button.ButtonStyle,
            WordAmong({"PushButton", "RadioButton", "CheckButton"}, button.ButtonStyle),
            "Not define Button style value: ");
}

// The format labels the style "Orientation" too.
void Dump(const Tree& tree, const Slider& slider) {
  DumpBase<Visible>(tree, "Visible:", slider);
  DumpBase<Interactible>(tree, "Interactible:", slider);
  tree.Word("Orientation", slider.Orientation, WordOf(slider.Orientation),
            "Not define orientation type value: ");
  tree.Number("InitialValue", slider.InitialValue);
  tree.Number("MinValue", slider.MinValue);
  tree.Number("MaxValue", slider.MaxValue);
  tree.Number("InitialPortion", slider.InitialPortion);
  tree.Number("StepSize", slider.StepSize);
  tree.Word("Orientation", slider.SliderStyle, WordOf(slider.SliderStyle),
            "Not define slider style type value: ");
  tree.Colour("SliderRefColour", slider.SliderRefColour);
  tree.Number("SliderValue", slider.SliderValue);
  tree.Number("Portion", slider.Portion);
}

}  // namespace korvel
