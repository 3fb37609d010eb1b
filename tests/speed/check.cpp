// Measures the time for checking a carousel. Checking four times the groups may take little more
// than four times as long, for folders and files and for all kinds of references. The test measures
// processor time and uses the fastest of several runs, so that other load does not matter.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "mheg/check/check.h"
#include "objects/ber/ber.h"

namespace {

namespace fs = std::filesystem;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int kGroups = 400;
constexpr Milliseconds kLimit{1000};
// For four times the groups. Comparing every group with every other one would take sixteen times as
// long.
constexpr double kMostGrowth = 8;
constexpr int kRuns = 5;

std::string Named(const char* name, int number) { return name + std::to_string(number); }

void Write(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

// A group whose links refer to other groups.
std::string GroupOf(const std::string& head, int number, int count) {
  std::string text = "{" + head + " :Items ({:Rectangle 2 :OrigBoxSize 1 1}\n";
  for (int i = 0; i < 40; ++i) {
    const int other = (number * 7 + i) % count;
    text += "{:Link " + std::to_string(100 + i) + " :EventSource 0 :EventType UserInput" +
            " :EventData " + std::to_string(i % 17 + 1) + " :LinkEffect (:Activate(101)" +
            " :TransitionTo((\"~/" + Named("s", other) + "\" 0)))}\n";
  }
  return text + ")}";
}

// An application and scenes.
void WriteScenes(const fs::path& folder, int count) {
  Write(folder / "a.mheg", "{:Application (\"~/a\" 0)}");
  for (int i = 0; i < count; ++i) {
    const std::string name = Named("s", i);
    Write(folder / (name + ".mheg"), GroupOf(":Scene (\"~/" + name + "\" 0)", i, count));
  }
}

void WriteApplications(const fs::path& folder, int count) {
  for (int i = 0; i < count; ++i) {
    const std::string name = Named("s", i);
    Write(folder / (name + ".mheg"), GroupOf(":Application (\"~/" + name + "\" 0)", i, count));
  }
}

// One scene whose links wait for different events. It is in BER because no text may be that long.
void WriteLinks(const fs::path& folder, int count) {
  korvel::Scene scene;
  for (int i = 0; i < 50 * count; ++i) {
    korvel::Item item = korvel::Item::New(korvel::ItemType::Link);
    item.Record()->Reference.Number = i + 1;
    korvel::LinkCondition& condition = item.As<korvel::Link>().Condition;
    condition.EventType = korvel::EventType::TimerFired;
    condition.EventData.Kind = korvel::ValueKind::Integer;
    condition.EventData.Integer = i;
    static_cast<void>(scene.Items.Append(std::move(item)));
  }
  korvel::OctetString bytes;
  static_cast<void>(korvel::EncodeGroup(scene, bytes));
  Write(folder / "s", std::string(bytes.View()));
}

std::vector<fs::path> Folder(const fs::path& folder) { return {folder}; }
std::vector<fs::path> Files(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder)) files.push_back(entry.path());
  return files;
}

struct Shape {
  const char* name;
  std::function<void(const fs::path& folder, int count)> write;
  std::function<std::vector<fs::path>(const fs::path& folder)> paths;
};
const Shape kShapes[] = {
    {"scenes of a folder", WriteScenes, Folder},
    {"scenes that are named", WriteScenes, Files},
    {"applications", WriteApplications, Folder},
    {"links", WriteLinks, Folder},
};

// The processor time for one check.
Milliseconds TimeToCheck(const Shape& shape, const fs::path& folder) {
  const std::vector<fs::path> paths = shape.paths(folder);
  const std::clock_t start = std::clock();
  static_cast<void>(mheg::Check(paths, 1));
  return Milliseconds(1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
}

bool IsQuick(const Shape& shape, const fs::path& scratch) {
  const fs::path folders[] = {scratch / shape.name / "few", scratch / shape.name / "many"};
  for (const fs::path& folder : folders) fs::create_directories(folder);
  shape.write(folders[0], kGroups / 4);
  shape.write(folders[1], kGroups);
  std::array<Milliseconds, 2> best{Milliseconds(1e9), Milliseconds(1e9)};
  for (std::size_t i = 0; i < kRuns * best.size(); ++i) {
    const std::size_t place = i % best.size();
    best[place] = std::min(best[place], TimeToCheck(shape, folders[place]));
  }
  std::printf("%-21s %d: %.1f ms, %d: %.1f ms\n", shape.name, kGroups / 4, best[0].count(), kGroups,
              best[1].count());
  return best[1] < kLimit && best[1] < kMostGrowth * best[0];
}

}  // namespace

int main() {
  std::string name = (fs::temp_directory_path() / "mheg-speed-XXXXXX").string();
  const fs::path scratch = mkdtemp(name.data());
  bool areQuick = true;
  for (const Shape& shape : kShapes) areQuick = IsQuick(shape, scratch) && areQuick;
  fs::remove_all(scratch);
  if (!areQuick) std::puts("A check took too long, or more than its share.");
  return areQuick ? 0 : 1;
}
