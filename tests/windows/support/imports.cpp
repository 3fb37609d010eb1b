// Replaces functions in the module's import table, which lists their names and addresses.
#include "windows/support/imports.h"

#include <cstddef>

namespace korvel::test {
namespace {

template <class Thing> Thing* At(HMODULE module, std::size_t offset) {
  return reinterpret_cast<Thing*>(reinterpret_cast<char*>(module) + offset);
}

// The table entry that holds the named function's address; null if there is none.
ULONG_PTR* FindImport(HMODULE module, std::string_view name) {
  const auto* start = At<IMAGE_DOS_HEADER>(module, 0);
  const auto* headers = At<IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(start->e_lfanew));
  const IMAGE_DATA_DIRECTORY& imports =
      headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  for (const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(module, imports.VirtualAddress);
       library->FirstThunk != 0; ++library) {
    const auto* named = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
    auto* entry = At<ULONG_PTR>(module, library->FirstThunk);
    for (; named->u1.AddressOfData != 0; ++named, ++entry) {
      if (IMAGE_SNAP_BY_ORDINAL(named->u1.Ordinal)) continue;
      const auto* import = At<IMAGE_IMPORT_BY_NAME>(module, named->u1.AddressOfData);
      if (name == reinterpret_cast<const char*>(import->Name)) return entry;
    }
  }
  return nullptr;
}

void Write(ULONG_PTR function, ULONG_PTR* entry) {
  DWORD protection = 0;
  VirtualProtect(entry, sizeof(*entry), PAGE_READWRITE, &protection);
  *entry = function;
  VirtualProtect(entry, sizeof(*entry), protection, &protection);
}

}  // namespace

ReplacedImport::ReplacedImport(HMODULE module, std::string_view name, ULONG_PTR function)
    : entry_(FindImport(module, name)) {
  if (entry_ == nullptr) return;
  original_ = *entry_;
  Write(function, entry_);
}

ReplacedImport::~ReplacedImport() {
  if (entry_ != nullptr) Write(original_, entry_);
}

}  // namespace korvel::test
