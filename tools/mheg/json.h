// Writes JSON.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace mheg {

// The bytes as a JSON string with its quotes. Bytes that are not UTF-8 are taken as Latin-1.
[[nodiscard]] std::string JsonString(std::string_view bytes);

// An object with these members: names and their values as JSON. Omits members with an empty value.
[[nodiscard]] std::string
JsonObject(std::initializer_list<std::pair<std::string_view, std::string>> members);

// An array with each element on its own line. `write` returns the JSON of an element.
template <class Range, class Write>
[[nodiscard]] std::string JsonArray(const Range& range, Write&& write) {
  std::string json;
  for (const auto& element : range) json += (json.empty() ? "\n" : ",\n") + write(element);
  return "[" + json + (json.empty() ? "]" : "\n]");
}

}  // namespace mheg
