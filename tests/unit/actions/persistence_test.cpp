// Storing variables in the persistent store and reading them back: the format of an entry, entries
// that do not match the variables, and the success variable.
#include <algorithm>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "objects/limits.h"
#include "stage.h"

namespace korvel::test {
namespace {

class PersistenceTest : public Stage {
 protected:
  static std::string Shown(int variable);
};

constexpr char kStored[] =
    "{:BooleanVar 1 :OrigValue TRUE} {:IntegerVar 2 :OrigValue -2} {:OStringVar 3 :OrigValue "
    "\"text\"} {:ObjectRefVar 4 :OrigValue :ObjectRef (\"~/g\" 5)} {:ContentRefVar 5 :OrigValue "
    ":ContentRef \"~/c\"} {:BooleanVar 9 :OrigValue FALSE} {:OStringVar 10 :OrigValue \"name\"}"
    "{:Link 11 :InitiallyActive FALSE :EventSource 0 :EventType IsRunning :LinkEffect ()}"
    "{:IntegerVar 12 :OrigValue 9} {:OStringVar 13 :OrigValue \"keep\"}";

std::string TakeStored(std::string_view name) {
  OctetString data;
  return TakePersistent(name, data) ? std::string(data.View()) : "nothing";
}

// The value of a variable, by its number, as text.
std::string PersistenceTest::Shown(int variable) {
  switch (variable) {
  case 1: return Boolean(1) ? "yes" : "no";
  case 2: return std::to_string(Integer(2));
  case 3: return Octets(3);
  case 4: {
    const ObjectReference& value = Object<ObjectRefVariable>(4).Value;
    return std::string(value.GroupIdentifier.View()) + " " + std::to_string(value.Number);
  }
  default: return std::string(Object<ContentRefVariable>(5).Value.Path.View());
  }
}

TEST_F(PersistenceTest, stored_values_are_read_back_once) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (1 2 3 4 5) \"name\")"), Status::Done);
  EXPECT_TRUE(Boolean(9));
  EXPECT_EQ(Run(":SetVariable(1 :GBoolean FALSE) :SetVariable(2 :GInteger 0)"
                ":SetVariable(3 :GOctetString \"\") :SetVariable(4 :GObjectRef (\"~/h\" 6))"
                ":SetVariable(5 :GContentRef :ContentRef \"~/d\") :SetVariable(9 :GBoolean FALSE)"
                ":ReadPersistent(0 9 (1 2 3 4 5) :IndirectRef 10)"),
            Status::Done);
  EXPECT_TRUE(Boolean(9));
  EXPECT_TRUE(Boolean(1));
  EXPECT_EQ(Integer(2), -2);
  EXPECT_EQ(Octets(3), "text");
  EXPECT_EQ(Object<ObjectRefVariable>(4).Value.GroupIdentifier.View(), "~/g");
  EXPECT_EQ(Object<ObjectRefVariable>(4).Value.Number, 5);
  EXPECT_EQ(Object<ContentRefVariable>(5).Value.Path.View(), "~/c");
  EXPECT_EQ(TakeStored("name"), "nothing");
}

TEST_F(PersistenceTest, values_are_stored_without_header_lowest_byte_first) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (1 2 3 4 5) \"name\")"), Status::Done);
  EXPECT_EQ(TakeStored("name"), std::string("\x01"
                                            "\xFE\xFF\xFF\xFF"
                                            "\x04\0\0\0text"
                                            "\x03\0\0\0~/g\x05\0\0\0"
                                            "\x03\0\0\0~/c",
                                            1 + 4 + 8 + 11 + 7));
}

