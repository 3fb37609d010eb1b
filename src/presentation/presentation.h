// The doorway of the presentation: the off-screen picture of the scene, its redraw from the display
// stack, the copy to the engine window, and the canvases of dynamic line art. Worker thread only,
// but for the three functions of the screen that say otherwise.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "objects/status.h"

namespace korvel {

struct BoxSize;
struct Canvas;
struct LineArt;
struct Position;
struct Stream;

// A colour as drawing takes it: 0xRRGGBBTT, where TT is the transparency.
using DrawnColour = std::uint32_t;

// No fill, or no background.
inline constexpr DrawnColour kTransparentColour = 0xFFFFFFFF;

// The size of the scene in pixels; the picture has exactly this size and is shown 1:1.
inline constexpr std::int32_t kSceneWidth = 720;
inline constexpr std::int32_t kSceneHeight = 576;

// ---- The screen: the last finished picture and the lock around it ----

// Engine thread, before it creates its window: makes the screen lock.
void OpenScreen() noexcept;

// Engine thread, once its window is gone and the worker has ended.
void CloseScreen() noexcept;

// Engine thread, between the two: paints the window from the last finished picture. Draws nothing
// while there is none. Takes a device context of the window, as the platform's handle.
void PaintWindow(void* deviceContext) noexcept;

// ---- The picture ----

// Finds the folder for temporary files, starts GDI+ and makes the back buffer, opaque black, and
// the screen's picture, which is shown in `window` (the platform's handle; may be null). What
// cannot be made stays absent, and everything that draws then does nothing.
void OpenPresentation(void* window) noexcept;

// Gives up the pictures and every cached image and ends GDI+. No canvas may be left.
void ClosePresentation() noexcept;

// Fills the back buffer with opaque black.
void ClearSurface() noexcept;

// Draws the text of a fixed screen ("Please Wait", "No MHEG5 Service") into the back buffer.
void DrawScreenText(std::string_view text) noexcept;

// A request to draw the scene again. Only the 1st, 6th, 11th ... request since the counter was
// reset paints; the others cost nothing, so that callers may ask freely. While a close is asked
// for, requests only count. Failure when an event raised while drawing asked to stop.
Status Redraw() noexcept;

// Makes the next Redraw paint.
void ResetRedrawCounter() noexcept;

// Copies the back buffer to the window, unless the last copy was made within the same millisecond.
Status DeviceUpdate() noexcept;

// Makes the next DeviceUpdate copy, whenever the last one was.
void DiscardUpdateStamp() noexcept;

// Destroys the cached images, as a restart does.
void ClearImageCache() noexcept;

// The current colours of line art: absolute, from the object's palette, or black lines and no fill
// where they are not set.
[[nodiscard]] DrawnColour LineColourOf(const LineArt& lineArt) noexcept;
[[nodiscard]] DrawnColour FillColourOf(const LineArt& lineArt) noexcept;

// The fill colour that the content gave, whatever the current one is.
[[nodiscard]] DrawnColour OriginalFillColourOf(const LineArt& lineArt) noexcept;

// ---- Broadcast streams ----
// They are not decoded here: a picture stands for video, and what would control a decoder does
// nothing and is Done.

// The stream has begun to run with this video in that box.
Status StartVideo(const Stream& stream, std::int32_t componentTag, const Position& at,
                  const BoxSize& size) noexcept;

// The stream runs no longer, nor does any of its components.
Status EndStream(const Stream& stream) noexcept;

// ---- Canvases of dynamic line art ----
// Coordinates are canvas pixels. Every operation takes a null canvas and then does nothing; all
// return Done.

struct LineAttributes {
  std::int32_t Width = 1;  // pixels
  std::int32_t Style = 1;  // 1 solid, 2 dashed, 3 dotted; any other is solid
  DrawnColour Ink = 0;
};

struct CanvasPoint {
  std::int32_t X = 0;
  std::int32_t Y = 0;
};

enum class ArcForm { Arc, Sector };

// A canvas of that size, transparent everywhere. Null when a side is below 1, when it would be too
// large, and when memory is out.
[[nodiscard]] Canvas* NewCanvas(std::int32_t width, std::int32_t height) noexcept;

// Gives a canvas back. Null is allowed.
void DestroyCanvas(Canvas* canvas) noexcept;

// Limits what is drawn from now on to the top-left part of that size, the drawable area.
Status ClipCanvas(std::int32_t width, std::int32_t height, Canvas* canvas) noexcept;

// Makes the whole canvas transparent, then fills its drawable area.
Status ClearCanvas(DrawnColour fill, Canvas* canvas) noexcept;

Status CanvasLine(CanvasPoint from, CanvasPoint to, const LineAttributes& line,
                  Canvas* canvas) noexcept;

// An outline inside the rectangle between the two corners, and the fill inside of the outline.
Status CanvasRectangle(CanvasPoint from, CanvasPoint to, const LineAttributes& line,
                       DrawnColour fill, Canvas* canvas) noexcept;

// The fill only: an oval's outline is not drawn.
Status CanvasOval(CanvasPoint at, std::int32_t width, std::int32_t height, DrawnColour fill,
                  Canvas* canvas) noexcept;

// Angles are degrees; the start angle is measured clockwise from the right, a positive arc angle
// runs counter-clockwise. A sector's fill is as transparent as its line.
Status CanvasArc(CanvasPoint at, std::int32_t width, std::int32_t height, std::int32_t startAngle,
                 std::int32_t arcAngle, const LineAttributes& line, DrawnColour fill, ArcForm form,
                 Canvas* canvas) noexcept;

// Closed and filled, for polylines too. Two points are a line; fewer draw nothing.
Status CanvasPolygon(std::span<const CanvasPoint> points, const LineAttributes& line,
                     DrawnColour fill, Canvas* canvas) noexcept;

}  // namespace korvel
