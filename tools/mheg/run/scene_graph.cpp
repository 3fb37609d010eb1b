// Prints each visible of the display stack as text or JSON.
#include "mheg/run/scene_graph.h"

#include <string>

#include "engine/engine.h"
#include "mheg/run/surroundings.h"
#include "mheg/run/words.h"

namespace mheg {
namespace {

void PrintVisible(const korvel::StackedVisible& entry, TraceForm form) {
  const auto& visible = static_cast<const korvel::Visible&>(*entry.visible);
  const std::string number = std::to_string(visible.Reference.Number);
  const std::string_view group = visible.Reference.GroupIdentifier.View();
  TraceLine line("visible", TheSurroundings().now, 0);
  line.Field("class", ClassName(entry.kind)).Field("group", group);
  line.Field("number", visible.Reference.Number);
  line.FlagField("running", visible.RunningStatus);
  line.Field("x", visible.Position.X).Field("y", visible.Position.Y);
  line.Field("width", visible.BoxSize.Width);
  line.Field("height", visible.BoxSize.Height);
  std::string words =
      ClassName(entry.kind) + " " + number + " of " + std::string(group) + " at " +
      std::to_string(visible.Position.X) + " " + std::to_string(visible.Position.Y) + ", size " +
      std::to_string(visible.BoxSize.Width) + " " + std::to_string(visible.BoxSize.Height);
  words += visible.RunningStatus ? ", running" : ", stopped";
  if (korvel::Contains(korvel::kTexts, entry.kind)) {
    const std::string_view text = static_cast<const korvel::Text&>(visible).TextData.View();
    line.Field("text", text);
    words += ", " + Quoted(text);
  }
  line.Print(form, words);
}

}  // namespace

void PrintSceneGraph(TraceForm form) {
  const korvel::Application* application = korvel::CurrentApplication();
  if (application == nullptr) return;
  for (const korvel::StackedVisible& entry : application->DisplayStack) PrintVisible(entry, form);
}

}  // namespace mheg
