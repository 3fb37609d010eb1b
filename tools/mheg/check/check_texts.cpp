// Finds texts that are probably larger than their box. The sizes of characters are low estimates
// for the font that the engine uses, so that a text that fits is not reported.
#include <algorithm>
#include <cmath>

#include "appearance/text_attributes.h"
#include "mheg/check/check.h"

namespace mheg {
namespace {

using namespace korvel;

// A font size of 96 is 72 pixels. Entry fields have a fixed size.
constexpr double kPixelsPerSizeUnit = 72.0 / 96.0;
constexpr std::int32_t kUsualSize = 24;
constexpr std::int32_t kEntryFieldSize = 15;

// Relative to the font size.
constexpr double kLineHeight = 1.05;
constexpr double kNarrowWidth = 0.24;
constexpr double kUsualWidth = 0.45;
constexpr std::string_view kNarrowCharacters = " .,:;'!|()[]{}/\\-ijlftrI1";

struct Extent {
  double width = 0;
  double height = 0;
};

// The width relative to the font size.
double WidthOf(std::string_view line) {
  double width = 0;
  for (const char c : line) {
    if (!BeginsCharacter(c)) continue;
    width += kNarrowCharacters.find(c) == std::string_view::npos ? kUsualWidth : kNarrowWidth;
  }
  return width;
}

// The size of a text in a box of that width, in pixels. `em` is the font size in pixels.
Extent ExtentOf(std::string_view text, double em, bool isWrapped, double boxWidth) {
  double widest = 0;
  double lines = 0;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const double width = WidthOf(text.substr(0, end)) * em;
    widest = std::max(widest, width);
    lines += isWrapped ? std::max(1.0, std::ceil(width / boxWidth)) : 1.0;
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return {isWrapped ? std::min(widest, boxWidth) : widest, lines * kLineHeight * em};
}

class TextCheck : public CheckVisitor {
 public:
  using CheckVisitor::CheckVisitor;

  void VisitObject(ItemType type, const Ingredient& record) override {
    if (!Contains(kTexts, type)) return;
    const ContentBody& content = record.OriginalContent;
    if (content.IsReferenced || !content.Data.IsPresent()) return;
    const std::string fault = FaultOf(type, static_cast<const Text&>(record), content.Data);
    if (!fault.empty()) ReportAt(":OrigContent", Rule::TextTooLarge, "its text " + fault);
  }

  void VisitAction(const ElementaryAction& action) override {
    if (ActionOf(action) != Action::SetData) return;
    const GenericValue* data = action.Parameters.At(0);
    if (data == nullptr || data->Kind != ValueKind::OctetString) return;
    const CheckedObject* object = TargetOf(action, kTexts);
    if (object == nullptr) return;
    const std::string fault =
        FaultOf(object->type, static_cast<const Text&>(*object->record), data->Octets);
    if (fault.empty()) return;
    Report(Rule::TextTooLarge,
           "the text for object " + std::to_string(object->record->Reference.Number) + " " + fault);
  }

 private:
  [[nodiscard]] std::int32_t SizeOf(ItemType type, const Text& text) const {
    if (type == ItemType::EntryField) return kEntryFieldSize;
    const CheckedGroup* application = carousel_.ApplicationOf(group_);
    const auto* group =
        application == nullptr ? nullptr : static_cast<const Application*>(&application->Group());
    const std::int32_t size = FontAttributesOf(text, group).size;
    return size == 0 ? kUsualSize : size;
  }

  // The words for a text that is too large; empty if the text may fit.
  [[nodiscard]] std::string FaultOf(ItemType type, const Text& text,
                                    const OctetString& data) const {
    OctetString clean;
    const BoxSize& box = text.OriginalBoxSize;
    if (box.Width < 1 || box.Height < 1 || !RemoveControlSequences(data.View(), clean)) return "";
    if (carousel_.MayAffect(group_, Action::SetBoxSize, text.Reference.Number)) return "";
    const double em = SizeOf(type, text) * kPixelsPerSizeUnit;
    const Extent extent = ExtentOf(clean.TextView(), em, text.TextWrapping, box.Width);
    if (extent.width <= box.Width && extent.height <= box.Height) return "";
    const auto rounded = [](double pixels) { return std::to_string(std::lround(pixels)); };
    return "takes at least " + rounded(extent.width) + " by " + rounded(extent.height) +
           " pixels, but its box is " + std::to_string(box.Width) + " by " +
           std::to_string(box.Height);
  }
};

}  // namespace

void CheckTexts(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  TextCheck check(carousel, group, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
