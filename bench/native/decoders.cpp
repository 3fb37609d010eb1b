// References for decoding a scene: a generic ASN.1 decoder, a walk over the elements that does
// nothing else, and a plain copy of the bytes. Decoding itself is the reference for starting and
// ending a scene.
#include <benchmark/benchmark.h>
#include <libtasn1.h>

#include <cstring>

#include "measure.h"
#include "workloads/sample_scene.h"

namespace bench {
namespace {

// The parsed ASN.1 module, kept until the program ends.
asn1_node Module() {
  static asn1_node module = [] {
    asn1_node parsed = nullptr;
    char error[ASN1_MAX_ERROR_DESCRIPTION_SIZE] = "";
    if (asn1_parser2tree(KORVEL_SCENE_MODULE, &parsed, error) != ASN1_SUCCESS) Fail(error);
    return parsed;
  }();
  return module;
}

// Builds libtasn1's tree of all elements and releases it, as DecodeAndRelease does with records.
Work GenericDecoder(const std::string& bytes) {
  return {[bytes] {
    asn1_node scene = nullptr;
    char error[ASN1_MAX_ERROR_DESCRIPTION_SIZE] = "";
    Require(asn1_create_element(Module(), "Scenes.Scene", &scene) == ASN1_SUCCESS, "no element");
    const int status =
        asn1_der_decoding(&scene, bytes.data(), static_cast<int>(bytes.size()), error);
    asn1_delete_structure(&scene);
    if (status != ASN1_SUCCESS) Fail(error);
  }};
}

// Reads the tag and the length of each element, and enters constructed ones. The bytes are those of
// our own encoder, so nothing is checked.
std::size_t CountElements(const std::string& bytes) {
  const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
  const auto* const end = at + bytes.size();
  std::size_t count = 0;
  while (at < end) {
    const unsigned char first = *at++;
    if ((first & 0x1F) == 0x1F) {
      while ((*at++ & 0x80) != 0) continue;
    }
    std::size_t length = *at++;
    if (length >= 0x80) {
      std::size_t digits = length & 0x7F;
      for (length = 0; digits > 0; --digits) length = length << 8 | *at++;
    }
    if ((first & 0x20) == 0) at += length;
    ++count;
  }
  Require(at == end, "the walk missed the end");
  return count;
}

Work Walk(const std::string& bytes) {
  return {[bytes] { benchmark::DoNotOptimize(CountElements(bytes)); }};
}

Work Copy(const std::string& bytes) {
  return {[bytes, copy = std::string(bytes.size(), 0)]() mutable {
    std::memcpy(copy.data(), bytes.data(), bytes.size());
    benchmark::DoNotOptimize(copy.data());
    benchmark::ClobberMemory();
  }};
}

std::function<Work(int)> OfBytes(Work (*reader)(const std::string& bytes)) {
  return [reader](int bytes) { return reader(BytesOf(*SampleSceneOfBytes(bytes))); };
}

}  // namespace

std::vector<Reference> DecodingReferences() {
  return {
      {"decode/scene", "libtasn1", OfBytes(GenericDecoder)},
      {"decode/scene", "walk", OfBytes(Walk)},
      {"decode/scene", "memcpy", OfBytes(Copy)},
      {"lifecycle/start_and_end", "decoding",
       [](int objects) { return DecodeAndRelease(BytesOf(*SampleScene(objects))); }},
  };
}

}  // namespace bench
