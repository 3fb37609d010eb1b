// The build turns the files of the folder `template` into string literals.
#include "mheg/new/new.h"

#include <cstdio>
#include <span>
#include <string_view>
#include <system_error>

#include "mheg/message.h"
#include "mheg/path_text.h"
#include "mheg/write_file.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

struct NewFile {
  const char* name;
  std::string_view text;
};

constexpr NewFile kNewFiles[] = {
#include "mheg_new_files.inc"
};

bool Fail(const fs::path& path, const char* reason) {
  Print({{path, reason}}, stderr);
  return false;
}

}  // namespace

bool MakeNew(const fs::path& folder) {
  std::error_code problem;
  if (fs::exists(folder, problem)) {
    if (!fs::is_directory(folder, problem)) return Fail(folder, "is a file");
    if (!fs::is_empty(folder, problem)) return Fail(folder, "is not empty");
  }
  if (!problem) fs::create_directories(folder, problem);
  if (problem) return Fail(folder, "cannot be made");
  for (const NewFile& file : kNewFiles) {
    const fs::path path = folder / file.name;
    if (!WriteFile(path, file.text)) return Fail(path, "cannot be written");
    std::printf("%s\n", GenericTextOf(path).c_str());
  }
  const std::string name = GenericTextOf(folder);
  std::printf("\nTest it:         mheg run %s --script %s/test.script\n"
              "Look inside:     mheg run %s --keys \"green ok\" --trace\n"
              "Make a carousel: mheg build %s -o CAROUSEL\n",
              name.c_str(), name.c_str(), name.c_str(), name.c_str());
  return true;
}

}  // namespace mheg
