// The persistent store: named blocks, each of which can be taken once.
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

class PersistentStore : public EngineTest {
 protected:
  static Status Put(std::string_view name, std::string_view bytes) {
    OctetString data;
    EXPECT_TRUE(data.Assign(bytes));
    return AppendPersistent(name, std::move(data));
  }
  // Takes the first block of that name; returns "none" if there is none.
  static std::string Take(std::string_view name) {
    OctetString data;
    if (!TakePersistent(name, data)) return "none";
    return std::string(data.View());
  }
};

TEST_F(PersistentStore, a_block_can_be_taken_once) {
  EXPECT_EQ(Put("scores", "42"), Status::Done);
  EXPECT_EQ(Take("scores"), "42");
  EXPECT_EQ(Take("scores"), "none");
}

TEST_F(PersistentStore, taking_an_unknown_name_fails_and_does_not_change_the_output) {
  OctetString data;
  ASSERT_TRUE(data.Assign("before"));
  EXPECT_FALSE(TakePersistent("scores", data));
  EXPECT_EQ(data.View(), "before");
}

TEST_F(PersistentStore, names_are_compared_exactly) {
  EXPECT_EQ(Put("scores", "1"), Status::Done);
  for (const char* other : {"Scores", "score", "scores2", ""}) EXPECT_EQ(Take(other), "none");
  EXPECT_EQ(Take("scores"), "1");
}

TEST_F(PersistentStore, blocks_of_one_name_are_taken_in_the_order_stored) {
  EXPECT_EQ(Put("x", "1"), Status::Done);
  EXPECT_EQ(Put("y", "2"), Status::Done);
  EXPECT_EQ(Put("x", "3"), Status::Done);
  EXPECT_EQ(Take("x"), "1");
  EXPECT_EQ(Take("x"), "3");
  EXPECT_EQ(Take("y"), "2");
}

TEST_F(PersistentStore, remove_takes_the_first_block_of_the_name) {
  EXPECT_EQ(Put("x", "1"), Status::Done);
  EXPECT_EQ(Put("x", "2"), Status::Done);
  EXPECT_TRUE(RemovePersistent("x"));
  EXPECT_EQ(Take("x"), "2");
  EXPECT_FALSE(RemovePersistent("x"));
}

TEST_F(PersistentStore, an_emptied_store_accepts_new_blocks) {
  EXPECT_EQ(Put("x", "1"), Status::Done);
  EXPECT_EQ(Put("y", "2"), Status::Done);
  EmptyPersistentStore();
  EmptyPersistentStore();
  EXPECT_EQ(Take("x"), "none");
  EXPECT_EQ(Take("y"), "none");
  EXPECT_EQ(Put("x", "3"), Status::Done);
  EXPECT_EQ(Take("x"), "3");
}

TEST_F(PersistentStore, blocks_may_be_empty_or_contain_zeros) {
  const std::string zeros(3, '\0');
  EXPECT_EQ(Put("zeros", zeros), Status::Done);
  EXPECT_EQ(Put("empty", ""), Status::Done);
  EXPECT_EQ(Take("zeros"), zeros);
  EXPECT_EQ(Take("empty"), "");
}

TEST_F(PersistentStore, the_name_is_copied) {
  std::string name = "scores";
  EXPECT_EQ(Put(name, "1"), Status::Done);
  name = "others";
  EXPECT_EQ(Take("scores"), "1");
}

TEST_F(PersistentStore, the_store_outlives_applications_until_the_engine_is_reset) {
  ServeApplication("");
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Put("x", "1"), Status::Done);
  Do([] { CloseDown(); });
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Take("x"), "1");
  EXPECT_EQ(Put("x", "1"), Status::Done);
  EndEngine();
  EXPECT_EQ(Take("x"), "none");
}

TEST_F(PersistentStore, without_memory_nothing_is_stored_and_a_message_is_printed) {
  OctetString data;
  ASSERT_TRUE(data.Assign("1"));
  const std::string name = "a name that takes a block";
  std::string messages;
  for (const std::size_t failing : {1U, 2U}) {  // the name and the entry
    const Status result = Do([&] {
      FailAllocation(failing);
      const Status status = AppendPersistent(name, std::move(data));
      FailAllocation(0);
      return status;
    });
    EXPECT_EQ(result, Status::Failure);
    EXPECT_EQ(data.View(), "1") << "the caller still owns the data";
    messages += Printed();
    EXPECT_EQ(Take(name), "none");
  }
  EXPECT_NE(messages.find("Can't allocate memory for Persistent\n"), std::string::npos);
  EXPECT_NE(messages.find("Can't allocate memory for Persistent FileName\n"), std::string::npos);
  EXPECT_EQ(Do([&] { return AppendPersistent(name, std::move(data)); }), Status::Done);
  EXPECT_EQ(Take(name), "1");
}

}  // namespace
}  // namespace korvel::test
