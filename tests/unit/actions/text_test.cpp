// Text objects: new content, reading it back, and the drawing attributes.
#include "stage.h"

namespace korvel::test {
namespace {

class TextTest : public Stage {
 protected:
  static std::string Shown(int number = 1) {
    return std::string(Object<Text>(number).TextData.View());
  }
};

constexpr char kText[] = "{:Text 1 :OrigContent \"as decoded\" :OrigBoxSize 99 20}"
                         "{:OStringVar 2 :OrigValue \"before\"} {:IntegerVar 3 :OrigValue 5}";

TEST_F(TextTest, included_content_is_shown_immediately) {
  Start(kText);
  const int before = ThePresentation().redraws;
  EXPECT_EQ(Run(":SetData(1 'new=00text')"), Status::Done);
  EXPECT_EQ(Shown(), std::string("new\0text", 8));
  EXPECT_EQ(ThePresentation().redraws, before + 1);
  EXPECT_EQ(Run(":Stop(1)"), Status::Done);
  const int stopped = ThePresentation().redraws;
  EXPECT_EQ(Run(":SetData(1 :IndirectRef 2)"), Status::Done);
  EXPECT_EQ(Shown(), "before");
  EXPECT_EQ(ThePresentation().redraws, stopped) << "a text that does not run is not drawn";
}

TEST_F(TextTest, referenced_content_is_fetched_and_a_failure_keeps_the_old_text) {
  TheHost().files["t"] = "fetched";
  Start(std::string(kText) + "{:ContentRefVar 4 :OrigValue :ContentRef \"~/t\"}" +
        Watch(0, "EngineEvent", "error", "3"));
  EXPECT_EQ(Run(":SetData(1 :NewRefContent (:ContentRef \"~/none\"))"), Status::Done);
  EXPECT_EQ(Shown(), "as decoded");
  EXPECT_EQ(TakeLog(), "error");
  TheHost().fetched.clear();
  EXPECT_EQ(Run(":SetData(1 :NewRefContent (:IndirectRef 4 :NewContentSize 7 :NewCCPriority 3))"),
            Status::Done);
  EXPECT_EQ(Shown(), "fetched");
  EXPECT_EQ(Object<Text>(1).Content.Size, 7);
  EXPECT_EQ(Object<Text>(1).Content.CachePriority, 3);
  const std::vector<std::string> expected = {"t", "t"};
  EXPECT_EQ(TheHost().fetched, expected) << "for the variable, then for the text";
}

TEST_F(TextTest, new_content_named_by_a_variable_is_loaded_into_the_variable_first) {
  TheHost().files["p"] = "picture";
  Start("{:Bitmap 1 :OrigContent :ContentRef (\"~/o\") :OrigBoxSize 9 9}"
        "{:ContentRefVar 2 :OrigValue :ContentRef \"~/p\"}");
  TheHost().fetched.clear();
  EXPECT_EQ(Run(":SetData(1 :NewRefContent (:IndirectRef 2))"), Status::Done);
  EXPECT_EQ(TheHost().fetched, std::vector<std::string>{"p"});
  EXPECT_EQ(Object<ContentRefVariable>(2).Content.Data.View(), "picture");
  EXPECT_TRUE(Object<Bitmap>(1).Content.IsReferenced);
  EXPECT_EQ(Object<Bitmap>(1).Content.Data.View(), "~/p") << "the object receives the path";
  EXPECT_EQ(Run(":SetData(1 :NewRefContent (:IndirectRef 2))"), Status::Done);
  EXPECT_EQ(TheHost().fetched, std::vector<std::string>{"p"}) << "loaded once";
}

TEST_F(TextTest, other_classes_store_their_new_content) {
  Start("{:Bitmap 1 :OrigContent :ContentRef (\"~/p\") :OrigBoxSize 9 9} {:IntegerVar 2"
        " :OrigValue 0} {:Stream 3 :Multiplex ({:Audio 4 :ComponentTag 1})}");
  const int before = ThePresentation().redraws;
  EXPECT_EQ(Run(":SetData(1 :NewRefContent (:ContentRef \"~/q\")) :SetData(2 \"two\") :SetData(4 "
                "\"four\")"),
            Status::Done);
  EXPECT_TRUE(Object<Bitmap>(1).Content.IsReferenced);
  EXPECT_EQ(Object<Bitmap>(1).Content.Data.View(), "~/q");
  EXPECT_EQ(Object<Bitmap>(1).OriginalContent.Data.View(), "~/p");
  EXPECT_EQ(Object<Ingredient>(2).Content.Data.View(), "two");
  EXPECT_EQ(Object<Ingredient>(4).Content.Data.View(), "four");
  EXPECT_EQ(ThePresentation().redraws, before + 1) << "the bitmap is redrawn";
}

TEST_F(TextTest, get_text_data_returns_the_shown_text_and_get_text_content_the_decoded_one) {
  Start(kText);
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":SetData(1 \"shown\") :GetTextData(1 2)"), Status::Done);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "5\n");
  EXPECT_EQ(Octets(2), "shown");
  EXPECT_EQ(Run(":GetTextContent(1 2)"), Status::Done);
  EXPECT_EQ(Octets(2), "as decoded");
}

