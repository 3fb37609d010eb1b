// The gallery demo: OK changes the state of the chosen picture. After its last state, a picture
// returns to its first.
#include "unit/demos/demo.h"

namespace korvel::test {
namespace {

using namespace keys;

class Gallery : public DemoTest {
 protected:
  void SetUp() override {
    DemoTest::SetUp();
    ASSERT_NO_FATAL_FAILURE(Play("gallery"));
    ASSERT_EQ(SceneName(), "~/wall");
  }

  // Everything about a picture that OK can change.
  static std::string StateOf(std::int32_t number) {
    const auto& bitmap = Find<Bitmap>(number, SceneName());
    return std::string(bitmap.Content.Data.View()) + " " + std::to_string(bitmap.ScaledSize.Width) +
           " " + std::to_string(bitmap.Transparency);
  }
};

TEST_F(Gallery, ok_changes_only_the_chosen_picture_and_its_caption) {
  for (std::int32_t picture = 1; picture <= 4; ++picture) {
    SCOPED_TRACE(picture);
    PressAll({kUp, kLeft});
    if (picture > 2) PressAll({kDown});
    if (picture % 2 == 0) PressAll({kRight});
    const std::int32_t states = picture == 4 ? 2 : 3;
    const std::string first = StateOf(20 + picture);
    const std::string caption = TextOf(30 + picture);
    const std::string other = StateOf(20 + picture % 4 + 1);
    for (std::int32_t step = 1; step <= states; ++step) {
      PressAll({kSelect});
      EXPECT_EQ(StateOf(20 + picture) == first, step == states);
      EXPECT_EQ(TextOf(30 + picture) == caption, step == states);
      EXPECT_EQ(StateOf(20 + picture % 4 + 1), other);
    }
  }
}

}  // namespace
}  // namespace korvel::test
