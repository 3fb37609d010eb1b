// A scene as authors write them: texts, rectangles, variables, and links with a few actions.
#pragma once

#include "stage.h"

namespace bench {

// Objects are added in sets of five: one of each class.
inline constexpr int kSampleClasses = 5;

// At least `objects` objects.
[[nodiscard]] korvel::OwnedGroup SampleScene(int objects);

// A scene with a BER form of about `bytes` bytes, and at least a set of objects.
[[nodiscard]] korvel::OwnedGroup SampleSceneOfBytes(int bytes);

// Decodes the bytes of a scene and releases it.
[[nodiscard]] Work DecodeAndRelease(std::string bytes);

}  // namespace bench
