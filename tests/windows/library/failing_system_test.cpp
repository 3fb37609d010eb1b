// Tests a system that cannot create the engine's threads or its event.
#include <gmock/gmock.h>

#include <atomic>

#include "windows/library/hostile_fixture.h"
#include "windows/support/imports.h"

namespace korvel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::atomic<int> threadsBeforeFailure;

HANDLE WINAPI CreateFewThreads(SECURITY_ATTRIBUTES* attributes, SIZE_T stackBytes,
                               LPTHREAD_START_ROUTINE start, void* context, DWORD flags,
                               DWORD* id) {
  if (threadsBeforeFailure-- <= 0) return nullptr;
  return CreateThread(attributes, stackBytes, start, context, flags, id);
}

HANDLE WINAPI CreateNoEvent(SECURITY_ATTRIBUTES* /*attributes*/, BOOL /*isManual*/, BOOL /*isSet*/,
                            const char* /*name*/) {
  return nullptr;
}

class FailingSystem : public HostileHost {
 protected:
  void ExpectFailedStart() {
    EXPECT_EQ(library.run(&host, window.Handle()), 1U);
    EXPECT_THAT(host.Calls(), IsEmpty());
    EXPECT_EQ(library.waitForClose(), 0U);
  }
  void ExpectGoodStart() {
    ServeScene(kLamp);
    Start();
    WaitForLamp();
    ExpectWorkingScene();
  }

  const HMODULE module = GetModuleHandleA("korvel.dll");
};

TEST_F(FailingSystem, without_a_thread_for_the_engine_makes_the_start_fail) {
  threadsBeforeFailure = 0;
  {
    const ReplacedImport hook(module, "CreateThread", CreateFewThreads);
    ASSERT_TRUE(hook.IsInPlace());
    ExpectFailedStart();
  }
  ExpectGoodStart();
}

TEST_F(FailingSystem, without_a_start_event_makes_the_start_fail) {
  {
    const ReplacedImport hook(module, "CreateEventA", CreateNoEvent);
    ASSERT_TRUE(hook.IsInPlace());
    ExpectFailedStart();
  }
  ExpectGoodStart();
}

TEST_F(FailingSystem, without_a_thread_for_the_worker_closes_the_engine) {
  threadsBeforeFailure = 1;
  {
    const ReplacedImport hook(module, "CreateThread", CreateFewThreads);
    ASSERT_TRUE(hook.IsInPlace());
    EXPECT_EQ(library.run(&host, window.Handle()), 0U);
    WaitForClosed();
    library.waitForClose();
  }
  EXPECT_THAT(host.Names(),
              ElementsAre("AddRef", "SetExitCallback", "SetExitCallback null", "Release"));
  EXPECT_EQ(FindEngineWindow(), nullptr);
  ExpectGoodStart();
}

}  // namespace
}  // namespace korvel::test
