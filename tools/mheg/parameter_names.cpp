// The names are in the order of the table of actions, which lists only the kinds of the values.
#include "mheg/parameter_names.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "objects/action_table.h"

namespace mheg {
namespace {

struct Names {
  const char* action;
  std::array<const char*, korvel::kMostParameters> values;
};

constexpr Names kNames[] = {
    {"Add", {"the number to add"}},
    {"AddItem", {"the position", "the object to add"}},
    {"Append", {"the string to append"}},
    {"Call", {"the variable for the success", "the parameters"}},
    {"CallActionSlot", {"the number of the slot"}},
    {"Clone", {"the variable for the clone"}},
    {"CloseConnection", {"the connection tag"}},
    {"DelItem", {"the object to remove"}},
    {"DeselectItem", {"the number of the item"}},
    {"Divide", {"the divisor"}},
    {"DrawArc", {"x", "y", "the width", "the height", "the start angle", "the arc angle"}},
    {"DrawLine", {"x1", "y1", "x2", "y2"}},
    {"DrawOval", {"x", "y", "the width", "the height"}},
    {"DrawPolygon", {"the list of points"}},
    {"DrawPolyline", {"the list of points"}},
    {"DrawRectangle", {"x1", "y1", "x2", "y2"}},
    {"DrawSector", {"x", "y", "the width", "the height", "the start angle", "the arc angle"}},
    {"Fork", {"the variable for the success", "the parameters"}},
    {"GetAvailabilityStatus", {"the variable for the status"}},
    {"GetBoxSize", {"the variable for the width", "the variable for the height"}},
    {"GetCellItem", {"the number of the cell", "the variable for the object"}},
    {"GetCursorPosition", {"the variable for x", "the variable for y"}},
    {"GetEngineSupport", {"the feature", "the variable for the answer"}},
    {"GetEntryPoint", {"the variable for the entry point"}},
    {"GetFillColour", {"the variable for the colour"}},
    {"GetFirstItem", {"the variable for the number"}},
    {"GetHighlightStatus", {"the variable for the status"}},
    {"GetInteractionStatus", {"the variable for the status"}},
    {"GetItemStatus", {"the number of the item", "the variable for the status"}},
    {"GetLabel", {"the variable for the label"}},
    {"GetLastAnchorFired", {"the variable for the anchor"}},
    {"GetLineColour", {"the variable for the colour"}},
    {"GetLineStyle", {"the variable for the style"}},
    {"GetLineWidth", {"the variable for the width"}},
    {"GetListItem", {"the number of the item", "the variable for the object"}},
    {"GetListSize", {"the variable for the size"}},
    {"GetOverwriteMode", {"the variable for the mode"}},
    {"GetPortion", {"the variable for the portion"}},
    {"GetPosition", {"the variable for x", "the variable for y"}},
    {"GetRunningStatus", {"the variable for the status"}},
    {"GetSelectionStatus", {"the variable for the status"}},
    {"GetSliderValue", {"the variable for the value"}},
    {"GetTextContent", {"the variable for the content"}},
    {"GetTextData", {"the variable for the text"}},
    {"GetTokenPosition", {"the variable for the position"}},
    {"GetVolume", {"the variable for the volume"}},
    {"Modulo", {"the divisor"}},
    {"Move", {"the number of the movement"}},
    {"MoveTo", {"the position"}},
    {"Multiply", {"the factor"}},
    {"OpenConnection",
     {"the variable for the success", "the protocol", "the address", "the connection tag"}},
    {"PutBefore", {"the object to put it before"}},
    {"PutBehind", {"the object to put it behind"}},
    {"ReadPersistent", {"the variable for the success", "the list of variables", "the file name"}},
    {"ScaleBitmap", {"the width", "the height"}},
    {"ScaleVideo", {"the width", "the height"}},
    {"ScrollItems", {"the number of items to scroll"}},
    {"SelectItem", {"the number of the item"}},
    {"SendEvent", {"the event source", "the event", "the event data"}},
    {"SetBoxSize", {"the width", "the height"}},
    {"SetCachePriority", {"the cache priority"}},
    {"SetCounterEndPosition", {"the end position"}},
    {"SetCounterPosition", {"the position"}},
    {"SetCounterTrigger", {"the number of the trigger", "the position"}},
    {"SetCursorPosition", {"x", "y"}},
    {"SetCursorShape", {"the cursor shape"}},
    {"SetData", {"the new content"}},
    {"SetEntryPoint", {"the entry point"}},
    {"SetFillColour", {"the colour"}},
    {"SetFirstItem", {"the number of the item"}},
    {"SetFontRef", {"the font"}},
    {"SetHighlightStatus", {"the status"}},
    {"SetInteractionStatus", {"the status"}},
    {"SetLabel", {"the label"}},
    {"SetLineColour", {"the colour"}},
    {"SetLineStyle", {"the style"}},
    {"SetLineWidth", {"the width"}},
    {"SetOverwriteMode", {"the mode"}},
    {"SetPaletteRef", {"the palette"}},
    {"SetPortion", {"the portion"}},
    {"SetPosition", {"x", "y"}},
    {"SetSliderValue", {"the value"}},
    {"SetSpeed", {"the speed"}},
    {"SetTimer", {"the number of the timer", "the time in milliseconds"}},
    {"SetTransparency", {"the transparency"}},
    {"SetVariable", {"the new value"}},
    {"SetVolume", {"the volume"}},
    {"Step", {"the number of steps"}},
    {"StorePersistent", {"the variable for the success", "the list of variables", "the file name"}},
    {"Subtract", {"the number to subtract"}},
    {"TestVariable", {"the operator", "the value to compare with"}},
    {"ToggleItem", {"the number of the item"}},
    {"TransitionTo", {"the connection tag", "the transition effect"}},
};

}  // namespace

std::span<const char* const> ParameterNames(const char* action) {
  for (const Names& names : kNames) {
    if (std::string_view(names.action) != action) continue;
    const auto end = std::find(names.values.begin(), names.values.end(), nullptr);
    return {names.values.begin(), end};
  }
  return {};
}

}  // namespace mheg
