// Measures the time for reading the textual notation. A scene of 60 KB, close to the longest text,
// must take well under 50 ms, and twice the text may take little more than twice as long. The test
// measures processor time and uses the fastest of several runs, so that other load does not matter.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <optional>
#include <string>

#include "textual/textual.h"

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::size_t kLength = 60000;  // bytes
constexpr Milliseconds kLimit{25};
// For four times the text. A reader that walks the same data again for each part would take sixteen
// times as long.
constexpr double kMostGrowth = 8;
constexpr std::size_t kReadings = 25;

// Scenes of one repeated piece of content: the text before it, the piece, the text after it.
struct Shape {
  const char* name;
  const char* before;
  const char* piece;
  const char* behind;
};
constexpr Shape kShapes[] = {
    {"objects", "{:Scene (\"~/s\" 0) :Items (",
     "{:Link 1 :EventSource 0 :EventType UserInput :EventData 100 :LinkEffect "
     "(:Add((\"~/a\" 1) 1) :SetPosition(2 :IndirectRef 5 200))}\n"
     "{:Text 2 :OrigContent \"Press a key\" :OrigBoxSize 400 60 :TextColour '=FF=FF=FF'}\n",
     ")}"},
    {"actions", "{:Scene (\"~/s\" 0) :OnStartUp (", ":Run(1)", ")}"},
    {"numbers", "{:Scene (\"~/s\" 0) :Items ({:TokenGroup 1 :TokenGroupItems () :MovementTable ((",
     "1 ", "))})}"},
    {"a string", "{:Scene (\"~/s\" 0) :ObjectInfo \"", "any text ", "\"}"},
    {"a comment", "// ", "any text ", "\n{:Scene (\"~/s\" 0)}"},
};

std::string SceneOf(const Shape& shape, std::size_t length) {
  std::string text = shape.before;
  while (text.size() + std::string_view(shape.piece).size() < length) text += shape.piece;
  return text + shape.behind;
}

// The processor time for reading the text once; no value if the text is rejected.
std::optional<Milliseconds> TimeToRead(const std::string& text) {
  korvel::OwnedGroup group;
  const std::clock_t start = std::clock();
  if (korvel::ReadTextGroup(text, group) != korvel::TextResult::Done) return {};
  return Milliseconds(1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
}

// The shortest times for texts of a quarter, half and all of the length. The three texts are read
// in turn, so that a slow period of the machine affects all of them.
bool IsQuick(const Shape& shape) {
  const std::string texts[] = {SceneOf(shape, kLength / 4), SceneOf(shape, kLength / 2),
                               SceneOf(shape, kLength)};
  std::array<Milliseconds, 3> best{Milliseconds(1e9), Milliseconds(1e9), Milliseconds(1e9)};
  for (std::size_t i = 0; i < kReadings * best.size(); ++i) {
    const std::size_t place = i % best.size();
    const auto took = TimeToRead(texts[place]);
    if (!took) return false;
    best[place] = std::min(best[place], *took);
  }
  std::printf("%-10s 15 KB %.3f ms, 30 KB %.3f ms, 60 KB %.3f ms\n", shape.name, best[0].count(),
              best[1].count(), best[2].count());
  return best[2] < kLimit && best[2] < kMostGrowth * best[0];
}

}  // namespace

int main() {
  bool areQuick = true;
  for (const Shape& shape : kShapes) areQuick = IsQuick(shape) && areQuick;
  if (!areQuick) std::puts("A text was refused, took too long, or more than its share.");
  return areQuick ? 0 : 1;
}
