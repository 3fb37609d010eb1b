// Finds colours and font attributes that the engine cannot read.
#include "appearance/text_attributes.h"
#include "mheg/check/check.h"
#include "mheg/check/walk.h"

namespace mheg {
namespace {

using namespace korvel;

class ValueCheck : public GroupVisitor {
 public:
  explicit ValueCheck(Findings& findings) : findings_(findings) {}

  void VisitColour(const ColourValue& colour) override {
    if (colour.Kind == ValueKind::OctetString) CheckColour(colour.Absolute);
  }
  void VisitAction(const ElementaryAction& action) override {
    if (FindAction(action.ActionType)->parameters[0] != Parameter::Colour) return;
    const GenericValue* colour = action.Parameters.At(0);
    const bool isAbsolute = colour != nullptr && colour->Kind == ValueKind::OctetString;
    if (isAbsolute) CheckColour(colour->Octets);
  }
  void VisitString(const OctetString& value) override {
    const bool isFont = IsSameWord(currentKeyword, ":FontAttributes") && value.IsPresent();
    if (!isFont || IsFontAttributes(value.View())) return;
    Report("has unknown font attributes " + std::string(value.View()) +
           ", expected STYLE.SIZE.LINESPACING.LETTERSPACING such as bold.24.28.0; the styles are "
           "plain, italic, bold and bold-italic");
  }

 private:
  void CheckColour(const OctetString& colour) {
    const std::size_t length = colour.Length();
    if (length == 3 || length == 4) return;
    Report("has a colour of length " + std::to_string(length) +
           ", expected 3 or 4 bytes such as '=FF=80=00': red, green, blue and transparency");
  }
  void Report(const std::string& text) {
    findings_.push_back({currentObject, text, currentKeyword, currentAction});
  }

  Findings& findings_;
};

}  // namespace

void CheckValues(const CheckedGroup& group, Findings& findings) {
  ValueCheck check(findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
