// The gallery demo: OK brings each picture into another state, and after a full turn into its
// first.
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
  for (std::int32_t place = 1; place <= 4; ++place) {
    SCOPED_TRACE(place);
    PressAll({kUp, kLeft});
    if (place > 2) PressAll({kDown});
    if (place % 2 == 0) PressAll({kRight});
    const std::int32_t states = place == 4 ? 2 : 3;
    const std::string first = StateOf(20 + place);
    const std::string caption = TextOf(30 + place);
    const std::string other = StateOf(20 + place % 4 + 1);
    for (std::int32_t step = 1; step <= states; ++step) {
      PressAll({kSelect});
      EXPECT_EQ(StateOf(20 + place) == first, step == states);
      EXPECT_EQ(TextOf(30 + place) == caption, step == states);
      EXPECT_EQ(StateOf(20 + place % 4 + 1), other);
    }
  }
}

}  // namespace
}  // namespace korvel::test
