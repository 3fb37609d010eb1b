// A reference model of an entry field: the characters that the viewer enters in the two modes, the
// entry point, and the events.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "comparison.h"

namespace korvel::test {

class EntryFieldModel {
 public:
  struct Setup {
    std::string text;
    std::int32_t maxLength;  // 0: no limit
    bool isFullFailing;      // a link on EntryFieldFull fails
    bool isCompletedFailing;
    std::string inputType, charList;
  };

  explicit EntryFieldModel(const Setup& setup) : setup_(setup), text_(setup.text) {}

  Outcome Do(const Step& step) {
    done_ = {};
    const std::int32_t number = step.numbers.back();
    const bool isTrue = step.last == "TRUE";
    if (step.action == "Enter" && isInteracting_) done_.status = Enter(static_cast<char>(number));
    if (step.action == "Key") done_.status = Press(number);
    if (step.action == "SetEntryPoint" && number >= 0) entryPoint_ = number, Redraw();
    if (step.action == "SetOverwriteMode") isOverwriting_ = isTrue;
    if (step.action == "SetInteractionStatus" && isTrue) isInteracting_ = true;
    if (step.action == "SetData") text_ = step.last.substr(1, step.last.size() - 2), Redraw();
    if (step.action == "GetEntryPoint") integer_ = entryPoint_;
    if (step.action == "GetOverwriteMode") boolean_ = isOverwriting_;
    if (step.action == "GetInteractionStatus") boolean_ = isInteracting_;
    if (step.action == "GetTextContent") octets_ = setup_.text;
    if (step.action == "GetTextData") {
      done_.messages = std::to_string(Length()) + "\n";
      octets_ = text_;
    }
    return done_;
  }

  std::string State() const {
    return Words(text_, entryPoint_, isOverwriting_, isInteracting_, integer_, boolean_, octets_);
  }

 private:
  std::int32_t Length() const { return static_cast<std::int32_t>(text_.size()); }
  void Redraw() { ++done_.redraws; }

  // The keys of an interaction. All others go to the scene, and without a scene most are blocked.
  Status Press(std::int32_t key) {
    const bool isDigit = key >= 5 && key <= 14;
    if (isInteracting_ && isDigit && IsAllowed(static_cast<char>('0' + key - 5))) {
      return Enter(static_cast<char>('0' + key - 5));
    }
    if (isInteracting_ && (key == 3 || key == 4)) {
      const std::int32_t moved = std::min(entryPoint_, Length()) + (key == 3 ? -1 : 1);
      entryPoint_ = std::clamp(moved, 0, Length());
      Redraw();
      return Status::Done;
    }
    if (isInteracting_ && (key == 15 || key == 16)) return Complete();
    const bool isPassed = key == 16 || (key >= 100 && key <= 104);
    return isPassed ? Status::Done : Status::Blocked;
  }

  bool IsAllowed(char digit) const {
    const bool isListed = setup_.charList.find(digit) != std::string::npos;
    return setup_.inputType == "numeric" || setup_.inputType == "any" ||
           (setup_.inputType == "listed" && isListed);
  }

  Status Complete() {
    isInteracting_ = false;
    done_.events += Mark("InteractionCompleted");
    return Fail(setup_.isCompletedFailing);
  }

  Status Enter(char character) {
    const std::int32_t limit = setup_.maxLength;
    const bool isLineEnd = character == '\r' || character == '\n';
    if (limit < 0) return Status::Refused;
    if (!isOverwriting_ && limit == 0 && isLineEnd) return Complete();
    if (limit >= 1 && (isOverwriting_ ? entryPoint_ : Length() + 1) >= limit) return Full();
    // An entry point beyond the end of the text means its end. Overwriting with a maximum length
    // instead extends the text to the entry point with zero bytes.
    if (limit >= 1 && isOverwriting_ && Length() < entryPoint_) {
      text_.resize(static_cast<std::size_t>(entryPoint_), '\0');
    }
    const std::int32_t index = std::min(entryPoint_, Length());
    if (isOverwriting_ && index < Length()) text_.erase(static_cast<std::size_t>(index), 1);
    text_.insert(static_cast<std::size_t>(index), 1, character);
    entryPoint_ = index + 1;
    Redraw();
    return Status::Done;
  }
  Status Full() {
    done_.events += Mark("EntryFieldFull");
    return Fail(setup_.isFullFailing);
  }
  Status Fail(bool isFailing) {
    if (!isFailing) return Status::Done;
    done_.messages += kFailMessage;
    return Status::Failure;
  }

  Setup setup_;
  std::string text_;
  std::int32_t entryPoint_ = 0;
  bool isOverwriting_ = false, isInteracting_ = false;
  std::int32_t integer_ = -9;
  bool boolean_ = false;
  std::string octets_;
  Outcome done_;
};

}  // namespace korvel::test
