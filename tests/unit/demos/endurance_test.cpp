// Checks that memory and timers stay flat during a long run of random keys and timer expiries. The
// KORVEL_STEPS steps are shared equally by the demos; the engine restarts only between demos. The
// samples are written to the file that KORVEL_SAMPLES names, for a plot.
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <vector>

#include "unit/demos/demo.h"

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // the compiler has no header
#endif

namespace korvel::test {
namespace {

constexpr int kSamples = 1000;  // for each demo

int StepsOfRun() {
  const char* steps = std::getenv("KORVEL_STEPS");
  return steps == nullptr ? 60000 : std::atoi(steps);
}

// All bytes that the process holds. The sanitizer has an allocator of its own.
std::size_t AllocatedBytes() {
#ifdef __SANITIZE_ADDRESS__
  return __sanitizer_get_current_allocated_bytes();
#else
  return mallinfo2().uordblks;
#endif
}

struct Sample {
  std::size_t bytes = 0;
  std::size_t blocks = 0;
  std::size_t timers = 0;
};

class Endurance : public RandomKeys {
 protected:
  // Presses keys or expires timers, `steps` in all. Returns the memory and timers then in use.
  Sample After(int steps) {
    PressRandomKeys(steps);
    // Clears the records of the substitutes, so that only the engine's memory is compared.
    TheHost().fetched = {};
    TheHost().killedTimers = {};
    TheHost().traced = {};
    ThePresentation().drawings = {};
    ThePresentation().streams = {};
    Printed();
    return {AllocatedBytes(), LiveBlocks(), TheHost().timers.size()};
  }
};

// The largest value of samples [first, end). One sample alone depends on the scene that is shown.
std::size_t Largest(const std::vector<Sample>& samples, int first, int end,
                    std::size_t Sample::*value) {
  std::size_t most = 0;
  for (int index = first; index < end; ++index) {
    most = std::max(most, samples[static_cast<std::size_t>(index)].*value);
  }
  return most;
}

// Ignores the first tenth of the run. The second half may exceed the rest of the first half by 1%,
// or by `difference` if that is more, because scenes and the test's own buffers vary that much.
void ExpectFlat(const std::vector<Sample>& samples, std::size_t Sample::*value,
                std::size_t difference) {
  const std::size_t early = Largest(samples, kSamples / 10, kSamples / 2, value);
  EXPECT_LE(Largest(samples, kSamples / 2, kSamples, value),
            early + std::max(early / 100, difference));
}

TEST_F(Endurance, memory_and_timers_stay_flat_however_long_the_viewer_presses_keys) {
  const char* path = std::getenv("KORVEL_SAMPLES");
  std::ofstream plot(path == nullptr ? "/dev/null" : path);
  plot << "demo,bytes,blocks,timers\n";
  const std::vector<std::string> demos = Demos();
  for (const std::string& demo : demos) {
    SCOPED_TRACE(demo);
    TheHost() = {};
    ASSERT_NO_FATAL_FAILURE(Play(demo));
    std::vector<Sample> samples;
    samples.reserve(kSamples);  // so that it does not count as growth
    for (int count = 0; count < kSamples && !HasFailure(); ++count) {
      samples.push_back(After(StepsOfRun() / static_cast<int>(demos.size()) / kSamples));
      const Sample& last = samples.back();
      plot << demo << ',' << last.bytes << ',' << last.blocks << ',' << last.timers << '\n';
    }
    ASSERT_FALSE(HasFailure());
    ExpectFlat(samples, &Sample::bytes, 16'384);
    ExpectFlat(samples, &Sample::blocks, 10);
    ExpectFlat(samples, &Sample::timers, 0);
    EndEngine();
  }
}

}  // namespace
}  // namespace korvel::test
