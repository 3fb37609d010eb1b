// The builders of objects, and ReadTextGroup.
#include <type_traits>

#include "objects/messages.h"
#include "objects/ownership.h"
#include "textual/text_reader.h"
#include "textual/textual.h"

namespace korvel {
namespace {

template <class HeldClasses> bool ReadObjects(TextReader& reader, List<Item>& list);

// Builds one object: its attributes come in any order, each at most once.
template <class Record> class ObjectBuilder {
 public:
  ObjectBuilder(TextReader& reader, Record& record) : reader_(reader), record_(record) {}

  // From the opening brace to the closing one. After an error that does not end reading, the object
  // counts as read.
  [[nodiscard]] bool Build() {
    const Token begin = reader_.Next();
    if (!reader_.Expect(kOpenBrace, "{")) return false;
    // An item is only built at its keyword, so this is a group.
    if (!reader_.TakeKeyword(kHeading.keyword)) return reader_.Refuse("", TextChoice::Class);
    const std::size_t errorCount = reader_.ErrorCount();
    const Construct outer = reader_.Enter({kHeading.name});
    const std::int32_t openParentheses = reader_.SetOpenParentheses(0);
    const bool isRead = ReadReference(begin) && ReadAttributes();
    reader_.SetOpenParentheses(openParentheses);
    reader_.Enter(outer);
    if (!isRead || reader_.ErrorCount() != errorCount) return isRead || reader_.MayContinue();
    return NoteMissing(begin);
  }

 private:
  static constexpr const ClassHeading& kHeading = Description<Record>::heading;

  [[nodiscard]] bool ReadReference(const Token& begin) {
    const std::size_t place = reader_.Place();
    if (!Read(reader_, record_.Reference) && !Continue(place - 1)) return false;
    Enter("");
    return reader_.NotePlace(begin);
  }

  // The attributes and the closing brace.
  [[nodiscard]] bool ReadAttributes() {
    while (!reader_.Take(kCloseBrace)) {
      const std::size_t place = reader_.Place();
      if (!ReadAttribute() && !Continue(place)) return false;
      Enter("");
    }
    return true;
  }

  [[nodiscard]] bool Continue(std::size_t begin) {
    return reader_.ContinueObject(begin, std::is_base_of_v<Group, Record>);
  }

  // Enters an attribute, or the object itself.
  void Enter(const char* keyword) {
    reader_.Enter({kHeading.name, keyword, record_.Reference.Number});
  }

  [[nodiscard]] bool ReadAttribute() {
    bool isKnown = false;
    bool isRead = false;
    std::uint64_t place = 1;
    const auto readIfHere = [&](const char* keyword, const Form& form, auto& field) {
      if (!isKnown && reader_.IsAtKeyword(keyword)) {
        isKnown = true;
        isRead = ReadOnce(place, keyword, field, form);
      }
      place <<= 1;
    };
    ForEachWrittenAttribute<Record>(readIfHere, record_);
    return isKnown ? isRead : reader_.Refuse("}", TextChoice::Attribute);
  }

  template <class Field>
  [[nodiscard]] bool ReadOnce(std::uint64_t place, const char* keyword, Field& field,
                              const Form& form) {
    if ((written_ & place) != 0) return reader_.Refuse("each attribute only once");
    written_ |= place;
    Enter(keyword);
    if (!reader_.NotePlace(reader_.Next())) return false;
    reader_.Skip();
    return ReadField(field, form);
  }

  template <class Field> [[nodiscard]] bool ReadField(Field& field, const Form& form) {
    if (form.innerKeyword != nullptr && !reader_.ExpectKeyword(form.innerKeyword)) return false;
    if constexpr (std::is_same_v<Field, List<Item>>) {
      return ReadObjects<MemberClasses<Record>>(reader_, field);
    } else {
      return Read(reader_, field);
    }
  }

  [[nodiscard]] bool NoteMissing(const Token& begin) {
    bool isNoted = true;
    std::uint64_t place = 1;
    const auto noteIfLeftOut = [&](const char* keyword, const Form& form) {
      if (form.isRequired && (written_ & place) == 0) {
        isNoted = isNoted && reader_.NoteMissing(begin.offset, kHeading.name, keyword);
      }
      place <<= 1;
    };
    ForEachWrittenAttribute<Record>(noteIfLeftOut);
    return isNoted;
  }

  TextReader& reader_;
  Record& record_;
  std::uint64_t written_ = 0;  // a bit for each attribute
};

bool ReadObject(TextReader& reader, auto heldClasses, Item& item) {
  const std::size_t begin = reader.Place();
  const std::int32_t openParentheses = reader.OpenParentheses();
  bool isKnown = false;
  bool isRead = false;
  ForEachClass(heldClasses, [&]<class Record>() {
    if (isKnown || !reader.IsAtObject(Description<Record>::heading.keyword)) return;
    isKnown = true;
    item = Item::New(Description<Record>::heading.type);
    isRead =
        item ? ObjectBuilder<Record>(reader, item.As<Record>()).Build() : reader.RefuseForMemory();
  });
  if (isKnown) return isRead;
  if (reader.Expect(kOpenBrace, ") or {")) reader.Refuse("", TextChoice::Class);
  reader.ReturnTo(begin);
  return reader.ContinueList(begin, openParentheses, true);
}

// Objects in parentheses, of the classes that the list holds.
template <class HeldClasses> bool ReadObjects(TextReader& reader, List<Item>& list) {
  return ReadInParentheses(reader, [&] {
    Item item;
    if (!ReadObject(reader, HeldClasses{}, item)) return false;
    return !item || list.Append(std::move(item)) != nullptr || reader.RefuseForMemory();
  });
}

// Reads the whole text as a group of that class.
template <class Record> TextResult ReadWhole(TextReader& reader, OwnedGroup& group) {
  auto record = NewRecord<Record>();
  if (!record) {
    reader.RefuseForMemory();
    return TextResult::NoMemory;
  }
  const bool isRead = ObjectBuilder<Record>(reader, *record).Build() && reader.ErrorCount() == 0 &&
                      (reader.IsAt(kEndOfText) || reader.Refuse("the end of the text"));
  reader.Finish();
  if (!isRead || reader.ErrorCount() > 0) return TextResult::Refused;
  group = std::move(record);
  return TextResult::Done;
}

TextResult ReadTokens(const TokenList& list, OwnedGroup& group, TextReport* report) {
  TextReader reader(list, report);
  return reader.IsAtObject(Description<Scene>::heading.keyword)
             ? ReadWhole<Scene>(reader, group)
             : ReadWhole<Application>(reader, group);
}

// Lexes and reads the text for its author.
TextResult Explain(std::string_view text, LexMode mode, OwnedGroup& group, TextReport& report,
                   bool& hasDoubtfulString) {
  TokenList list;
  report = {};
  if (!Lex(text, mode, list)) {
    (void)report.errors.Append({.expected = "more memory"});
    return TextResult::Refused;
  }
  hasDoubtfulString = list.hasDoubtfulString;
  return ReadTokens(list, group, &report);
}

}  // namespace

TextPlace PlaceInText(std::string_view text, std::size_t offset, TextPlace begin) {
  TextPlace place = begin;
  for (const char c : text.substr(0, offset)) {
    const bool beginsCharacter = (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    if (beginsCharacter) ++place.column;
    if (c == '\n') place = {place.line + 1, 1};
  }
  return place;
}

TextResult ReadTextGroup(std::string_view text, OwnedGroup& group, TextReport& report) {
  if (text.size() > kMaxTextSize) {
    report = {};
    (void)report.errors.Append(
        {.offset = kMaxTextSize, .length = 1, .expected = "a text of at most 65535 bytes"});
    return TextResult::Refused;
  }
  bool hasDoubtfulString = false;
  const TextResult result = Explain(text, LexMode::Explaining, group, report, hasDoubtfulString);
  if (result == TextResult::Done || !hasDoubtfulString) return result;
  return Explain(text, LexMode::ExplainingDoubtfulStrings, group, report, hasDoubtfulString);
}

TextResult ReadTextGroup(std::string_view text, OwnedGroup& group) {
  TokenList list;
  if (text.size() > kMaxTextSize || !Lex(text, LexMode::Plain, list)) return TextResult::Refused;
  if (list.isValid) return ReadTokens(list, group, nullptr);
  if (list.unknownWord.IsPresent()) Say(Message::UnknownWord, list.unknownWord.Text());
  return TextResult::Refused;
}

}  // namespace korvel
