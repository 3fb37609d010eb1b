// The actions on variables: how they change values, and the events that TestVariable raises.
#include <limits>

#include "actions/actions.h"
#include "objects/limits.h"
#include "stage.h"
#include "substitutes/memory.h"

namespace korvel::test {
namespace {

constexpr char kVariables[] =
    "{:BooleanVar 1 :OrigValue TRUE} {:IntegerVar 2 :OrigValue -305} {:OStringVar 3 :OrigValue "
    "\"abcdef\"} {:ObjectRefVar 4 :OrigValue :ObjectRef (\"~/x\" 6)} {:ContentRefVar 5 :OrigValue "
    ":ContentRef \"~/c\"} {:BooleanVar 11 :OrigValue FALSE} {:IntegerVar 12 :OrigValue 0} "
    "{:OStringVar 13 :OrigValue \"42abc\"} {:ObjectRefVar 14 :OrigValue :ObjectRef 2} "
    "{:ContentRefVar 15 :OrigValue :ContentRef \"~/d\"}";

class VariablesTest : public Stage {
 protected:
  // Starts the variables and logs the results of their tests as "+" and "-".
  void StartVariables() {
    std::string items = kVariables;
    for (int number = 1; number <= 5; ++number) items += WatchBoolean(number, "TestEvent", "");
    Start(items);
  }
  std::string Test(const std::string& parameters) {
    EXPECT_EQ(Run(":TestVariable(" + parameters + ")"), Status::Done);
    return TakeLog();
  }
  std::int32_t Calculate(const std::string& action, std::int32_t value, std::int32_t operand) {
    Object<IntegerVariable>(12).Value = value;
    EXPECT_EQ(Run(":" + action + "(12 " + std::to_string(operand) + ")"), Status::Done);
    return Integer(12);
  }
  static std::string Path(int number) {
    return std::string(Object<ContentRefVariable>(number).Value.Path.View());
  }
};

TEST_F(VariablesTest, a_boolean_accepts_only_a_boolean) {
  Start(kVariables);
  EXPECT_EQ(Run(":SetVariable(1 :GBoolean FALSE)"), Status::Done);
  EXPECT_FALSE(Boolean(1));
  EXPECT_EQ(Run(":SetVariable(11 :GBoolean TRUE) :SetVariable(1 :GBoolean :IndirectRef 11)"),
            Status::Done);
  EXPECT_TRUE(Boolean(1));
  EXPECT_EQ(Run(":SetVariable(1 :GInteger 0) :SetVariable(1 :GInteger :IndirectRef 12)"),
            Status::Done);
  EXPECT_TRUE(Boolean(1));
}

TEST_F(VariablesTest, an_integer_is_parsed_from_the_start_of_a_string) {
  Start(kVariables);
  const auto from = [](const std::string& text) {
    EXPECT_EQ(Run(":SetVariable(12 :GInteger 99) :SetVariable(12 :GOctetString \"" + text + "\")"),
              Status::Done);
    return Integer(12);
  };
  EXPECT_EQ(from("42abc"), 42);
  EXPECT_EQ(from("abc"), 0);
  EXPECT_EQ(from("-7x"), -7);
  EXPECT_EQ(from("+8"), 8);
  EXPECT_EQ(from("-"), 0);
  EXPECT_EQ(from("99999999999999999999"), 2147483647);
  EXPECT_EQ(from("-99999999999999999999"), -2147483647 - 1);
}

TEST_F(VariablesTest, an_integer_is_parsed_from_a_string_variable) {
  Start(kVariables);
  EXPECT_EQ(Run(":SetVariable(12 :GOctetString :IndirectRef 13)"), Status::Done);
  EXPECT_EQ(Integer(12), 42);
}

TEST_F(VariablesTest, a_string_stores_its_exact_bytes) {
  Start(kVariables);
  EXPECT_EQ(Run(":SetVariable(3 :GOctetString 'a=00b')"), Status::Done);
  EXPECT_EQ(Octets(3), std::string("a\0b", 3));
  EXPECT_EQ(Run(":SetVariable(3 :GOctetString :IndirectRef 3)"), Status::Done);
  EXPECT_EQ(Octets(3), std::string("a\0b", 3));
}

TEST_F(VariablesTest, a_string_receives_an_integer_variable_as_decimal_text) {
  Start(kVariables);
  EXPECT_EQ(Run(":SetVariable(3 :GInteger :IndirectRef 2)"), Status::Done);
  EXPECT_EQ(Octets(3), "-305");
  EXPECT_EQ(Run(":SetVariable(3 :GInteger 7)"), Status::Done);
  EXPECT_EQ(Octets(3), "-305") << "a literal number is not converted";
}

TEST_F(VariablesTest, a_reference_is_copied_with_its_group) {
  Start(kVariables);
  EXPECT_EQ(Run(":SetVariable(14 :GObjectRef :IndirectRef 4)"), Status::Done);
  EXPECT_EQ(Object<ObjectRefVariable>(14).Value.GroupIdentifier.View(), "~/x");
  EXPECT_EQ(Object<ObjectRefVariable>(14).Value.Number, 6);
  EXPECT_EQ(Run(":SetVariable(14 :GObjectRef (\"~/y\" 8))"), Status::Done);
  EXPECT_EQ(Object<ObjectRefVariable>(14).Value.GroupIdentifier.View(), "~/y");
  EXPECT_EQ(Object<ObjectRefVariable>(4).Value.GroupIdentifier.View(), "~/x");
}

TEST_F(VariablesTest, a_content_path_read_from_a_variable_includes_its_terminating_zero) {
  Start(kVariables);
  EXPECT_EQ(Run(":SetVariable(5 :GContentRef :ContentRef \"~/e\")"), Status::Done);
  EXPECT_EQ(Path(5), "~/e");
  EXPECT_EQ(Run(":SetVariable(5 :GContentRef :IndirectRef 15)"), Status::Done);
  EXPECT_EQ(Path(5), std::string("~/d\0", 4));
}

TEST_F(VariablesTest, setting_one_content_path_from_another_fetches_nothing) {
  Start(kVariables);
  TheHost().fetched.clear();
  EXPECT_EQ(Run(":SetVariable(5 :GContentRef :IndirectRef 15)"), Status::Done);
  EXPECT_TRUE(TheHost().fetched.empty());
}

TEST_F(VariablesTest, reading_a_content_path_for_anything_else_fetches_its_content_once) {
  StartVariables();
  TheHost().files["d"] = "content";
  TheHost().fetched.clear();
  EXPECT_EQ(Test("5 1 :GContentRef :IndirectRef 15"), "-");
  EXPECT_EQ(Test("5 1 :GContentRef :IndirectRef 15"), "-");
  EXPECT_EQ(TheHost().fetched, std::vector<std::string>{"d"});
}

TEST_F(VariablesTest, a_variable_that_is_not_available_does_not_change) {
  Start("{:IntegerVar 1 :InitiallyActive FALSE :OrigValue 5}"
        "{:OStringVar 2 :InitiallyActive FALSE :OrigValue \"a\"}"
        "{:BooleanVar 3 :InitiallyActive FALSE :OrigValue FALSE}");
  EXPECT_EQ(Run(":SetVariable(1 :GInteger 8) :Add(1 3) :Append(2 \"b\")"
                ":SetVariable(2 :GOctetString \"c\") :SetVariable(3 :GBoolean TRUE)"),
            Status::Done);
  EXPECT_EQ(Integer(1), 0);
  EXPECT_EQ(Octets(2), "");
  EXPECT_FALSE(Boolean(3));
}

TEST_F(VariablesTest, an_unavailable_variable_can_be_tested) {
  Start("{:IntegerVar 1 :InitiallyActive FALSE :OrigValue 5}" +
        WatchBoolean(1, "TestEvent", "result"));
  EXPECT_EQ(Run(":TestVariable(1 1 :GInteger 0)"), Status::Done);
  EXPECT_EQ(TakeLog(), "result+");
}

TEST_F(VariablesTest, arithmetic_wraps_around) {
  Start(kVariables);
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(Calculate("Add", kMost, 1), kLeast);
  EXPECT_EQ(Calculate("Subtract", kLeast, 1), kMost);
  EXPECT_EQ(Calculate("Multiply", 65536, 65536), 0);
  EXPECT_EQ(Calculate("Multiply", kLeast, -1), kLeast);
}

TEST_F(VariablesTest, division_truncates_and_the_remainder_has_the_dividends_sign) {
  Start(kVariables);
  EXPECT_EQ(Calculate("Divide", -7, 3), -2);
  EXPECT_EQ(Calculate("Modulo", -7, 3), -1);
  EXPECT_EQ(Calculate("Modulo", 7, -3), 1);
  EXPECT_EQ(Calculate("Divide", 7, -1), -7);
  EXPECT_EQ(Calculate("Divide", std::numeric_limits<std::int32_t>::min(), -2), 1 << 30);
  EXPECT_EQ(Calculate("Modulo", std::numeric_limits<std::int32_t>::min(), -3), -2);
}

TEST_F(VariablesTest, dividing_by_zero_changes_nothing) {
  Start(kVariables);
  EXPECT_EQ(Calculate("Divide", 5, 0), 5);
  EXPECT_EQ(Calculate("Modulo", 5, 0), 5);
}

TEST_F(VariablesTest, dividing_the_least_integer_by_minus_one_leaves_it_unchanged) {
  Start(kVariables);
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(Calculate("Divide", kLeast, -1), kLeast);
  EXPECT_EQ(Calculate("Modulo", kLeast, -1), 0);
}

TEST_F(VariablesTest, appending_can_fill_a_string_to_its_limit) {
  StartVariables();
  ASSERT_TRUE(Object<OctetStringVariable>(3).Value.AssignZeros(kLongestString - 1));
  EXPECT_EQ(Run(":Append(3 \"x\")"), Status::Done);
  EXPECT_EQ(Object<OctetStringVariable>(3).Value.Length(), kLongestString);
}

TEST_F(VariablesTest, appending_adds_at_the_end) {
  Start("{:OStringVar 1 :OrigValue \"\"} {:OStringVar 2 :OrigValue \"ab\"}");
  EXPECT_EQ(Run(":Append(1 \"x\") :Append(2 \"cd\") :Append(2 :IndirectRef 2)"), Status::Done);
  EXPECT_EQ(Octets(1), "x");
  EXPECT_EQ(Octets(2), "abcdabcd");
}

TEST_F(VariablesTest, a_string_that_would_grow_too_long_is_unchanged) {
  Start("{:OStringVar 1 :OrigValue \"\"}");
  ASSERT_TRUE(Object<OctetStringVariable>(1).Value.Assign(std::string(9U << 20U, 'x')));
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":Append(1 :IndirectRef 1)"), Status::Done);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Can't allocate memory for NewVariableValue\n");
  EXPECT_EQ(Octets(1).size(), 9U << 20U);
}

