// The fixed screens that the viewer sees while no application runs.
#include "platform/canvases.h"
#include "platform/screen.h"
#include "presentation/presentation.h"
#include "presentation/text.h"

namespace korvel {

void DrawScreenText(std::string_view text) {
  constexpr std::int32_t kMargin = 50;
  constexpr std::int32_t kFontSize = 50;
  constexpr DrawnColour kGreen = 0x00FF0000;
  DrawTextIn({.Content = text,
              .X = kMargin,
              .Y = kMargin,
              .Width = kSceneWidth,
              .Height = kSceneHeight,
              .Font = {.Size = kFontSize},
              .Ink = kGreen});
}

}  // namespace korvel
