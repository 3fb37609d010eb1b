// Implements the observer of the core for a run.
#include "mheg/run/tracer.h"

#include <array>
#include <cstdio>
#include <vector>

#include "mheg/run/sources.h"
#include "mheg/run/surroundings.h"
#include "mheg/run/words.h"
#include "objects/observer.h"

namespace mheg {
namespace {

using korvel::EventData;
using korvel::EventType;
using korvel::ValueKind;

// An action list in progress.
struct OpenList {
  const korvel::ActionHolder* list;
  const korvel::ElementaryAction* action;  // the last action that began
  std::size_t depth;                       // of the lines for its actions
};

struct Trace {
  TraceForm form = TraceForm::None;
  std::vector<OpenList> open;
  const korvel::ActionList* effect = nullptr;  // of the link that ran last
  bool isReasonGiven = false;                  // for the action in progress
  Sources sources;
};

Trace& TheTrace() {
  static Trace trace;
  return trace;
}

// The depth of lines about consequences of the action in progress. Steps have depth 0, all other
// lines at least depth 1.
std::size_t Depth() { return TheTrace().open.empty() ? 1 : TheTrace().open.back().depth + 1; }

// A line, `deeper` levels below the action in progress.
TraceLine LineAbout(std::string_view what, std::size_t deeper = 0) {
  return {what, TheSurroundings().now, Depth() + deeper};
}

void PrintLine(const TraceLine& line, std::string_view words) {
  line.Print(TheTrace().form, words);
}

std::string_view GroupOf(const korvel::Root& object) {
  return object.Reference.GroupIdentifier.View();
}

const korvel::ElementaryAction* ActionInProgress() {
  return TheTrace().open.empty() ? nullptr : TheTrace().open.back().action;
}

// " TRUE", " 5", " 100 (Red)"; empty without data.
std::string WordsOf(EventType type, const EventData& data) {
  if (data.kind == ValueKind::Boolean) return data.value != 0 ? " TRUE" : " FALSE";
  if (data.kind != ValueKind::Integer) return {};
  const std::string number = " " + std::to_string(data.value);
  const bool isKey = type == EventType::UserInput && korvel::IsKey(data.value);
  return isKey ? number + " (" + KeyName(data.value) + ")" : number;
}

void AddData(const EventData& data, TraceLine& line) {
  if (data.kind == ValueKind::Boolean) line.FlagField("data", data.value != 0);
  if (data.kind == ValueKind::Integer) line.Field("data", data.value);
}

// Prints the line with the position in its source file.
void PrintWithPlace(TraceLine line, const std::string& words, const Source& source) {
  if (source.line == 0) return PrintLine(line, words);
  line.Field("file", source.file).Field("line", source.line);
  PrintLine(line, words + "  (" + source.file + ":" + std::to_string(source.line) + ")");
}

void TraceLink(const korvel::Link& link, std::string_view suffix, TraceLine line) {
  line.Field("group", GroupOf(link)).Field("number", link.Reference.Number);
  const std::string words = "link " + std::to_string(link.Reference.Number) + " of " +
                            std::string(GroupOf(link)) + std::string(suffix);
  PrintWithPlace(line, words, TheTrace().sources.Of(link));
}

void TraceGroup(std::string_view what, const korvel::Group& group, std::string_view suffix) {
  if (!IsTracing()) return;
  TraceLine line = LineAbout(what);
  line.Field("class", ClassName(group.type)).Field("group", GroupOf(group));
  PrintLine(line, NameOf(group) + std::string(suffix));
}

}  // namespace

void StartTrace(TraceForm form) { TheTrace().form = form; }

bool IsTracing() { return TheTrace().form != TraceForm::None; }

void TraceStep(std::string_view what, std::string_view words) {
  if (!IsTracing()) return;
  TheTrace().open.clear();
  TheTrace().effect = nullptr;
  TraceLine line(what, TheSurroundings().now, 0);
  line.Field("step", words);
  PrintLine(line, words);
}

void TraceFile(std::string_view path, const CarouselFile* file) {
  if (!IsTracing()) return;
  TraceLine line = LineAbout("file");
  line.Field("path", path).FlagField("found", file != nullptr);
  if (file == nullptr) return PrintLine(line, "file " + std::string(path) + " not found");
  if (!file->source.empty()) TheTrace().sources.OnFileRead(*file);
  line.Field("bytes", static_cast<std::int64_t>(file->bytes.size()));
  PrintLine(line, "file " + std::string(path) + " read, " + std::to_string(file->bytes.size()) +
                      " bytes");
}

void TracePause(std::uint32_t milliseconds) {
  if (!IsTracing()) return;
  TraceLine line = LineAbout("pause");
  line.Field("milliseconds", milliseconds);
  PrintLine(line, "the engine waits for " + std::to_string(milliseconds) + " ms");
}

void TraceTimer(std::uint32_t id, std::uint32_t periodMs) {
  if (!IsTracing()) return;
  const auto number = static_cast<std::int32_t>(id);
  TraceLine line = LineAbout("timer");
  line.Field("timer", number).Field("milliseconds", std::int64_t{periodMs});
  PrintLine(line,
            "timer " + std::to_string(number) + " set to " + std::to_string(periodMs) + " ms");
}

}  // namespace mheg

