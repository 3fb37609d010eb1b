// Streams, which run and stop together with their components, and the actions on audio and video.
#include "actions/behaviours.h"
#include "platform/screen.h"

namespace korvel {
namespace {

constexpr std::int32_t kAbsentPosition = -1;

// Runs or stops components in order. Replaced if the stream's group ends.
template <class Selects, class Handle>
Status ForComponents(Stream& stream, Selects&& selects, Handle&& handle) {
  for (const Item& component : stream.Multiplex) {
    if (!MayContinue()) return Status::Failure;
    if (!selects(*component.Record())) continue;
    const Status status = handle(component.Type(), *component.Record());
    if (status == Status::Failure) return status;
    if (IsGone(stream)) return Status::Replaced;
  }
  return Status::Done;
}

// Starts the presentation of the running videos.
Status StartVideos(const Stream& stream) {
  for (const Item& component : stream.Multiplex) {
    if (!MayContinue()) return Status::Failure;
    if (component.Type() != ItemType::Video || !component.Record()->RunningStatus) continue;
    const auto& video = component.As<Video>();
    const Status status = StartVideo(stream, video.ComponentTag, video.Position, video.BoxSize);
    if (status != Status::Done) return status;
  }
  return Status::Done;
}

// Sets the status of the stream itself, unless a link that waits for a component's event has done
// so.
Change FinishChange(Stream& stream, Status components, bool isRunning) {
  if (components == Status::Failure) return Change::Failure;
  if (components == Status::Replaced) return Change::Changed;
  if (stream.RunningStatus == isRunning) return Change::Nothing;
  stream.RunningStatus = isRunning;
  return Change::Changed;
}

}  // namespace

Change ActivateStream(Stream& stream) {
  Status status = ForComponents(
      stream, [](const Ingredient& component) { return component.InitiallyActive; }, RunIngredient);
  if (status == Status::Done) status = StartVideos(stream);
  return FinishChange(stream, status, true);
}

Change DeactivateStream(Stream& stream) {
  Status status = ForComponents(
      stream, [](const Ingredient&) { return true; }, StopIngredient);
  if (status == Status::Done) status = EndStream(stream);
  return FinishChange(stream, status, false);
}

// An absent position removes an existing trigger. If there is none, it adds one at position -1.
Status SetCounterTrigger(const Arguments& arguments) {
  List<CounterTrigger>& triggers = arguments.target.As<Stream>().CounterTriggers;
  const std::int32_t identifier = arguments.Integer(0);
  const std::int32_t position = arguments.IsPresent(1) ? arguments.Integer(1) : kAbsentPosition;
  const auto isMeant = [identifier](const CounterTrigger& trigger) {
    return trigger.Identifier == identifier;
  };
  for (CounterTrigger& trigger : triggers) {
    if (!isMeant(trigger)) continue;
    trigger.Position = position;
    if (position == kAbsentPosition) triggers.RemoveFirst(isMeant);
    return Status::Done;
  }
  return triggers.Append({identifier, position}) == nullptr ? Status::Failure : Status::Done;
}

Status SetVolume(const Arguments& arguments) {
  arguments.target.As<Audio>().Volume = arguments.Integer(0);
  return Status::Done;
}

Status GetVolume(const Arguments& arguments) {
  return AnswerInteger(arguments, 0, arguments.target.As<Audio>().Volume);
}

// A negative size means unscaled in that direction. ScaleBitmap refuses it instead.
Status ScaleVideo(const Arguments& arguments) {
  auto& video = arguments.target.As<Video>();
  if (!video.AvailabilityStatus) return Refuse(Reason::NotAvailable);
  video.ScaledSize = {arguments.Integer(0), arguments.Integer(1)};
  return RedrawIfRunning(video);
}

Status SetVideoDecodeOffset(const Arguments& arguments) {
  arguments.target.As<Video>().DecodeOffset = {arguments.Integer(0), arguments.Integer(1)};
  return Status::Done;
}

Status GetVideoDecodeOffset(const Arguments& arguments) {
  const Position& offset = arguments.target.As<Video>().DecodeOffset;
  return AnswerPair(arguments, offset.X, offset.Y);
}

}  // namespace korvel