TEST_F(VariablesTest, integers_are_compared_by_the_operator) {
  StartVariables();
  Object<IntegerVariable>(2).Value = 5;
  const char* const results[] = {"-+-", "+-+", "--+", "-++", "+--", "++-", "++-"};
  for (int comparison = 1; comparison <= 7; ++comparison) {
    std::string result;
    for (const int operand : {4, 5, 6}) {
      result += Test("2 " + std::to_string(comparison) + " :GInteger " + std::to_string(operand));
    }
    EXPECT_EQ(result, results[comparison - 1]) << "operator " << comparison;
  }
  EXPECT_EQ(Test("2 0 :GInteger 6"), "-");
}

TEST_F(VariablesTest, on_other_classes_every_operator_but_1_means_not_equal) {
  StartVariables();
  EXPECT_EQ(Test("1 1 :GBoolean TRUE"), "+");
  EXPECT_EQ(Test("1 3 :GBoolean TRUE"), "-");
  EXPECT_EQ(Test("1 3 :GBoolean FALSE"), "+");
  EXPECT_EQ(Test("3 6 :GOctetString \"zzz\""), "+");
  EXPECT_EQ(Test("4 2 :GObjectRef (\"~/x\" 6)"), "-");
}

TEST_F(VariablesTest, references_are_compared_byte_for_byte) {
  StartVariables();
  EXPECT_EQ(Test("4 1 :GObjectRef (\"~/x\" 6)"), "+");
  EXPECT_EQ(Test("4 1 :GObjectRef (\"/x\" 6)"), "-");
  EXPECT_EQ(Test("4 1 :GObjectRef (\"~/x\" 7)"), "-");
}

