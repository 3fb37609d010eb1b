// Events raised inside the engine: which links respond, in which order, with which data, and how
// the result of one link affects the rest.
#include "objects/ber/ber.h"
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

class Events : public EngineTest {
 protected:
  // Starts the application without a scene.
  void StartWith(std::string_view items) {
    ServeApplication(items);
    ASSERT_EQ(Start(), Status::Done);
    TakeNotes();
  }
  // Starts the application and its scene "~/menu".
  void StartWith(std::string_view applicationItems, std::string_view sceneItems) {
    ServeApplication(applicationItems);
    ServeScene("menu", sceneItems);
    StartWithScene("~/menu");
    TakeNotes();
  }
};

// Six links on one event, which append "1" to "6" to the notes.
std::string SixLinks(std::string_view source, std::string_view event) {
  std::string links;
  for (std::int32_t number = 1; number <= 6; ++number) {
    links += LinkOn(number, source, event, Note(std::to_string(number)));
  }
  return links;
}

TEST_F(Events, the_first_five_of_six_matching_links_run_in_item_order) {
  StartWith(SixLinks("0", "StreamPlaying"));
  EXPECT_EQ(Raise("~/a", 0, EventType::StreamPlaying), Status::Done);
  EXPECT_EQ(TakeNotes(), "12345");
}

TEST_F(Events, the_first_five_of_six_links_run_in_a_raise_by_type) {
  StartWith(SixLinks("7", "EngineEvent :EventData 9"));
  EXPECT_EQ(Do([] { return RaiseEventByType(EventType::EngineEvent, EventData::Integer(9)); }),
            Status::Done);
  EXPECT_EQ(TakeNotes(), "12345");
}

TEST_F(Events, links_that_do_not_match_do_not_count_towards_the_five) {
  StartWith(LinkOn(11, "0", "StreamPlaying :EventData 1", Note("x")) +
            LinkOn(12, "0", "StreamPlaying", Note("x"), kInactive) +
            LinkOn(13, "8", "StreamPlaying", Note("x")) + SixLinks("0", "StreamPlaying"));
  EXPECT_EQ(Raise("~/a", 0, EventType::StreamPlaying), Status::Done);
  EXPECT_EQ(TakeNotes(), "12345");
}

TEST_F(Events, links_of_the_application_run_before_links_of_the_scene) {
  StartWith(LinkOnKey(1, 100, Note("a"), kShared) + LinkOnKey(2, 100, Note("b"), kShared) +
                LinkOnKey(3, 100, Note("c"), kShared),
            LinkOnKey(1, 100, Note("1")) + LinkOnKey(2, 100, Note("2")) +
                LinkOnKey(3, 100, Note("3")));
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "abc12");
}

TEST_F(Events, a_link_without_data_responds_to_any_data) {
  StartWith(LinkOn(1, "0", "StreamEvent", Note("x")));
  for (const EventData data : {EventData{}, EventData::Boolean(false), EventData::Boolean(true),
                               EventData::Integer(0), EventData::Integer(-7)}) {
    EXPECT_EQ(Raise("~/a", 0, EventType::StreamEvent, data), Status::Done);
  }
  EXPECT_EQ(TakeNotes(), "xxxxx");
}

TEST_F(Events, a_link_with_data_responds_only_to_the_same_kind_and_value) {
  StartWith(LinkOn(1, "0", "StreamEvent :EventData TRUE", Note("T")) +
            LinkOn(2, "0", "StreamEvent :EventData FALSE", Note("F")) +
            LinkOn(3, "0", "StreamEvent :EventData 1", Note("1")) +
            LinkOn(4, "0", "StreamEvent :EventData 0", Note("0")) +
            LinkOn(5, "0", "StreamEvent :EventData -2147483648", Note("m")));
  const auto notesFor = [&](EventData data) {
    EXPECT_EQ(Raise("~/a", 0, EventType::StreamEvent, data), Status::Done);
    return TakeNotes();
  };
  EXPECT_EQ(notesFor(EventData::Boolean(true)), "T");
  EXPECT_EQ(notesFor(EventData::Boolean(false)), "F");
  EXPECT_EQ(notesFor(EventData::Integer(1)), "1");
  EXPECT_EQ(notesFor(EventData::Integer(0)), "0");
  EXPECT_EQ(notesFor(EventData::Integer(INT32_MIN)), "m");
  EXPECT_EQ(notesFor(EventData::Integer(2)), "");
  EXPECT_EQ(notesFor({}), "");
}

