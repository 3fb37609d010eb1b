// Elementary actions in scenes of many objects. Objects that the actions do not
// address are integer variables.
#include "stage.h"
#include "workloads/targets.h"

namespace bench {
namespace {

const std::vector<int> kSizes{10, 100, 1000, 10'000, 100'000};
constexpr int kHolder = 1'000'000;   // the link that holds the measured actions
constexpr int kCounter = 1'000'001;  // the variable that firing links and slots increment
constexpr int kMembers[] = {1'000'002, 1'000'003, 1'000'004};  // of the token groups

struct ActionCase {
  const char* name;
  std::string (*object)(int number);  // the item that is a target
  std::string (*link)(int number);    // a link for it; may be null
  std::string (*action)(int number);  // the measured action
  bool (*hasWorked)(int number);      // for a target, after the first run
};

std::string ActionText(const char* action, int number, const char* parameters) {
  return std::string(action) + "(" + std::to_string(number) + " " + parameters + ")";
}

std::string OctetVariable(int number) {
  return "{:OStringVar " + std::to_string(number) + " :OrigValue \"\"}\n";
}

std::string CountAction() { return ActionText(":Add", kCounter, "1"); }

// Three members, and slots that increment the counter. Each move leads to the next member.
std::string TokenGroup(int number) {
  std::string members;
  for (const int member : kMembers) {
    members += "(" + std::to_string(member) + " :ActionSlots ((" + CountAction() + ")))";
  }
  return "{:TokenGroup " + std::to_string(number) + " :MovementTable ((2 3 1)) :TokenGroupItems (" +
         members + ")}\n";
}

std::string LinkOnTest(int number) {
  return LinkOn(2'000'000 + number, number, "TestEvent :EventData TRUE", CountAction());
}

bool HasCounted(int /*number*/) { return Object<korvel::IntegerVariable>(kCounter).Value > 0; }

const ActionCase kActionCases[] = {
    {"add", IntegerVariable, nullptr, [](int number) { return ActionText(":Add", number, "3"); },
     [](int number) { return Object<korvel::IntegerVariable>(number).Value >= 3; }},
    {"set_integer", IntegerVariable, nullptr,
     [](int number) { return ActionText(":SetVariable", number, ":GInteger 7"); },
     [](int number) { return Object<korvel::IntegerVariable>(number).Value == 7; }},
    {"set_string", OctetVariable, nullptr,
     [](int number) { return ActionText(":SetVariable", number, ":GOctetString \"Channel 4\""); },
     [](int number) {
       return Object<korvel::OctetStringVariable>(number).Value.View() == "Channel 4";
     }},
    {"test_and_fire", IntegerVariable, LinkOnTest,
     [](int number) { return ActionText(":TestVariable", number, "1 :GInteger 0"); }, HasCounted},
    {"move", TokenGroup, nullptr, [](int number) { return ActionText(":Move", number, "1"); },
     [](int number) {
       // From member 1 by one for each move of this target.
       return Object<korvel::TokenGroup>(number).TokenPosition == 1 + kActions / kTargets % 3;
     }},
    {"call_action_slot", TokenGroup, nullptr,
     [](int number) { return ActionText(":CallActionSlot", number, "1"); }, HasCounted},
    {"set_position", [](int number) { return Rectangle(number); }, nullptr,
     [](int number) { return ActionText(":SetPosition", number, "30 50"); },
     [](int number) { return Object<korvel::Rectangle>(number).Position.X == 30; }},
};

Work Prepare(const ActionCase& measured, int size) {
  std::vector<std::string> items;
  for (int number = 1; number <= size; ++number) {
    items.push_back(IsTarget(number, size) ? measured.object(number) : IntegerVariable(number));
  }
  std::string actions;
  for (int i = 0; i < kActions; ++i) actions += measured.action(TargetAt(i, size));
  for (int i = 0; measured.link != nullptr && i < kTargets; ++i) {
    items.push_back(measured.link(TargetAt(i, size)));
  }
  items.push_back(ActionHolder(kHolder, actions));
  items.push_back(IntegerVariable(kCounter));
  for (const int member : kMembers) items.push_back(Rectangle(member));
  EnterScene(items);
  Work work = RunEffect(kHolder, kActions);
  work.run();
  Require(measured.hasWorked(TargetAt(kActions - 1, size)), measured.name);
  return work;
}

}  // namespace

std::vector<Workload> ActionWorkloads() {
  std::vector<Workload> workloads;
  for (const ActionCase& measured : kActionCases) {
    workloads.push_back({std::string("actions/") + measured.name, kSizes,
                         [&measured](int size) { return Prepare(measured, size); }});
  }
  return workloads;
}

}  // namespace bench
