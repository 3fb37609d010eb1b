// Replaces system functions that one module of the process imports.
#pragma once

#include <windows.h>

#include <string_view>

namespace korvel::test {

// While the object exists, the module's calls of an imported function go to a replacement with the
// same signature. Other modules are not affected.
class ReplacedImport {
 public:
  template <class Function>
  ReplacedImport(HMODULE module, std::string_view name, Function* function)
      : ReplacedImport(module, name, reinterpret_cast<ULONG_PTR>(function)) {}
  ReplacedImport(const ReplacedImport&) = delete;
  ReplacedImport& operator=(const ReplacedImport&) = delete;
  ~ReplacedImport();

  // False if the module does not import the function.
  [[nodiscard]] bool IsInPlace() const { return entry_ != nullptr; }

 private:
  ReplacedImport(HMODULE module, std::string_view name, ULONG_PTR function);

  ULONG_PTR* entry_;
  ULONG_PTR original_ = 0;
};

}  // namespace korvel::test