TEST_F(Events, a_link_with_string_data_never_responds) {
  StartWith(LinkOn(1, "0", "StreamEvent :EventData \"x\"", Note("x")));
  Status result = Raise("~/a", 0, EventType::StreamEvent);
  EXPECT_EQ(result, Status::Done);
  result = Raise("~/a", 0, EventType::StreamEvent, {ValueKind::OctetString, 0});
  EXPECT_EQ(result, Status::Done);
  EXPECT_EQ(TakeNotes(), "");
}

TEST_F(Events, a_link_responds_only_to_its_own_source) {
  StartWith(LinkOn(1, "4", "StreamEvent", Note("4")) +
            LinkOn(2, "(\"~/other\" 4)", "StreamEvent", Note("o")) +
            LinkOn(3, "5", "StreamEvent", Note("5")));
  EXPECT_EQ(Raise("~/a", 4, EventType::StreamEvent), Status::Done);
  EXPECT_EQ(TakeNotes(), "4");
  EXPECT_EQ(Raise("~/other", 4, EventType::StreamEvent), Status::Done);
  EXPECT_EQ(TakeNotes(), "o");
  EXPECT_EQ(Raise("~/a", 6, EventType::StreamEvent), Status::Done);
  EXPECT_EQ(Raise("~/b", 5, EventType::StreamEvent), Status::Done);
  EXPECT_EQ(TakeNotes(), "");
}

TEST_F(Events, a_tilde_before_a_source_name_is_ignored) {
  StartWith(LinkOn(1, "(\"/x\" 4)", "StreamEvent", Note("1")) +
            LinkOn(2, "(\"~/x\" 4)", "StreamEvent", Note("2")));
  EXPECT_EQ(Raise("/x", 4, EventType::StreamEvent), Status::Done);
  EXPECT_EQ(TakeNotes(), "12");
  EXPECT_EQ(Raise("~/x", 4, EventType::StreamEvent), Status::Done);
  EXPECT_EQ(TakeNotes(), "12");
}

TEST_F(Events, a_raise_by_type_ignores_the_source) {
  StartWith(LinkOn(1, "(\"~/nowhere\" 77)", "EngineEvent :EventData 5", Note("1")) +
            LinkOn(2, "0", "EngineEvent :EventData 6", Note("2")) +
            LinkOn(3, "0", "StreamEvent :EventData 5", Note("3")));
  EXPECT_EQ(Do([] { return RaiseEventByType(EventType::EngineEvent, EventData::Integer(5)); }),
            Status::Done);
  EXPECT_EQ(TakeNotes(), "1");
}

TEST_F(Events, an_event_can_be_raised_from_an_object) {
  StartWith(RectangleText(5) + LinkOn(1, "5", "StreamEvent :EventData 3", Note("5")) +
            LinkOn(2, "0", "StreamEvent :EventData 3", Note("0")));
  EXPECT_EQ(Do([] {
              return RaiseEvent(Find<Rectangle>(5), EventType::StreamEvent, EventData::Integer(3));
            }),
            Status::Done);
  EXPECT_EQ(TakeNotes(), "5");
  EXPECT_EQ(Do([] {
              return RaiseEvent(*CurrentApplication(), EventType::StreamEvent,
                                EventData::Integer(3));
            }),
            Status::Done);
  EXPECT_EQ(TakeNotes(), "0");
}

TEST_F(Events, every_event_type_runs_its_links) {
  std::string links;
  for (std::size_t type = 1; type <= kWords<EventType>.size(); ++type) {
    links += LinkOn(static_cast<std::int32_t>(type), "50",
                    std::string(kWords<EventType>[type - 1]) + " :EventData 700",
                    Note(std::to_string(type)));
  }
  StartWith(links);
  for (std::int32_t type = 1; type <= 31; ++type) {
    EXPECT_EQ(Raise("~/a", 50, static_cast<EventType>(type), EventData::Integer(700)),
              Status::Done);
    EXPECT_EQ(TakeNotes(), std::to_string(type));
    EXPECT_EQ(
        Do([&] { return RaiseEventByType(static_cast<EventType>(type), EventData::Integer(700)); }),
        Status::Done);
    EXPECT_EQ(TakeNotes(), std::to_string(type));
  }
}

