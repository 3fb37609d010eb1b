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

// Requests that the scene be drawn again. Only the 1st, 6th, 11th ... request since the counter was
// reset paints; the others are cheap, so callers need not avoid them. After a request to close,
// redraw requests are only counted. Failure if an event that was raised while drawing returned
// Failure.
Status Redraw();

// ---- Broadcast streams ----
// They are not decoded here: a fixed picture replaces video, and these functions do nothing and
// return Done.

// Called when the stream has started with this video in that box, in scene pixels.
Status StartVideo(const Stream& stream, std::int32_t componentTag, const Position& at,
                  const BoxSize& size);

// Called when the stream and all its components have stopped.
Status EndStream(const Stream& stream);

}  // namespace korvel
