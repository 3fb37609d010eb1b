// Compares list groups with their reference model.
#include <string>

#include "comparison.h"
#include "list_group_model.h"

namespace korvel::test {
namespace {

struct ListGroupSubject {
  using Model = ListGroupModel;
  using Setup = Model::Setup;

  static Setup MakeSetup(Random& random) {
    Setup setup{};
    setup.itemCount = random.Between(0, 6);
    setup.visibleCount = setup.itemCount + random.Between(0, 3);
    setup.cellCount = random.Between(0, 6);
    static const std::vector<std::string> kEvents = {"FirstItemPresented", "LastItemPresented",
                                                     "HeadItems",          "TailItems",
                                                     "ItemSelected",       "ItemDeselected"};
    if (random.OneIn(4)) setup.failing = random.Of(kEvents);
    setup.isActive = !random.OneIn(20);
    setup.wrapAround = random.OneIn(2);
    setup.multipleSelection = random.OneIn(2);
    return setup;
  }

  static std::vector<Step> MakeSteps(Random& random, const Setup& setup) {
    std::vector<Step> steps;
    const std::int32_t count = random.Between(1, 20);
    while (static_cast<std::int32_t>(steps.size()) < count) {
      const std::int32_t n = random.Around(-3, setup.visibleCount + 3);
      const std::int32_t visible = random.Between(1, setup.visibleCount + 1);
      const std::vector<Step> choices = {
          {"ScrollItems", {50, n}},
          {"SetFirstItem", {50, n}},
          {"AddItem", {50, n, visible}},
          {"DelItem", {50, visible}},
          {"SelectItem", {50, n}},
          {"DeselectItem", {50, n}},
          {"ToggleItem", {50, n}},
          {"Select", {50}},
          {"Deselect", {50}},
          {"MoveTo", {50, n}},
          {"GetListSize", {50, 60}},
          {"GetFirstItem", {50, 60}},
          {"GetItemStatus", {50, n, 61}},
          {"GetListItem", {50, n, 62}},
          {"GetCellItem", {50, n, 62}},
          {"GetTokenPosition", {50, 60}},
          {"SetCellPosition", {50, n, 0, 100 + count}},
      };
      steps.push_back(random.Of(choices));
    }
    if (random.OneIn(10)) steps[steps.size() / 2] = {"Stop", {50}};
    return steps;
  }

  static std::string Items(const Setup& setup) {
    std::string text, members, cells;
    for (int i = 1; i <= setup.visibleCount; ++i) {
      text += "{:Rectangle " + std::to_string(i) + " :InitiallyActive FALSE :OrigBoxSize 9 9}\n";
    }
    for (int i = 1; i <= setup.itemCount; ++i) members += "(" + std::to_string(i) + ")";
    for (int i = 1; i <= setup.cellCount; ++i) cells += "(0 " + std::to_string(10 * i) + ")";
    text += "{:IntegerVar 60 :OrigValue -1} {:BooleanVar 61 :OrigValue FALSE}"
            " {:ObjectRefVar 62 :OrigValue :ObjectRef (\"~/a\" 99)}\n"
            "{:ListGroup 50 :TokenGroupItems (" +
            members + ") :Positions (" + cells + ")";
    if (!setup.isActive) text += " :InitiallyActive FALSE";
    if (setup.wrapAround) text += " :WrapAround TRUE";
    if (setup.multipleSelection) text += " :MultipleSelection TRUE";
    text += "}\n" + WatchLinks(50, "FirstItemPresented", "boolean") +
            WatchLinks(50, "LastItemPresented", "boolean");
    for (const char* event : {"HeadItems", "TailItems", "ItemSelected", "ItemDeselected",
                              "TokenMovedFrom", "TokenMovedTo"}) {
      text += WatchLinks(50, event);
    }
    if (!setup.failing.empty()) text += FailLink(71, 50, setup.failing);
    return text;
  }

  static std::string EngineState(const Setup& setup) {
    const ListGroup& group = ObjectOf<ListGroup>(50);
    std::string text = Words(
        "first", group.FirstItem, "token", group.TokenPosition, ObjectOf<IntegerVariable>(60).Value,
        ObjectOf<BooleanVariable>(61).Value, ObjectOf<ObjectRefVariable>(62).Value.Number);
    for (const ListItem& item : group.ItemList) {
      text += Words(item.AVisible.Number, item.IsSelected, item.IsPresented);
    }
    text += "at ";
    for (int i = 1; i <= setup.visibleCount; ++i) text += Words(ObjectOf<Rectangle>(i).Position.Y);
    return text + "stack " + StackText();
  }
};

TEST(ListGroupReference, a_list_group_behaves_like_its_model) {
  CompareWithEngine<ListGroupSubject>(500);
}

}  // namespace
}  // namespace korvel::test