TEST_F(Events, links_on_unknown_event_types_never_run) {
  OwnedGroup group = ParseText(ApplicationText(
      "~/a", LinkOn(1, "0", "StreamEvent", Note("x")) + LinkOn(2, "0", "StreamEvent", Note("y"))));
  ASSERT_TRUE(group);
  group->Items.At(1)->As<Link>().Condition.EventType = EventType{0};
  group->Items.At(2)->As<Link>().Condition.EventType = EventType{32};
  OctetString bytes;
  ASSERT_EQ(EncodeGroup(*group, bytes), Status::Done);
  TheHost().files["a"] = std::string(bytes.View());
  ASSERT_EQ(Start(), Status::Done);
  for (const std::int32_t type : {0, 32, -1, 255}) {
    EXPECT_EQ(Raise("~/a", 0, static_cast<EventType>(type)), Status::Done);
    EXPECT_EQ(Do([&] { return RaiseEventByType(static_cast<EventType>(type), {}); }), Status::Done);
  }
  EXPECT_EQ(TakeNotes(), "");
}

TEST_F(Events, a_reactivated_link_runs_at_its_old_position_in_the_order) {
  StartWith(LinkOnKey(1, 100, Note("1")) + LinkOnKey(2, 100, Note("2"), kInactive) +
            LinkOnKey(3, 100, Note("3")) + LinkOnKey(4, 101, ":Activate(2)") +
            LinkOnKey(5, 102, ":Deactivate(2)"));
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "13");
  EXPECT_EQ(Press(101), Status::Done);
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "123");
  EXPECT_EQ(Press(102), Status::Done);
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "13");
}

TEST_F(Events, a_link_activated_after_the_event_was_raised_does_not_respond_to_it) {
  StartWith(LinkOnKey(1, 100, Note("1") + ":Activate(2)") +
            LinkOnKey(2, 100, Note("2"), kInactive));
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "1");
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "12");
}

TEST_F(Events, a_link_deactivated_after_the_event_was_raised_still_responds_to_it) {
  StartWith(LinkOnKey(1, 100, Note("1") + ":Deactivate(2)") + LinkOnKey(2, 100, Note("2")));
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "12");
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "1");
}

TEST_F(Events, activating_a_link_raises_no_event) {
  StartWith(LinkOnKey(1, 100, ":Deactivate(2) :Activate(2)") + LinkOnKey(2, 101, "") +
            LinkOn(3, "2", "IsRunning", Note("r")) + LinkOn(4, "2", "IsStopped", Note("s")));
  EXPECT_EQ(Notes(), "");
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes(), "");
}

TEST_F(Events, links_on_an_actions_event_run_before_the_next_action) {
  StartWith("{:IntegerVar 7 :OrigValue 1}" +
            LinkOnKey(1, 100, Note("a") + ":TestVariable(7 1 :GInteger 1) " + Note("b")) +
            LinkOnKey(2, 100, Note("c")) + LinkOn(3, "7", "TestEvent :EventData TRUE", Note("x")));
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "axbc");
}

// ---- How a link's result affects the links after it ----

TEST_F(Events, an_event_without_links_returns_done) {
  StartWith("");
  EXPECT_EQ(Raise("~/a", 0, EventType::StreamEvent), Status::Done);
}

TEST_F(Events, a_refused_link_does_not_stop_the_others_and_the_last_result_is_returned) {
  // A transition to the running scene is refused and ends its own action list with that result.
  StartWith("", LinkOnKey(1, 100, TransitionAction("~/menu") + Note("x")) +
                    LinkOnKey(2, 100, Note("2")) + LinkOnKey(3, 101, Note("3")) +
                    LinkOnKey(4, 101, TransitionAction("~/menu")));
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "2");
  EXPECT_EQ(Press(101), Status::Refused);
  EXPECT_EQ(TakeNotes(), "3");
}

TEST_F(Events, a_failed_link_stops_the_links_after_it) {
  ServeBroken("broken");
  StartWith(LinkOnKey(1, 100, Note("1") + TransitionAction("~/broken") + Note("x"), kShared) +
                LinkOnKey(2, 100, Note("2"), kShared),
            LinkOnKey(1, 100, Note("3")));
  EXPECT_EQ(Press(100), Status::Failure);
  EXPECT_EQ(TakeNotes(), "1");
  EXPECT_EQ(NameOf(CurrentScene()), "~/menu");
}