TEST_F(VariablesTest, a_string_equals_its_prefixes) {
  StartVariables();
  EXPECT_EQ(Test("3 1 :GOctetString \"abc\""), "+");
  EXPECT_EQ(Test("3 1 :GOctetString \"abd\""), "-");
  EXPECT_EQ(Test("3 1 :GOctetString \"abcdef\""), "+");
  EXPECT_EQ(Test("3 1 :GOctetString \"abcdefg\""), "-");
  EXPECT_EQ(Test("3 1 :GOctetString \"\""), "-")
      << "an empty operand is compared with the whole text";
  EXPECT_EQ(Test("5 1 :GContentRef :ContentRef \"~/\""), "+");
  EXPECT_EQ(Test("5 1 :GContentRef :ContentRef \"~/x\""), "-");
}

TEST_F(VariablesTest, a_path_read_from_a_variable_is_compared_as_a_whole) {
  StartVariables();
  const auto assign = [](int number, std::string_view path) {
    EXPECT_TRUE(Object<ContentRefVariable>(number).Value.Path.Assign(path));
  };
  assign(5, "~/folder/file");
  assign(15, "~/folder");
  EXPECT_EQ(Test("5 1 :GContentRef :IndirectRef 15"), "-");
  EXPECT_EQ(Test("5 2 :GContentRef :IndirectRef 15"), "+");
  EXPECT_EQ(Test("5 1 :GContentRef :ContentRef \"~/folder\""), "+")
      << "a literal path is compared as a prefix";
  assign(15, "~/folder/file");
  EXPECT_EQ(Test("5 1 :GContentRef :IndirectRef 15"), "+");
  assign(15, std::string_view("~/folder/file\0", 14));
  EXPECT_EQ(Test("5 1 :GContentRef :IndirectRef 15"), "+") << "the path ends at its zero";
}

