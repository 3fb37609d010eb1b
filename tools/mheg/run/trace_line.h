// One line of a trace, as text for people or as a JSON object for programs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace mheg {

enum class TraceForm : std::uint8_t { None, Text, Json };

class TraceLine {
 public:
  // `what` is the kind of the line, `now` the virtual time in milliseconds, and `depth` the number
  // of levels of indentation.
  TraceLine(std::string_view what, std::uint64_t now, std::size_t depth);

  // The fields of the JSON form, in this order after "time", "depth" and "what".
  TraceLine& Field(std::string_view name, std::string_view value);
  TraceLine& Field(std::string_view name, std::int64_t value);
  TraceLine& FlagField(std::string_view name, bool value);

  // Writes the line to standard output. The text form has the time and the words, but no fields.
  void Print(TraceForm form, std::string_view words) const;

 private:
  TraceLine& Add(std::string_view name, std::string_view json);

  std::uint64_t now_;
  std::size_t depth_;
  std::string json_;
};

}  // namespace mheg