TEST_F(Events, a_link_that_replaced_the_scene_stops_the_links_after_it) {
  ServeScene("next", LinkOnKey(1, 100, Note("n")));
  StartWith(LinkOnKey(1, 100, Note("1") + TransitionAction("~/next") + Note("x"), kShared) +
                LinkOnKey(2, 100, Note("2"), kShared),
            LinkOnKey(1, 100, Note("3")));
  EXPECT_EQ(Press(100), Status::Replaced);
  EXPECT_EQ(TakeNotes(), "1");
  EXPECT_EQ(NameOf(CurrentScene()), "~/next");
}

TEST_F(Events, a_collected_link_of_a_scene_that_ended_does_not_run) {
  ServeScene("next", LinkOnKey(1, 100, Note("n")));
  StartWith("", LinkOnKey(1, 100, Note("1") + TransitionAction("~/next")) +
                    LinkOnKey(2, 100, Note("2")));
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "1");
  EXPECT_EQ(NameOf(CurrentScene()), "~/next");
}

// ---- Links of scenes ----

TEST_F(Events, a_link_of_a_scene_with_another_scenes_name_never_runs) {
  StartWith("", "{:Link (\"~/other\" 1) :EventSource 0 :EventType UserInput :LinkEffect (" +
                    Note("o") + ")}" +
                    "{:Link (\"~/other\" 2) :EventSource (\"~/menu\" 0) :EventType StreamEvent "
                    ":LinkEffect (" +
                    Note("o") + ")}" + LinkOnKey(3, 100, Note("3")) +
                    LinkOn(4, "0", "StreamEvent", Note("4")));
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "3");
  EXPECT_EQ(Raise("~/menu", 0, EventType::StreamEvent), Status::Done);
  EXPECT_EQ(TakeNotes(), "4");
}

TEST_F(Events, a_link_of_the_application_runs_whatever_its_name) {
  StartWith("{:Link (\"~/other\" 1) :EventSource (\"~/a\" 0) :EventType StreamEvent :LinkEffect (" +
            Note("o") + ")}");
  EXPECT_EQ(Raise("~/a", 0, EventType::StreamEvent), Status::Done);
  EXPECT_EQ(TakeNotes(), "o");
}

TEST_F(Events, a_link_of_a_scene_that_ended_never_runs_again) {
  ServeScene("next", "");
  StartWith("", LinkOnKey(1, 100, Note("1")) + LinkOn(2, "0", "StreamEvent", Note("2")) +
                    "{:Link (\"~/next\" 3) :EventSource (\"~/menu\" 0) :EventType StreamEvent "
                    ":LinkEffect (" +
                    Note("3") + ")}");
  ASSERT_EQ(GoTo("~/next"), Status::Done);
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Raise("~/menu", 0, EventType::StreamEvent), Status::Done);
  EXPECT_EQ(Raise("~/next", 0, EventType::StreamEvent), Status::Done);
  EXPECT_EQ(TakeNotes(), "");
}

TEST_F(Events, only_a_raise_by_type_ignores_a_tilde_in_a_links_own_name) {
  StartWith("", "{:Link (\"/menu\" 1) :EventSource (\"~/menu\" 0) :EventType UserInput "
                ":LinkEffect (" +
                    Note("x") + ")}");
  EXPECT_EQ(Raise("~/menu", 0, EventType::UserInput), Status::Done);
  EXPECT_EQ(TakeNotes(), "") << "the scene is named exactly ~/menu";
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "x");
}

TEST_F(Events, the_end_of_a_scene_removes_the_links_of_an_application_with_the_same_name) {
  ServeApplication(LinkOnKey(1, 100, Note("a"), kShared));
  ServeScene("next", "");
  Serve("same", "{:Scene (\"/a\" 0) :Items (" + LinkOnKey(1, 100, Note("s")) + ")}");
  StartWithScene("DSM://same");
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "as");
  ASSERT_EQ(GoTo("~/next"), Status::Done);
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TakeNotes(), "");
}

}  // namespace
}  // namespace korvel::test
