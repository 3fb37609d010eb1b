// Serves and plays the demos of examples/.
#include "unit/demos/demo.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace korvel::test {
namespace {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::vector<std::string> Demos() {
  std::vector<std::string> demos;
  for (const auto& entry : fs::directory_iterator(KORVEL_SOURCE_DIR "/examples")) {
    if (fs::exists(entry.path() / "a.mheg")) demos.push_back(entry.path().filename().string());
  }
  std::sort(demos.begin(), demos.end());
  return demos;
}

void DemoTest::ServeDemo(const std::string& demo) {
  const fs::path carousel = fs::path(KORVEL_DEMOS_FOLDER) / demo;
  for (const auto& entry : fs::recursive_directory_iterator(carousel)) {
    if (!entry.is_regular_file()) continue;
    const std::string name = entry.path().lexically_relative(carousel).generic_string();
    TheHost().files[name] = BytesOf(entry.path());
  }
}

void DemoTest::Play(const std::string& demo) {
  ServeDemo(demo);
  ASSERT_EQ(Start(), Status::Done);
  ExpectPlayable();
}

void DemoTest::ExpectPlayable() {
  ASSERT_NE(CurrentApplication(), nullptr);
  ASSERT_NE(CurrentScene(), nullptr);
  EXPECT_EQ(CurrentApplication()->LockCount, 0U);
  EXPECT_EQ(TheHost().pausedMs, 0U) << "a file was missing";
}

void DemoTest::PressAll(std::initializer_list<std::int32_t> keys) {
  for (const std::int32_t key : keys) {
    EXPECT_NE(Press(key), Status::Failure) << "key " << key << " in " << SceneName();
    ASSERT_NO_FATAL_FAILURE(ExpectPlayable()) << "key " << key;
  }
}

void DemoTest::ExpireTimer(std::int32_t timer) {
  ASSERT_TRUE(IsPending(static_cast<std::uint32_t>(timer))) << "timer " << timer;
  EXPECT_NE(Expire(timer), Status::Failure);
  ASSERT_NO_FATAL_FAILURE(ExpectPlayable());
}

void RandomKeys::PressRandomKeys(int steps) {
  constexpr std::int32_t kKeys[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,   10,  11,  12,  13,
                                    14, 15, 15, 15, 15, 15, 15, 16, 100, 101, 102, 103, 104};
  for (int step = 0; step < steps; ++step) {
    SCOPED_TRACE("step " + std::to_string(step) + " in " + SceneName());
    const auto& timers = TheHost().timers;
    if (!timers.empty() && random_() % 4 == 0) {
      auto timer = timers.begin();
      std::advance(timer, static_cast<std::ptrdiff_t>(random_() % timers.size()));
      ASSERT_NO_FATAL_FAILURE(ExpireTimer(static_cast<std::int32_t>(timer->first)));
    } else {
      ASSERT_NO_FATAL_FAILURE(PressAll({kKeys[random_() % std::size(kKeys)]}));
    }
    if (HasFailure()) return;
  }
}

}  // namespace korvel::test
