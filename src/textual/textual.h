// The doorway of the textual notation: text to records and records to text. The engine itself reads
// groups in their BER form only; authors and testers work in text, and both forms give the same
// records.
#pragma once

#include <cstdint>
#include <string_view>

#include "objects/list.h"
#include "objects/octet_string.h"
#include "objects/ownership.h"
#include "objects/status.h"
#include "objects/vocabulary.h"

namespace korvel {

// How reading a text ended.
enum class [[nodiscard]] TextResult : std::int32_t{
    Done = 0,
    Refused =
        1,  // not well-formed, neither an application nor a scene, or memory ran out on the way
    NoMemory = -1,  // the group's record could not be allocated
};

// The longest text that is read, in bytes. Longer ones are rejected, because other readers of the
// notation count positions in 16 bits.
inline constexpr std::size_t kMaxTextSize = 65535;

// A place in a text. Both numbers count from 1; columns are characters of UTF-8.
struct TextPlace {
  std::uint32_t line = 0;
  std::uint32_t column = 0;
};

// Whether a byte begins a character of UTF-8. Other bytes continue one.
[[nodiscard]] constexpr bool BeginsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

// Which words were possible at a place, if they follow from the tables of classes and actions.
enum class TextChoice : std::uint8_t {
  None,
  Attribute,  // of the class `owner`
  Class,      // of the group, or of an object in the list `owner` and `part`
  Action,
};

// An error in a text: the place of what was found, the construct that contains it, and what was
// expected instead. All strings are borrowed from tables.
struct TextError {
  std::uint32_t offset = 0;
  std::uint32_t length = 0;  // 0 at the end of the text
  const char* owner = "";  // the class's word or the action: "OStringVar", "SetPosition", or empty
  const char* part = "";   // the attribute's keyword, or empty
  const char* expected = "";  // in words; may be empty if one of the next two is not
  TextChoice choice = TextChoice::None;
  Words words{};            // exactly these words
  std::uint32_t first = 0;  // of a repeated attribute: the offset of the first one; otherwise 0
};

// The maximum number of errors in a report. Reading ends with the last one.
inline constexpr std::size_t kMostTextErrors = 20;

// A mandatory part that the author has omitted. The reader keeps the construction value or the
// shorter parameter list, as the BER decoder does; tools report these to the author.
struct MissingPart {
  std::uint32_t offset = 0;  // where the object begins, or the ")" before which a value is missing
  const char* owner = "";    // the class, the action, or "a point": "Rectangle", "SetPosition"
  // The attribute's keyword, or "y" of a point. Empty if an action lacks a value.
  const char* name = "";
  std::size_t parameter = 0;  // the index of that value in the action's row
};

// Where an object, one of its attributes or an action of that attribute begins in a text. An object
// is identified by its number and an action by its index among all actions of its attribute, both
// of which stay valid when records move.
struct SourcePlace {
  std::uint32_t offset = 0;
  std::int32_t object = 0;   // its number; 0 for the group
  const char* keyword = "";  // of the attribute, or empty for the object itself
  std::int32_t action = -1;  // in the order of the text, or -1 for the attribute itself
};

// The line and column of an offset. `begin` is the place of the text's first byte.
[[nodiscard]] TextPlace PlaceInText(std::string_view text, std::size_t offset,
                                    TextPlace begin = {1, 1});

// Reads a whole group. After a failure `group` is unchanged. A word that is not a keyword is
// printed, as "Error string : " and the word.
TextResult ReadTextGroup(std::string_view text, OwnedGroup& group);

// What reading a text has found for its author.
struct TextReport {
  List<TextError> errors;     // in the order of the text
  List<MissingPart> missing;  // attributes only of objects without errors
  // Everything in the group, an object before its attributes and these before their actions.
  List<SourcePlace> places;
};

// The same for tools: nothing is printed, and reading continues after an error where the next
// attribute, action or object begins. A number with a leading zero, which otherwise is two numbers,
// is an error too. The result is Done if and only if `report` has no errors.
TextResult ReadTextGroup(std::string_view text, OwnedGroup& group, TextReport& report);

// A value that the notation has no word for: the object that carries it and the attribute's
// keyword.
struct WordlessValue {
  std::int32_t object = 0;
  const char* keyword = "";
  std::int32_t number = 0;
};

// Writes a group as text: two spaces of indentation per level and one attribute per line.
// Attributes at their construction values are omitted unless they are mandatory. Reading the text
// gives equal records. Refused, with `text` unchanged, if a value has no word (`wordless` then
// receives it) or memory runs out.
Status WriteTextGroup(const Group& group, OctetString& text, WordlessValue* wordless = nullptr);

}  // namespace korvel
