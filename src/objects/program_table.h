// The table of resident programs: the name of each and its signature. The engine and tools read it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "objects/vocabulary.h"

namespace korvel {

inline constexpr std::size_t kMostProgramParameters = 6;

// One place of a program's signature.
enum class ProgramSlot : std::uint8_t {
  None,  // past the last parameter
  BooleanIn,
  IntegerIn,
  TextIn,
  ReferenceIn,
  BooleanOut,
  IntegerOut,
  TextOut,
  ReferenceOut,
  ContentOut,
};

struct ProgramRow {
  std::string_view name;
  // Only places past the last parameter: the program accepts anything.
  std::array<ProgramSlot, kMostProgramParameters> slots;
};

namespace program_rows {

using enum ProgramSlot;

inline constexpr std::array kPrograms = {
    ProgramRow{"GCD", {IntegerOut, IntegerOut}},
    ProgramRow{"FDa", {TextIn, IntegerIn, IntegerIn, TextOut}},
    ProgramRow{"GDW", {IntegerIn, IntegerOut}},
    ProgramRow{"Rnd", {IntegerIn, IntegerOut}},
    ProgramRow{"CTC", {TextIn, ContentOut}},
    ProgramRow{"CTO", {TextIn, IntegerIn, ReferenceOut}},
    ProgramRow{"GSL", {TextIn, IntegerOut}},
    ProgramRow{"GSS", {TextIn, IntegerIn, IntegerIn, TextOut}},
    ProgramRow{"SSS", {TextIn, IntegerIn, TextIn, IntegerOut}},
    ProgramRow{"SES", {TextIn, IntegerIn, TextIn, TextOut, IntegerOut}},
    ProgramRow{"GSI", {TextIn, IntegerOut}},
    ProgramRow{"BSI", {IntegerIn, IntegerOut, IntegerOut, IntegerOut, IntegerOut}},
    ProgramRow{"TIn", {IntegerIn}},
    ProgramRow{"TII", {IntegerIn}},
    ProgramRow{"GBI", {BooleanOut, TextOut}},
    ProgramRow{"CCR", {TextIn, BooleanOut, ContentOut}},
    ProgramRow{"CGR", {ReferenceIn, BooleanOut, ReferenceOut}},
    ProgramRow{"VTG", {}},
    ProgramRow{"SWA", {IntegerIn}},
    ProgramRow{"GDA", {IntegerOut}},
    ProgramRow{"CIS", {}},
    ProgramRow{"SSM", {BooleanIn}},
    ProgramRow{"WAI", {TextOut}},
    ProgramRow{"DBG", {}},
};

}  // namespace program_rows

// The row of a program, or null. Case matters.
[[nodiscard]] constexpr const ProgramRow* FindProgram(std::string_view name) {
  for (const ProgramRow& row : program_rows::kPrograms) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

[[nodiscard]] constexpr bool IsInput(ProgramSlot slot) {
  return slot == ProgramSlot::BooleanIn || slot == ProgramSlot::IntegerIn ||
         slot == ProgramSlot::TextIn || slot == ProgramSlot::ReferenceIn;
}

// The class of the variables that a slot accepts.
[[nodiscard]] constexpr ItemType ClassOf(ProgramSlot slot) {
  switch (slot) {
  case ProgramSlot::BooleanIn:
  case ProgramSlot::BooleanOut: return ItemType::BooleanVariable;
  case ProgramSlot::IntegerIn:
  case ProgramSlot::IntegerOut: return ItemType::IntegerVariable;
  case ProgramSlot::TextIn:
  case ProgramSlot::TextOut: return ItemType::OctetStringVariable;
  case ProgramSlot::ReferenceIn:
  case ProgramSlot::ReferenceOut: return ItemType::ObjectRefVariable;
  case ProgramSlot::ContentOut: return ItemType::ContentRefVariable;
  case ProgramSlot::None: break;
  }
  return ItemType::None;
}

}  // namespace korvel
