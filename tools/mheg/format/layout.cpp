// One pass over the tokens, which decides for each whether it begins a line. Only an opening
// bracket needs to look ahead: whether everything up to its closing bracket fits on the line.
#include "mheg/format/layout.h"

#include <unordered_map>
#include <vector>

#include "mheg/format/tokens.h"
#include "mheg/message.h"
#include "objects/objects.h"
#include "textual/textual.h"

namespace mheg {
namespace {

// The constructs that begin lines.
enum class Start { None, Object, Attribute, Action };

// The contents of brackets.
enum class Kind {
  Object,   // a heading and attributes
  Entries,  // objects, actions, slots or token group items, each on its own line
  Values,   // anything else
};

// Lists whose entries each have their own line although they are not objects or actions.
constexpr const char* kListsOfEntries[] = {":TokenGroupItems", ":ActionSlots",
                                           ":NoTokenActionSlots"};

class Layout {
 public:
  Layout(std::string_view text, const korvel::List<korvel::SourcePlace>& places)
      : tokens_(TokensOf(text)) {
    for (const korvel::SourcePlace& place : places) {
      const bool isObject = *place.keyword == 0 && place.action < 0;
      starts_[place.offset] = isObject           ? Start::Object
                              : place.action < 0 ? Start::Attribute
                                                 : Start::Action;
    }
    Measure();
  }

  std::string Run() {
    for (next_ = 0; next_ < tokens_.size(); ++next_) {
      BeginsLine() ? AddLine() : AddSpace();
      const Token& token = Next();
      if (token.Opens()) Open();
      if (token.Closes()) open_.pop_back();
      result_ += token.text;
    }
    return result_ + "\n";
  }

 private:
  // An opening bracket whose closing bracket has not been written yet.
  struct Bracket {
    Kind kind = Kind::Values;
    bool isOnOneLine = false;
    bool hasLines = false;  // a line has begun within it
    std::size_t level = 0;  // indentation level of the line with the bracket
  };

  [[nodiscard]] const Token& Next() const { return tokens_[next_]; }
  [[nodiscard]] const Token& Previous() const { return tokens_[next_ - 1]; }
  [[nodiscard]] Start StartAt(std::size_t index) const {
    const auto found = starts_.find(tokens_[index].offset);
    return found == starts_.end() ? Start::None : found->second;
  }

  // ---- Looking ahead ----

  // Finds the closing brackets of all opening brackets, and the columns that the tokens would have
  // if the whole text were on one line.
  void Measure() {
    closing_.resize(tokens_.size());
    columns_.push_back(0);
    std::vector<std::size_t> open;
    for (next_ = 0; next_ < tokens_.size(); ++next_) {
      if (Next().Opens()) open.push_back(next_);
      if (Next().Closes()) {
        closing_[open.back()] = next_;
        open.pop_back();
      }
      columns_.push_back(columns_.back() + SpacesBefore() + CharacterCount(Next().text));
    }
  }

  [[nodiscard]] Kind KindAt(std::size_t index) const {
    if (tokens_[index].text == "{") return Kind::Object;
    if (index > 0) {
      const std::string word(tokens_[index - 1].text);
      for (const char* keyword : kListsOfEntries) {
        if (korvel::IsSameWord(word.c_str(), keyword)) return Kind::Entries;
      }
    }
    std::size_t first = index + 1;
    while (tokens_[first].IsComment()) ++first;
    const Start start = StartAt(first);
    return start == Start::Object || start == Start::Action ? Kind::Entries : Kind::Values;
  }

  // Whether the author has written the brackets and their contents on one line.
  [[nodiscard]] bool IsWrittenOnOneLine(std::size_t index) const {
    for (std::size_t i = index; i <= closing_[index]; ++i) {
      const bool beginsLine = i > index && tokens_[i].linesAbove > 0;
      const bool hasLines = tokens_[i].text.find('\n') != std::string_view::npos;
      if (beginsLine || hasLines || tokens_[i].IsComment()) return false;
    }
    return true;
  }

