// How long the reader of the textual notation takes. A scene of 60 KB, which is about as long as a
// text may be, must be read in well under 50 ms, and twice the text may not take much more than
// twice the time. The best of several readings counts, so that a busy machine does not.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

#include "textual/textual.h"

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::size_t kLength = 60000;  // bytes
constexpr Milliseconds kLimit{25};
// Four times the text takes four times as long, and sixteen times as long where something is gone
// through again for each piece.
constexpr double kMostGrowth = 8;
constexpr int kReadings = 25;

// Scenes of one kind of content, repeated: what is before it, the content, what is behind it.
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

// The shortest time in which the text is read; negative when it is refused.
Milliseconds TimeToRead(const std::string& text) {
  Milliseconds best{1e9};
  for (int i = 0; i < kReadings; ++i) {
    korvel::OwnedGroup group;
    bool isApplication = false;
    const auto start = std::chrono::steady_clock::now();
    if (korvel::ReadTextGroup(text, group, isApplication) != korvel::TextResult::Done) {
      return Milliseconds{-1};
    }
    best = std::min<Milliseconds>(best, std::chrono::steady_clock::now() - start);
  }
  return best;
}

bool IsQuick(const Shape& shape) {
  const Milliseconds quarter = TimeToRead(SceneOf(shape, kLength / 4));
  const Milliseconds half = TimeToRead(SceneOf(shape, kLength / 2));
  const Milliseconds whole = TimeToRead(SceneOf(shape, kLength));
  std::printf("%-10s 15 KB %.3f ms, 30 KB %.3f ms, 60 KB %.3f ms\n", shape.name, quarter.count(),
              half.count(), whole.count());
  return quarter.count() > 0 && half.count() > 0 && whole.count() > 0 && whole < kLimit &&
         whole < kMostGrowth * quarter;
}

}  // namespace

int main() {
  bool areQuick = true;
  for (const Shape& shape : kShapes) areQuick = IsQuick(shape) && areQuick;
  if (!areQuick) std::puts("A text was refused, took too long, or more than its share.");
  return areQuick ? 0 : 1;
}
