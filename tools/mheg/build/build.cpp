// Source files are always compiled: that is fast, and a new version of the compiler may give other
// bytes for the same source. Other files may be large, so they are copied only if their size or
// time differs. A copy keeps the time of its source.
#include "mheg/build/build.h"

#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include "mheg/batch.h"
#include "mheg/build/product_list.h"
#include "mheg/check/check.h"
#include "mheg/check/report.h"
#include "mheg/convert.h"
#include "mheg/path_text.h"
#include "mheg/read_file.h"
#include "mheg/source_folder.h"
#include "mheg/watch.h"
#include "mheg/write_file.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

enum class Change { None, Written, Failed };

// A file of the carousel that the build makes.
struct Product {
  fs::path source;
  Messages messages{};  // errors
  Change change = messages.empty() ? Change::None : Change::Failed;
};
using Products = std::map<fs::path, Product>;  // by path in the carousel

void Fail(const fs::path& file, const char* reason, Product& product) {
  product.messages.push_back({file, reason});
  product.change = Change::Failed;
}

bool HasBytes(const fs::path& path, std::string_view bytes) {
  std::error_code problem;
  if (fs::file_size(path, problem) != bytes.size() || problem) return false;
  std::string old;
  return ReadBytes(path, old) == nullptr && old == bytes;
}

void CompileTo(const fs::path& target, Product& product) {
  CompiledGroup compiled;
  Outcome outcome = CompileSource(product.source, compiled);
  product.messages = std::move(outcome.messages);
  if (!outcome.isGood) {
    product.change = Change::Failed;
  } else if (!HasBytes(target, compiled.bytes)) {
    product.change = Change::Written;
    if (!WriteFile(target, compiled.bytes)) Fail(target, "cannot be written", product);
  }
}

void CopyTo(const fs::path& target, Product& product) {
  std::error_code problem;
  std::error_code ignored;  // if there is no target yet
  const auto time = fs::last_write_time(product.source, problem);
  const bool isSame = fs::is_regular_file(target, ignored) &&
                      fs::file_size(target, ignored) == fs::file_size(product.source, problem) &&
                      fs::last_write_time(target, ignored) == time;
  if (!problem && isSame) return;
  if (problem || !std::ifstream(product.source, std::ios::binary)) {
    return Fail(product.source, "cannot be read", product);
  }
  product.change = Change::Written;
  const bool isCopied = WriteFile(target, [&](const fs::path& part) {
    fs::copy_file(product.source, part, fs::copy_options::overwrite_existing, problem);
    if (!problem) fs::last_write_time(part, time, problem);
    return !problem;
  });
  if (!isCopied) Fail(target, "cannot be written", product);
}

void BuildProduct(const fs::path& target, Product& product) {
  if (product.change == Change::Failed) return;
  std::error_code problem;
  fs::create_directories(target.parent_path(), problem);
  IsSourceFile(product.source) ? CompileTo(target, product) : CopyTo(target, product);
}

// Removes a file of the carousel, and the folders that are then empty.
bool Remove(const fs::path& output, const fs::path& file) {
  std::error_code problem;
  const bool isRemoved = fs::remove(output / file, problem);
  for (fs::path folder = file.parent_path(); isRemoved && !folder.empty();
       folder = folder.parent_path()) {
    fs::remove(output / folder, problem);  // fails if it is not empty
  }
  return isRemoved;
}

// The findings of the check, except the errors that the build has already reported.
Messages NewFindings(const Messages& errors, const fs::path& source, unsigned jobs) {
  std::set<std::string> reported;
  for (const Message& error : errors) reported.insert(OneLine(error));
  Findings findings = Check({source}, jobs);
  std::erase_if(findings, [&](const Finding& finding) {
    return reported.contains(OneLine(finding.message));
  });
  return MessagesOf(findings);
}

}  // namespace

bool Build(const fs::path& source, const fs::path& output, unsigned jobs) {
  Messages errors;
  Products products;
  for (const auto& [name, file] : FindBroadcastFiles(source, errors)) {
    products.emplace(name, Product{source / file.source, file.clashes});
  }
  if (!errors.empty()) {
    Print(errors, stderr);
    return false;
  }
  std::vector<Products::value_type*> work;
  for (Products::value_type& product : products) work.push_back(&product);
  RunBatch(work.size(), jobs,
           [&](std::size_t i) { BuildProduct(output / work[i]->first, work[i]->second); });

  ProductList old = ReadProductList(output);
  ProductList list;
  std::size_t counts[] = {0, 0, 0};  // of products, by their change
  for (const auto& [file, product] : products) {
    errors.insert(errors.end(), product.messages.begin(), product.messages.end());
    ++counts[static_cast<std::size_t>(product.change)];
    const bool wasBuilt = old.erase(file) > 0;
    if (wasBuilt || product.change != Change::Failed) list.insert(file);
  }
  std::size_t removedCount = 0;
  for (const fs::path& file : old) removedCount += Remove(output, file) ? 1 : 0;
  if (!WriteProductList(output, list)) {
    errors.push_back({output, "the list of its files cannot be written beside it"});
  }
  Print(errors, stderr);
  Print(NewFindings(errors, source, jobs), stderr);
  std::printf("%s: %zu written, %zu removed, %zu up to date\n", TextOf(output).c_str(),
              counts[static_cast<std::size_t>(Change::Written)], removedCount,
              counts[static_cast<std::size_t>(Change::None)]);
  std::fflush(stdout);
  return errors.empty();
}

bool BuildAfterEachChange(const fs::path& source, const fs::path& output, unsigned jobs) {
  for (;;) {
    // Begins before the build, so that it also reports changes made during the build.
    Watch watch(source);
    (void)Build(source, output, jobs);
    if (!watch.Wait()) break;
  }
  Print({{source, "cannot be watched"}}, stderr);
  return false;
}

}  // namespace mheg
