// Recording of errors, and where reading continues after them. Only the whole text shows whether a
// bracket is missing or one too many, so the reader counts them: a closing bracket that fits
// nowhere is skipped if the text has too many of its kind, and otherwise an earlier one is missing.
#include "textual/text_reader.h"

#include "objects/action_table.h"

namespace korvel {

TextReader::TextReader(const TokenList& list, TextReport* report)
    : list_(list),
      report_(report),
      surplusBraces_(-list.openBraces),
      surplusParentheses_(-list.openParentheses) {}

void TextReader::Skip() {
  ReportProblems();
  if (IsAt(kOpenParenthesis)) ++openParentheses_;
  if (IsAt(kCloseParenthesis)) --openParentheses_;
  ++place_;
}

bool TextReader::Refuse(const char* expected, TextChoice choice, Words words, std::uint32_t first) {
  ReportProblems();
  const bool isReported = refusedPlace_ != SIZE_MAX && place_ <= refusedPlace_;
  if (report_ == nullptr || isReported) return false;
  refusedPlace_ = place_;
  const Token& token = Next();
  AddError({token.offset, token.length, construct_.owner, construct_.part, expected, choice, words,
            first});
  return false;
}

bool TextReader::RefuseRepeated(const char* keyword) {
  if (report_ == nullptr) return false;
  std::uint32_t first = 0;
  for (std::size_t i = report_->places.Size(); i > 0 && first == 0; --i) {
    const SourcePlace& place = report_->places[i - 1];
    const bool isFirst = place.object == construct_.object && place.action < 0 &&
                         std::string_view(place.keyword) == keyword;
    if (isFirst) first = place.offset;
  }
  return Refuse("each attribute only once", TextChoice::None, {}, first);
}

bool TextReader::RefuseForMemory() {
  refusedPlace_ = SIZE_MAX;
  Refuse("more memory");
  isOutOfMemory_ = true;
  return false;
}

void TextReader::AddError(const TextError& error) {
  ++errorCount_;
  if (errorCount_ > kMostTextErrors || isOutOfMemory_) return;
  isOutOfMemory_ = report_->errors.Append(error) == nullptr;
}

// Without a report there are no problems: the lexer's first one ended reading.
void TextReader::ReportProblems() {
  while (const LexProblem* problem = list_.problems.At(nextProblem_)) {
    if (problem->token > place_) return;
    ++nextProblem_;
    refusedPlace_ = problem->token + 1;  // an error there would follow from this one
    AddError({problem->offset,
              problem->length,
              construct_.owner,
              construct_.part,
              problem->expected,
              TextChoice::None,
              {}});
  }
}

bool TextReader::NoteMissing(const MissingPart& part) {
  if (report_ == nullptr) return true;
  return report_->missing.Append(part) != nullptr || RefuseForMemory();
}

bool TextReader::NotePlace(const Token& begin) {
  actionCount_ = 0;
  return AddPlace(begin, -1);
}

bool TextReader::AddPlace(const Token& begin, std::int32_t action) {
  if (report_ == nullptr) return true;
  const SourcePlace place{begin.offset, construct_.object, construct_.part, action};
  return report_->places.Append(place) != nullptr || RefuseForMemory();
}

bool TextReader::MayContinue() const {
  return report_ != nullptr && !isOutOfMemory_ && errorCount_ < kMostTextErrors &&
         !IsAt(kEndOfText);
}

bool TextReader::IsAtAction() const {
  const std::uint16_t code = Next().code;
  return IsKeyword(code) && KeywordText(code)[0] == ':' &&
         FindActionByName(KeywordText(code) + 1) != nullptr;
}

bool TextReader::IsAtAttribute() const {
  const std::uint16_t code = Next().code;
  if (!IsKeyword(code) || KeywordText(code)[0] != ':' || IsAtAction()) return false;
  for (const char* word : kValueKeywords) {
    if (IsAtKeyword(word)) return false;
  }
  return true;
}

void TextReader::SkipObject() {
  std::int32_t depth = 0;
  do {
    if (IsAt(kOpenBrace)) ++depth;
    if (IsAt(kCloseBrace)) --depth;
    ReportProblems();
    ++place_;
  } while (depth > 0 && !IsAt(kEndOfText));
}

bool TextReader::IsSurplus(std::uint16_t bracket) {
  std::int32_t& surplus = bracket == kCloseBrace ? surplusBraces_ : surplusParentheses_;
  if (!IsAt(bracket) || surplus <= 0) return false;
  --surplus;
  return true;
}

bool TextReader::IsAfterLostParenthesis() const {
  return surplusParentheses_ < 0 && IsAtAttribute();
}

bool TextReader::ContinueObject(std::size_t begin, bool isGroup) {
  while (MayContinue()) {
    if (openParentheses_ == 0 && !isGroup) {
      if (IsAt(kOpenBrace)) return false;
      if (IsAt(kCloseParenthesis) && !IsSurplus(kCloseParenthesis)) return false;
    }
    if (IsAt(kCloseBrace)) return true;
    const bool isAttribute =
        openParentheses_ == 0 ? IsAtAttribute() || IsAt(kUnknownKeyword) : IsAfterLostParenthesis();
    if (place_ > begin && isAttribute) {
      openParentheses_ = 0;
      return true;
    }
    if (IsAt(kOpenBrace)) {
      SkipObject();
    } else {
      Skip();
      if (openParentheses_ < 0) openParentheses_ = 0;
    }
  }
  return false;
}

bool TextReader::ContinueList(std::size_t begin, std::int32_t openParentheses, bool hasObjects) {
  while (MayContinue()) {
    const bool isInList = openParentheses_ <= openParentheses;
    if (IsAt(kCloseParenthesis) && isInList) break;
    if (IsAt(kCloseBrace) && !IsSurplus(kCloseBrace)) return false;
    if (place_ > begin) {
      if (IsAfterLostParenthesis()) return false;
      const bool isMisspelt = isInList && IsAt(kUnknownKeyword);
      if (hasObjects ? IsAt(kOpenBrace) : IsAtAction() || isMisspelt) break;
    }
    IsAt(kOpenBrace) ? SkipObject() : Skip();
  }
  openParentheses_ = openParentheses;
  return MayContinue();
}

}  // namespace korvel
