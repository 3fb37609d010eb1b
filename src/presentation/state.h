// What the presentation keeps between calls, one record for the process. OpenPresentation fills it
// and ClosePresentation empties it, on the worker thread, which alone uses it. The picture that
// both threads paint the window from is apart, under its lock: device_update.cpp.
#pragma once

#include <array>
#include <cstdint>

#include "objects/list.h"
#include "objects/octet_string.h"
#include "presentation/gdi_plus.h"
#include "presentation/picture.h"

namespace korvel {

// A picture that the library carries itself, with its image when it could be read.
struct NamedPicture {
  OctetString Name;
  Picture Content;
};

// The path of the file through which I-frames reach the host's decoder; empty without a folder.
inline constexpr std::size_t kTemporaryFolderBytes = 255;
using TemporaryPath = std::array<char, kTemporaryFolderBytes + 64>;

struct PresentationState {
  bool isGdiPlusStarted = false;
  ULONG_PTR gdiPlusToken = 0;

  // The one off-screen picture that everything visible is drawn into, 720 x 576, 32 bits per pixel
  // with alpha, and what draws on it, which is released first. Null while there are none: a drawing
  // function then draws nothing.
  BitmapOwner backBuffer;
  GraphicsOwner graphics;

  // Decoded on first use, and kept until the engine restarts or closes.
  List<NamedPicture> namedPictures;
  // The memory of pictures that a restart has destroyed.
  List<GlobalBlock> keptBlocks;

  HMODULE decoderLibrary = nullptr;  // the host's; loaded when the first I-frame is drawn
  TemporaryPath temporaryPath{};

  std::uint32_t redrawRequests = 0;
  bool isPainting = false;
  bool isPaintingDueAgain = false;  // a request that was to paint came from an event of a painting
};

[[nodiscard]] PresentationState& State();

}  // namespace korvel
