// Loads the decoder's DLL from a folder that the engine does not search. The engine then finds it
// by name because it is already loaded.
#include "windows/support/decoder.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

#include "decoders/frame.h"

namespace korvel::test {

namespace {

Decoder::Decode* currentDecode = nullptr;

HMODULE LoadDecoder(const char* name) {
  std::string path(MAX_PATH, '\0');
  path.resize(GetModuleFileNameA(nullptr, path.data(), MAX_PATH));
  path.resize(path.rfind('\\') + 1);
  return LoadLibraryA((path + name + "\\MenuAPI.dll").c_str());
}

DecoderRecord* FindRecord(HMODULE library) {
  using GetRecord = DecoderRecord* (*)();
  const auto find =
      reinterpret_cast<GetRecord>(reinterpret_cast<void*>(GetProcAddress(library, "Record")));
  return find == nullptr ? nullptr : find();
}

}  // namespace

Decoder::Decoder(const char* name) : library_(LoadDecoder(name)), record_(FindRecord(library_)) {
  if (record_ == nullptr) throw std::runtime_error("the recording decoder cannot be loaded");
  *record_ = {};
}

Decoder::~Decoder() {
  *record_ = {};
  currentDecode = nullptr;
  FreeLibrary(library_);
}

void Decoder::DecodeBy(Decode decode) {
  decode_ = std::move(decode);
  currentDecode = &decode_;
  record_->decode = [](const char* path, std::uint8_t** buffer) { (*currentDecode)(path, buffer); };
}

// Clears the address of ordinal 1 in the DLL's export table, so GetProcAddress does not find it.
void Decoder::RemoveFunction() {
  auto* base = reinterpret_cast<char*>(library_);
  const auto* start = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + start->e_lfanew);
  const auto* exports = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(
      base + headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT].VirtualAddress);
  auto* first = reinterpret_cast<DWORD*>(base + exports->AddressOfFunctions);
  DWORD protection = 0;
  VirtualProtect(first, sizeof(*first), PAGE_READWRITE, &protection);
  *first = 0;
  VirtualProtect(first, sizeof(*first), protection, &protection);
}

std::string Stream(int width, int height, std::uint8_t luma) {
  std::string stream("\x00\x00\x01\xB3", 4);
  for (const int byte : {width >> 4, (width & 15) << 4 | height >> 8, height & 255, int{luma}}) {
    stream += static_cast<char>(byte);
  }
  return stream;
}

void DecodeStream(const std::string& stream, std::uint8_t* buffer) {
  if (stream.size() <= kSequenceHeaderBytes) return;
  constexpr std::uint8_t kNoChroma = 128;
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(stream.data());
  FillPlanes(PlaneSizesIn(bytes), bytes[kSequenceHeaderBytes], kNoChroma, kNoChroma, buffer);
}

}  // namespace korvel::test
