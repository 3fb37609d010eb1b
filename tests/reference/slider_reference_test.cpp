// Compares sliders with their reference model.
#include <string>

#include "comparison.h"
#include "slider_model.h"

namespace korvel::test {
namespace {

struct SliderSubject {
  using Model = SliderModel;
  using Setup = Model::Setup;

  static Setup MakeSetup(Random& random) {
    static const std::vector<std::string> kStyles = {"normal", "thermometer", "proportional",
                                                     "proportional"};
    Setup setup{};
    setup.least = random.Around(-5, 3);
    setup.most = random.Around(0, 20);
    setup.initialValue = random.OneIn(2) ? setup.least : random.Around(-2, 12);
    setup.initialPortion = random.Around(-1, 6);
    setup.step = random.OneIn(2) ? 1 : random.Around(-2, 4);
    setup.style = random.Of(kStyles);
    setup.isFailing = random.OneIn(10);
    return setup;
  }

  static std::vector<Step> MakeSteps(Random& random, const Setup& /*setup*/) {
    std::vector<Step> steps;
    for (std::int32_t count = random.Between(1, 15); count > 0; --count) {
      const std::vector<Step> choices = {{"Step", {1, random.Around(-4, 6)}},
                                         {"Step", {1, random.Around(-1, 1)}},
                                         {"SetSliderValue", {1, random.Around(-6, 21)}},
                                         {"SetSliderValue", {1, random.Around(0, 9)}},
                                         {"SetPortion", {1, random.Around(-1, 12)}},
                                         {"GetSliderValue", {1, 60}},
                                         {"GetPortion", {1, 60}}};
      steps.push_back(random.Of(choices));
    }
    if (random.OneIn(5)) steps[steps.size() / 2] = {"Stop", {1}};
    return steps;
  }

  static std::string Items(const Setup& setup) {
    const auto attribute = [](const char* name, std::int32_t value) {
      return " :" + std::string(name) + " " + std::to_string(value);
    };
    std::string text =
        "{:Slider 1 :Orientation left :OrigBoxSize 9 9" + attribute("MinValue", setup.least) +
        attribute("MaxValue", setup.most) + attribute("InitialValue", setup.initialValue) +
        attribute("InitialPortion", setup.initialPortion) + attribute("StepSize", setup.step) +
        " :SliderStyle " + setup.style + "} {:IntegerVar 60 :OrigValue -77}\n" +
        WatchLinks(1, "InteractionCompleted", "none");
    if (setup.isFailing) text += FailLink(71, 1, "InteractionCompleted");
    return text;
  }

  static std::string EngineState(const Setup& /*setup*/) {
    const Slider& slider = ObjectOf<Slider>(1);
    return Words(slider.SliderValue, slider.Portion, ObjectOf<IntegerVariable>(60).Value);
  }
};

TEST(SliderReference, a_slider_behaves_like_its_model) { CompareWithEngine<SliderSubject>(2000); }

}  // namespace
}  // namespace korvel::test