// Any list of variables is read back as stored, with any values, even if it names a variable twice.
TEST_F(PersistenceTest, random_lists_of_variables_are_read_back) {
  Start(kStored);
  std::mt19937 random(1);  // NOLINT: the same lists every time
  const auto randomText = [&random] {
    std::string text(random() % 300, ' ');
    for (char& byte : text) byte = static_cast<char>(random());
    return text;
  };
  const auto fill = [&] {
    Object<BooleanVariable>(1).Value = random() % 2 == 0;
    Object<IntegerVariable>(2).Value = static_cast<std::int32_t>(random());
    EXPECT_TRUE(Object<OctetStringVariable>(3).Value.Assign(randomText()));
    EXPECT_TRUE(Object<ObjectRefVariable>(4).Value.GroupIdentifier.Assign(randomText()));
    Object<ObjectRefVariable>(4).Value.Number = static_cast<std::int32_t>(random());
    EXPECT_TRUE(Object<ContentRefVariable>(5).Value.Path.Assign(randomText()));
  };
  const auto values = [] {
    const ObjectReference& reference = Object<ObjectRefVariable>(4).Value;
    return std::tuple(Boolean(1), Integer(2), Octets(3),
                      std::string(reference.GroupIdentifier.View()), reference.Number,
                      std::string(Object<ContentRefVariable>(5).Value.Path.View()));
  };
  for (int round = 0; round < 50; ++round) {
    std::string list = "1 2 3 4 5";
    for (auto more = random() % 6; more > 0; --more) {
      list += " " + std::to_string(random() % 5 + 1);
    }
    fill();
    const auto stored = values();
    EXPECT_EQ(Run(":StorePersistent(0 9 (" + list + ") \"name\")"), Status::Done);
    fill();
    EXPECT_EQ(Run(":ReadPersistent(0 9 (" + list + ") \"name\")"), Status::Done);
    EXPECT_EQ(values(), stored) << list;
  }
}

TEST_F(PersistenceTest, reading_a_missing_entry_resets_the_variables_and_succeeds) {
  Start(kStored);
  EXPECT_EQ(Run(":ReadPersistent(0 9 (1 2 3 4 5) \"other\")"), Status::Done);
  EXPECT_TRUE(Boolean(9));
  EXPECT_FALSE(Boolean(1));
  EXPECT_EQ(Integer(2), 0);
  EXPECT_EQ(Octets(3), "");
  EXPECT_TRUE(Object<ObjectRefVariable>(4).Value.GroupIdentifier.View().empty());
  EXPECT_EQ(Object<ObjectRefVariable>(4).Value.Number, 0);
  EXPECT_TRUE(Object<ContentRefVariable>(5).Value.Path.View().empty());
}

TEST_F(PersistenceTest, without_a_name_nothing_is_read) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (3) \"name\") :SetVariable(3 :GOctetString \"new\")"
                ":SetVariable(9 :GBoolean FALSE) :ReadPersistent(0 9 (3) :IndirectRef 99)"),
            Status::Done);
  EXPECT_FALSE(Boolean(9));
  EXPECT_EQ(Octets(3), "new");
  EXPECT_NE(TakeStored("name"), "nothing");
}

TEST_F(PersistenceTest, a_second_store_replaces_the_first) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (3) \"name\") :StorePersistent(0 9 (1) \"name\")"),
            Status::Done);
  EXPECT_EQ(TakeStored("name"), "\x01");
  EXPECT_EQ(TakeStored("name"), "nothing");
}

TEST_F(PersistenceTest, an_entry_is_limited_to_the_longest_octet_string) {
  Start(kStored);
  testing::internal::CaptureStdout();
  ASSERT_TRUE(Object<OctetStringVariable>(3).Value.AssignZeros(kLongestString / 2 - 4));
  EXPECT_EQ(Run(":StorePersistent(0 9 (3 3) \"name\")"), Status::Done);
  EXPECT_TRUE(Boolean(9));
  EXPECT_EQ(TakeStored("name").size(), kLongestString);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":StorePersistent(0 9 (3 3 1) \"name\")"), Status::Failure);
  EXPECT_FALSE(Boolean(9));
  EXPECT_EQ(TakeStored("name"), "nothing");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Can't allocate memory for Persistent\n");
}

TEST_F(PersistenceTest, an_object_that_is_not_a_variable_ends_the_action_without_success) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (1) \"name\") :SetVariable(9 :GBoolean FALSE)"
                ":ReadPersistent(0 9 (11) \"name\")"),
            Status::Done);
  EXPECT_FALSE(Boolean(9));
  EXPECT_EQ(TakeStored("name"), "nothing") << "the entry has been removed";
  EXPECT_EQ(Run(":StorePersistent(0 9 (1 11) \"name\") :StorePersistent(0 9 (77) \"name\")"),
            Status::Done);
  EXPECT_FALSE(Boolean(9));
  EXPECT_EQ(TakeStored("name"), "nothing");
}

