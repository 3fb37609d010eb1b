// Measures memory: the bytes of decoded scenes and of their BER form, and the allocations of
// workloads that content repeats for as long as it runs. Counts every allocation of the process:
// the C library allows a program to replace its allocating functions.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include "measure.h"
#include "objects/ber/ber.h"
#include "workloads/sample_scene.h"

extern "C" {

void* __libc_malloc(std::size_t bytes);
void* __libc_calloc(std::size_t count, std::size_t bytes);
void* __libc_realloc(void* block, std::size_t bytes);

static std::size_t allocations = 0;

void* malloc(std::size_t bytes) {
  ++allocations;
  return __libc_malloc(bytes);
}
void* calloc(std::size_t count, std::size_t bytes) {
  ++allocations;
  return __libc_calloc(count, bytes);
}
void* realloc(void* block, std::size_t bytes) {
  ++allocations;
  return __libc_realloc(block, bytes);
}

}  // extern "C"

namespace bench {
namespace {

// Reports the bytes that an object takes on the heap, and those of its BER form.
void BytesOfObject(benchmark::State& state, int bytes) {
  const korvel::OwnedGroup scene = SampleSceneOfBytes(bytes);
  const double objects = static_cast<double>(scene->Items.Size());
  const std::string form = BytesOf(*scene);
  for (auto _ : state) {
    const std::size_t before = mallinfo2().uordblks;
    korvel::OwnedGroup decoded;
    Require(korvel::DecodeGroup({reinterpret_cast<const std::uint8_t*>(form.data()), form.size()},
                                decoded) == korvel::Status::Done,
            "a scene cannot be decoded");
    state.counters["value"] = static_cast<double>(mallinfo2().uordblks - before) / objects;
    state.counters["ber"] = static_cast<double>(form.size()) / objects;
  }
}

// Reports the allocations of one run of the work, after it has run once.
void Allocations(benchmark::State& state, const std::function<Work()>& prepare) {
  const Work work = prepare();
  work.run();
  for (auto _ : state) {
    const std::size_t before = allocations;
    work.run();
    state.counters["value"] = static_cast<double>(allocations - before);
  }
}

// A key that fires a link with three actions on integers and positions.
Work Key() {
  EnterScene(
      {Rectangle(2), IntegerVariable(3),
       LinkOn(5, 0, "UserInput :EventData 100",
              ":Add(3 1) :SetPosition(2 :IndirectRef 3 200) :TestVariable(3 1 :GInteger 0)")});
  const auto* counter = &Object<korvel::IntegerVariable>(3);
  return {[counter] {
    const std::int32_t before = counter->Value;
    korvel::BeginWork();
    Require(korvel::RaiseOutsideEvent(0, korvel::EventType::UserInput, 100) ==
                    korvel::Status::Done &&
                counter->Value == before + 1,
            "the key does nothing");
  }};
}

// A workload of 10 objects or links.
Work Small(const char* name) {
  for (const Workload& workload : AllWorkloads()) {
    if (workload.name == name) return workload.prepare(10);
  }
  Fail(std::string("there is no workload ") + name);
}

}  // namespace

void RegisterMemory() {
  for (const int bytes : {2'000, 60'000, 4'000'000}) {
    benchmark::RegisterBenchmark(("memory/bytes_of_object/" + std::to_string(bytes)).c_str(),
                                 BytesOfObject, bytes)
        ->Iterations(1);
  }
  benchmark::RegisterBenchmark("memory/allocations_of_key", Allocations, Key)->Iterations(1);
  for (const char* name : {"actions/add", "actions/set_integer", "actions/test_and_fire",
                           "actions/move", "events/5_matches"}) {
    std::string benchmark = std::string("memory/allocations_of_") + name;
    benchmark.replace(benchmark.rfind('/'), 1, "_");
    benchmark::RegisterBenchmark(benchmark.c_str(), Allocations, [name] {
      return Small(name);
    })->Iterations(1);
  }
}

}  // namespace bench
