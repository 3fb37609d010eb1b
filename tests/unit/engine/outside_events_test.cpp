// Events from outside: keys with their engine events and the input event register, timer expiries,
// and the other event types.
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

class OutsideEvents : public EngineTest {
 protected:
  // Serves an application that notes "E" for engine events and "U" for keys, and a scene "~/menu".
  void ServeNotingLinks(std::string_view sceneItems = "", std::string_view moreItems = "") {
    ServeApplication(LinkOn(1, "0", "EngineEvent", Note("E"), kShared) +
                     LinkOn(2, "0", "UserInput", Note("U"), kShared) + std::string(moreItems));
    ServeScene("menu", sceneItems);
  }
};

// ---- Keys ----

TEST_F(OutsideEvents, without_a_scene_arrow_keys_are_blocked) {
  ServeNotingLinks();
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Press(1), Status::Blocked);
  EXPECT_EQ(TakeNotes(), "");
}

TEST_F(OutsideEvents, cancel_raises_its_engine_event_and_then_the_key) {
  ServeApplication(LinkOn(1, "0", "EngineEvent :EventData 16", Note("E16")) +
                   LinkOn(2, "0", "UserInput :EventData 16", Note("U16")));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Press(16), Status::Done);
  EXPECT_EQ(TakeNotes(), "E16U16");
}

TEST_F(OutsideEvents, the_text_key_raises_engine_event_4_and_then_the_key) {
  ServeApplication(LinkOn(1, "0", "EngineEvent :EventData 4", Note("E4")) +
                   LinkOn(2, "0", "EngineEvent :EventData 104", Note("E104")) +
                   LinkOn(3, "0", "UserInput :EventData 104", Note("U104")));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Press(104), Status::Done);
  EXPECT_EQ(TakeNotes(), "E4U104");
}

TEST_F(OutsideEvents, colour_keys_raise_engine_events_of_their_own_numbers) {
  std::string links;
  for (const std::int32_t key : {100, 101, 102, 103}) {
    links += LinkOn(key, "0", "EngineEvent :EventData " + std::to_string(key),
                    Note("E" + std::to_string(key)));
    links += LinkOnKey(key + 100, key, Note("U"));
  }
  ServeApplication(links);
  ASSERT_EQ(Start(), Status::Done);
  for (const std::int32_t key : {100, 101, 102, 103}) {
    EXPECT_EQ(Press(key), Status::Done);
    EXPECT_EQ(TakeNotes(), "E" + std::to_string(key) + "U");
  }
}

TEST_F(OutsideEvents, other_keys_raise_no_engine_event) {
  ServeNotingLinks();
  StartWithScene("~/menu");
  for (const std::int32_t key : {1, 4, 5, 14, 15, 17, 99, 105, 300}) {
    EXPECT_EQ(Press(key), Status::Done);
    EXPECT_EQ(TakeNotes(), "U") << "key " << key;
  }
}

// The keys that an input event register blocks, stated independently of the engine.
bool IsBlocked(std::int32_t inputEventRegister, std::int32_t key) {
  const bool isUnlisted = (key >= 17 && key <= 99) || key >= 105;
  switch (inputEventRegister) {
  case 3: return (key >= 1 && key <= 15) || isUnlisted;
  case 4: return isUnlisted;
  case 5: return (key >= 5 && key <= 14) || isUnlisted;
  default: return false;
  }
}

TEST_F(OutsideEvents, the_input_event_register_decides_which_keys_pass) {
  ServeNotingLinks();
  StartWithScene("~/menu");
  TakeNotes();
  for (std::int32_t inputEventRegister = 0; inputEventRegister <= 7; ++inputEventRegister) {
    CurrentScene()->InputEventReg = inputEventRegister;
    for (std::int32_t key = 0; key <= 120; ++key) {
      const bool isBlocked = IsBlocked(inputEventRegister, key);
      const bool hasEngineEvent = key == 16 || (key >= 100 && key <= 104);
      EXPECT_EQ(Press(key), isBlocked ? Status::Blocked : Status::Done)
          << "register " << inputEventRegister << ", key " << key;
      EXPECT_EQ(TakeNotes(), std::string(hasEngineEvent ? "E" : "") + (isBlocked ? "" : "U"))
          << "register " << inputEventRegister << ", key " << key;
    }
  }
}

