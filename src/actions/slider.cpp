// Sliders: stepping, setting and reading the value and the portion, by actions and by keys.
#include <limits>

#include "actions/behaviours.h"

namespace korvel {
namespace {

Slider& TargetOf(const Arguments& arguments) { return arguments.target.As<Slider>(); }

bool IsProportional(const Slider& slider) {
  return slider.SliderStyle == SliderStyle::Proportional;
}

// Content may give any numbers, so sums and products are calculated with 64 bits.
constexpr std::int64_t Wide(std::int32_t number) { return number; }

// Only a proportional slider has a portion. Actions on the values of other sliders reset it to 0.
void DropUnusedPortion(Slider& slider) {
  if (!IsProportional(slider)) slider.Portion = 0;
}

Status ShowChange(Slider& slider) {
  const Status status = RedrawIfRunning(slider);
  return status == Status::Done ? RaiseFrom(slider, EventType::InteractionCompleted) : status;
}

Status Step(Slider& slider, std::int32_t steps) {
  if (!slider.AvailabilityStatus) return Refuse(Reason::NotAvailable);
  DropUnusedPortion(slider);
  const std::int64_t value = Wide(steps) * slider.StepSize + slider.SliderValue;
  if (value < slider.MinValue || value + slider.Portion > slider.MaxValue) return Status::Refused;
  // A negative portion allows values above the maximum, but none that the record cannot hold.
  if (value > std::numeric_limits<std::int32_t>::max()) return Status::Refused;
  slider.SliderValue = static_cast<std::int32_t>(value);
  return ShowChange(slider);
}

// The keys that increase and decrease the value, in the direction of the bar.
struct StepKeys {
  std::int32_t up;
  std::int32_t down;
};

constexpr StepKeys KeysOf(Orientation orientation) {
  switch (orientation) {
  case Orientation::Left: return {keys::kRight, keys::kLeft};
  case Orientation::Right: return {keys::kLeft, keys::kRight};
  case Orientation::Up: return {keys::kDown, keys::kUp};
  case Orientation::Down: return {keys::kUp, keys::kDown};
  }
  return {};
}

}  // namespace

bool TakeKey(Slider& slider, std::int32_t key, Status& result) {
  const StepKeys steps = KeysOf(slider.Orientation);
  if (key == keys::kSelect || key == keys::kCancel) {
    result = EndInteraction(slider, slider);
  } else if (key == steps.up) {
    result = Step(slider, 1);
  } else if (key == steps.down) {
    result = Step(slider, -1);
  } else {
    return false;
  }
  return true;
}

Status StepSlider(const Arguments& arguments) {
  return Step(TargetOf(arguments), arguments.Integer(0));
}

Status SetSliderValue(const Arguments& arguments) {
  Slider& slider = TargetOf(arguments);
  if (!slider.AvailabilityStatus) return Refuse(Reason::NotAvailable);
  DropUnusedPortion(slider);
  const std::int32_t value = arguments.Integer(0);
  if (value < slider.MinValue || value > Wide(slider.MaxValue) - slider.Portion) {
    return Status::Refused;
  }
  if (slider.StepSize == 0 || (Wide(value) - slider.MinValue) % slider.StepSize != 0) {
    return Status::Refused;
  }
  slider.SliderValue = value;
  return ShowChange(slider);
}

Status GetSliderValue(const Arguments& arguments) {
  const Slider& slider = TargetOf(arguments);
  if (!slider.AvailabilityStatus) return Refuse(Reason::NotAvailable);
  return AnswerInteger(arguments, 0, slider.SliderValue);
}

// The portion has no lower bound.
Status SetPortion(const Arguments& arguments) {
  Slider& slider = TargetOf(arguments);
  if (!slider.AvailabilityStatus) return Refuse(Reason::NotAvailable);
  DropUnusedPortion(slider);
  const std::int32_t portion = arguments.Integer(0);
  const bool isTooLarge = portion > Wide(slider.MaxValue) - slider.SliderValue;
  if (!IsProportional(slider) || isTooLarge) return Status::Refused;
  slider.Portion = portion;
  return ShowChange(slider);
}

Status GetPortion(const Arguments& arguments) {
  const Slider& slider = TargetOf(arguments);
  if (!slider.AvailabilityStatus || !IsProportional(slider)) return Status::Refused;
  return AnswerInteger(arguments, 0, slider.Portion);
}

}  // namespace korvel
