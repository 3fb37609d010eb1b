// The fixture of tests that show a picture file: one bitmap over the whole scene.
#pragma once

#include <string>

#include "platform/screen.h"
#include "presentation/presentation.h"
#include "windows/presentation/stage.h"

namespace korvel::test {

class PictureStage : public Stage {
 protected:
  PictureStage() {
    Place(bitmap, 0, 0, 720, 576);
    bitmap.ContentHOOK = 4;
    bitmap.Content.IsReferenced = true;
    bitmap.Content.Data = Octets("~/picture");
    Show(ItemType::Bitmap, bitmap);
    static_cast<void>(Paint());  // performs one-time initialisation
    TheEngine().raised.clear();
  }

  static void Redraw(const std::string& file) {
    TheHost().files["picture"] = file;
    TheEngine().raised.clear();
    ResetRedrawCounter();
    EXPECT_EQ(korvel::Redraw(), Status::Done);
  }
  static void ExpectMissing(const std::string& file, const char* what) {
    Redraw(file);
    EXPECT_TRUE(BackBufferPixels().IsAll(kWholeScene, kBlack)) << what;
    EXPECT_EQ(TheEngine().raised.size(), 1U) << what;
  }
  static void ExpectShown(const std::string& file, const char* what) {
    Redraw(file);
    EXPECT_EQ(BackBufferPixels().At(0, 0), kGreen) << what;
    EXPECT_TRUE(TheEngine().raised.empty()) << what;
  }

  Bitmap bitmap;
};

}  // namespace korvel::test