TEST_F(OutsideEvents, registers_pass_exactly_their_groups_of_keys) {
  const auto passedKeys = [&](std::string_view scene) {
    EXPECT_EQ(GoTo(scene), Status::Done);
    std::string keys;
    for (std::int32_t key = 1; key <= 110; ++key) {
      if (Press(key) == Status::Done) keys += std::to_string(key) + " ";
    }
    return keys;
  };
  ServeApplication("");
  for (const char* number : {"3", "4", "5"}) {
    ServeScene("register" + std::string(number), "", ":InputEventReg " + std::string(number));
  }
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(passedKeys("~/register3"), "16 100 101 102 103 104 ");
  EXPECT_EQ(passedKeys("~/register4"),
            "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 100 101 102 103 104 ");
  EXPECT_EQ(passedKeys("~/register5"), "1 2 3 4 15 16 100 101 102 103 104 ");
}

TEST_F(OutsideEvents, a_key_runs_links_with_any_source) {
  ServeApplication("");
  ServeScene("menu", LinkOn(1, "0", "UserInput :EventData 15", Note("1")) +
                         LinkOn(2, "(\"~/elsewhere\" 12)", "UserInput :EventData 15", Note("2")) +
                         LinkOn(3, "0", "UserInput :EventData 14", Note("3")));
  StartWithScene("~/menu");
  EXPECT_EQ(Press(15), Status::Done);
  EXPECT_EQ(TakeNotes(), "12");
}

TEST_F(OutsideEvents, a_failed_engine_event_suppresses_the_key) {
  ServeBroken("broken");
  ServeApplication(
      LinkOn(1, "0", "EngineEvent :EventData 100", Note("E") + TransitionAction("~/broken")) +
      LinkOnKey(2, 100, Note("U")));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Press(100), Status::Failure);
  EXPECT_EQ(TakeNotes(), "E");
}

TEST_F(OutsideEvents, after_an_engine_event_that_replaces_the_scene_the_key_goes_to_the_new_one) {
  ServeApplication(
      LinkOn(1, "0", "EngineEvent :EventData 4", Note("E") + TransitionAction("~/next"), kShared));
  ServeScene("menu", LinkOnKey(1, 104, Note("old")));
  ServeScene("next", LinkOnKey(1, 104, Note("new")));
  StartWithScene("~/menu");
  EXPECT_EQ(Press(104), Status::Done);
  EXPECT_EQ(TakeNotes(), "Enew");
}

TEST_F(OutsideEvents, the_register_of_a_scene_started_by_the_engine_event_applies) {
  ServeNotingLinks(
      "", LinkOn(3, "0", "EngineEvent :EventData 16", TransitionAction("~/next"), kShared));
  ServeScene("menu", "", ":InputEventReg 0");
  ServeScene("next", "", ":InputEventReg 3");
  StartWithScene("~/menu");
  EXPECT_EQ(Press(16), Status::Done);
  EXPECT_EQ(TakeNotes(), "EU");
  EXPECT_EQ(Press(15), Status::Blocked);
}

TEST_F(OutsideEvents, keys_without_an_application_do_nothing) {
  EXPECT_EQ(Press(16), Status::Done);
  EXPECT_EQ(Press(1), Status::Blocked);
}

// ---- Timer expiries ----

TEST_F(OutsideEvents, a_scene_timer_fires_once_with_the_scene_as_source_and_its_id_as_data) {
  ServeApplication("");
  ServeScene("menu", LinkOn(1, "0", "TimerFired :EventData 5", Note("5")) +
                         LinkOn(2, "0", "TimerFired :EventData 6", Note("6")) +
                         LinkOn(3, "1", "TimerFired :EventData 5", Note("x")) +
                         LinkOnKey(4, 100, ":SetTimer(0 5 1000)"));
  StartWithScene("~/menu");
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Expire(5), Status::Done);
  EXPECT_EQ(TakeNotes(), "5");
  EXPECT_EQ(Expire(5), Status::Refused);
  EXPECT_EQ(TakeNotes(), "");
}

TEST_F(OutsideEvents, the_expiry_of_an_unknown_timer_is_refused) {
  ServeApplication("");
  ServeScene("menu", LinkOn(1, "0", "TimerFired", Note("x")));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Expire(5), Status::Refused) << "no scene";
  ASSERT_EQ(GoTo("~/menu"), Status::Done);
  EXPECT_EQ(Expire(5), Status::Refused) << "no such timer";
  EXPECT_EQ(TakeNotes(), "");
}