TEST_F(TextTest, a_text_without_data_reads_as_an_empty_string) {
  Start("{:Text 1 :InitiallyActive FALSE :OrigContent \"x\" :OrigBoxSize 9 9}"
        "{:OStringVar 2 :OrigValue \"before\"}");
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":GetTextData(1 2)"), Status::Done);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "0\n");
  EXPECT_EQ(Octets(2), "");
}

TEST_F(TextTest, reading_into_a_variable_of_another_class_does_nothing) {
  Start(kText);
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":GetTextData(1 3) :GetTextContent(1 3)"), Status::Done);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(Integer(3), 5);
}

TEST_F(TextTest, a_font_is_a_name_or_an_object) {
  Start(std::string(kText) + "{:ObjectRefVar 5 :OrigValue :ObjectRef (\"~/f\" 8)}");
  EXPECT_EQ(Run(":SetFontRef(1 \"rec://font/uk1\")"), Status::Done);
  EXPECT_EQ(Object<Text>(1).Font.Kind, ValueKind::OctetString);
  EXPECT_EQ(Object<Text>(1).Font.Name.View(), "rec://font/uk1");
  EXPECT_EQ(Run(":SetFontRef(1 (\"~/a\" 7))"), Status::Done);
  EXPECT_EQ(Object<Text>(1).Font.Kind, ValueKind::ObjectReference);
  EXPECT_EQ(Object<Text>(1).Font.Reference.Number, 7);
  EXPECT_EQ(Run(":SetFontRef(1 :IndirectRef 5)"), Status::Done);
  EXPECT_EQ(Object<Text>(1).Font.Reference.Number, 8);
  EXPECT_EQ(Run(":SetFontRef(1 :IndirectRef 2)"), Status::Done);
  EXPECT_EQ(Object<Text>(1).Font.Name.View(), "before");
  // An integer, and a variable that does not exist, change nothing.
  EXPECT_EQ(Run(":SetFontRef(1 :IndirectRef 3) :SetFontRef(1 :IndirectRef 99)"), Status::Done);
  EXPECT_EQ(Object<Text>(1).Font.Name.View(), "before");
}

TEST_F(TextTest, colours_and_font_attributes_are_stored) {
  Start(kText);
  EXPECT_EQ(RunOne(Action::SetTextColour, 1, ParametersOf(IntegerValue(7))), Status::Done);
  EXPECT_EQ(Object<Text>(1).TextColour.Kind, ValueKind::Integer);
  EXPECT_EQ(Object<Text>(1).TextColour.Index, 7);
  GenericValue indirect = ReferenceValue(2);
  indirect.Kind = ValueKind::IndirectReference;
  EXPECT_EQ(RunOne(Action::SetBackgroundColour, 1, ParametersOf(std::move(indirect))),
            Status::Done);
  EXPECT_EQ(Object<Text>(1).BackgroundColour.Kind, ValueKind::OctetString);
  EXPECT_EQ(Object<Text>(1).BackgroundColour.Absolute.View(), "before");
  EXPECT_EQ(RunOne(Action::SetFontAttributes, 1, ParametersOf(OctetsValue("bold.20.24.0"))),
            Status::Done);
  EXPECT_EQ(Object<Text>(1).FontAttributes.View(), "bold.20.24.0");
}

}  // namespace
}  // namespace korvel::test
