// Types that describe a class's interchange form: a table of attributes, each with its BER tag, its
// textual keyword and its field. Reading, writing, comparing and completing references use these
// tables instead of naming attributes. The tables are in class_tables.h.
#pragma once

#include <cstdint>
#include <tuple>

#include "objects/vocabulary.h"

namespace korvel {

// Facts about a field that do not follow from its type.
struct Form {
  std::uint32_t innerTag = 0;          // a second context tag, inside the attribute's; 0: none
  const char* innerKeyword = nullptr;  // its keyword in the notation
  const char* name = "";               // names a reference in messages: "Link EventSource"
  bool isRequired = false;             // mandatory; a reader still accepts its absence
  bool isChoice = false;  // a CHOICE: its type differs between classes, so BER tags it explicitly
};

// One attribute of a class: a context-specific tag, a keyword, and the field that holds the value.
template <class Record, class Field> struct Attribute {
  std::uint32_t tag;
  const char* keyword;
  Field Record::*field;
  Form form{};
};
template <class Record, class Field>
Attribute(std::uint32_t, const char*, Field Record::*) -> Attribute<Record, Field>;
template <class Record, class Field>
Attribute(std::uint32_t, const char*, Field Record::*, Form) -> Attribute<Record, Field>;

// One element of a structure that is encoded as a SEQUENCE: BER identifies it by its position. The
// textual notation writes it after its keyword or, without one, by position.
template <class Record, class Field> struct Element {
  const char* keyword;  // nullptr: by position
  Field Record::*field;
  Form form{};
};
template <class Record, class Field>
Element(const char*, Field Record::*) -> Element<Record, Field>;
template <class Record, class Field>
Element(const char*, Field Record::*, Form) -> Element<Record, Field>;

// Elements without keywords.
template <class... Fields> constexpr auto ByPlace(Fields... fields) {
  return std::tuple{Element{nullptr, fields}...};
}

// Identifies a class: its number, its BER tag (in a list of items or components, or as a whole
// file), its name in messages, and its keyword.
struct ClassHeading {
  ItemType type;
  std::uint32_t tag;
  const char* name;
  const char* keyword;
};

template <class... Records> struct Classes {};

// The base of a Description: lists the parent classes, whose attributes come first. A class has no
// attributes of its own unless its Description lists some.
template <class... Records> struct Extends {
  using Parents = Classes<Records...>;
  static constexpr auto attributes = std::tuple{};
};

// Specialised in class_tables.h for every class, with Extends<...> as its base:
//   static constexpr auto attributes = std::tuple{Attribute{...}, ...};
//   static constexpr ClassHeading heading{...};   only for classes that have objects, not for bases
//   static constexpr auto omitted = ...;          tags of the parents that the class does not have
template <class Record> struct Description;

// Specialised in class_tables.h for every structure encoded as a SEQUENCE: static constexpr auto
// elements.
template <class Record> struct SequenceDescription;

template <class Record>
concept IsDescribed = requires {
  Description<Record>::attributes;
};

template <class Record>
concept IsSequence = requires {
  SequenceDescription<Record>::elements;
};

namespace detail {

template <class Record> constexpr bool Omits(std::uint32_t tag) {
  if constexpr (requires { Description<Record>::omitted; }) {
    for (const std::uint32_t omitted : Description<Record>::omitted) {
      if (omitted == tag) return true;
    }
  }
  return false;
}

template <class Leaf, class Record, class Visit> constexpr void VisitAttributes(Visit& visit);

template <class Leaf, class... Parents, class Visit>
constexpr void VisitParents(Classes<Parents...> /*parents*/, Visit& visit) {
  (VisitAttributes<Leaf, Parents>(visit), ...);
}

template <class Leaf, class Record, class Visit> constexpr void VisitAttributes(Visit& visit) {
  VisitParents<Leaf>(typename Description<Record>::Parents{}, visit);
  std::apply(
      [&visit](const auto&... attribute) {
        ((Omits<Leaf>(attribute.tag) ? void() : visit(attribute)), ...);
      },
      Description<Record>::attributes);
}

}  // namespace detail

// Calls visit(attribute) for each attribute that the class has, parents first, in the order of the
// notation.
template <class Record, class Visit> constexpr void ForEachAttribute(Visit&& visit) {
  detail::VisitAttributes<Record, Record>(visit);
}

// Calls visit(element) for each element of the SEQUENCE, in order.
template <class Record, class Visit> constexpr void ForEachElement(Visit&& visit) {
  std::apply([&visit](const auto&... element) { (visit(element), ...); },
             SequenceDescription<Record>::elements);
}

// Calls visit.template operator()<Record>() for each class of the list.
template <class Visit, class... Records>
constexpr void ForEachClass(Classes<Records...> /*classes*/, Visit&& visit) {
  (visit.template operator()<Records>(), ...);
}

}  // namespace korvel
