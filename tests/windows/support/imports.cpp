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
    auto* place = At<ULONG_PTR>(module, library->FirstThunk);
    for (; named->u1.AddressOfData != 0; ++named, ++place) {
      if (IMAGE_SNAP_BY_ORDINAL(named->u1.Ordinal)) continue;
      const auto* import = At<IMAGE_IMPORT_BY_NAME>(module, named->u1.AddressOfData);
      if (name == reinterpret_cast<const char*>(import->Name)) return place;
    }
  }
  return nullptr;
}

void Write(ULONG_PTR function, ULONG_PTR* place) {
  DWORD protection = 0;
  VirtualProtect(place, sizeof(*place), PAGE_READWRITE, &protection);
  *place = function;
  VirtualProtect(place, sizeof(*place), protection, &protection);
}

}  // namespace

ReplacedImport::ReplacedImport(HMODULE module, std::string_view name, ULONG_PTR function)
    : place_(FindImport(module, name)) {
  if (place_ == nullptr) return;
  original_ = *place_;
  Write(function, place_);
}

ReplacedImport::~ReplacedImport() {
  if (place_ != nullptr) Write(original_, place_);
}

}  // namespace korvel::test
