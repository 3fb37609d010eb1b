// Highlight and interaction, and the keys that an interaction in progress takes. Each class says in
// its own file which keys it uses; one that it does not use goes on to the scene.
#pragma once

#include <cstdint>

#include "objects/status.h"
#include "objects/visibles.h"

namespace korvel {

// Give a key to an object. False when the object does not use the key; else `result` is what it led
// to.
[[nodiscard]] bool TakeKey(EntryField& field, std::int32_t key, Status& result);
[[nodiscard]] bool TakeKey(HyperText& text, std::int32_t key, Status& result);
[[nodiscard]] bool TakeKey(Slider& slider, std::int32_t key, Status& result);

// Enters one character into an entry field by the rules of its mode and maximum length.
Status EnterCharacter(EntryField& field, char character);

// Goes back to the first anchor, as at the start of an interaction: new data replaces the anchor
// that the viewer has chosen.
void ForgetChosenAnchor(const HyperText& text);

}  // namespace korvel
