// The choice of the font family among those that are installed.
#include "presentation/font_family.h"

#include <array>
#include <string_view>

#include "objects/memory.h"

namespace korvel {

namespace {

// The families that the system has. They are its own and are not given back.
class InstalledFamilies {
 public:
  InstalledFamilies() {
    Gdiplus::GpFontCollection* installed = nullptr;
    INT count = 0;
    if (!Succeeded(gdip::GdipNewInstalledFontCollection(&installed)) ||
        !Succeeded(gdip::GdipGetFontCollectionFamilyCount(installed, &count)) || count < 1) {
      return;
    }
    families_ = static_cast<Gdiplus::GpFontFamily**>(
        AllocateZeroed(static_cast<std::size_t>(count) * sizeof(Gdiplus::GpFontFamily*)));
    if (families_ == nullptr ||
        !Succeeded(gdip::GdipGetFontCollectionFamilyList(installed, count, families_, &count_))) {
      count_ = 0;
    }
  }
  ~InstalledFamilies() { ReleaseMemory(families_); }
  InstalledFamilies(const InstalledFamilies&) = delete;
  InstalledFamilies& operator=(const InstalledFamilies&) = delete;
  [[nodiscard]] Gdiplus::GpFontFamily** begin() const { return families_; }
  [[nodiscard]] Gdiplus::GpFontFamily** end() const { return families_ + count_; }

 private:
  Gdiplus::GpFontFamily** families_ = nullptr;
  INT count_ = 0;
};

[[nodiscard]] bool IsCalledSans(const Gdiplus::GpFontFamily* family) {
  std::array<WCHAR, LF_FACESIZE> name{};
  return Succeeded(gdip::GdipGetFamilyName(family, name.data(), LANG_NEUTRAL)) &&
         std::wstring_view(name.data()).ends_with(L"Sans");
}

// The first installed family whose name says that it has no serifs, else the first of all.
[[nodiscard]] bool FindAnyFamily(FontFamilyOwner& family) {
  Gdiplus::GpFontFamily* chosen = nullptr;
  for (Gdiplus::GpFontFamily* candidate : InstalledFamilies()) {
    if (chosen == nullptr) chosen = candidate;
    if (!IsCalledSans(candidate)) continue;
    chosen = candidate;
    break;
  }
  return chosen != nullptr && Succeeded(gdip::GdipCloneFontFamily(chosen, family.Slot()));
}

}  // namespace

bool FindFontFamily(FontFamilyOwner& family) {
  return Succeeded(gdip::GdipCreateFontFamilyFromName(L"Trebuchet MS", nullptr, family.Slot())) ||
         Succeeded(gdip::GdipGetGenericFontFamilySansSerif(family.Slot())) || FindAnyFamily(family);
}

}  // namespace korvel
