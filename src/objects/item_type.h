// ItemType: the number that names an object's class everywhere in the engine, and the number that
// the display stack calls its entry's kind.
#pragma once

#include <cstdint>

namespace korvel {

enum class ItemType : std::uint32_t {
  None = 0,  // no object: what a lookup that finds nothing returns
  Application = 1,
  Scene = 2,
  Link = 3,
  ResidentProgram = 4,
  BooleanVariable = 5,
  IntegerVariable = 6,
  OctetStringVariable = 7,
  ObjectRefVariable = 8,
  ContentRefVariable = 9,
  TokenGroup = 10,
  ListGroup = 11,
  Bitmap = 12,
  Rectangle = 13,
  DynamicLineArt = 14,
  Text = 15,
  Stream = 16,
  Audio = 17,
  Video = 18,
  Slider = 19,
  EntryField = 20,
  HyperText = 21,
  PushButton = 23,
  LineArt = 24,
  RTGraphics = 25,
  HotSpot = 26,
  SwitchButton = 27,
  Palette = 28,
  RemoteProgram = 29,
  InterchangedProgram = 30,
  Font = 31,
  CursorShape = 32,
};

}  // namespace korvel
