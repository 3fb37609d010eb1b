// Workloads of `mheg check`: carousels of many groups, given as a folder or as files, a scene of
// many links, and a scene of many objects.
#include "mheg/check/check.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "sample_scene.h"

namespace bench {
namespace {

namespace fs = std::filesystem;

// A new folder for temporary files. Removes it with everything in it.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (fs::temp_directory_path() / "bench-XXXXXX").string();
    Require(mkdtemp(name.data()) != nullptr, "a temporary folder cannot be created");
    path_ = name;
  }
  ~ScratchFolder() { fs::remove_all(path_); }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  [[nodiscard]] const fs::path& Path() const { return path_; }

 private:
  fs::path path_;
};

std::string Named(const char* name, int number) { return name + std::to_string(number); }

void Write(const fs::path& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  Require(bool(file << bytes), "a temporary file cannot be written");
}

// A group whose links refer to other groups.
std::string GroupOf(const std::string& heading, int number, int count) {
  std::string text = "{" + heading + " :Items ({:Rectangle 2 :OrigBoxSize 1 1}\n";
  for (int i = 0; i < 40; ++i) {
    const int other = (number * 7 + i) % count;
    text += "{:Link " + std::to_string(100 + i) + " :EventSource 0 :EventType UserInput" +
            " :EventData " + std::to_string(i % 17 + 1) + " :LinkEffect (:Activate(101)" +
            " :TransitionTo((\"~/" + Named("s", other) + "\" 0)))}\n";
  }
  return text + ")}";
}

void WriteGroups(const fs::path& folder, const char* heading, int count) {
  for (int i = 0; i < count; ++i) {
    const std::string name = Named("s", i);
    Write(folder / (name + ".mheg"),
          GroupOf(std::string(heading) + " (\"~/" + name + "\" 0)", i, count));
  }
}

// An application and scenes.
void WriteScenes(const fs::path& folder, int count) {
  Write(folder / "a.mheg", "{:Application (\"~/a\" 0)}");
  WriteGroups(folder, ":Scene", count);
}
void WriteApplications(const fs::path& folder, int count) {
  WriteGroups(folder, ":Application", count);
}

// One scene whose links wait for different events.
void WriteLinks(const fs::path& folder, int count) {
  std::vector<std::string> links;
  for (int number = 1; number <= 50 * count; ++number) {
    links.push_back(LinkOn(number, 0, "TimerFired :EventData " + std::to_string(number), ""));
  }
  Write(folder / "s", BytesOf(*SceneOf(links)));
}

// One scene of many objects that refer to each other.
void WriteObjects(const fs::path& folder, int count) {
  Write(folder / "s", BytesOf(*SampleScene(50 * count)));
}

std::vector<fs::path> FilesOf(const fs::path& folder) {
  const fs::directory_iterator entries(folder);
  return {begin(entries), end(entries)};
}

using WriteCarousel = void (*)(const fs::path& folder, int count);
enum class Given { Folder, Files };

Work Prepare(WriteCarousel write, Given given, int count) {
  auto folder = std::make_shared<ScratchFolder>();
  write(folder->Path(), count);
  std::vector<fs::path> paths{folder->Path()};
  if (given == Given::Files) paths = FilesOf(folder->Path());
  return {[folder, paths] { static_cast<void>(mheg::Check(paths, 1)); }};
}

}  // namespace

std::vector<Workload> CheckWorkloads() {
  const auto workload = [](const char* name, WriteCarousel write, Given given) {
    return Workload{
        name, {10, 100, 400}, [write, given](int count) { return Prepare(write, given, count); }};
  };
  return {workload("check/folder", WriteScenes, Given::Folder),
          workload("check/files", WriteScenes, Given::Files),
          workload("check/applications", WriteApplications, Given::Folder),
          workload("check/links", WriteLinks, Given::Folder),
          workload("check/objects", WriteObjects, Given::Folder)};
}

}  // namespace bench
