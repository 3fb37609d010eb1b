// Hyper texts: the anchors in their text, and the keys that choose and fire them. An anchor is ESC
// "A", a length byte and that many bytes of label; the text that it marks follows, up to ESC "a".
#include "actions/behaviours.h"
#include "objects/messages.h"

namespace korvel {
namespace {

constexpr char kEscape = '\x1B';

// Reads the anchors of a text in order.
class AnchorReader {
 public:
  explicit AnchorReader(std::string_view text) : rest_(text) {}

  // Reads the label of the next anchor. Returns false if there is none, or if its label is cut off.
  [[nodiscard]] bool Next(std::string_view& label) {
    for (;;) {
      const std::size_t escape = rest_.find(kEscape);
      if (escape == std::string_view::npos) return false;
      rest_.remove_prefix(escape + 1);
      if (rest_.size() < 2 || rest_[0] != 'A') continue;
      const std::size_t length = static_cast<unsigned char>(rest_[1]);
      if (length > rest_.size() - 2) return false;
      label = rest_.substr(2, length);
      rest_.remove_prefix(2 + length);
      return true;
    }
  }

 private:
  std::string_view rest_;
};

std::size_t CountAnchors(const HyperText& text) {
  AnchorReader reader(text.TextData.View());
  std::string_view label;
  std::size_t count = 0;
  while (reader.Next(label)) ++count;
  return count;
}

Status MoveForward(const HyperText& text) {
  std::size_t& chosen = CurrentClassVariables().chosenAnchor;
  if (chosen + 1 < CountAnchors(text)) ++chosen;
  return RedrawIfRunning(text);
}

Status MoveBack(const HyperText& text) {
  std::size_t& chosen = CurrentClassVariables().chosenAnchor;
  if (chosen > 0) --chosen;
  return RedrawIfRunning(text);
}

Status FireChosenAnchor(HyperText& text) {
  AnchorReader reader(text.TextData.View());
  std::string_view label;
  for (std::size_t i = 0; i <= CurrentClassVariables().chosenAnchor; ++i) {
    if (!reader.Next(label)) return Status::Refused;
  }
  if (!text.LastAnchorFired.Assign(label)) return Status::Failure;
  return RaiseFrom(text, EventType::AnchorFired);
}

}  // namespace

void ForgetChosenAnchor(const HyperText& text) {
  if (text.InteractionStatus) CurrentClassVariables().chosenAnchor = 0;
}

bool TakeKey(HyperText& text, std::int32_t key, Status& result) {
  switch (key) {
  case keys::kUp:
  case keys::kLeft: result = MoveBack(text); return true;
  case keys::kDown:
  case keys::kRight: result = MoveForward(text); return true;
  case keys::kSelect: result = FireChosenAnchor(text); return true;
  case keys::kCancel: result = EndInteraction(text, text); return true;
  default: return false;
  }
}

Status GetLastAnchorFired(const Arguments& arguments) {
  const auto& text = arguments.target.As<HyperText>();
  if (!text.AvailabilityStatus) return Refuse(Reason::NotAvailable);
  return AnswerOctets(arguments, 0, text.LastAnchorFired.View(),
                      Message::NoMemoryForAnchorVariable);
}

}  // namespace korvel
