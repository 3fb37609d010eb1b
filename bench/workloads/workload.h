// The workloads, by name and size. `prepare` sets one up for a size; the result is run repeatedly.
// The benchmarks measure its time, the check counts its instructions.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bench {

// A workload set up for one size. One run does `units` units; all figures are per unit.
struct Work {
  std::function<void()> run;
  double units = 1;
};

struct Workload {
  std::string name;        // "actions/add"
  std::vector<int> sizes;  // in the unit of the workload: objects, links, items or bytes
  // The engine is process-wide, so preparing a workload ends the one that was prepared before it.
  std::function<Work(int size)> prepare;
};

// Each lists the workloads of one subject.
std::vector<Workload> GroupWorkloads();
std::vector<Workload> TextWorkloads();
std::vector<Workload> ActionWorkloads();
std::vector<Workload> EventWorkloads();
std::vector<Workload> ListWorkloads();
std::vector<Workload> CheckWorkloads();

std::vector<Workload> AllWorkloads();

// Ends the program with a message: a workload did not do what it should.
[[noreturn]] void Fail(const std::string& message);

inline void Require(bool isTrue, const char* message) {
  if (!isTrue) Fail(message);
}

}  // namespace bench
