// The resident programs about the receiver: random numbers, its identity, settings that content may
// change, and a fixed table of six broadcast services, all of one network.
#include <cstdint>
#include <string_view>

#include "engine/core.h"
#include "engine/resident_programs.h"
#include "platform/running.h"

namespace korvel {
namespace {

// The aspect ratio of the display: 1 means 4:3.
constexpr std::int32_t kDisplayAspectRatio = 1;

constexpr std::int32_t kNetworkId = 0x3002;
constexpr std::int32_t kOriginalNetworkId = 0x233A;
constexpr std::int32_t kTransportStreamId = 0x100D;

struct Service {
  std::string_view idText;
  std::int32_t id;
};
constexpr Service kServices[] = {{"104d", 0x104D}, {"108d", 0x108D}, {"10ff", 0x10FF},
                                 {"113f", 0x113F}, {"117f", 0x117F}, {"123f", 0x123F}};

// Removes the text before the next dot from `rest`. False when there is no dot.
bool TakeField(std::string_view& rest, std::string_view& field) {
  const std::size_t dot = rest.find('.');
  if (dot == std::string_view::npos) return false;
  field = rest.substr(0, dot);
  rest.remove_prefix(dot + 1);
  return true;
}

// The index of a service reference, from 1; -1 when it names none of the services. The comparison
// is exact; the transport stream is ignored.
std::int32_t IndexOf(std::string_view reference) {
  constexpr std::string_view kPrefix = "dvb://";
  if (!reference.starts_with(kPrefix)) return -1;
  std::string_view rest = reference.substr(kPrefix.size());
  std::string_view network;
  std::string_view stream;
  if (!TakeField(rest, network) || !TakeField(rest, stream) || network != "233a") return -1;
  std::int32_t index = 0;
  for (const Service& service : kServices) {
    ++index;
    if (service.idText == rest) return index;
  }
  return -1;
}

}  // namespace

// Returns a number from 0 to the given one, inclusive.
bool GetRandomNumber(ProgramValues& values) {
  const std::int64_t count = std::int64_t{values[0].Integer} + 1;
  values[1].Integer = count <= 0 ? 0 : static_cast<std::int32_t>(NextRandom() % count);
  return true;
}

// There is none: returns false and an empty text.
bool GetBootInfo(ProgramValues& values) { return values[1].Octets.Assign({}); }

bool CheckContentReference(ProgramValues& values) {
  values[1].Boolean = true;
  return values[2].Octets.Assign(values[0].Octets.View());
}

bool CheckGroupReference(ProgramValues& values) {
  values[1].Boolean = true;
  return Copy(values[0].Reference, values[2].Reference);
}

bool SetWidescreenAlignment(ProgramValues& values) {
  TheCore().programSettings.widescreenAlignment = values[0].Integer;
  return true;
}

bool GetDisplayAspectRatio(ProgramValues& values) {
  values[0].Integer = kDisplayAspectRatio;
  return true;
}

bool SetSubtitleMode(ProgramValues& values) {
  TheCore().programSettings.subtitleMode = values[0].Boolean;
  return true;
}

bool WhoAmI(ProgramValues& values) {
  return values[0].Octets.Assign("QXZ001100 MHGQXZ001 DSMQXZ000");
}

bool DoNothing(ProgramValues& values) {
  static_cast<void>(values);
  return true;
}

bool GetServiceIndex(ProgramValues& values) {
  values[1].Integer = IndexOf(values[0].Octets.View());
  return true;
}

bool GetBasicServiceInformation(ProgramValues& values) {
  const std::int32_t index = values[0].Integer;
  const bool isKnown = index >= 1 && index <= static_cast<std::int32_t>(std::size(kServices));
  values[1].Integer = isKnown ? kNetworkId : -1;
  values[2].Integer = isKnown ? kOriginalNetworkId : -1;
  values[3].Integer = isKnown ? kTransportStreamId : -1;
  values[4].Integer = isKnown ? kServices[index - 1].id : -1;
  return true;
}

// Restarts the engine, which searches for the start-up application of the new service.
bool TuneToIndex(ProgramValues& values) {
  if (values[0].Integer > 0) RequestRestart(RestartReason::Tune);
  return true;
}

bool SetTuneInfo(ProgramValues& values) {
  TheCore().programSettings.tuneInfo = values[0].Integer;
  return true;
}

}  // namespace korvel
