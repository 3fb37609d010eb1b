// Tests closes at different moments while the engine processes the slowest kinds of content. The
// engine must close within one second of every request.
#include <gtest/gtest.h>

#include "objects/ber/ber.h"
#include "objects/objects.h"
#include "support/text_content.h"
#include "windows/library/engine_fixture.h"

namespace korvel::test {
namespace {

using namespace std::chrono_literals;

constexpr auto kLongestClose = 1000ms;
constexpr int kAttempts = 3;  // other programs may delay one of them

// When the close is requested: the time since the scene began to start, and the number of keys
// pressed by then.
struct Moment {
  std::chrono::milliseconds delay;
  int keys;
};
constexpr Moment kMoments[] = {{0ms, 0}, {30ms, 0}, {150ms, 5}, {500ms, 0}, {0ms, 40}};

class ClosingMatrix : public Engine {
 protected:
  // Serves the scene with `items` repeated `times` times, each with its own object number. The
  // items in `once` are not repeated.
  void ServeRepeated(const std::string& items, int times, const std::string& once = "") {
    const OwnedGroup part =
        ParseText("{:Scene (\"~/s\" 0) :Items (" + items + ") :InputEventReg 1 :SceneCS 720 576}");
    OwnedGroup whole = ParseText(
        "{:Scene (\"~/s\" 0) :Items ({:Text 1000001 :OrigContent :ContentRef (\"~/begin\") "
        ":OrigBoxSize 9 9} " +
        once + "{:BooleanVar 1000000 :OrigValue TRUE}) :InputEventReg 1 :SceneCS 720 576}");
    ASSERT_TRUE(part && whole);
    OctetString bytes;
    ASSERT_EQ(EncodeGroup(*part, bytes), Status::Done);
    for (int count = 0; count < times; ++count) {
      OwnedGroup copy;
      const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.Text());
      ASSERT_EQ(DecodeGroup({first, bytes.Length()}, copy), Status::Done);
      for (Item& item : copy->Items) {
        item.Record()->Reference.Number = ++number_;
        ASSERT_NE(whole->Items.Append(std::move(item)), nullptr);
      }
    }
    ASSERT_EQ(EncodeGroup(*whole, bytes), Status::Done);
    ServeScene("");
    host.Serve("s", std::string(bytes.View()));
    host.Serve("begin", "The scene has been decoded and its items start.");
    firstRead_ = "begin";
  }

  void ExpectQuickCloses() {
    for (const Moment& moment : kMoments) {
      std::chrono::milliseconds shortest = kLongestClose + 1ms;
      for (int attempt = 0; attempt < kAttempts && shortest > kLongestClose; ++attempt) {
        shortest = std::min(shortest, CloseAt(moment));
        ASSERT_FALSE(HasFailure());
      }
      EXPECT_LE(shortest, kLongestClose)
          << moment.delay.count() << " ms and " << moment.keys << " keys after the start";
    }
  }

 private:
  // The time from the request to the closed message.
  std::chrono::milliseconds CloseAt(const Moment& moment) {
    using Clock = std::chrono::steady_clock;
    ++starts_;
    Start();
    WaitForRead(firstRead_, starts_);
    for (int count = 0; count < moment.keys; ++count) PressKey(VK_RETURN);
    const auto requested = Clock::now() + moment.delay;
    EXPECT_TRUE(WaitUntil([&] { return Clock::now() >= requested; }));
    const auto begin = Clock::now();
    library.exit();
    EXPECT_TRUE(WaitUntil([this] { return window.Closes() == starts_; }));
    const auto end = Clock::now();
    library.waitForClose();
    return std::chrono::duration_cast<std::chrono::milliseconds>(end - begin);
  }