TEST_F(OutsideEvents, a_link_of_the_application_responds_to_timers_of_the_scene) {
  ServeApplication(LinkOn(1, "(\"~/menu\" 0)", "TimerFired :EventData 9", Note("9"), kShared));
  ServeScene("menu", "", ":OnStartUp (:SetTimer(0 9 10))");
  StartWithScene("~/menu");
  EXPECT_EQ(Expire(9), Status::Done);
  EXPECT_EQ(TakeNotes(), "9");
}

// ---- Other event types ----

TEST_F(OutsideEvents, other_types_run_all_input_links_with_the_same_source_number_type_and_data) {
  std::string links;
  for (std::int32_t number = 1; number <= 7; ++number) {
    links += LinkOn(number, "50", "CounterTrigger :EventData 3", Note(std::to_string(number)));
  }
  links += LinkOn(11, "51", "CounterTrigger :EventData 3", Note("x"));
  links += LinkOn(12, "50", "CounterTrigger :EventData 4", Note("x"));
  links += LinkOn(13, "50", "StreamEvent :EventData 3", Note("x"));
  links += LinkOn(14, "50", "CounterTrigger :EventData 3", Note("x"), kInactive);
  ServeApplication(links);
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Do([] { return RaiseOutsideEvent(50, EventType::CounterTrigger, 3); }), Status::Done);
  EXPECT_EQ(TakeNotes(), "1234567") << "no limit of five links here";
}

TEST_F(OutsideEvents, only_input_types_run_links) {
  std::string links;
  for (std::size_t type = 1; type <= kWords<EventType>.size(); ++type) {
    links += LinkOn(static_cast<std::int32_t>(type), "50",
                    std::string(kWords<EventType>[type - 1]) + " :EventData 3", Note("x"));
  }
  ServeApplication(links);
  ASSERT_EQ(Start(), Status::Done);
  std::string inputTypes;
  for (std::int32_t type = 1; type <= 31; ++type) {
    if (type == 6 || type == 8) continue;  // keys and timers are handled separately
    const Status result =
        Do([&] { return RaiseOutsideEvent(50, static_cast<EventType>(type), 3); });
    EXPECT_EQ(result, Status::Done);
    if (TakeNotes() == "x") inputTypes += std::to_string(type) + " ";
  }
  EXPECT_EQ(inputTypes, "7 10 13 14 15 16 19 20 21 22 30 ");
}

TEST_F(OutsideEvents, a_failed_link_prevents_the_other_links_of_its_event) {
  ServeBroken("broken");
  ServeApplication(
      LinkOn(1, "50", "CounterTrigger :EventData 3", Note("1") + TransitionAction("~/broken")) +
      LinkOn(2, "50", "CounterTrigger :EventData 3", Note("2")));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Do([] { return RaiseOutsideEvent(50, EventType::CounterTrigger, 3); }),
            Status::Failure);
  EXPECT_EQ(TakeNotes(), "1");
}

TEST_F(OutsideEvents, a_link_that_replaces_the_scene_prevents_the_other_links_of_its_event) {
  ServeScene("menu", "");
  ServeApplication(
      LinkOn(1, "50", "CounterTrigger :EventData 3", Note("1") + TransitionAction("~/menu")) +
      LinkOn(2, "50", "CounterTrigger :EventData 3", Note("2")));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Do([] { return RaiseOutsideEvent(50, EventType::CounterTrigger, 3); }),
            Status::Replaced);
  EXPECT_EQ(TakeNotes(), "1");
}

TEST_F(OutsideEvents, links_removed_from_the_table_during_the_event_do_not_run) {
  ServeApplication("");
  ServeScene("next", "");
  ServeScene("menu", LinkOn(1, "50", "CounterTrigger :EventData 3",
                            Note("1") + TransitionAction("~/next")) +
                         LinkOn(2, "50", "CounterTrigger :EventData 3", Note("2")) +
                         LinkOn(3, "50", "CounterTrigger :EventData 3", Note("3")));
  StartWithScene("~/menu");
  EXPECT_EQ(Do([] { return RaiseOutsideEvent(50, EventType::CounterTrigger, 3); }), Status::Done);
  EXPECT_EQ(TakeNotes(), "1");
}

}  // namespace
}  // namespace korvel::test
