// Video: a fixed picture stands for broadcast video, which is not decoded here.
#include "appearance/geometry.h"
#include "platform/screen.h"
#include "presentation/drawings.h"
#include "presentation/image_cache.h"
#include "presentation/picture_painting.h"

namespace korvel {

Status Draw(const Video& video) {
  if (!HasArea(video.BoxSize)) return Status::Done;
  return PaintPicture(
      NamedImage("video.jpg"),
      {.Position = video.Position, .BoxSize = video.BoxSize, .ScaledSize = video.ScaledSize});
}

Status StopVideo(const Video& /*video*/) { return Status::Done; }

Status StartVideo(const Stream& /*stream*/, std::int32_t /*componentTag*/, const Position& /*at*/,
                  const BoxSize& /*size*/) {
  return Status::Done;
}

Status EndStream(const Stream& /*stream*/) { return Status::Done; }

}  // namespace korvel
