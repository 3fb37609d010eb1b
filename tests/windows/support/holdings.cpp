// Walks the process heap and asks the system for the other numbers.
#include "windows/support/holdings.h"

#include "windows/support/process.h"

namespace korvel::test {
namespace {

std::size_t NextGdiIndex() {
  HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
  const std::size_t index = reinterpret_cast<std::uintptr_t>(brush) & 0xFFFF;
  DeleteObject(brush);
  return index;
}

}  // namespace

Holdings Held() {
  Holdings held;
  HANDLE heap = GetProcessHeap();
  PROCESS_HEAP_ENTRY entry{};
  HeapLock(heap);
  while (HeapWalk(heap, &entry) != FALSE) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) == 0) continue;
    ++held.blocks;
    held.bytes += entry.cbData;
  }
  HeapUnlock(heap);
  held.nextGdiIndex = NextGdiIndex();
  DWORD handles = 0;
  GetProcessHandleCount(GetCurrentProcess(), &handles);
  held.handles = handles;
  held.threads = static_cast<std::size_t>(CountThreads());
  return held;
}

}  // namespace korvel::test
