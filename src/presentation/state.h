// The state of the presentation between calls, one record for the process. OpenPresentation fills
// it and ClosePresentation empties it; only the worker thread uses it. Two parts are separate: the
// picture that both threads paint the window from, with its lock, in surface.cpp, and the count of
// redraw requests, in redraw.cpp.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "objects/bounded_list.h"
#include "objects/limits.h"
#include "objects/list.h"
#include "objects/octet_string.h"
#include "presentation/gdi_plus.h"
#include "presentation/picture.h"

namespace korvel {

// The library's picture under one name; its image is null if it could not be read.
struct NamedPicture {
  OctetString name;
  Picture content;
};

// A decoded picture and the size of the file at the start of its block.
struct KeptPicture {
  Picture content;
  std::size_t fileBytes = 0;
  std::size_t bytes = 0;  // of the file and the pixels
};
using KeptPictures = BoundedList<KeptPicture, kMostKeptPictures>;

// The path of the file that passes I-frames to the host's decoder; empty if there is no folder.
inline constexpr std::size_t kTemporaryFolderBytes = 255;
using TemporaryPath = std::array<char, kTemporaryFolderBytes + 64>;

struct PresentationState {
  bool isGdiPlusStarted = false;
  ULONG_PTR gdiPlusToken = 0;

  // The one off-screen picture that everything visible is drawn into, 720 x 576, 32 bits per pixel
  // with alpha, and the graphics that draws on it, which is released first. While they are null,
  // drawing functions do nothing.
  BitmapOwner backBuffer;
  GraphicsOwner graphics;

  // Decoded on first use, and kept until the engine restarts or closes.
  List<NamedPicture> namedPictures;
  // The pictures that bitmaps have shown; all are released when a new one would exceed the limits.
  KeptPictures keptPictures;
  // The memory of the named pictures that restarts have destroyed, kept until the engine closes.
  List<GlobalBlock> keptBlocks;

  HMODULE decoderLibrary = nullptr;  // the host's; loaded when the first I-frame is drawn
  TemporaryPath temporaryPath{};
};

[[nodiscard]] PresentationState& State();

}  // namespace korvel
