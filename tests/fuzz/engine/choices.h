// Turns the fuzzer's input into decisions about content and about the viewer's steps. The bytes at
// the front decide the content, those at the back the steps, so that a mutation of one keeps the
// other. After the last byte the decisions are pseudo-random, so that even a short input plays a
// whole carousel.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "support/group_maker.h"

namespace korvel::test {

// An object of the carousel, to which references may refer.
struct KnownObject {
  ItemType type = ItemType::None;
  ObjectName name;
};

class Choices {
 public:
  explicit Choices(std::span<const std::uint8_t> input) : input_(input) {
    for (std::size_t i = 0; i < 4 && i < input.size(); ++i) random_ = random_ * 256 + input[i];
  }

  [[nodiscard]] bool IsExhausted() const { return input_.empty(); }

  // A number from 0 to limit - 1, for content. The limit is at most 256.
  std::uint32_t Below(std::uint32_t limit) {
    if (input_.empty()) return NextRandom() % limit;
    const std::uint32_t byte = input_.front();
    input_ = input_.subspan(1);
    return byte % limit;
  }
  // As Below, but for a step.
  std::uint32_t StepBelow(std::uint32_t limit) {
    if (input_.empty()) return NextRandom() % limit;
    const std::uint32_t byte = input_.back();
    input_ = input_.first(input_.size() - 1);
    return byte % limit;
  }

  // ---- For GroupMaker ----

  [[nodiscard]] static constexpr bool IsComplete() { return false; }
  bool Sometimes() { return Below(4) != 0; }

  // Mostly small, so that it often equals the number of an item, a list entry, a key or a timer.
  std::int32_t Integer();
  std::string Octets();
  std::int32_t EnumerationNumber(std::uint32_t count) {
    return Below(16) == 0 ? Integer() : static_cast<std::int32_t>(1 + Below(count));
  }
  [[nodiscard]] ObjectName Group(ItemType /*type*/) const { return {groupName, 0}; }
  ObjectName Item(ItemType type);
  ObjectName ObjectOf(ClassSet classes);
  std::size_t ItemCount(ItemType type) { return Below(type == ItemType::Link ? 8 : 2); }
  std::vector<ChosenAction> Actions();

  // For the content that is made next: its group, the objects to which its references may refer,
  // and the highest action number.
  std::string groupName;
  std::vector<KnownObject> known;
  std::uint8_t lastAction = kDecodedActionCount;

 private:
  std::uint32_t NextRandom() {
    random_ = random_ * 6364136223846793005U + 1442695040888963407U;
    return static_cast<std::uint32_t>(random_ >> 33U);
  }
  template <class T, std::size_t kSize> T OneOf(const std::array<T, kSize>& values) {
    return values[Below(kSize)];
  }

  std::span<const std::uint8_t> input_;
  std::uint64_t random_ = 1;
};

}  // namespace korvel::test
