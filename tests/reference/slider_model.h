// A reference model of a slider: its value and portion, and which changes are ignored. It counts in
// 64 bits, where no sum or product of the attributes overflows.
#pragma once

#include <cstdint>
#include <string>

#include "comparison.h"

namespace korvel::test {

class SliderModel {
 public:
  struct Setup {
    std::int32_t least, most, initialValue, initialPortion, step;
    std::string style;
    bool isFailing;  // a link on InteractionCompleted fails
  };

  explicit SliderModel(const Setup& setup)
      : setup_(setup), value_(setup.initialValue), portion_(setup.initialPortion) {}

  Outcome Do(const Step& step) {
    done_ = {};
    const std::int64_t n = step.numbers.back();
    if (step.action == "Stop") Stop();
    if (step.action == "Step") StepBy(n);
    if (step.action == "SetSliderValue") SetValue(n);
    if (step.action == "SetPortion") SetPortion(n);
    if (step.action == "GetSliderValue") integer_ = value_;
    if (step.action == "GetPortion" && IsProportional()) integer_ = portion_;
    return done_;
  }

  std::string State() const {
    return Words(std::to_string(value_), std::to_string(portion_), std::to_string(integer_));
  }

 private:
  bool IsProportional() const { return setup_.style == "proportional"; }
  void ClearPortion() {
    if (!IsProportional()) portion_ = 0;
  }

  // A stopped slider is still available, which is all that the actions require.
  void Stop() {
    if (isRunning_) ++done_.redraws;
    isRunning_ = false;
  }

  void StepBy(std::int64_t steps) {
    ClearPortion();
    const std::int64_t candidate = steps * setup_.step + value_;
    if (candidate < setup_.least || candidate + portion_ > setup_.most) return;
    if (candidate > INT32_MAX) return;  // possible with a negative portion
    value_ = candidate;
    Complete();
  }

  // A step size of 0 has no multiples.
  void SetValue(std::int64_t value) {
    ClearPortion();
    if (value < setup_.least || value > setup_.most - portion_) return;
    if (setup_.step == 0 || (value - setup_.least) % setup_.step != 0) return;
    value_ = value;
    Complete();
  }

  // The portion has no lower bound.
  void SetPortion(std::int64_t portion) {
    ClearPortion();
    if (!IsProportional() || portion > setup_.most - value_) return;
    portion_ = portion;
    Complete();
  }

  void Complete() {
    if (isRunning_) ++done_.redraws;
    done_.events += Mark("InteractionCompleted");
    if (!setup_.isFailing) return;
    done_.messages += kFailMessage;
    done_.status = Status::Failure;
  }

  Setup setup_;
  std::int64_t value_, portion_, integer_ = -77;
  bool isRunning_ = true;
  Outcome done_;
};

}  // namespace korvel::test
