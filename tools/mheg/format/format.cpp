// A source file with errors is not laid out, because its brackets may be wrong.
#include "mheg/format/format.h"

#include <cstdio>
#include <set>
#include <string>
#include <system_error>

#include "mheg/batch.h"
#include "mheg/format/layout.h"
#include "mheg/group_file.h"
#include "mheg/path_text.h"
#include "mheg/source_folder.h"
#include "mheg/write_file.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

// The result for one file.
struct Formatting {
  Messages messages;
  bool isGood = true;  // the file has no errors and, unless it was only checked, is laid out now
  bool isChanged = false;  // the file was not laid out before
};

Formatting Failed(Formatting formatting, const fs::path& path, const std::string& reason) {
  formatting.messages.push_back({path, reason});
  formatting.isGood = false;
  return formatting;
}

Formatting FormatFile(const fs::path& path, bool isCheck) {
  GroupFile file = ReadGroupFile(path);
  Formatting formatting{std::move(file.messages), file.IsGood()};
  if (!formatting.isGood) return formatting;
  if (file.form != GroupForm::Text) return Failed(std::move(formatting), path, "is not a text");
  const std::string text = LayOut(file.text);
  formatting.isChanged = text != file.text;
  if (!formatting.isChanged || isCheck) return formatting;
  if (text.size() > korvel::kMaxTextSize) {
    return Failed(std::move(formatting), path,
                  "would be longer than " + std::to_string(korvel::kMaxTextSize) +
                      " bytes, the most that a text can have");
  }
  if (!WriteFile(path, text)) return Failed(std::move(formatting), path, "cannot be written");
  return formatting;
}

// These files and the source files in these folders, each once and in order. Skips linked folders,
// because their files belong to another folder. Adds a message for each folder that cannot be read.
std::vector<fs::path> SourceFilesIn(const std::vector<fs::path>& paths, Messages& messages) {
  std::set<fs::path> files;
  for (const fs::path& path : paths) {
    std::error_code problem;
    if (!fs::is_directory(path, problem)) {
      files.insert(path);
      continue;
    }
    for (const fs::path& file : FilesIn(path, FolderLinks::Skipped, messages)) {
      if (IsSourceFile(file) && fs::is_regular_file(file, problem)) files.insert(file);
    }
  }
  return {files.begin(), files.end()};
}

}  // namespace

bool Format(const std::vector<fs::path>& paths, bool isCheck, unsigned jobs) {
  Messages messages;
  const std::vector<fs::path> files = SourceFilesIn(paths, messages);
  std::vector<Formatting> results(files.size());
  RunBatch(files.size(), jobs,
           [&](std::size_t index) { results[index] = FormatFile(files[index], isCheck); });
  Print(messages, stderr);
  bool isGood = messages.empty();
  for (std::size_t i = 0; i < files.size(); ++i) {
    Print(results[i].messages, stderr);
    const bool isListed = isCheck && results[i].isChanged;
    if (isListed) std::printf("%s\n", TextOf(files[i]).c_str());
    isGood = isGood && results[i].isGood && !isListed;
  }
  return isGood;
}

}  // namespace mheg
