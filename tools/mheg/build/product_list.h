// The list of the files that a build has made. It is stored beside the carousel, in
// .NAME.mheg-build, because every file in the carousel is broadcast.
#pragma once

#include <filesystem>
#include <set>

namespace mheg {

// Paths relative to the carousel.
using ProductList = std::set<std::filesystem::path>;

// The list of the last build; empty if there was none.
[[nodiscard]] ProductList ReadProductList(const std::filesystem::path& carousel);

// Returns false if the list cannot be written.
[[nodiscard]] bool WriteProductList(const std::filesystem::path& carousel,
                                    const ProductList& products);

}  // namespace mheg
