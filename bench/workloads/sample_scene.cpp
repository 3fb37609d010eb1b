// Writes the sample scene in the textual notation: sets of a text, a rectangle, two variables and a
// link that refers to them.
#include "sample_scene.h"

#include <algorithm>
#include <span>

#include "objects/ber/ber.h"

namespace bench {
namespace {

// Objects with the numbers from `first` on.
std::string SampleSet(int first) {
  std::string text =
      "{:Text $1 :OrigContent \"Press a key\" :OrigBoxSize 400 60 :OrigPosition 100 200"
      " :TextColour '=FF=FF=FF'}\n"
      "{:Rectangle $2 :OrigBoxSize 40 20 :OrigPosition 10 20 :OrigLineWidth 2"
      " :OrigRefFillColour '=00=80=00=00'}\n"
      "{:IntegerVar $3 :OrigValue 7}\n"
      "{:OStringVar $4 :OrigValue \"Channel 4\"}\n"
      "{:Link $5 :EventSource 0 :EventType UserInput :EventData 100 :LinkEffect ("
      ":Add($3 1) :SetPosition($2 :IndirectRef $3 200) :SetVariable($4 :GOctetString \"On\"))}\n";
  for (std::size_t at; (at = text.find('$')) != std::string::npos;) {
    text.replace(at, 2, std::to_string(first + text[at + 1] - '1'));
  }
  return text;
}

}  // namespace

korvel::OwnedGroup SampleScene(int objects) {
  std::vector<std::string> items;
  for (int first = 1; first <= objects; first += kSampleClasses) items.push_back(SampleSet(first));
  return SceneOf(items);
}

korvel::OwnedGroup SampleSceneOfBytes(int bytes) {
  // Measured on a large scene, because longer object numbers take more bytes.
  constexpr int kObjects = 10'000;
  static const double bytesPerObject =
      static_cast<double>(BytesOf(*SampleScene(kObjects)).size()) / kObjects;
  return SampleScene(std::max(static_cast<int>(bytes / bytesPerObject), 1));
}

Work DecodeAndRelease(std::string bytes) {
  return {[bytes = std::move(bytes)] {
    const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.data());
    korvel::OwnedGroup group;
    Require(korvel::DecodeGroup({first, bytes.size()}, group) == korvel::Status::Done,
            "a scene cannot be decoded");
  }};
}

}  // namespace bench
