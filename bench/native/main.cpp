// Measures the time of all workloads beside their references. The figure of a workload is the
// shortest time of many runs, which other load of the machine affects least. Each reference is a
// counter of the same name, in nanoseconds.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <memory>

#include "measure.h"

namespace bench {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr Seconds kLeastTime{0.5};  // spent on one size of a workload
constexpr int kLeastRuns = 3;
// A size is skipped if one run would take longer than this, assuming that the time grows with the
// square of the size.
constexpr Seconds kMostTime{30};

struct Measured {
  Work work;
  Seconds best{std::numeric_limits<double>::max()};

  void Run() {
    const auto start = Clock::now();
    work.run();
    best = std::min(best, Seconds(Clock::now() - start));
  }
  [[nodiscard]] Seconds PerUnit() const { return best / work.units; }
};

// The last measured size of a workload, and the time of one run.
struct Last {
  double size = 1;
  Seconds time{0};
};

void Measure(benchmark::State& state, const Workload& workload, int size, Last& last) {
  const double growth = size / last.size;
  const bool isSlow = last.time * growth * growth > kMostTime;
  if (isSlow) state.SkipWithError("takes too long");
  for (auto _ : state) {
    if (isSlow) break;
    std::vector<Measured> measured{{workload.prepare(size)}};
    std::vector<std::string> names;
    for (const Reference& reference : AllReferences()) {
      if (reference.workload != workload.name) continue;
      measured.push_back({reference.prepare(size)});
      names.push_back(reference.name);
    }
    measured[0].Run();
    last = {static_cast<double>(size), measured[0].best};
    const auto end = Clock::now() + std::chrono::duration_cast<Clock::duration>(kLeastTime);
    for (int run = 0; run < kLeastRuns || Clock::now() < end; ++run) {
      for (Measured& one : measured) one.Run();
    }
    state.SetIterationTime(measured[0].PerUnit().count());
    for (std::size_t i = 0; i < names.size(); ++i) {
      state.counters[names[i]] = measured[i + 1].PerUnit().count() * 1e9;
    }
  }
}

}  // namespace

std::vector<Reference> AllReferences() {
  std::vector<Reference> all = LuaReferences();
  for (const Reference& reference : DecodingReferences()) all.push_back(reference);
  return all;
}

}  // namespace bench

int main(int count, char** arguments) {
  for (const bench::Workload& workload : bench::AllWorkloads()) {
    auto last = std::make_shared<bench::Last>();
    for (const int size : workload.sizes) {
      benchmark::RegisterBenchmark((workload.name + "/" + std::to_string(size)).c_str(),
                                   [workload, size, last](benchmark::State& state) {
                                     bench::Measure(state, workload, size, *last);
                                   })
          ->UseManualTime()
          ->Iterations(1);
    }
  }
  bench::RegisterMemory();
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
