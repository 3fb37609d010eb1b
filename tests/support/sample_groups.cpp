// Groups whose contents are complete, or random and independent of each other.
#include "support/sample_groups.h"

#include <array>
#include <random>
#include <string>
#include <vector>

#include "support/group_maker.h"

namespace korvel::test {
namespace {

enum class Extent { Complete, Random };

class SampleChoices {
 public:
  SampleChoices(std::uint32_t seed, Extent extent) : random_(seed), extent_(extent) {}

  [[nodiscard]] bool IsComplete() const { return extent_ == Extent::Complete; }
  std::uint32_t Below(std::uint32_t limit) { return static_cast<std::uint32_t>(random_() % limit); }
  bool Sometimes() { return IsComplete() || Below(2) == 0; }

  std::int32_t Integer() {
    constexpr std::array<std::int32_t, 12> edges = {0,    1,   -1,    127,    128,       -128,
                                                    -129, 255, 32768, -32769, INT32_MAX, INT32_MIN};
    return Below(2) == 0 ? edges[Below(edges.size())] : static_cast<std::int32_t>(random_());
  }
  // Random bytes, including zeros, or text. Sometimes empty, sometimes so long that BER needs a
  // longer length field.
  std::string Octets() {
    std::string bytes(Below(20) == 0 ? 300 : Below(9), ' ');
    const bool isText = Below(2) == 0;
    for (char& byte : bytes) byte = static_cast<char>(isText ? ' ' + Below(95) : Below(256));
    return bytes;
  }
  std::int32_t EnumerationNumber(std::uint32_t count) {
    return static_cast<std::int32_t>(1 + Below(count));
  }

  ObjectName Group(ItemType /*type*/) {
    return IsComplete() ? ObjectName{"~/sample", 0} : ObjectOf(kGroups);
  }
  ObjectName Item(ItemType /*type*/) { return ObjectOf(kAllClasses); }
  ObjectName ObjectOf(ClassSet /*classes*/) {
    ObjectName name;
    if (Below(2) == 0) name.group = Octets();
    name.number = Integer();
    return name;
  }

  std::size_t ItemCount(ItemType /*type*/) { return Sometimes() ? 1 : 0; }

  // The first list of a complete group has all actions; its later lists stay short.
  std::vector<ChosenAction> Actions() {
    const bool addsAll = IsComplete() && !hasAllActions_;
    hasAllActions_ = true;
    std::vector<ChosenAction> chosen;
    for (std::uint8_t number = 1; number <= kDecodedActionCount; ++number) {
      if (addsAll || Below(kDecodedActionCount) < 2) chosen.push_back({number, false});
      if (addsAll) chosen.push_back({number, true});
    }
    if (chosen.empty() && IsComplete()) chosen.push_back({1, false});
    return chosen;
  }

 private:
  std::mt19937 random_;
  Extent extent_;
  bool hasAllActions_ = false;
};

OwnedGroup MakeSample(ItemType type, SampleChoices choices) {
  return GroupMaker<SampleChoices>(choices).Make(type);
}

}  // namespace

OwnedGroup MakeCompleteGroup(ItemType type) { return MakeSample(type, {1, Extent::Complete}); }

OwnedGroup MakeRandomGroup(std::uint32_t seed) {
  const ItemType type = seed % 2 == 0 ? ItemType::Application : ItemType::Scene;
  return MakeSample(type, {seed, Extent::Random});
}

}  // namespace korvel::test
