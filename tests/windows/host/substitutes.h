// Substitutes for the engine core and the presentation: they record the calls of the host's threads
// in order, and do what a test has set. So a test sees an order of calls that no picture shows.
#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "objects/status.h"

namespace korvel::test {

class Journal {
 public:
  void Write(const std::string& line);
  void Clear();
  [[nodiscard]] std::vector<std::string> Lines() const;
  [[nodiscard]] int CountOf(const std::string& line) const;

 private:
  mutable std::mutex mutex_;
  std::vector<std::string> lines_;
};

struct Substitutes {
  Journal journal;
  // Called on the worker inside StartEngine and RaiseOutsideEvent, and on the calling thread with
  // every line. Set them while the worker is idle.
  std::function<Status()> onStartEngine;
  std::function<void(std::int32_t value)> onRaise;
  std::function<void(const std::string& line)> onLine;
};

Substitutes& TheSubstitutes();

}  // namespace korvel::test
