// Measures the times of all workloads and their references. The result is the shortest time of many
// runs, which other load of the machine affects least. Each reference is a counter of the same
// name, in nanoseconds.
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
constexpr Seconds kMostTime{10};

// A workload or one of its references, at the size that is measured now.
struct Measured {
  std::string name;  // empty for the workload itself
  std::function<Work(int size)> prepare;
  Work work{};
  double size = 1;
  Seconds best{0};

  [[nodiscard]] bool IsTooSlowAt(int next) const {
    const double growth = next / size;
    return best * growth * growth > kMostTime;
  }
  void Prepare(int next) {
    size = next;
    work = prepare(next);
    best = Seconds(std::numeric_limits<double>::max());
  }
  void Run() {
    const auto start = Clock::now();
    work.run();
    best = std::min(best, Seconds(Clock::now() - start));
  }
  [[nodiscard]] double SecondsPerUnit() const { return best.count() / work.units; }
};

// Measures one size. `all` holds the workload and then its references, with the times of the next
// smaller size. Removes those that would take too long at this size.
void Measure(benchmark::State& state, int size, std::vector<Measured>& all) {
  if (all[0].IsTooSlowAt(size)) state.SkipWithError("takes too long");
  for (auto _ : state) {
    std::erase_if(all, [size](const Measured& one) { return one.IsTooSlowAt(size); });
    for (Measured& one : all) one.Prepare(size);
    const auto end = Clock::now() + std::chrono::duration_cast<Clock::duration>(kLeastTime);
    for (int run = 0; run < kLeastRuns || Clock::now() < end; ++run) {
      for (Measured& one : all) one.Run();
    }
    state.SetIterationTime(all[0].SecondsPerUnit());
    for (Measured& one : all) {
      if (!one.name.empty()) state.counters[one.name] = one.SecondsPerUnit() * 1e9;
      one.work = {};  // releases the content, which may be large
    }
  }
}

// The workload and its references.
std::vector<Measured> WithReferences(const Workload& workload) {
  std::vector<Measured> all{{"", workload.prepare}};
  for (const auto& references : {LuaReferences(), DecodingReferences()}) {
    for (const Reference& reference : references) {
      if (reference.workload == workload.name) all.push_back({reference.name, reference.prepare});
    }
  }
  return all;
}

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
  for (const bench::Workload& workload : bench::AllWorkloads()) {
    auto all = std::make_shared<std::vector<bench::Measured>>(bench::WithReferences(workload));
    for (const int size : workload.sizes) {
      benchmark::RegisterBenchmark(
          (workload.name + "/" + std::to_string(size)).c_str(),
          [size, all](benchmark::State& state) { bench::Measure(state, size, *all); })
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