  // Whether the brackets, their contents and the closing brackets that follow fit on the line.
  [[nodiscard]] bool FitsOnLine() const {
    const std::size_t close = closing_[next_];
    std::size_t width = Column() + columns_[close + 1] - columns_[next_ + 1] + 1;
    std::size_t outer = open_.size();
    for (std::size_t i = close + 1; i < tokens_.size() && outer > 0; ++i) {
      const Bracket& bracket = open_[--outer];
      const bool isClosedOnOwnLine = bracket.kind != Kind::Values && !bracket.isOnOneLine;
      if (!tokens_[i].Closes() || isClosedOnOwnLine) break;
      ++width;
    }
    return width <= kLineWidth;
  }
  [[nodiscard]] std::size_t Column() const {
    return CharacterCount(std::string_view(result_).substr(result_.rfind('\n') + 1));
  }

  // ---- Writing ----

  void Open() {
    const Kind kind = KindAt(next_);
    const bool isOnOneLine = (!open_.empty() && open_.back().isOnOneLine) ||
                             (kind != Kind::Values && IsWrittenOnOneLine(next_) && FitsOnLine());
    open_.push_back({kind, isOnOneLine, false, level_});
  }

  [[nodiscard]] bool BeginsLine() const {
    if (next_ == 0) return false;
    if (Previous().IsComment()) return true;
    const bool hasLineAbove = Next().linesAbove > 0;
    if (Next().IsComment()) return hasLineAbove;
    if (open_.empty()) return true;
    const Bracket& bracket = open_.back();
    if (bracket.isOnOneLine) return false;
    if (bracket.kind == Kind::Values) return hasLineAbove;
    if (Next().Closes()) return bracket.hasLines;
    if (bracket.kind == Kind::Object) return StartAt(next_) == Start::Attribute;
    return !IsAfterAction();
  }
  // Whether the parenthesis opens the values of an action.
  [[nodiscard]] bool IsAfterAction() const {
    return next_ > 0 && Next().text == "(" && StartAt(next_ - 1) == Start::Action;
  }

  void AddLine() {
    const bool hasEmptyLine = Next().linesAbove > 1 && !Previous().Opens() && !Next().Closes();
    result_ += hasEmptyLine ? "\n\n" : "\n";
    level_ = 0;
    if (!open_.empty()) {
      Bracket& bracket = open_.back();
      bracket.hasLines = true;
      level_ = bracket.level + (Next().Closes() ? 0 : 1) + (ContinuesAttribute() ? 1 : 0);
    }
    result_.append(2 * level_, ' ');
  }
  // Whether the token continues the values of an attribute after a comment.
  [[nodiscard]] bool ContinuesAttribute() const {
    return open_.back().kind == Kind::Object && !Next().Closes() && !Next().IsComment() &&
           StartAt(next_) != Start::Attribute;
  }

  void AddSpace() { result_.append(SpacesBefore(), ' '); }
  [[nodiscard]] std::size_t SpacesBefore() const {
    if (next_ == 0) return 0;
    if (Next().IsComment()) return 2;
    const bool isJoined = Previous().Opens() || Next().Closes() || IsAfterAction();
    return isJoined ? 0 : 1;
  }

  std::vector<Token> tokens_;
  std::unordered_map<std::size_t, Start> starts_;  // by offset
  std::vector<std::size_t> closing_;  // for each opening bracket, the index of its closing bracket
  std::vector<std::size_t> columns_;  // [i + 1]: the column at the end of token i
  std::size_t next_ = 0;
  std::vector<Bracket> open_;
  std::size_t level_ = 0;  // of the current line
  std::string result_;
};

}  // namespace

std::string LayOut(std::string_view text) {
  korvel::OwnedGroup group;
  korvel::TextReport report;
  (void)korvel::ReadTextGroup(text, group, report);
  return Layout(text, report.places).Run();
}

}  // namespace mheg
