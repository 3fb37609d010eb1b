// A running engine for tests of actions: an application "~/a" whose items a test writes in the
// textual notation, scenes beside it, and a log that the application's links write when watched
// events occur.
#pragma once

#include <string>
#include <string_view>

#include "objects/objects.h"
#include "support/engine_fixture.h"

namespace korvel::test {

class Stage : public EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    BeginWork();
  }

  // Puts a group written as text into the carousel.
  static void AddFile(const std::string& path, const std::string& text);
  // Puts the scene "~/`name`" with these items into the carousel.
  static void AddScene(const std::string& name, const std::string& items,
                       const std::string& attributes = "");
  // Starts the application "~/a" with these items and the log variable.
  static void Start(const std::string& items, const std::string& attributes = "");
  // Starts it and makes a transition to the scene "~/s" with `sceneItems`.
  static void StartWithScene(const std::string& items, const std::string& sceneItems);

  // A link that writes `mark` to the log when the event occurs. Links are numbered from 1001.
  std::string Watch(int source, const std::string& event, const std::string& mark,
                    const std::string& data = "");
  // The same for boolean event data: writes `mark` and "+" for true, "-" for false.
  std::string WatchBoolean(int source, const std::string& event, const std::string& mark);
  // The same for integer event data from `first` to `last`: writes `mark` and the number.
  std::string WatchInteger(int source, const std::string& event, const std::string& mark, int first,
                           int last);

  // Runs actions written as text, as the running application or scene would.
  static Status Run(const std::string& actions, Scope scope = Scope::ApplicationFirst);
  // Runs one action, which need not have a keyword, on an object of the application.
  static Status RunOne(Action action, int target, List<GenericValue> parameters);

  // The marks logged since the last call, separated by blanks. Clears the log.
  static std::string TakeLog();

  template <class Record> static Record& Object(int number) { return Find(number).As<Record>(); }
  static FoundObject Find(int number);
  static std::int32_t Integer(int number) { return Object<IntegerVariable>(number).Value; }
  static bool Boolean(int number) { return Object<BooleanVariable>(number).Value; }
  static std::string Octets(int number) {
    return std::string(Object<OctetStringVariable>(number).Value.View());
  }
  static bool IsRunning(int number) { return Object<Ingredient>(number).RunningStatus; }

  // The numbers of the visibles in the display stack, from the bottom.
  static std::string Stack();

 private:
  int nextLink_ = 1001;
};

// Rectangles 1 to `count` that do not start with their group.
inline std::string StoppedRectangles(int count) {
  std::string items;
  for (int number = 1; number <= count; ++number) {
    items += "{:Rectangle " + std::to_string(number) + " :InitiallyActive FALSE :OrigBoxSize 9 9} ";
  }
  return items;
}

// A value of one kind, for actions that are built by hand.
GenericValue IntegerValue(std::int32_t number);
GenericValue OctetsValue(std::string_view octets);
GenericValue ReferenceValue(int number);
template <class... Values> List<GenericValue> ParametersOf(Values... values) {
  List<GenericValue> list;
  (static_cast<void>(list.Append(std::move(values))), ...);
  return list;
}

}  // namespace korvel::test
