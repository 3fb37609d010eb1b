// Counts the resources that the test's process holds, so that tests can detect leaks.
#pragma once

#include <cstddef>
#include <cstdint>

namespace korvel::test {

// All heap blocks are counted, including those of GDI+ and global blocks. The heap of newer Wine
// versions groups small blocks and lists each group as one block. The number of GDI objects cannot
// be queried, but the table index of a new one rises if others leak.
struct Holdings {
  std::size_t blocks = 0;
  std::size_t bytes = 0;
  std::size_t nextGdiIndex = 0;
  std::size_t handles = 0;  // 0 under Wine versions that do not count them
  std::size_t threads = 0;
};

[[nodiscard]] Holdings Held();

}  // namespace korvel::test
