// Compares entry fields with their reference model.
#include <string>

#include "comparison.h"
#include "entry_field_model.h"

namespace korvel::test {
namespace {

struct EntryFieldSubject {
  using Model = EntryFieldModel;
  using Setup = Model::Setup;

  static std::string RandomText(Random& random) {
    std::string text;
    for (std::int32_t count = random.Between(0, 4); count > 0; --count) {
      text += static_cast<char>('a' + random.Between(0, 25));
    }
    return text;
  }

  static Setup MakeSetup(Random& random) {
    static const std::vector<std::int32_t> kLengths = {0, 0, 0, 1, 2, 3, 4, 6, -1, -2147483647};
    static const std::vector<std::string> kTypes = {"alpha", "numeric", "any", "listed"};
    return {random.OneIn(2) ? "" : RandomText(random),
            random.Of(kLengths),
            random.OneIn(8),
            random.OneIn(8),
            random.Of(kTypes),
            random.OneIn(2) ? "" : "x37"};
  }

  static std::vector<Step> MakeSteps(Random& random, const Setup& /*setup*/) {
    static const std::vector<std::int32_t> kCharacters = {'x', 'y', 'z', '0', '\r', '\n', 0xE9};
    std::vector<Step> steps = {{"SetInteractionStatus", {1}, "TRUE"}};
    for (std::int32_t count = random.Between(1, 20); count > 0; --count) {
      const char* boolean = random.OneIn(2) ? "TRUE" : "FALSE";
      const Step key = {"Key", {random.Between(1, 17)}};
      const Step enter = {"Enter", {1, random.Of(kCharacters)}};
      const std::vector<Step> choices = {key,
                                         key,
                                         key,
                                         enter,
                                         enter,
                                         enter,
                                         enter,
                                         enter,
                                         enter,
                                         {"SetEntryPoint", {1, random.Around(-1, 6)}},
                                         {"SetEntryPoint", {1, random.Between(0, 3)}},
                                         {"SetOverwriteMode", {1}, boolean},
                                         {"SetInteractionStatus", {1}, boolean},
                                         {"SetData", {1}, "\"" + RandomText(random) + "\""},
                                         {"GetEntryPoint", {1, 60}},
                                         {"GetOverwriteMode", {1, 61}},
                                         {"GetInteractionStatus", {1, 61}},
                                         {"GetTextContent", {1, 62}},
                                         {"GetTextData", {1, 62}}};
      steps.push_back(random.Of(choices));
    }
    return steps;
  }

  static std::string Items(const Setup& setup) {
    std::string text = "{:EntryField 1 :OrigContent \"" + setup.text +
                       "\" :OrigBoxSize 99 20 :MaxLength " + std::to_string(setup.maxLength) +
                       " :InputType " + setup.inputType + " :CharList \"" + setup.charList + "\"" +
                       "} {:IntegerVar 60 :OrigValue -9} {:BooleanVar 61 :OrigValue FALSE}"
                       " {:OStringVar 62 :OrigValue \"\"}\n" +
                       WatchLinks(1, "EntryFieldFull", "none") +
                       WatchLinks(1, "InteractionCompleted", "none");
    if (setup.isFullFailing) text += FailLink(71, 1, "EntryFieldFull");
    if (setup.isCompletedFailing) text += FailLink(72, 1, "InteractionCompleted");
    return text;
  }

  static std::string EngineState(const Setup& /*setup*/) {
    const EntryField& field = ObjectOf<EntryField>(1);
    return Words(field.TextData.View(), field.EntryPoint, field.OverwriteMode,
                 field.InteractionStatus, ObjectOf<IntegerVariable>(60).Value,
                 ObjectOf<BooleanVariable>(61).Value,
                 ObjectOf<OctetStringVariable>(62).Value.View());
  }
};

TEST(EntryFieldReference, an_entry_field_behaves_like_its_model) {
  CompareWithEngine<EntryFieldSubject>(2000);
}

}  // namespace
}  // namespace korvel::test
