// The resident programs on the receiver: chance, what it is, and the settings that content may give
// it.
#include <cstdint>

#include "engine/core.h"
#include "engine/resident_programs.h"

namespace korvel {
namespace {

// The width of the display against its height: 1 stands for 4 to 3.
constexpr std::int32_t kDisplayAspectRatio = 1;

}  // namespace

// From 0 up to and including the given number.
bool GetRandomNumber(ProgramValues& values) {
  const std::int64_t count = std::int64_t{values[0].Integer} + 1;
  values[1].Integer = count <= 0 ? 0 : static_cast<std::int32_t>(NextRandom() % count);
  return true;
}

bool GetBootInfo(ProgramValues& values) {
  values[0].Boolean = false;
  return values[1].Octets.Assign({});
}

bool CheckContentReference(ProgramValues& values) {
  values[1].Boolean = true;
  return values[2].Octets.Assign(values[0].Octets.View());
}

bool CheckGroupReference(ProgramValues& values) {
  values[1].Boolean = true;
  return Copy(values[0].Reference, values[2].Reference);
}

bool SetWidescreenAlignment(ProgramValues& values) {
  TheCore().programSettings.WidescreenAlignment = values[0].Integer;
  return true;
}

bool GetDisplayAspectRatio(ProgramValues& values) {
  values[0].Integer = kDisplayAspectRatio;
  return true;
}

bool SetSubtitleMode(ProgramValues& values) {
  TheCore().programSettings.SubtitleMode = values[0].Boolean;
  return true;
}

bool WhoAmI(ProgramValues& values) {
  return values[0].Octets.Assign("QXZ001100 MHGQXZ001 DSMQXZ000");
}

bool DoNothing(ProgramValues& values) {
  static_cast<void>(values);
  return true;
}

}  // namespace korvel
