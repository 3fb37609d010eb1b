// Workloads of the textual notation: reading one piece of content that is repeated, and writing a
// scene.
#include "textual/textual.h"

#include <memory>

#include "sample_scene.h"

namespace bench {
namespace {

struct RepeatedText {
  const char* name;
  const char* before;
  const char* piece;  // repeated until the text is long enough
  const char* after;
};
constexpr RepeatedText kRepeatedTexts[] = {
    {"objects", "{:Scene (\"~/s\" 0) :Items (",
     "{:Link 1 :EventSource 0 :EventType UserInput :EventData 100 :LinkEffect "
     "(:Add((\"~/a\" 1) 1) :SetPosition(2 :IndirectRef 5 200))}\n"
     "{:Text 2 :OrigContent \"Press a key\" :OrigBoxSize 400 60 :TextColour '=FF=FF=FF'}\n",
     ")}"},
    {"actions", "{:Scene (\"~/s\" 0) :OnStartUp (", ":Run(1)", ")}"},
    {"numbers", "{:Scene (\"~/s\" 0) :Items ({:TokenGroup 1 :TokenGroupItems () :MovementTable ((",
     "1 ", "))})}"},
    {"string", "{:Scene (\"~/s\" 0) :ObjectInfo \"", "any text ", "\"}"},
    {"comment", "// ", "any text ", "\n{:Scene (\"~/s\" 0)}"},
};

Work ReadText(const RepeatedText& repeated, int bytes) {
  std::string text = repeated.before;
  while (text.size() < static_cast<std::size_t>(bytes)) text += repeated.piece;
  return {[text = text + repeated.after] {
    korvel::OwnedGroup group;
    Require(korvel::ReadTextGroup(text, group) == korvel::TextResult::Done,
            "a scene cannot be read");
  }};
}

// `bytes` is the size of the scene's BER form; its textual notation is about three times as long.
Work WriteText(int bytes) {
  return {[scene = std::shared_ptr<korvel::Group>(SampleSceneOfBytes(bytes))] {
    korvel::OctetString text;
    Require(korvel::WriteTextGroup(*scene, text) == korvel::Status::Done,
            "a scene cannot be written as text");
  }};
}

}  // namespace

std::vector<Workload> TextWorkloads() {
  const std::vector<int> sizes{2'000, 60'000};
  std::vector<Workload> workloads;
  for (const RepeatedText& repeated : kRepeatedTexts) {
    workloads.push_back({std::string("text/read_") + repeated.name, sizes,
                         [&repeated](int bytes) { return ReadText(repeated, bytes); }});
  }
  workloads.push_back({"text/write", sizes, WriteText});
  return workloads;
}

}  // namespace bench
