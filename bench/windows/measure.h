// The harness of the Windows benchmarks: times calls in turn, and writes the results in the JSON
// form of Google Benchmark, so that one table shows these and the native ones.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace korvel::bench {

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

// The time at `share` of all samples, in microseconds: 0.5 is the median. Needs at least one
// sample.
[[nodiscard]] inline double Percentile(std::vector<double> samples, double share) {
  const auto index = static_cast<std::ptrdiff_t>(share * static_cast<double>(samples.size() - 1));
  std::nth_element(samples.begin(), samples.begin() + index, samples.end());
  return samples[static_cast<std::size_t>(index)];
}

// A call to time, and the work before each call that is not timed.
struct Timed {
  std::string name;
  std::function<void()> call;
  std::function<void()> prepare = [] {};
  std::vector<double> samples = {};
};

// Times the calls in turn, so that a busy machine slows all of them: first one round that is not
// counted, then rounds for as long as `limit`, but at least ten.
inline void TimeInTurn(std::vector<Timed>& calls, std::chrono::milliseconds limit) {
  constexpr int kFewestRounds = 10;
  const Clock::time_point end = Clock::now() + limit;
  for (int round = 0; round <= kFewestRounds || Clock::now() < end; ++round) {
    for (Timed& timed : calls) {
      timed.prepare();
      const Clock::time_point start = Clock::now();
      timed.call();
      if (round > 0) timed.samples.push_back(Microseconds(Clock::now() - start).count());
    }
  }
}

// A time to compare with, in microseconds.
struct Reference {
  std::string name;
  double microseconds;
};

// The results of a program.
class Report {
 public:
  // Adds a time in microseconds, and those to compare it with.
  void Add(const std::string& name, double microseconds,
           const std::vector<Reference>& references = {}) {
    std::printf("%-32s %10.1f us", name.c_str(), microseconds);
    std::string row = "  {\"name\": \"" + name + "\", \"run_type\": \"iteration\", " +
                      "\"time_unit\": \"us\", \"real_time\": " + std::to_string(microseconds);
    for (const Reference& reference : references) {
      std::printf("  %s %.1f", reference.name.c_str(), reference.microseconds);
      row += ", \"" + reference.name + "\": " + std::to_string(reference.microseconds);
    }
    std::printf("\n");
    std::fflush(stdout);
    rows_ += (rows_.empty() ? "" : ",\n") + row + "}";
  }
  // Adds the median of the first call, and those of the others to compare it with.
  void AddMedians(const std::vector<Timed>& calls) {
    std::vector<Reference> references;
    for (std::size_t index = 1; index < calls.size(); ++index) {
      references.push_back({calls[index].name, Percentile(calls[index].samples, 0.5)});
    }
    Add(calls[0].name, Percentile(calls[0].samples, 0.5), references);
  }
  // False if the file cannot be written.
  [[nodiscard]] bool Write(const char* path) const {
    std::FILE* file = std::fopen(path, "w");
    if (file == nullptr) return false;
    std::fprintf(file, "{\"context\": {}, \"benchmarks\": [\n%s\n]}\n", rows_.c_str());
    return std::fclose(file) == 0;
  }

 private:
  std::string rows_;
};

}  // namespace korvel::bench
