// Collects the fields as JSON; the text form is printed from the words alone.
#include "mheg/run/trace_line.h"

#include <array>
#include <cstdio>

#include "mheg/json.h"

namespace mheg {
TraceLine::TraceLine(std::string_view what, std::uint64_t now, std::size_t depth)
    : now_(now), depth_(depth) {
  Field("time", static_cast<std::int64_t>(now));
  Field("depth", static_cast<std::int64_t>(depth));
  Field("what", what);
}

TraceLine& TraceLine::Field(std::string_view name, std::string_view value) {
  return Add(name, JsonString(value));
}

TraceLine& TraceLine::Field(std::string_view name, std::int64_t value) {
  return Add(name, std::to_string(value));
}

TraceLine& TraceLine::FlagField(std::string_view name, bool value) {
  return Add(name, value ? "true" : "false");
}

TraceLine& TraceLine::Add(std::string_view name, std::string_view json) {
  json_ += json_.empty() ? '{' : ',';
  json_ += '"';
  json_ += name;
  json_ += "\":";
  json_ += json;
  return *this;
}

void TraceLine::Print(TraceForm form, std::string_view words) const {
  std::string line = json_ + '}';
  if (form == TraceForm::Text) {
    std::array<char, 32> time{};
    constexpr unsigned kMsPerSecond = 1000;
    std::snprintf(time.data(), time.size(), "%5llu.%03llu  ",
                  static_cast<unsigned long long>(now_ / kMsPerSecond),
                  static_cast<unsigned long long>(now_ % kMsPerSecond));
    line = time.data() + std::string(depth_ * 2, ' ') + std::string(words);
  }
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stdout);
}

}  // namespace mheg
