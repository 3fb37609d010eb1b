// The numbers, strings and names that the content of the engine's fuzzer uses.
#include "choices.h"

namespace korvel::test {
namespace {

constexpr std::array<std::int32_t, 22> kNumbers = {
    INT32_MIN, INT32_MAX, INT32_MIN, INT32_MAX, -1,  -2,  5,   15,   16,    17,      100,
    101,       103,       104,       255,       256, 720, 576, 1000, 40000, 0x10000, -40000};

// Names of groups and of files, the resident programs, engine features, colours, fonts, and text
// with formatting and anchors.
constexpr std::array kStrings = {"~/a",
                                 "~/b",
                                 "~/s",
                                 "~/t",
                                 "/s",
                                 "DSM:/a",
                                 "DSM://t",
                                 "~/d/../s",
                                 "~//s",
                                 "~/missing",
                                 "a",
                                 "text",
                                 "picture",
                                 "~/text",
                                 "CI:x",
                                 "..",
                                 "",
                                 "1",
                                 "12",
                                 "-7",
                                 "2147483648",
                                 "abc",
                                 "0:b",
                                 "GCD",
                                 "FDa",
                                 "GDW",
                                 "Rnd",
                                 "CTC",
                                 "CTO",
                                 "GSL",
                                 "GSS",
                                 "SSS",
                                 "SES",
                                 "GSI",
                                 "BSI",
                                 "TIn",
                                 "TII",
                                 "GBI",
                                 "CCR",
                                 "CGR",
                                 "VTG",
                                 "SWA",
                                 "GDA",
                                 "SSM",
                                 "WAI",
                                 "DBG",
                                 "rec://svc/cur",
                                 "dvb://1.2.3",
                                 "UEP(rec)",
                                 "MultipleAudioStreams(1)",
                                 "plain.26.30",
                                 "plain.0.0",
                                 "%d/%m/%Y %%",
                                 "\x1b"
                                 "C\x04"
                                 "aaaaaa",
                                 "\x1b"
                                 "A\x02"
                                 "ab"
                                 "c\x1b"
                                 "a",
                                 "\x1b"
                                 "A\x01"
                                 "x\x1b"
                                 "a\x1b"
                                 "A\x01"
                                 "y\x1b"
                                 "a",
                                 "\xc3\xa9\xe2\x82\xac",
                                 "\r\t\xff"};

}  // namespace

std::int32_t Choices::Integer() {
  const std::uint32_t kind = Below(8);
  if (kind < 5) return static_cast<std::int32_t>(Below(8));
  if (kind < 6) return static_cast<std::int32_t>(Below(32));
  return OneOf(kNumbers);
}

std::string Choices::Octets() {
  const std::uint32_t kind = Below(16);
  if (kind < 12) return OneOf(kStrings);
  std::string bytes(kind == 15 ? 300 : 3, ' ');
  const std::uint32_t first = Below(256);
  for (char& byte : bytes) byte = static_cast<char>(kind == 12 ? Below(256) : first);
  return bytes;
}

ObjectName Choices::Item(ItemType type) {
  ObjectName name;
  name.number = static_cast<std::int32_t>(type);
  const std::uint32_t kind = Below(16);
  if (kind < 4) name.number = 1 + static_cast<std::int32_t>(Below(40));
  if (kind == 15) name.group = Octets();
  return name;
}

ObjectName Choices::ObjectOf(ClassSet classes) {
  if (Below(12) == 0) return {Octets(), Integer()};
  std::vector<const KnownObject*> candidates;
  for (const KnownObject& object : known) {
    if (Contains(classes, object.type)) candidates.push_back(&object);
  }
  if (candidates.empty()) return {std::nullopt, Integer()};
  ObjectName name = candidates[Below(256) % candidates.size()]->name;
  const std::uint32_t kind = Below(8);
  if (kind < 5 && name.group == groupName) name.group.reset();
  if (kind == 7 && name.group) *name.group = WithoutTilde(*name.group);
  return name;
}

std::vector<ChosenAction> Choices::Actions() {
  std::vector<ChosenAction> actions(1 + Below(6));
  for (ChosenAction& action : actions) {
    action.number = static_cast<std::uint8_t>(1 + Below(lastAction));
  }
  return actions;
}

}  // namespace korvel::test
