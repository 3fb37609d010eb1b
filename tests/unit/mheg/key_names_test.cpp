// Every key name in scripts, and its virtual key.
#include "mheg/key_names.h"

#include <gtest/gtest.h>

#include "objects/vocabulary.h"

namespace {

using mheg::VirtualKeyOf;

TEST(KeyNames, control_keys_have_names) {
  EXPECT_EQ(VirtualKeyOf("Enter"), 13U);
  EXPECT_EQ(VirtualKeyOf("Escape"), 27U);
  EXPECT_EQ(VirtualKeyOf("Left"), 37U);
  EXPECT_EQ(VirtualKeyOf("Up"), 38U);
  EXPECT_EQ(VirtualKeyOf("Right"), 39U);
  EXPECT_EQ(VirtualKeyOf("Down"), 40U);
}

TEST(KeyNames, words_for_the_kind_of_key_are_allowed) {
  EXPECT_EQ(VirtualKeyOf("Left arrow"), 37U);
  EXPECT_EQ(VirtualKeyOf("letter B"), 66U);
  EXPECT_EQ(VirtualKeyOf("digit 7"), 55U);
}

TEST(KeyNames, case_does_not_matter) {
  EXPECT_EQ(VirtualKeyOf("ENTER"), 13U);
  EXPECT_EQ(VirtualKeyOf("r"), 82U);
}

TEST(KeyNames, digits_and_keypad_digits_differ) {
  EXPECT_EQ(VirtualKeyOf("0"), 48U);
  EXPECT_EQ(VirtualKeyOf("9"), 57U);
  EXPECT_EQ(VirtualKeyOf("Keypad 0"), 96U);
  EXPECT_EQ(VirtualKeyOf("Keypad9"), 105U);
}

TEST(KeyNames, colour_and_text_keys_are_letters) {
  EXPECT_EQ(VirtualKeyOf("Red"), VirtualKeyOf("R"));
  EXPECT_EQ(VirtualKeyOf("Green"), VirtualKeyOf("G"));
  EXPECT_EQ(VirtualKeyOf("Yellow"), VirtualKeyOf("Y"));
  EXPECT_EQ(VirtualKeyOf("Blue"), VirtualKeyOf("B"));
  EXPECT_EQ(VirtualKeyOf("Text"), VirtualKeyOf("T"));
  EXPECT_EQ(VirtualKeyOf("Text"), 84U);
  EXPECT_EQ(VirtualKeyOf("Info"), VirtualKeyOf("I"));
  EXPECT_EQ(VirtualKeyOf("I"), 73U);
}

TEST(KeyNames, keys_of_a_remote_control_have_their_own_names) {
  EXPECT_EQ(VirtualKeyOf("ok"), VirtualKeyOf("Enter"));
  EXPECT_EQ(VirtualKeyOf("Cancel"), VirtualKeyOf("Escape"));
}

TEST(KeyNames, other_names_are_rejected) {
  for (const char* name : {"", "A", "10", "Keypad", "Keypad R", "F1", "Purple", "*", "%"}) {
    EXPECT_FALSE(VirtualKeyOf(name)) << name;
  }
}

TEST(KeyNames, each_key_that_content_receives_has_a_name_that_is_read_as_the_same_key) {
  for (unsigned virtualKey = 0; virtualKey < 256; ++virtualKey) {
    const std::string name = mheg::NameOfKey(virtualKey);
    const bool isReceived = korvel::UserInputKey(virtualKey) != korvel::kNoUserInput;
    EXPECT_EQ(!name.empty(), isReceived) << virtualKey;
    if (isReceived) {
      EXPECT_EQ(VirtualKeyOf(name), virtualKey) << name;
    }
  }
  EXPECT_EQ(mheg::NameOfKey(13), "OK");
  EXPECT_EQ(mheg::NameOfKey('R'), "Red");
}

}  // namespace
