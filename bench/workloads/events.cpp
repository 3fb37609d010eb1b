// Raised events among many links. The links that match have no actions, so that only finding and
// running a link is measured.
#include "stage.h"

namespace bench {
namespace {

constexpr int kRaises = 100;  // in one run

// `matching` links wait for the event, evenly spread over `size` links. `other` makes the links
// that do not match.
Work Prepare(int size, int matching, std::string (*other)(int number), const std::string& waitedFor,
             korvel::EventType type, korvel::EventData data) {
  std::vector<std::string> items;
  for (int number = 1; number <= size; ++number) {
    const bool isMatching = matching > 0 && number % (size / matching) == 0;
    items.push_back(isMatching ? LinkOn(number, 0, waitedFor, "") : other(number));
  }
  EnterScene(items);
  return {[type, data] {
            korvel::BeginWork();
            for (int i = 0; i < kRaises; ++i) {
              Require(korvel::RaiseEvent(kScene, 0, type, data) == korvel::Status::Done,
                      "an event failed");
            }
          },
          kRaises};
}

// The links that do not match wait for the same event from other sources.
Work PrepareSources(int size, int matching) {
  return Prepare(
      size, matching,
      [](int number) { return LinkOn(number, number, "EngineEvent :EventData 7", ""); },
      "EngineEvent :EventData 7", korvel::EventType::EngineEvent, korvel::EventData::Integer(7));
}

// The links that do not match wait for other keys.
Work PrepareKeys(int size) {
  return Prepare(
      size, 1,
      [](int number) {
        return LinkOn(number, 0, "UserInput :EventData " + std::to_string(1000 + number), "");
      },
      "UserInput :EventData 7", korvel::EventType::UserInput, korvel::EventData::Integer(7));
}

}  // namespace

std::vector<Workload> EventWorkloads() {
  const std::vector<int> sizes{10, 100, 1000, 10'000, 100'000};
  return {
      {"events/no_match", sizes, [](int size) { return PrepareSources(size, 0); }},
      {"events/1_match", sizes, [](int size) { return PrepareSources(size, 1); }},
      {"events/5_matches", sizes, [](int size) { return PrepareSources(size, 5); }},
      {"events/1_of_many_keys", sizes, PrepareKeys},
  };
}

}  // namespace bench