namespace korvel {

using mheg::IsTracing;
using mheg::LineAbout;
using mheg::PrintLine;
using mheg::PrintWithPlace;
using mheg::TheTrace;

void ObserveEvent(std::string_view sourceGroup, std::int32_t sourceNumber, EventType type,
                  EventData data) {
  if (!IsTracing()) return;
  mheg::TraceLine line = LineAbout("event");
  line.Field("type", mheg::EventName(type));
  mheg::AddData(data, line);
  line.Field("group", sourceGroup).Field("number", sourceNumber);
  PrintLine(line, mheg::EventName(type) + mheg::WordsOf(type, data) + " from " +
                      mheg::NameOf(sourceGroup, sourceNumber));
}

void ObserveEvent(EventType type, EventData data) {
  if (!IsTracing()) return;
  mheg::TraceLine line = LineAbout("event");
  line.Field("type", mheg::EventName(type));
  mheg::AddData(data, line);
  PrintLine(line, mheg::EventName(type) + mheg::WordsOf(type, data));
}

void ObserveLink(const Link& link) {
  if (!IsTracing()) return;
  mheg::TraceLink(link, "", LineAbout("link", 1));
  TheTrace().effect = &link.LinkEffect;
}

void ObserveSkippedLink(const Link& link, Reason reason) {
  if (!IsTracing()) return;
  mheg::TraceLine line = LineAbout("skipped link", 1);
  const std::string text = mheg::TextOf(reason, 0, nullptr);
  line.Field("reason", mheg::NameOf(reason)).Field("text", text);
  mheg::TraceLink(link, " skipped: " + text, line);
}

void ObserveAction(const ActionHolder& list, const ElementaryAction& action) {
  if (!IsTracing()) return;
  mheg::Trace& trace = TheTrace();
  if (trace.open.empty() || trace.open.back().list != &list) {
    // The list of a link is nested in the link, which is nested in its event.
    const std::size_t depth = mheg::Depth() + (list.actions == trace.effect ? 2 : 0);
    trace.open.push_back({&list, &action, depth});
  }
  trace.open.back().action = &action;
  trace.isReasonGiven = false;
  const std::string_view home =
      list.holder == nullptr ? std::string_view{} : mheg::GroupOf(*list.holder);
  const std::string text = mheg::TextOf(action, home);
  mheg::TraceLine line("action", mheg::TheSurroundings().now, trace.open.back().depth);
  line.Field("group", home).Field("action", text);
  PrintWithPlace(line, text, TheTrace().sources.Of(list, action));
}

void ObserveActionStatus(Status status) {
  if (!IsTracing()) return;
  if (status == Status::Refused && !TheTrace().isReasonGiven) {
    PrintLine(LineAbout("unchanged"), "nothing to do");
  }
  if (status == Status::Failure) {
    PrintLine(LineAbout("failure"), "failed: ends everything that this step has caused");
  }
}

void ObserveListEnd(const ActionHolder& list) {
  mheg::Trace& trace = TheTrace();
  if (!IsTracing() || trace.open.empty() || trace.open.back().list != &list) return;
  trace.open.pop_back();
  trace.isReasonGiven = true;  // the action that ran this list has had an effect
}

void ObserveReason(Reason reason, std::int32_t detail) {
  if (!IsTracing()) return;
  const std::string text = mheg::TextOf(reason, detail, mheg::ActionInProgress());
  mheg::TraceLine line = LineAbout("reason");
  line.Field("reason", mheg::NameOf(reason)).Field("detail", detail);
  line.Field("text", text);
  PrintLine(line, text);
  TheTrace().isReasonGiven = true;
}

void ObserveValue(const Ingredient& variable) {
  if (!IsTracing()) return;
  const std::string value = mheg::ValueOf(variable);
  mheg::TraceLine line = LineAbout("value");
  line.Field("group", mheg::GroupOf(variable));
  line.Field("number", variable.Reference.Number).Field("value", value);
  PrintLine(line, mheg::NameOf(variable) + " = " + value);
}

void ObserveGroupStart(const Group& group) {
  if (IsTracing()) TheTrace().sources.OnGroupStarted(group);
  mheg::TraceGroup("group start", group, " becomes current");
}

void ObserveGroupEnd(const Group& group) { mheg::TraceGroup("group end", group, " has ended"); }

void PrintMessage(const char* text, std::va_list values) {
  if (!mheg::TheSurroundings().isPlaying) {
    std::vprintf(text, values);
    return;
  }
  std::array<char, 256> line{};
  std::vsnprintf(line.data(), line.size(), text, values);
  std::string message = line.data();
  while (message.ends_with('\n')) message.pop_back();
  if (IsTracing()) {
    mheg::TraceLine traced = LineAbout("message");
    traced.Field("text", message);
    PrintLine(traced, "message: " + message);
  } else {
    std::printf("%s\n", message.c_str());
  }
  mheg::TheSurroundings().messages.push_back(message);
}

}  // namespace korvel
