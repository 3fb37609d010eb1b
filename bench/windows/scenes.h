// The scenes that the Windows benchmarks show, with their pictures. The engine and the plain
// drawing take the same areas and texts from here.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace korvel::bench {

struct Area {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
};

inline constexpr int kTextCount = 20;    // in four columns
inline constexpr int kPictureCount = 5;  // of 360 x 288: four quarters and the middle
inline constexpr int kLineWidth = 2;     // of the rectangles around the texts

[[nodiscard]] Area TextArea(int index);
[[nodiscard]] Area PictureArea(int index);
[[nodiscard]] std::string TextOf(int index);

// The corner whose colour the keys change: Up makes it red, Down blue. It starts blue.
inline constexpr Area kCorner{704, 560, 16, 16};

struct Content {
  bool hasTexts = false;
  bool hasRectangles = false;  // around the texts
  bool hasPictures = false;
  bool hasFrame = false;
  bool hasCanvas = false;
  bool hasVideo = false;
};

struct NamedContent {
  const char* name;
  Content content;
};
[[nodiscard]] const std::vector<NamedContent>& Scenes();

// The files of a carousel with this scene.
[[nodiscard]] std::map<std::string, std::string> Carousel(const Content& content);

// The PNG file of a picture.
[[nodiscard]] const std::string& PictureFile(int index);

}  // namespace korvel::bench
