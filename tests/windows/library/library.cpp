// Loads korvel.dll.
#include "windows/library/library.h"

namespace korvel::test {
namespace {

template <class Function> void Find(HMODULE module, const char* name, Function& function) {
  function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace

Library FindFunctions(HMODULE module) {
  Library library;
  if (module == nullptr) return library;
  Find(module, "RunMHEG5Window", library.run);
  Find(module, "ExitMHEG5", library.exit);
  Find(module, "MHEG5ReStart", library.reStart);
  Find(module, "MHEG5WaitForClose", library.waitForClose);
  return library;
}

const Library& TheLibrary() {
  static const Library library = FindFunctions(LoadLibraryA("korvel.dll"));
  return library;
}

}  // namespace korvel::test
