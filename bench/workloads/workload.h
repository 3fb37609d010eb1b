// The measured works: each has a name and sizes, and is prepared once for a size and then run
// repeatedly. The benchmarks measure its time, the check counts its instructions.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bench {

// A prepared work. One run does `units` units; all figures are per unit.
struct Work {
  std::function<void()> run;
  double units = 1;
};

struct Workload {
  std::string name;        // "actions/add"
  std::vector<int> sizes;  // as the work counts: objects, links, items or bytes
  // The engine is process-wide, so preparing a work ends the work that was prepared before it.
  std::function<Work(int size)> prepare;
};

// Each lists the workloads of one subject.
std::vector<Workload> GroupWorkloads();
std::vector<Workload> TextWorkloads();
std::vector<Workload> ActionWorkloads();
std::vector<Workload> EventWorkloads();
std::vector<Workload> ListWorkloads();
std::vector<Workload> CheckWorkloads();

// All of them.
std::vector<Workload> AllWorkloads();

// Ends the program with a message: the measured work did not do what it should.
[[noreturn]] void Fail(const std::string& message);

inline void Require(bool isTrue, const char* message) {
  if (!isTrue) Fail(message);
}

}  // namespace bench
