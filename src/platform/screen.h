// The screen of the scene and the broadcast streams on it. Worker thread only.
#pragma once

#include <cstdint>

#include "objects/status.h"

namespace korvel {

struct BoxSize;
struct Position;
struct Stream;

// The size of the scene in pixels; the picture has exactly this size and is shown 1:1.
inline constexpr std::int32_t kSceneWidth = 720;
inline constexpr std::int32_t kSceneHeight = 576;

// A request to draw the scene again. Only the 1st, 6th, 11th ... request since the counter was
// reset paints; the others cost nothing, so that callers may ask freely. While a close is asked
// for, requests only count. Failure when an event raised while drawing asked to stop.
Status Redraw();

// ---- Broadcast streams ----
// They are not decoded here: a picture stands for video, and what would control a decoder does
// nothing and is Done.

// The stream has begun to run with this video in that box.
Status StartVideo(const Stream& stream, std::int32_t componentTag, const Position& at,
                  const BoxSize& size);

// The stream runs no longer, nor does any of its components.
Status EndStream(const Stream& stream);

}  // namespace korvel