TEST_F(VariablesTest, an_operand_of_another_kind_raises_no_event) {
  StartVariables();
  EXPECT_EQ(Test("1 1 :GInteger 1"), "");
  EXPECT_EQ(Test("2 1 :GBoolean TRUE"), "");
  EXPECT_EQ(Test("2 1 :GOctetString \"1\""), "");
  EXPECT_EQ(Test("3 1 :GInteger :IndirectRef 2"), "");
  EXPECT_EQ(Test("4 1 :GContentRef :ContentRef \"x\""), "");
  EXPECT_EQ(Test("2 1 :GInteger :IndirectRef 77"), "");
}

TEST_F(VariablesTest, a_test_whose_link_quits_ends_the_list) {
  Start("{:IntegerVar 1 :OrigValue 0} {:Link 2 :EventSource 1 :EventType TestEvent :EventData TRUE"
        " :LinkEffect (:Quit(0))}");
  EXPECT_EQ(Run(":TestVariable(1 1 :GInteger 1) :TestVariable(1 1 :GInteger 0) :Add(1 1)"),
            Status::Failure);
}

// Sets a variable while copying the value runs out of memory. Returns the printed text.
std::string SetWithoutMemory(int variable, GenericValue value) {
  ElementaryAction action;
  action.ActionType = static_cast<std::uint8_t>(Action::SetVariable);
  action.Target = ReferenceValue(variable);
  action.Parameters = ParametersOf(std::move(value));
  ActionList list;
  EXPECT_NE(list.Append(std::move(action)), nullptr);
  testing::internal::CaptureStdout();
  FailAllocation(1);
  EXPECT_EQ(RunActions(Scope::ApplicationFirst, {&list, CurrentApplication()}, "~/a"),
            Status::Done);
  EXPECT_TRUE(HasFailedAllocation());
  FailAllocation(0);
  return testing::internal::GetCapturedStdout();
}

TEST_F(VariablesTest, a_string_that_cannot_be_copied_is_empty) {
  Start(kVariables);
  EXPECT_EQ(SetWithoutMemory(3, OctetsValue("a value that takes a block")),
            "Can't allocate memory for CharVal\n");
  EXPECT_EQ(Octets(3), "");
}

TEST_F(VariablesTest, a_reference_that_cannot_be_copied_is_empty) {
  Start(kVariables);
  GenericValue value = ReferenceValue(9);
  ASSERT_TRUE(value.Reference.GroupIdentifier.Assign("~/a name that takes a block"));
  EXPECT_EQ(SetWithoutMemory(4, std::move(value)), "Can't allocate memory for ObjectRefVal\n");
  EXPECT_EQ(Object<ObjectRefVariable>(4).Value.GroupIdentifier.View(), "");
  EXPECT_EQ(Object<ObjectRefVariable>(4).Value.Number, 0);
}

}  // namespace
}  // namespace korvel::test
