// Presses random keys as fast as the engine handles them, and checks that the process does not
// hold more and more resources. KORVEL_KEYS sets the number of keys; a viewer who presses one every
// two seconds presses 1,800 an hour. KORVEL_SAMPLES names a file for the samples, to plot them.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <random>
#include <vector>

#include "support/text_content.h"
#include "windows/library/engine_fixture.h"
#include "windows/support/holdings.h"

namespace korvel::test {
namespace {

constexpr int kSamples = 50;

int KeysOfRun() {
  const char* keys = std::getenv("KORVEL_KEYS");
  return keys == nullptr ? 500 : std::atoi(keys);
}

// 8 x 8 pixels of 24 bits. The fields that are not 0 are the offset of the pixels, the size of the
// header, the width and height, the planes and the bits per pixel.
std::string SmallBmp() {
  std::string bmp("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x08\0\0\0\x08\0\0\0\x01\0\x18\0", 30);
  bmp.resize(54 + std::size_t{8} * 8 * 3);
  return bmp;
}

std::string OnKey(int number, int key, const std::string& actions) {
  return "{:Link " + std::to_string(number) + " :EventSource 0 :EventType UserInput :EventData " +
         std::to_string(key) + " :LinkEffect (" + actions + ")} ";
}

// Items of most classes, with a timer that sets itself again. The red key enters the other scene.
std::string SceneItems(const std::string& other) {
  return "{:Rectangle 1 :OrigBoxSize 300 200 :OrigRefFillColour '=00=80=00=00'}"
         "{:Text 2 :OrigContent :ContentRef (\"~/text\") :OrigBoxSize 300 200 :TextWrapping TRUE}"
         "{:Bitmap 3 :CHook 4 :OrigContent :ContentRef (\"~/bitmap\") :OrigBoxSize 99 99 "
         ":Tiling TRUE}"
         "{:DynamicLineArt 4 :OrigBoxSize 200 200 :OrigPosition 300 200}"
         "{:EntryField 5 :OrigContent \"\" :OrigBoxSize 200 50 :OrigPosition 9 400}"
         "{:Slider 6 :OrigBoxSize 200 50 :OrigPosition 300 400 :Orientation Right :MaxValue 9 "
         ":EngineResp TRUE}"
         "{:IntegerVar 7 :OrigValue 0} {:OStringVar 8 :OrigValue \"\"}"
         "{:Link 10 :EventSource 0 :EventType IsRunning :LinkEffect (:SetTimer(0 1 20))}"
         "{:Link 11 :EventSource 0 :EventType TimerFired :LinkEffect "
         "(:Add(7 1) :SetVariable(8 :GInteger :IndirectRef 7) :SetTimer(0 1 20) "
         ":BringToFront(1))}" +
         OnKey(20, 100, ":TransitionTo((\"~/" + other + "\" 0))") +
         OnKey(21, 101, ":Launch((\"~/b\" 0))") +
         OnKey(22, 102, ":Clear(4) :DrawLine(4 0 0 99 99) :DrawOval(4 9 9 50 50)") +
         OnKey(23, 103, ":SetInteractionStatus(5 TRUE)") +
         OnKey(24, 1, ":SetData(2 \"new\") :SetPosition(2 50 60)") +
         OnKey(25, 2, ":SetData(2 :NewRefContent (:ContentRef (\"~/text\")))") +
         OnKey(26, 3, ":Step(6 1) :BringToFront(3)") + OnKey(27, 4, ":SetSliderValue(6 0)") +
         OnKey(28, 15,
               ":StorePersistent((\"~/a\" 0) 9 (7 8) \"kept\") :ReadPersistent((\"~/a\" 0) 9 (7 8) "
               "\"kept\")") +
         "{:BooleanVar 9 :OrigValue FALSE}";
}

class Endurance : public Engine {
 protected:
  void PressRandomKeys(int count) {
    constexpr std::array<WPARAM, 14> kKeys = {'R',       'G',     'Y', 'B',      VK_UP,
                                              VK_DOWN,   VK_LEFT, '1', VK_RIGHT, VK_RETURN,
                                              VK_ESCAPE, '7',     'T', 'I'};
    for (int key = 0; key < count; ++key) {
      PressKey(kKeys[random_() % kKeys.size()]);
      if (key % 8 == 7) Settle();  // limits the number of queued keys
    }
    Settle();
  }
  // Waits until the keys posted so far are handled: the last one makes content read a file.
  void Settle() {
    const int reads = ReadsOf("settled");
    PressKey(VK_ESCAPE);  // ends an interaction that would use the next key
    PressKey('9');
    WaitForRead("settled", reads + 1);
  }

 private:
  std::mt19937 random_{20240607};
};

std::size_t MaximumIn(const std::vector<Holdings>& samples, int fifth,
                      std::size_t Holdings::*value) {
  const auto begin = samples.begin() + fifth * kSamples / 5;
  return (*std::max_element(begin, begin + kSamples / 5,
                            [value](const Holdings& one, const Holdings& other) {
                              return one.*value < other.*value;
                            })).*
         value;
}

void ExpectFlat(const std::vector<Holdings>& samples, std::size_t Holdings::*value,
                std::size_t fluctuation) {
  const std::size_t early = MaximumIn(samples, 1, value);
  EXPECT_LE(MaximumIn(samples, 4, value), early + std::max(early / 100, fluctuation));
}

TEST_F(Endurance, the_process_does_not_hold_more_and_more_resources) {
  host.Serve("a", CompileText(R"({:Application ("~/a" 0) :OnStartUp (:TransitionTo(("~/s" 0)))})"));
  host.Serve("b", CompileText(R"({:Application ("~/b" 0) :OnStartUp (:TransitionTo(("~/t" 0)))})"));
  const std::string settle = OnKey(90, 14,
                                   ":SetData(91 :NewRefContent (:ContentRef "
                                   "(\"~/settled\")))") +
                             "{:Text 91 :OrigContent \"\" :OrigBoxSize 9 9}";
  ServeScene("s", SceneItems("t") + settle);
  ServeScene("t", SceneItems("s") + settle);
  host.Serve("text", "A text of the viewer's");
  host.Serve("settled", "settled");
  host.Serve("bitmap", SmallBmp());
  Start();
  WaitForRead("s");
  const char* path = std::getenv("KORVEL_SAMPLES");
  std::ofstream plot(path == nullptr ? "NUL" : path);
  plot << "blocks,bytes,handles,threads,gdi\n";
  std::vector<Holdings> samples;
  for (int count = 0; count < kSamples && !HasFailure(); ++count) {
    PressRandomKeys(KeysOfRun() / kSamples);
    host.ForgetCalls();
    const Holdings held = Held();
    samples.push_back(held);
    plot << held.blocks << ',' << held.bytes << ',' << held.handles << ',' << held.threads << ','
         << held.nextGdiIndex << '\n';
  }
  ASSERT_FALSE(HasFailure());
  ExpectFlat(samples, &Holdings::blocks, 300);
  ExpectFlat(samples, &Holdings::bytes, 256 * 1024);
  ExpectFlat(samples, &Holdings::handles, 4);
  ExpectFlat(samples, &Holdings::threads, 0);
  ExpectFlat(samples, &Holdings::nextGdiIndex, 50);
}

}  // namespace
}  // namespace korvel::test
