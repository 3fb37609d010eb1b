// The file has one path per line, in UTF-8 and with slashes.
#include "mheg/build/product_list.h"

#include <fstream>
#include <string>
#include <system_error>

#include "mheg/path_text.h"
#include "mheg/write_file.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

fs::path ListOf(const fs::path& carousel) {
  std::error_code problem;
  fs::path full = fs::absolute(carousel, problem).lexically_normal();
  if (!full.has_filename()) full = full.parent_path();  // removes a separator at the end
  fs::path name = ".";
  name += full.filename();
  name += ".mheg-build";
  return full.parent_path() / name;
}

}  // namespace

// Skips lines that do not name a file in the carousel, so that a damaged list cannot cause other
// files to be removed.
ProductList ReadProductList(const fs::path& carousel) {
  ProductList products;
  std::ifstream stream(ListOf(carousel), std::ios::binary);
  for (std::string line; std::getline(stream, line);) {
    const fs::path file = PathOf(line).lexically_normal();
    const bool isInCarousel = !file.empty() && file.is_relative() && *file.begin() != "..";
    if (isInCarousel && file.has_filename()) products.insert(file);
  }
  return products;
}

bool WriteProductList(const fs::path& carousel, const ProductList& products) {
  std::string lines;
  for (const fs::path& file : products) {
    lines += GenericTextOf(file) + "\n";
  }
  return WriteFile(ListOf(carousel), lines);
}

}  // namespace mheg
