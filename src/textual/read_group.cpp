// The builders of objects, and ReadTextGroup: a text is read as an application or, if that fails,
// as a scene.
#include <cstdio>
#include <span>
#include <type_traits>

#include "objects/messages.h"
#include "objects/ownership.h"
#include "textual/text_reader.h"
#include "textual/textual.h"

namespace korvel {
namespace {

// Describes the text at the offset: a word, up to the next space, or the number of an unprintable
// byte.
void ShowFound(std::string_view text, std::size_t offset, std::span<char> shown) {
  if (offset >= text.size()) {
    std::snprintf(shown.data(), shown.size(), "the end of the text");
    return;
  }
  const auto first = static_cast<unsigned char>(text[offset]);
  if (first <= ' ' || first > '~') {
    std::snprintf(shown.data(), shown.size(), "byte %d", first);
    return;
  }
  std::size_t end = offset;
  while (end < text.size() && static_cast<unsigned char>(text[end]) > ' ') ++end;
  std::snprintf(shown.data(), shown.size(), "%.*s", static_cast<int>(end - offset),
                text.data() + offset);
}

void Explain(std::string_view text, std::size_t offset, const char* expected, const char* subject,
             Construct construct, TextError& error) {
  error.place = PlaceInText(text, offset);
  ShowFound(text, offset, error.found);
  std::snprintf(error.expected.data(), error.expected.size(), "%s%s", expected, subject);
  std::snprintf(error.construct.data(), error.construct.size(), "%s%s%s", construct.owner,
                *construct.part == 0 ? "" : " ", construct.part);
}

template <class HeldClasses> bool ReadObjects(TextReader& reader, List<Item>& list);

// Builds one object: its attributes come in any order, each at most once.
template <class Record> class ObjectBuilder {
 public:
  ObjectBuilder(TextReader& reader, Record& record) : reader_(reader), record_(record) {}

  // From the opening brace to the closing one.
  [[nodiscard]] bool Build() {
    const Token begin = reader_.Next();
    if (!reader_.Expect(kOpenBrace, "{")) return false;
    // An item is only built at its keyword, so this is a group.
    if (!reader_.TakeKeyword(kHeading.keyword)) return reader_.Refuse(":Application or :Scene");
    const Construct outer = reader_.Enter({kHeading.name});
    if (!Read(reader_, record_.Reference)) return false;
    Enter("");
    if (!reader_.NotePlace(begin)) return false;
    while (!reader_.Take(kCloseBrace)) {
      if (!ReadAttribute()) return false;
    }
    reader_.Enter(outer);
    return NoteMissing(begin);
  }

 private:
  static constexpr const ClassHeading& kHeading = Description<Record>::heading;

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
    return isKnown ? isRead : reader_.Refuse("} or an attribute of ", kHeading.name);
  }

  template <class Field>
  [[nodiscard]] bool ReadOnce(std::uint64_t place, const char* keyword, Field& field,
                              const Form& form) {
    if ((written_ & place) != 0) return reader_.Refuse("an attribute that is not written yet");
    written_ |= place;
    Enter(keyword);
    if (!reader_.NotePlace(reader_.Next())) return false;
    reader_.Skip();
    if (!ReadField(field, form)) return false;
    Enter("");
    return true;
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
        isNoted = isNoted && reader_.NoteMissing(begin, kHeading.name, keyword);
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
  bool isKnown = false;
  bool isRead = false;
  ForEachClass(heldClasses, [&]<class Record>() {
    if (isKnown || !reader.IsAtObject(Description<Record>::heading.keyword)) return;
    isKnown = true;
    item = Item::New(Description<Record>::heading.type);
    isRead =
        item ? ObjectBuilder<Record>(reader, item.As<Record>()).Build() : reader.RefuseForMemory();
  });
  return isKnown ? isRead : reader.Expect(kOpenBrace, "{ or )") && reader.Refuse("a class");
}

// Objects in parentheses, of the classes that the list holds.
template <class HeldClasses> bool ReadObjects(TextReader& reader, List<Item>& list) {
  return ReadInParentheses(reader, [&] {
    Item item;
    if (!ReadObject(reader, HeldClasses{}, item)) return false;
    return list.Append(std::move(item)) != nullptr || reader.RefuseForMemory();
  });
}

// Reads the whole text as a group of that class. If that fails, moves back to the first token.
template <class Record> bool ReadWhole(TextReader& reader, Record& record) {
  const std::size_t place = reader.Place();
  if (ObjectBuilder<Record>(reader, record).Build() &&
      (reader.IsAt(kEndOfText) || reader.Refuse("the end of the text"))) {
    return true;
  }
  reader.ReturnTo(place);
  reader.Enter({});
  return false;
}

TextResult BuildGroup(TextReader& reader, OwnedGroup& group) {
  auto application = NewRecord<Application>();
  if (!application) return TextResult::NoMemory;
  if (ReadWhole(reader, *application)) {
    group = std::move(application);
    return TextResult::Done;
  }
  application.reset();
  auto scene = NewRecord<Scene>();
  if (!scene || !ReadWhole(reader, *scene)) return TextResult::Refused;
  group = std::move(scene);
  return TextResult::Done;
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

TextResult ReadTextGroup(std::string_view text, OwnedGroup& group, TextError& error,
                         List<MissingPart>* missing, List<SourcePlace>* places) {
  TokenList list;
  LexStop stop;
  if (Lex(text, list, stop) != LexResult::Done) {
    Explain(text, stop.offset, stop.expected, stop.subject, {}, error);
    error.unknownWord = std::move(stop.word);
    return TextResult::Refused;
  }
  TextReader reader(list, missing, places);
  const TextResult result = BuildGroup(reader, group);
  if (result != TextResult::Done) {
    Explain(text, reader.RefusedToken().offset, reader.Expected(), reader.Subject(),
            reader.RefusedIn(), error);
  }
  return result;
}

TextResult ReadTextGroup(std::string_view text, OwnedGroup& group) {
  TextError error;
  const TextResult result = ReadTextGroup(text, group, error);
  if (error.unknownWord.IsPresent()) {
    Say(Message::UnknownWord, error.unknownWord.Text());
  }
  return result;
}

}  // namespace korvel
