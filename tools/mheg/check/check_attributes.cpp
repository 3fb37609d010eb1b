// Finds values of attributes that the engine replaces or cannot use: colours, font attributes, the
// scene's size and input event register, and the limits of sliders.
#include "appearance/colours.h"
#include "appearance/text_attributes.h"
#include "mheg/check/check.h"

namespace mheg {
namespace {

using namespace korvel;

// A contradiction between a slider's attributes.
struct Contradiction {
  const char* keyword = nullptr;  // of one of the attributes; null: no contradiction
  std::string text;
};

std::string Valued(const char* keyword, std::int32_t value) {
  return std::string(keyword) + " " + std::to_string(value);
}

// The first contradiction that is found.
Contradiction ContradictionIn(const Slider& slider) {
  const std::int64_t range = std::int64_t{slider.MaxValue} - slider.MinValue;
  const std::int64_t above = std::int64_t{slider.InitialValue} - slider.MinValue;
  const std::string min = Valued(":MinValue", slider.MinValue);
  const std::string max = Valued(":MaxValue", slider.MaxValue);
  const std::string initial = Valued(":InitialValue", slider.InitialValue);
  const std::string step = Valued(":StepSize", slider.StepSize);
  if (range <= 0) return {":MaxValue", max + " is not above " + min};
  if (slider.StepSize < 1) return {":StepSize", step + " is below 1"};
  if (slider.StepSize > range) {
    return {":StepSize", step + " is more than there is from " + min + " to " + max};
  }
  if (above < 0 || above > range) {
    return {":InitialValue", initial + " is not from " + min + " to " + max};
  }
  if (above % slider.StepSize != 0) {
    return {":InitialValue", initial + " is not a multiple of " + step + " above " + min};
  }
  const bool isProportional = slider.SliderStyle == SliderStyle::Proportional;
  if (isProportional && (slider.InitialPortion < 0 || slider.InitialPortion > range - above)) {
    return {":InitialPortion", Valued(":InitialPortion", slider.InitialPortion) +
                                   " does not fit between " + initial + " and " + max};
  }
  return {};
}

class AttributeCheck : public CheckVisitor {
 public:
  using CheckVisitor::CheckVisitor;

  void VisitColour(const ColourValue& colour) override {
    if (colour.Kind == ValueKind::OctetString) CheckColour(colour.Absolute);
  }

  void VisitString(const OctetString& value) override {
    const bool isFont = IsSameWord(currentKeyword, ":FontAttributes") && value.IsPresent();
    if (!isFont || IsFontAttributes(value.View())) return;
    Report(Rule::FontAttributes,
           "has unknown font attributes " + std::string(value.View()) +
               ", expected STYLE.SIZE.LINESPACING.LETTERSPACING such as bold.24.28.0; the styles "
               "are plain, italic, bold and bold-italic");
  }

  void VisitAction(const ElementaryAction& action) override {
    if (FindAction(action.ActionType)->parameters[0] != Parameter::Colour) return;
    const GenericValue* colour = action.Parameters.At(0);
    const bool isAbsolute = colour != nullptr && colour->Kind == ValueKind::OctetString;
    if (isAbsolute) CheckColour(colour->Octets);
  }

  void VisitObject(ItemType type, const Ingredient& record) override {
    if (type != ItemType::Slider) return;
    const Contradiction found = ContradictionIn(static_cast<const Slider&>(record));
    if (found.keyword != nullptr) ReportAt(found.keyword, Rule::SliderLimits, found.text);
  }

  void CheckScene(const Scene& scene) {
    if (scene.SceneCS.Width < 1 || scene.SceneCS.Height < 1) {
      ReportAt(":SceneCS", Rule::NoSceneSize, "has no :SceneCS with its width and height");
    }
    const std::int32_t input = scene.InputEventReg;
    // Every known register blocks the numbers above those of the keys. 0: the scene has no
    // register.
    if (input != 0 && !IsKeyBlocked(input, keys::kText + 1)) {
      ReportAt(":InputEventReg", Rule::InputRegister,
               Valued(":InputEventReg", input) + " blocks no keys; the registers are 3 to 5");
    }
  }

 private:
  void CheckColour(const OctetString& colour) {
    if (IsColourLength(colour.Length())) return;
    Report(Rule::ColourLength, "has a colour of length " + std::to_string(colour.Length()) +
                                   ", expected 3 or 4 bytes such as '=FF=80=00': red, green, blue "
                                   "and transparency");
  }
};

}  // namespace

void CheckAttributes(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  AttributeCheck check(carousel, group, findings);
  Walk(group.Group(), check);
  if (group.Group().type != ItemType::Scene) return;
  check.CheckScene(static_cast<const Scene&>(group.Group()));
}

}  // namespace mheg
