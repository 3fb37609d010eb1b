// Elementary actions in scenes of many objects. The objects that are no targets are integer
// variables.
#include "stage.h"
#include "workloads/targets.h"

namespace bench {
namespace {

const std::vector<int> kSizes{10, 100, 1000, 10'000, 100'000};
constexpr int kHolder = 1'000'000;   // the link that holds the measured actions
constexpr int kCounter = 1'000'001;  // the variable that firing links and slots increment

struct Shape {
  const char* name;
  std::string (*object)(int number);  // the item that is a target
  std::string (*link)(int number);    // a link for it; may be null
  std::string (*action)(int number);  // the measured action
  bool (*hasWorked)(int number);      // checked for a target after the first run
};

std::string Parenthesised(const char* action, int number, const char* parameters) {
  return std::string(action) + "(" + std::to_string(number) + " " + parameters + ")";
}

std::string OctetVariable(int number) {
  return "{:OStringVar " + std::to_string(number) + " :OrigValue \"\"}\n";
}

// Two members, and slots that increment the counter. Each move exchanges the positions.
std::string TokenGroup(int number) {
  const std::string slots = ":ActionSlots ((:Add(1000001 1)))";
  return "{:TokenGroup " + std::to_string(number) + " :MovementTable ((2 1)) :TokenGroupItems (" +
         "(1000002 " + slots + ") (1000003 " + slots + "))}\n";
}

std::string RunningRectangle(int number) { return Rectangle(number); }

std::string LinkOnTest(int number) {
  return LinkOn(2'000'000 + number, number, "TestEvent :EventData TRUE", ":Add(1000001 1)");
}

bool HasCounted(int /*number*/) { return Object<korvel::IntegerVariable>(kCounter).Value > 0; }

const Shape kShapes[] = {
    {"add", IntegerVariable, nullptr, [](int number) { return Parenthesised(":Add", number, "3"); },
     [](int number) { return Object<korvel::IntegerVariable>(number).Value >= 3; }},
    {"set_integer", IntegerVariable, nullptr,
     [](int number) { return Parenthesised(":SetVariable", number, ":GInteger 7"); },
     [](int number) { return Object<korvel::IntegerVariable>(number).Value == 7; }},
    {"set_string", OctetVariable, nullptr,
     [](int number) {
       return Parenthesised(":SetVariable", number, ":GOctetString \"Channel 4\"");
     },
     [](int number) {
       return Object<korvel::OctetStringVariable>(number).Value.View() == "Channel 4";
     }},
    {"test_and_fire", IntegerVariable, LinkOnTest,
     [](int number) { return Parenthesised(":TestVariable", number, "1 :GInteger 0"); },
     HasCounted},
    {"move", TokenGroup, nullptr, [](int number) { return Parenthesised(":Move", number, "1"); },
     [](int number) { return Object<korvel::TokenGroup>(number).RunningStatus; }},
    {"call_action_slot", TokenGroup, nullptr,
     [](int number) { return Parenthesised(":CallActionSlot", number, "1"); }, HasCounted},
    {"set_position", RunningRectangle, nullptr,
     [](int number) { return Parenthesised(":SetPosition", number, "30 50"); },
     [](int number) { return Object<korvel::Rectangle>(number).Position.X == 30; }},
};

Work Prepare(const Shape& shape, int size) {
  std::vector<std::string> items;
  for (int number = 1; number <= size; ++number) {
    items.push_back(IsTarget(number, size) ? shape.object(number) : IntegerVariable(number));
  }
  std::string actions;
  for (int i = 0; i < kActions; ++i) actions += shape.action(TargetAt(i, size));
  for (int i = 0; shape.link != nullptr && i < kTargets; ++i) {
    items.push_back(shape.link(TargetAt(i, size)));
  }
  items.push_back(ActionHolder(kHolder, actions));
  items.push_back(IntegerVariable(kCounter));
  items.push_back(Rectangle(1'000'002));
  items.push_back(Rectangle(1'000'003));
  EnterScene(items);
  Work work = RunEffect(kHolder, kActions);
  work.run();
  Require(shape.hasWorked(TargetAt(kActions - 1, size)), shape.name);
  return work;
}

}  // namespace

std::vector<Workload> ActionWorkloads() {
  std::vector<Workload> workloads;
  for (const Shape& shape : kShapes) {
    workloads.push_back({std::string("actions/") + shape.name, kSizes,
                         [&shape](int size) { return Prepare(shape, size); }});
  }
  return workloads;
}

}  // namespace bench
