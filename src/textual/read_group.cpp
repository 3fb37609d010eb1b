// The builders of objects, and ReadTextGroup.
#include <optional>
#include <type_traits>

#include "objects/messages.h"
#include "objects/ownership.h"
#include "textual/text_reader.h"
#include "textual/textual.h"

namespace korvel {
namespace {

template <class HeldClasses> bool ReadObjects(TextReader& reader, List<Item>& list);

// The part of building an object that is the same for all classes.
class ObjectFrame {
 public:
  ObjectFrame(TextReader& reader, const ClassHeading& heading, ObjectReference& reference)
      : reader_(reader), heading_(heading), reference_(reference) {}

  // Reads the opening brace, the keyword and the reference.
  [[nodiscard]] bool Open() {
    const Token& begin = reader_.Next();
    begin_ = begin.offset;
    if (!reader_.Expect(kOpenBrace, "{")) return false;
    // An item is only built at its keyword, so this is a group.
    if (!reader_.TakeKeyword(heading_.keyword)) return reader_.Refuse("", TextChoice::Class);
    errorCount_ = reader_.ErrorCount();
    outer_ = reader_.Enter({Owner()});
    openParentheses_ = reader_.SetOpenParentheses(0);
    return Continue(Read(reader_, reference_)) && reader_.NotePlace(begin);
  }

  // Consumes the closing brace if no attribute precedes it.
  [[nodiscard]] bool HasAttribute() {
    attributePlace_ = reader_.Place();
    attributeBit_ = 1;
    isKnown_ = false;
    return !reader_.Take(kCloseBrace);
  }
  // Called for each attribute of the class in turn. True if it is the next one: its keyword is
  // consumed.
  [[nodiscard]] bool TakeAttribute(const char* keyword) {
    const std::uint64_t bit = attributeBit_;
    attributeBit_ <<= 1;
    if (isKnown_ || !reader_.IsAtKeyword(keyword)) return false;
    isKnown_ = true;
    if ((written_ & bit) != 0) return reader_.RefuseRepeated(keyword);
    written_ |= bit;
    Enter(keyword);
    if (!reader_.NotePlace(reader_.Next())) return false;
    reader_.Skip();
    return true;
  }
  // Ends an attribute: after an error, moves to the next one. False if there is none.
  [[nodiscard]] bool Continue(bool isRead) {
    const bool isGroup = Contains(kGroups, heading_.type);
    if (!isRead && !reader_.ContinueObject(attributePlace_, isGroup)) return false;
    Enter("");
    return true;
  }
  [[nodiscard]] bool RefuseUnknown() {
    return isKnown_ ? false : reader_.Refuse("}", TextChoice::Attribute);
  }

  // Restores the outer construct. After an error that does not end reading, the object counts as
  // read.
  [[nodiscard]] bool Close(bool isRead) {
    reader_.SetOpenParentheses(openParentheses_);
    reader_.Enter(outer_);
    return isRead || reader_.MayContinue();
  }
  // Notes the mandatory attribute with that index if it is missing. Objects with errors are
  // skipped: the attribute may be misspelt.
  [[nodiscard]] bool NoteIfMissing(std::uint32_t index, const char* keyword) {
    const bool isWritten = (written_ >> index & 1) != 0;
    return isWritten || reader_.ErrorCount() != errorCount_ ||
           reader_.NoteMissing({begin_, Owner(), keyword});
  }

 private:
  // The class's keyword without its colon.
  [[nodiscard]] const char* Owner() const { return heading_.keyword + 1; }
  // Enters an attribute, or the object itself.
  void Enter(const char* keyword) { reader_.Enter({Owner(), keyword, reference_.Number}); }

  TextReader& reader_;
  const ClassHeading& heading_;
  ObjectReference& reference_;
  std::uint32_t begin_ = 0;  // the offset of its opening brace
  std::size_t errorCount_ = 0;
  Construct outer_;
  std::int32_t openParentheses_ = 0;  // of the outer construct
  std::size_t attributePlace_ = 0;
  std::uint64_t attributeBit_ = 1;
  bool isKnown_ = false;
  std::uint64_t written_ = 0;  // a bit for each attribute
};

// Builds one object: its attributes come in any order, each at most once.
template <class Record> class ObjectBuilder {
 public:
  ObjectBuilder(TextReader& reader, Record& record)
      : reader_(reader), record_(record), frame_(reader, kHeading, record.Reference) {}

  // From the opening brace to the closing one.
  [[nodiscard]] bool Build() {
    bool isRead = frame_.Open();
    while (isRead && frame_.HasAttribute()) isRead = frame_.Continue(ReadAttribute());
    return frame_.Close(isRead) && NoteMissing();
  }

 private:
  static constexpr const ClassHeading& kHeading = Description<Record>::heading;

  [[nodiscard]] bool ReadAttribute() {
    bool isRead = false;
    const auto readIfHere = [&](const char* keyword, const Form& form, auto& field) {
      if (frame_.TakeAttribute(keyword)) isRead = ReadField(field, form);
    };
    ForEachWrittenAttribute<Record>(readIfHere, record_);
    return isRead || frame_.RefuseUnknown();
  }

  template <class Field> [[nodiscard]] bool ReadField(Field& field, const Form& form) {
    if (form.innerKeyword != nullptr && !reader_.ExpectKeyword(form.innerKeyword)) return false;
    if constexpr (std::is_same_v<Field, List<Item>>) {
      return ReadObjects<MemberClasses<Record>>(reader_, field);
    } else {
      return Read(reader_, field);
    }
  }

  [[nodiscard]] bool NoteMissing() {
    bool isNoted = true;
    std::uint32_t index = 0;
    const auto noteIfMissing = [&](const char* keyword, const Form& form) {
      if (form.isRequired) isNoted = isNoted && frame_.NoteIfMissing(index, keyword);
      ++index;
    };
    ForEachWrittenAttribute<Record>(noteIfMissing);
    return isNoted;
  }

  TextReader& reader_;
  Record& record_;
  ObjectFrame frame_;
};

bool ReadObject(TextReader& reader, auto heldClasses, Item& item) {
  const std::size_t begin = reader.Place();
  const std::int32_t openParentheses = reader.OpenParentheses();
  std::optional<bool> isRead;
  ForEachClass(heldClasses, [&]<class Record>() {
    if (isRead || !reader.IsAtObject(Description<Record>::heading.keyword)) return;
    item = Item::New(Description<Record>::heading.type);
    isRead =
        item ? ObjectBuilder<Record>(reader, item.As<Record>()).Build() : reader.RefuseForMemory();
  });
  if (isRead) return *isRead;
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
  if (!isRead) return TextResult::Refused;
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
    if (BeginsCharacter(c)) ++place.column;
    if (c == '\n') place = {place.line + 1, 1};
  }
  return place;
}

TextResult ReadTextGroup(std::string_view text, OwnedGroup& group, TextReport& report) {
  if (text.size() > kMaxTextSize) {
    static_assert(kMaxTextSize == 65535);  // as the message says
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
