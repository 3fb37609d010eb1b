// Creating and releasing records by class number.
#include "objects/item.h"

#include <gtest/gtest.h>

#include "objects/ingredients.h"
#include "objects/ownership.h"
#include "objects/visibles.h"
#include "substitutes/memory.h"

namespace korvel::test {
namespace {

TEST(Item, every_ingredient_class_can_be_created) {
  const std::size_t before = LiveBlocks();
  for (std::uint32_t number = 3; number <= 32; ++number) {
    if (number == 22) continue;
    const Item item = Item::New(static_cast<ItemType>(number));
    EXPECT_TRUE(item) << number;
    EXPECT_EQ(item.Type(), static_cast<ItemType>(number));
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(Item, unknown_class_numbers_create_nothing) {
  for (const std::uint32_t number : {0U, 1U, 2U, 22U, 33U, 999U}) {
    EXPECT_FALSE(Item::New(static_cast<ItemType>(number))) << number;
  }
}

TEST(Item, is_empty_when_out_of_memory) {
  FailAllocation(1);
  EXPECT_FALSE(Item::New(ItemType::Text));
  FailAllocation(0);
}

// An unknown class number is an internal error. Releasing the list continues with the next item.
TEST(Item, releasing_an_unknown_type_is_reported_and_continues) {
  auto record = NewRecord<Palette>();
  const std::size_t before = LiveBlocks();
  List<Item> items;
  ASSERT_NE(items.Append(Item(static_cast<ItemType>(22), record.get())), nullptr);
  ASSERT_NE(items.Append(Item::New(ItemType::Text)), nullptr);
  testing::internal::CaptureStdout();
  items.Clear();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Unknown ItemType\n");
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(Item, two_hundred_thousand_items_are_released_without_recursion) {
  const std::size_t before = LiveBlocks();
  {
    List<Item> items;
    for (int i = 0; i < 200000; ++i) {
      ASSERT_NE(items.Append(Item::New(ItemType::Palette)), nullptr);
    }
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(Item, two_hundred_thousand_actions_are_released_without_recursion) {
  const std::size_t before = LiveBlocks();
  {
    ActionList actions;
    for (int i = 0; i < 200000; ++i) ASSERT_NE(actions.Append(ElementaryAction{}), nullptr);
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(Item, a_stream_releases_its_components) {
  const std::size_t before = LiveBlocks();
  {
    const Item stream = Item::New(ItemType::Stream);
    for (const ItemType type : {ItemType::Audio, ItemType::Video, ItemType::RTGraphics}) {
      ASSERT_NE(stream.As<Stream>().Multiplex.Append(Item::New(type)), nullptr);
    }
    EXPECT_GT(LiveBlocks(), before);
  }
  EXPECT_EQ(LiveBlocks(), before);
}

}  // namespace
}  // namespace korvel::test
