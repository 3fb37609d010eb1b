// Substitutes for the engine core and the presentation. They record each call by the host's threads
// as a line of the journal, so that tests can check the order of calls, and run the functions that
// a test has set.
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
  // onStartEngine and onRaise are called on the worker, inside StartEngine and RaiseOutsideEvent.
  // onLine is called for every line, on the thread that writes it. Set them while the worker is
  // idle.
  std::function<Status()> onStartEngine;
  std::function<void(std::int32_t value)> onRaise;
  std::function<void(const std::string& line)> onLine;
};

Substitutes& TheSubstitutes();

}  // namespace korvel::test
