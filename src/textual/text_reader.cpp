// What the reader of tokens remembers about refusals and omissions.
#include "textual/text_reader.h"

namespace korvel {

bool TextReader::Refuse(const char* expected, const char* subject) {
  if (place_ > refusedPlace_ || *expected_ == 0) {
    refusedPlace_ = place_;
    expected_ = expected;
    subject_ = subject;
    refusedIn_ = construct_;
  }
  return false;
}

bool TextReader::NoteMissing(const Token& begin, const char* owner, const char* missing) {
  if (missing_ == nullptr) return true;
  return missing_->Append({begin.offset, owner, missing}) != nullptr || RefuseForMemory();
}

}  // namespace korvel
