// The doorway of the textual notation: text to records and records to text. The engine itself reads
// groups in their BER form only; authors and testers work in text, and both forms give the same
// records.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "objects/list.h"
#include "objects/octet_string.h"
#include "objects/ownership.h"
#include "objects/status.h"

namespace korvel {

// How reading a text ended.
enum class [[nodiscard]] TextResult : std::int32_t{
    Done = 0,
    Refused =
        1,  // not well-formed, neither an application nor a scene, or memory ran out on the way
    NoMemory = -1,  // the application's record could not be allocated
};

// The longest text that is read, in bytes: offsets in it are limited to 16 bits.
inline constexpr std::size_t kMaxTextSize = 65535;

// A place in a text. Both numbers count from 1; columns are characters of UTF-8.
struct TextPlace {
  std::uint32_t line = 0;
  std::uint32_t column = 0;
};

// Why a text was refused: the furthest place that could not be read; the construct that contains
// it, such as "Scene :SceneCS" or "SetPosition", or empty if unknown; the text found there,
// truncated if it is long; and the text expected instead.
struct TextError {
  TextPlace place;
  std::array<char, 48> construct{};
  std::array<char, 48> found{};
  std::array<char, 96> expected{};
  OctetString unknownWord;  // in capitals; absent if it is not the reason
};

// A mandatory part that the author has omitted. The reader keeps the construction value or the
// shorter parameter list, as the BER decoder does; tools report these to the author.
struct MissingPart {
  std::uint32_t offset = 0;  // where the object or the action begins in the text
  const char* owner = "";    // the class or the action: "Rectangle", "SetPosition"
  const char* missing = "";  // the attribute's keyword, or "a parameter"
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

// The same for callers that report errors themselves: nothing is printed. `error` receives the
// reason of a refusal, `missing`, if given, the omitted parts, and `places`, if given, the places
// of everything in the group, an object before its attributes and these before their actions.
TextResult ReadTextGroup(std::string_view text, OwnedGroup& group, TextError& error,
                         List<MissingPart>* missing = nullptr, List<SourcePlace>* places = nullptr);

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
