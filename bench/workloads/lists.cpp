// Scrolls and changes list groups: many items in 10 cells, and as many cells as items.
#include "stage.h"

namespace bench {
namespace {

constexpr int kList = 1'000'000;
constexpr int kHolder = 1'000'001;
constexpr int kCells = 10;

// A list with the rectangles 1 to `size` as its items, which starts when the scene does. Rectangle
// `size` + 1 is not in the list.
Work Prepare(int size, int cells, const std::string& actions, double units) {
  std::vector<std::string> items;
  for (int number = 1; number <= size + 1; ++number) {
    items.push_back(Rectangle(number, ":InitiallyActive FALSE"));
  }
  items.push_back(ActionHolder(kHolder, actions));
  items.push_back("{:ListGroup 1000000 :TokenGroupItems () :Positions ()}\n");
  const korvel::OwnedGroup scene = SceneOf(items);
  auto& list = scene->Items.Last()->As<korvel::ListGroup>();
  for (int number = 1; number <= size; ++number) {
    korvel::TokenGroupItem item;
    item.AVisible.Number = number;
    Require(list.TokenGroupItems.Append(std::move(item)) != nullptr, "no memory");
  }
  for (int cell = 0; cell < cells; ++cell) {
    Require(list.Positions.Append({0, 20 * cell}) != nullptr, "no memory");
  }
  EnterScene(*scene);
  Work work = RunEffect(kHolder, units);
  work.run();
  const auto& running = Object<korvel::ListGroup>(kList);
  Require(running.RunningStatus && running.FirstItem == 1 &&
              running.ItemList.Size() == static_cast<std::size_t>(size) &&
              running.ItemList.At(0)->IsPresented,
          "a run has changed the list");
  return work;
}

std::string InList(const char* action, int parameter) {
  return std::string(action) + "(1000000 " + std::to_string(parameter) + ") ";
}

// Every run leaves the list as it was.
Work Scroll(int size, int cells) {
  return Prepare(size, cells, InList(":ScrollItems", 1) + InList(":ScrollItems", -1), 2);
}
// One item is added in the middle of the list and removed again.
Work AddAndDelete(int size) {
  const std::string middle = std::to_string(size / 2) + " ";
  return Prepare(size, kCells,
                 ":AddItem(1000000 " + middle + std::to_string(size + 1) + ") " +
                     InList(":DelItem", size + 1),
                 2);
}

}  // namespace

std::vector<Workload> ListWorkloads() {
  const std::vector<int> sizes{100, 1000, 10'000, 100'000};
  return {
      {"lists/scroll", sizes, [](int size) { return Scroll(size, kCells); }},
      {"lists/add_delete", sizes, AddAndDelete},
      {"lists/scroll_all_cells", {10, 100, 1000}, [](int size) { return Scroll(size, size); }},
  };
}

}  // namespace bench