TEST_F(PersistenceTest, variables_past_the_end_of_an_entry_are_reset) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (1) \"name\") :ReadPersistent(0 9 (1 12 13) \"name\")"),
            Status::Done);
  EXPECT_TRUE(Boolean(1));
  EXPECT_EQ(Integer(12), 0);
  EXPECT_EQ(Octets(13), "");
  EXPECT_TRUE(Boolean(9));
}

TEST_F(PersistenceTest, a_length_beyond_the_entry_resets_the_remaining_variables) {
  Start(kStored);
  EXPECT_EQ(Run(":SetVariable(2 :GInteger 2147483647) :StorePersistent(0 9 (2 1) \"name\")"
                ":ReadPersistent(0 9 (3 1) \"name\")"),
            Status::Done);
  EXPECT_EQ(Octets(3), "");
  EXPECT_FALSE(Boolean(1)) << "every variable after a truncated value is reset";
}

TEST_F(PersistenceTest, a_reference_cut_off_in_its_number_is_reset) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (3) \"name\") :ReadPersistent(0 9 (4) \"name\")"),
            Status::Done);
  EXPECT_TRUE(Object<ObjectRefVariable>(4).Value.GroupIdentifier.View().empty());
  EXPECT_EQ(Object<ObjectRefVariable>(4).Value.Number, 0);
}

TEST_F(PersistenceTest, nothing_is_stored_while_the_success_variable_is_not_available) {
  Start(kStored);
  Object<BooleanVariable>(9).AvailabilityStatus = false;
  EXPECT_EQ(Run(":StorePersistent(0 9 (1) \"name\")"), Status::Done);
  EXPECT_EQ(TakeStored("name"), "nothing");
}

TEST_F(PersistenceTest, quitting_the_only_application_empties_the_store) {
  Start(kStored);
  EXPECT_EQ(Run(":StorePersistent(0 9 (1) \"name\") :Quit(0)"), Status::Failure);
  EXPECT_EQ(TakeStored("name"), "nothing");
}

// A reference implementation of reading an entry: a value that extends past the end of the entry
// resets its variable and all that follow.
class ReferenceReader {
 public:
  explicit ReferenceReader(std::string data) : data_(std::move(data)) {}

  std::string Octets(std::size_t count) {
    if (isShort_ || data_.size() - at_ < count) {
      isShort_ = true;
      return "";
    }
    at_ += count;
    return data_.substr(at_ - count, count);
  }
  std::uint32_t Number() {
    const std::string bytes = Octets(4);
    std::uint32_t number = 0;
    for (std::size_t i = bytes.size(); i > 0; --i) {
      number = number * 256 + static_cast<unsigned char>(bytes[i - 1]);
    }
    return number;
  }
  std::string Reference() {
    const std::string group = Octets(Number());
    const std::uint32_t number = Number();
    return isShort_ ? " 0" : group + " " + std::to_string(static_cast<std::int32_t>(number));
  }

  // The expected value of the variable after it has been read, in the form of `Shown`.
  std::string Next(int variable) {
    switch (variable) {
    case 1: return Octets(1).find_first_not_of('\0') == std::string::npos ? "no" : "yes";
    case 2: return std::to_string(static_cast<std::int32_t>(Number()));
    case 4: return Reference();
    default: return Octets(Number());
    }
  }

 private:
  std::string data_;
  std::size_t at_ = 0;
  bool isShort_ = false;
};

// The variables read need not have the classes of those stored.
TEST_F(PersistenceTest, an_entry_of_random_bytes_is_read_as_by_the_reference) {
  Start(kStored);
  std::mt19937 random(2);  // NOLINT: the same entries every time
  for (int round = 0; round < 300; ++round) {
    std::string entry(random() % 40, '\0');
    for (char& byte : entry) byte = static_cast<char>(random() % 4 == 0 ? random() : random() % 6);
    OctetString data;
    ASSERT_TRUE(data.Assign(entry));
    ASSERT_EQ(AppendPersistent("name", std::move(data)), Status::Done);
    std::vector<int> order = {1, 2, 3, 4, 5};
    std::ranges::shuffle(order, random);
    std::string list;
    for (const int variable : order) list += " " + std::to_string(variable);
    ASSERT_EQ(Run(":ReadPersistent(0 9 (" + list + ") \"name\")"), Status::Done);
    ReferenceReader reference(entry);
    for (const int variable : order) {
      ASSERT_EQ(Shown(variable), reference.Next(variable)) << "round " << round << ':' << list;
    }
  }
}

}  // namespace
}  // namespace korvel::test
