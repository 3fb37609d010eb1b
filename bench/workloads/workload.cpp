// The list of all workloads, and their failures.
#include "workload.h"

#include <cstdio>
#include <cstdlib>

namespace bench {

std::vector<Workload> AllWorkloads() {
  std::vector<Workload> all;
  for (const auto& subject : {GroupWorkloads(), TextWorkloads(), ActionWorkloads(),
                              EventWorkloads(), ListWorkloads(), CheckWorkloads()}) {
    all.insert(all.end(), subject.begin(), subject.end());
  }
  return all;
}

void Fail(const std::string& message) {
  std::fprintf(stderr, "bench: %s\n", message.c_str());
  std::exit(1);
}

}  // namespace bench
