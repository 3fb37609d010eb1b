// Runs workloads under callgrind, which counts the instructions of one run of each. Each argument
// is a workload and a size: "actions/add/1000". Callgrind writes one file per argument, labelled
// with it.
#include <valgrind/callgrind.h>

#include "objects/index.h"
#include "workloads/workload.h"

namespace {

void Count(const std::string& argument) {
  const std::size_t slash = argument.rfind('/');
  const std::string name = argument.substr(0, slash);
  for (const bench::Workload& workload : bench::AllWorkloads()) {
    if (workload.name != name) continue;
    const bench::Work work = workload.prepare(std::stoi(argument.substr(slash + 1)));
    work.run();  // the first run may be the only one that allocates
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    work.run();
    CALLGRIND_DUMP_STATS_AT(argument.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
    return;
  }
  bench::Fail("there is no workload " + name);
}

}  // namespace

int main(int count, char** arguments) {
  korvel::Hash::secret = 0x9E3779B97F4A7C15U;  // the same counts in each process
  for (int i = 1; i < count; ++i) Count(arguments[i]);
  return 0;
}