  std::string firstRead_ = "s";
  int starts_ = 0;
  std::int32_t number_ = 0;
};

// Every key redraws all objects.
constexpr const char* kRedrawOnKey =
    "{:Link 900001 :EventSource 0 :EventType UserInput :LinkEffect (:SetPosition(1 1 1))}";

TEST_F(ClosingMatrix, takes_at_most_a_second_with_thousands_of_visibles) {
  ServeRepeated("{:Rectangle 1 :OrigBoxSize 700 500 :OrigRefFillColour '=FF=00=00=00'}", 20'000,
                kRedrawOnKey);
  ExpectQuickCloses();
}

TEST_F(ClosingMatrix, takes_at_most_a_second_with_hundreds_of_long_texts) {
  host.Serve("long", std::string(1'000'000, 'x'));
  ServeRepeated("{:Text 1 :OrigContent :ContentRef (\"~/long\") :OrigBoxSize 700 500 "
                ":TextWrapping TRUE}",
                300, kRedrawOnKey);
  ExpectQuickCloses();
}

TEST_F(ClosingMatrix, takes_at_most_a_second_with_large_pictures) {
  // 4096 x 4096 pixels of 24 bits. The fields that are not 0 are the offset of the pixels, the
  // size of the header, the width and height, the planes and the bits per pixel.
  std::string bmp("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\0\x10\0\0\0\x10\0\0\x01\0\x18\0", 30);
  bmp.resize(54 + std::size_t{4096} * 4096 * 3);
  for (const char* name : {"one", "two", "three"}) {
    bmp.back() = *name;  // so that each is decoded
    host.Serve(name, bmp);
  }
  std::string bitmaps;
  for (const char* name : {"one", "two", "three"}) {
    bitmaps += std::string("{:Bitmap 1 :CHook 4 :OrigContent :ContentRef (\"~/") + name +
               "\") :OrigBoxSize 700 500} ";
  }
  ServeRepeated(bitmaps, 20, kRedrawOnKey);
  ExpectQuickCloses();
}

TEST_F(ClosingMatrix, takes_at_most_a_second_with_hundreds_of_missing_files) {
  ServeRepeated("{:Bitmap 1 :CHook 4 :OrigContent :ContentRef (\"~/missing\") :OrigBoxSize 9 9} "
                "{:Text 1 :OrigContent :ContentRef (\"~/missing\") :OrigBoxSize 9 9}",
                300, kRedrawOnKey);
  ExpectQuickCloses();
}

TEST_F(ClosingMatrix, takes_at_most_a_second_with_endless_events) {
  ServeRepeated("{:BooleanVar 1 :OrigValue TRUE}", 1000,
                "{:Link 900001 :EventSource 0 :EventType UserInput :LinkEffect "
                "(:TestVariable(1000000 1 :GBoolean TRUE))}"
                "{:Link 900002 :EventSource 0 :EventType IsRunning :LinkEffect "
                "(:SetTimer(0 1 1) :TestVariable(1000000 1 :GBoolean TRUE))}"
                "{:Link 900003 :EventSource 0 :EventType TimerFired :LinkEffect "
                "(:SetTimer(0 1 1) :TestVariable(1000000 1 :GBoolean TRUE))}"
                "{:Link 900004 :EventSource 1000000 :EventType TestEvent :LinkEffect "
                "(:TestVariable(1000000 1 :GBoolean TRUE) :TestVariable(1000000 1 :GBoolean TRUE) "
                ":TestVariable(1000000 1 :GBoolean TRUE))}");
  ExpectQuickCloses();
}

TEST_F(ClosingMatrix, takes_at_most_a_second_with_transitions_to_missing_scenes) {
  std::string actions;
  for (int count = 0; count < 500; ++count) actions += ":TransitionTo((\"~/missing\" 0)) ";
  ServeScene("{:Link 1 :EventSource 0 :EventType UserInput :LinkEffect (" + actions +
             ")} {:Link 2 :EventSource 0 :EventType IsRunning :LinkEffect (" + actions + ")}");
  ExpectQuickCloses();
}

TEST_F(ClosingMatrix, takes_at_most_a_second_with_endless_transitions) {
  ServeScene("{:Link 1 :EventSource 0 :EventType IsRunning :LinkEffect "
             "(:TransitionTo((\"~/t\" 0)))}");
  ServeScene("t", "{:Link 1 :EventSource 0 :EventType IsRunning :LinkEffect "
                  "(:TransitionTo((\"~/s\" 0)))}");
  ExpectQuickCloses();
}

TEST_F(ClosingMatrix, takes_at_most_a_second_with_a_list_of_thousands_of_items_and_cells) {
  constexpr int kItems = 5000;
  std::string members;
  std::string cells;
  for (int number = 1; number <= kItems / 5; ++number) {
    members += "(" + std::to_string(number) + ") ";
    cells += "(1 1) ";
  }
  ServeRepeated("{:Rectangle 1 :OrigBoxSize 9 9 :InitiallyActive FALSE}", kItems,
                "{:ListGroup 900001 :TokenGroupItems (" + members + ") :Positions (" + cells +
                    ") :WrapAround TRUE}"
                    "{:Link 900002 :EventSource 0 :EventType UserInput :LinkEffect "
                    "(:ScrollItems(900001 1) :SetFirstItem(900001 77) :ScrollItems(900001 9))}");
  ExpectQuickCloses();
}

TEST_F(ClosingMatrix, takes_at_most_a_second_with_polygons_of_a_thousand_corners) {
  std::string points;
  for (int corner = 0; corner < 1000; ++corner) {
    points += "(" + std::to_string(corner * 7919 % 700) + " " +
              std::to_string(corner * 6997 % 500) + ") ";
  }
  std::string drawing;
  for (int count = 0; count < 4; ++count) drawing += ":DrawPolygon(900001 (" + points + ")) ";
  ServeScene("{:DynamicLineArt 900001 :OrigBoxSize 720 576 :OrigLineStyle 2 :OrigLineWidth 1 "
             ":OrigRefFillColour '=FF=00=00=00'}"
             "{:Link 900002 :EventSource 0 :EventType UserInput :LinkEffect (" +
             drawing + ")} {:Link 900003 :EventSource 0 :EventType IsRunning :LinkEffect (" +
             ":SetPosition(900001 0 0))}");
  ExpectQuickCloses();
}

}  // namespace
}  // namespace korvel::test
