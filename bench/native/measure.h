// Registers the workloads with Google Benchmark, with their references.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "workloads/workload.h"

namespace bench {

// The same work done by something else, or the least that any implementation has to do. It is
// measured in turn with the workload of the same name, so that other load of the machine affects
// both.
struct Reference {
  std::string workload;
  std::string name;
  std::function<Work(int size)> prepare;
};

std::vector<Reference> LuaReferences();
std::vector<Reference> DecodingReferences();

// Registers the benchmarks of memory.
void RegisterMemory();

}  // namespace bench
