// Preparing, running and stopping objects of each class: their run-time values, the events raised,
// and the display stack.
#include <algorithm>

#include "stage.h"

namespace korvel::test {
namespace {

using LifecycleTest = Stage;

std::string InactiveText(int number) {
  return "{:Text " + std::to_string(number) +
         " :InitiallyActive FALSE :OrigContent \"text\" :OrigBoxSize 10 20 :OrigPosition 3 4}";
}

TEST_F(LifecycleTest, running_an_unprepared_object_prepares_it_and_raises_only_is_running) {
  Start(InactiveText(1) + Watch(1, "IsRunning", "running") + Watch(1, "IsAvailable", "available") +
        Watch(1, "ContentAvailable", "content"));
  EXPECT_EQ(Run(":Run(1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "running");
  const Text& text = Object<Text>(1);
  EXPECT_TRUE(text.AvailabilityStatus);
  EXPECT_EQ(text.TextData.View(), "text");
  EXPECT_EQ(text.BoxSize.Height, 20);
  EXPECT_EQ(text.Position.X, 3);
  EXPECT_EQ(Stack(), "1");
}

TEST_F(LifecycleTest, running_or_stopping_twice_raises_one_event) {
  Start(InactiveText(1) + Watch(1, "IsRunning", "running") + Watch(1, "IsStopped", "stopped"));
  EXPECT_EQ(Run(":Stop(1) :Run(1) :Run(1) :Stop(1) :Stop(1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "running stopped");
  EXPECT_EQ(Stack(), "");
}

TEST_F(LifecycleTest, preloading_twice_raises_its_events_once) {
  Start(InactiveText(1) + Watch(1, "IsAvailable", "available") +
        Watch(1, "ContentAvailable", "content") + Watch(1, "IsRunning", "running"));
  EXPECT_EQ(Run(":Preload(1) :Preload(1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "available content");
  EXPECT_EQ(Stack(), "");
}

TEST_F(LifecycleTest, an_entry_field_is_not_preloaded) {
  Start("{:EntryField 1 :InitiallyActive FALSE :OrigBoxSize 9 9}");
  EXPECT_EQ(Run(":Preload(1)"), Status::Done);
  EXPECT_FALSE(Object<EntryField>(1).AvailabilityStatus);
}

TEST_F(LifecycleTest, a_group_starts_its_initially_active_items_in_order) {
  Start(Watch(1, "IsRunning", "one") + Watch(2, "IsRunning", "two") +
        Watch(3, "IsRunning", "three") +
        "{:Text 2 :OrigContent \"\" :OrigBoxSize 9 9} {:Rectangle 1 :OrigBoxSize 9 9}" +
        InactiveText(3));
  EXPECT_EQ(TakeLog(), "two one");
  EXPECT_EQ(Stack(), "2 1");
}

TEST_F(LifecycleTest, a_scene_that_ends_while_its_items_start_starts_no_further_items) {
  AddScene("t", "");
  AddScene("s", R"({:Rectangle 1 :OrigBoxSize 9 9}
    {:Link 2 :EventSource 1 :EventType IsRunning :LinkEffect (:TransitionTo(("~/t" 0)))}
    {:Text 3 :OrigContent :ContentRef ("~/x") :OrigBoxSize 9 9})");
  Start("");
  EXPECT_EQ(Run(R"(:TransitionTo(("~/s" 0)))"), Status::Replaced);
  EXPECT_EQ(CurrentScene()->Reference.GroupIdentifier.View(), "~/t");
  EXPECT_EQ(Stack(), "");
  EXPECT_EQ(std::ranges::count(TheHost().fetched, "x"), 0) << "its content is not fetched";
}

TEST_F(LifecycleTest, buttons_start_with_their_group_but_are_not_run) {
  Start("{:HotSpot 1 :OrigBoxSize 9 9} {:PushButton 2 :OrigBoxSize 9 9 :OrigLabel \"go\"}"
        "{:SwitchButton 3 :OrigBoxSize 9 9 :ButtonStyle checkbox}"
        "{:HotSpot 4 :InitiallyActive FALSE :OrigBoxSize 9 9}");
  EXPECT_EQ(Stack(), "1 2 3");
  EXPECT_EQ(Object<PushButton>(2).Label.View(), "go");
  EXPECT_EQ(Run(":Run(4) :Stop(1)"), Status::Done);
  EXPECT_EQ(Stack(), "1 2 3");
}

TEST_F(LifecycleTest, links_are_activated_and_deactivated_without_events) {
  Start("{:Link 1 :InitiallyActive FALSE :EventSource 2 :EventType TestEvent"
        " :LinkEffect (:Add(2 1))} {:IntegerVar 2 :OrigValue 0}" +
        Watch(1, "IsRunning", "running") + Watch(1, "IsStopped", "stopped") +
        Watch(1, "IsAvailable", "available"));
  EXPECT_EQ(Run(":TestVariable(2 1 :GInteger 0) :Activate(1) :Activate(1)"
                ":TestVariable(2 1 :GInteger 0) :Deactivate(1) :Deactivate(1)"
                ":TestVariable(2 1 :GInteger 0)"),
            Status::Done);
  EXPECT_EQ(Integer(2), 1);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(LifecycleTest, a_resident_program_becomes_available_and_is_not_run) {
  Start("{:ResidentPrg 1 :Name \"nothing of that name\"}"
        "{:ResidentPrg 2 :Name \"DBG\" :InitiallyAvailable FALSE}" +
        Watch(1, "IsRunning", "running"));
  EXPECT_TRUE(Object<ResidentProgram>(1).AvailabilityStatus);
  EXPECT_FALSE(Object<ResidentProgram>(1).RunningStatus);
  EXPECT_FALSE(Object<ResidentProgram>(2).AvailabilityStatus);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(LifecycleTest, a_silently_stopped_visible_stays_in_the_stack_once) {
  AddScene("s", "");
  Start("{:Rectangle 1 :OrigBoxSize 9 9} {:Rectangle 2 :Shared TRUE :OrigBoxSize 9 9}" +
        Watch(1, "IsStopped", "stopped"));
  EXPECT_EQ(Run(R"(:TransitionTo(("~/s" 0)))"), Status::Replaced);
  EXPECT_FALSE(IsRunning(1));
  EXPECT_TRUE(IsRunning(2));
  EXPECT_EQ(Stack(), "1 2");
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(Run(":Run(1)"), Status::Done);
  EXPECT_EQ(Stack(), "2 1");
  EXPECT_EQ(Run(":Stop(1)"), Status::Done);
  EXPECT_EQ(Stack(), "2");
}

TEST_F(LifecycleTest, referenced_text_is_fetched_once) {
  TheHost().files["t"] = "fetched";
  Start("{:Text 1 :InitiallyActive FALSE :OrigContent :ContentRef (\"~/t\") :OrigBoxSize 9 9}");
  TheHost().fetched.clear();
  EXPECT_EQ(Run(":Run(1) :Stop(1) :Run(1)"), Status::Done);
  EXPECT_EQ(Object<Text>(1).TextData.View(), "fetched");
  EXPECT_EQ(TheHost().fetched, std::vector<std::string>{"t"});
}

TEST_F(LifecycleTest, text_that_cannot_be_fetched_is_empty_and_raises_an_engine_event) {
  Start("{:Text 1 :InitiallyActive FALSE :OrigContent :ContentRef (\"~/t\") :OrigBoxSize 9 9}" +
        Watch(0, "EngineEvent", "error", "3"));
  EXPECT_EQ(Run(":Run(1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "error");
  EXPECT_TRUE(Object<Text>(1).TextData.View().empty());
  EXPECT_TRUE(IsRunning(1));
}

TEST_F(LifecycleTest, run_time_values_start_from_the_original_values_and_do_not_change_them) {
  Start("{:Rectangle 1 :OrigBoxSize 9 9 :OrigLineWidth 3 :OrigRefLineColour 5}"
        "{:OStringVar 2 :OrigValue \"original\"} {:Slider 3 :Orientation left :OrigBoxSize 9 9"
        " :MinValue 1 :MaxValue 9 :InitialValue 4 :InitialPortion 2 :SliderStyle proportional}");
  EXPECT_EQ(Run(":SetLineWidth(1 7) :SetLineColour(1 :NewColourIndex 6) :SetPosition(1 5 5)"
                ":SetVariable(2 :GOctetString \"changed\") :Step(3 1)"),
            Status::Done);
  const Rectangle& rectangle = Object<Rectangle>(1);
  EXPECT_EQ(rectangle.LineWidth, 7);
  EXPECT_EQ(rectangle.OriginalLineWidth, 3);
  EXPECT_EQ(rectangle.RefLineColour.Index, 6);
  EXPECT_EQ(rectangle.OriginalRefLineColour.Index, 5);
  EXPECT_EQ(rectangle.OriginalPosition.X, 0);
  EXPECT_EQ(Object<OctetStringVariable>(2).OriginalValue.View(), "original");
  EXPECT_EQ(Object<Slider>(3).SliderValue, 5);
  EXPECT_EQ(Object<Slider>(3).Portion, 2);
  EXPECT_EQ(Object<Slider>(3).InitialValue, 4);
}

TEST_F(LifecycleTest, statuses_are_written_into_boolean_variables) {
  Start(InactiveText(1) + "{:BooleanVar 2 :OrigValue FALSE} {:BooleanVar 3 :OrigValue TRUE}"
                          "{:IntegerVar 4 :OrigValue 9} {:ObjectRefVar 5 :OrigValue :ObjectRef 1}");
  EXPECT_EQ(Run(":Preload(1) :GetAvailabilityStatus(1 2) :GetRunningStatus(1 3)"), Status::Done);
  EXPECT_TRUE(Boolean(2));
  EXPECT_FALSE(Boolean(3));
  EXPECT_EQ(Run(":GetRunningStatus(0 3) :GetRunningStatus(1 4) :GetRunningStatus(5 2)"),
            Status::Done);
  EXPECT_TRUE(Boolean(3));
  EXPECT_EQ(Integer(4), 9) << "a status is not written to an integer variable";
  EXPECT_TRUE(Boolean(2)) << "object reference variables do not accept the action";
}

TEST_F(LifecycleTest, a_stream_runs_and_stops_with_its_components) {
  const std::string stream =
      "{:Stream 1 :InitiallyActive FALSE :Multiplex ({:Audio 2 :ComponentTag 1 :OrigVolume 4}"
      "{:Video 3 :ComponentTag 2 :OrigBoxSize 9 9} {:RTGraphics 4 :ComponentTag 3 :OrigBoxSize 9 9}"
      "{:Video 5 :InitiallyActive FALSE :ComponentTag 4 :OrigBoxSize 9 9})}";
  std::string watches;
  for (int number = 1; number <= 5; ++number) {
    watches += Watch(number, "IsRunning", "run" + std::to_string(number)) +
               Watch(number, "IsStopped", "stop" + std::to_string(number));
  }
  Start(stream + watches);
  EXPECT_EQ(Run(":Run(1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "run2 run3 run4 run1");
  EXPECT_EQ(Stack(), "3");
  EXPECT_EQ(Object<Audio>(2).Volume, 4);
  EXPECT_EQ(Run(":Run(5) :Stop(2)"), Status::Done);
  EXPECT_EQ(TakeLog(), "run5 stop2");
  EXPECT_EQ(Stack(), "3 5");
  EXPECT_EQ(Run(":Stop(1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "stop3 stop4 stop5 stop1");
  EXPECT_EQ(Stack(), "");
}

TEST_F(LifecycleTest, running_and_stopping_a_stream_notifies_the_presentation) {
  Start("{:Stream 1 :InitiallyActive FALSE :Multiplex ("
        "{:Audio 2 :ComponentTag 1}"
        "{:Video 3 :ComponentTag 5 :OrigBoxSize 70 50 :OrigPosition 4 -6}"
        "{:Video 4 :InitiallyActive FALSE :ComponentTag 6 :OrigBoxSize 9 9}"
        "{:Video 5 :ComponentTag 7 :OrigBoxSize 8 8})}");
  EXPECT_TRUE(ThePresentation().streams.empty());
  EXPECT_EQ(Run(":Run(1)"), Status::Done);
  EXPECT_EQ(ThePresentation().streams, (std::vector<std::string>{"start 1 video 5 at 4,-6 70 50",
                                                                 "start 1 video 7 at 0,0 8 8"}));
  EXPECT_EQ(Run(":Stop(1)"), Status::Done);
  ASSERT_EQ(ThePresentation().streams.size(), 3U);
  EXPECT_EQ(ThePresentation().streams[2], "end 1");
  EXPECT_EQ(Run(":Stop(1)"), Status::Done);
  EXPECT_EQ(ThePresentation().streams.size(), 3U) << "the stream was not running";
}

TEST_F(LifecycleTest, a_link_that_stops_a_stopping_stream_does_not_repeat_events) {
  Start("{:Stream 1 :Multiplex ({:Audio 2 :ComponentTag 1} {:Audio 3 :ComponentTag 2})}"
        "{:Link 10 :EventSource 2 :EventType IsStopped :LinkEffect (:Stop(1))}" +
        Watch(1, "IsStopped", "stream") + Watch(3, "IsStopped", "other"));
  EXPECT_EQ(Run(":Stop(1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "other stream");
}

TEST_F(LifecycleTest, sizes_volumes_and_offsets_are_stored_and_read_back) {
  Start("{:Bitmap 1 :OrigContent :ContentRef (\"~/p\") :OrigBoxSize 9 9}"
        "{:Stream 2 :Multiplex ({:Video 3 :ComponentTag 1 :OrigBoxSize 9 9}"
        "{:Audio 4 :ComponentTag 2})} {:IntegerVar 5 :OrigValue 0} {:IntegerVar 6 :OrigValue 0}");
  EXPECT_EQ(Run(":ScaleBitmap(1 30 40) :ScaleVideo(3 50 60) :SetVolume(4 1000)"), Status::Done);
  EXPECT_EQ(Object<Bitmap>(1).ScaledSize.Width, 30);
  EXPECT_EQ(Object<Bitmap>(1).ScaledSize.Height, 40);
  EXPECT_EQ(Object<Video>(3).ScaledSize.Height, 60);
  EXPECT_EQ(Run(":ScaleBitmap(1 -1 5) :GetVolume(4 5)"), Status::Done);
  EXPECT_EQ(Object<Bitmap>(1).ScaledSize.Height, 40);
  EXPECT_EQ(Integer(5), 1000);
  EXPECT_EQ(
      RunOne(Action::SetBitmapDecodeOffset, 1, ParametersOf(IntegerValue(-3), IntegerValue(8))),
      Status::Done);
  EXPECT_EQ(
      RunOne(Action::GetBitmapDecodeOffset, 1, ParametersOf(ReferenceValue(5), ReferenceValue(6))),
      Status::Done);
  EXPECT_EQ(Integer(5), -3);
  EXPECT_EQ(Integer(6), 8);
  EXPECT_EQ(
      RunOne(Action::SetVideoDecodeOffset, 3, ParametersOf(IntegerValue(11), IntegerValue(12))),
      Status::Done);
  EXPECT_EQ(
      RunOne(Action::GetVideoDecodeOffset, 3, ParametersOf(ReferenceValue(5), ReferenceValue(6))),
      Status::Done);
  EXPECT_EQ(Integer(5), 11);
  EXPECT_EQ(Integer(6), 12);
}

TEST_F(LifecycleTest, a_trigger_without_a_position_is_removed_if_it_exists_and_added_otherwise) {
  Start("{:Stream 1 :Multiplex ({:Audio 2 :ComponentTag 1})}");
  const List<CounterTrigger>& triggers = Object<Stream>(1).CounterTriggers;
  EXPECT_EQ(Run(":SetCounterTrigger(1 5)"), Status::Done);
  ASSERT_EQ(triggers.Size(), 1U);
  EXPECT_EQ(triggers.At(0)->Position, -1);
  EXPECT_EQ(Run(":SetCounterTrigger(1 6 100) :SetCounterTrigger(1 6 200)"), Status::Done);
  ASSERT_EQ(triggers.Size(), 2U);
  EXPECT_EQ(triggers.At(1)->Identifier, 6);
  EXPECT_EQ(triggers.At(1)->Position, 200);
  EXPECT_EQ(Run(":SetCounterTrigger(1 5)"), Status::Done);
  ASSERT_EQ(triggers.Size(), 1U);
  EXPECT_EQ(triggers.At(0)->Identifier, 6);
}

TEST_F(LifecycleTest, actions_on_counters_and_speed_do_not_change_a_stream) {
  Start("{:Stream 1 :Multiplex ({:Audio 2 :ComponentTag 1})}");
  EXPECT_EQ(Run(":SetCounterPosition(1 5) :SetCounterEndPosition(1 6) :SetSpeed(1 2 3)"),
            Status::Done);
  EXPECT_EQ(Object<Stream>(1).CounterPosition, 0);
  EXPECT_EQ(Object<Stream>(1).CounterEndPosition, -1);
  EXPECT_EQ(Object<Stream>(1).Speed.Numerator, 1);
}

}  // namespace
}  // namespace korvel::test
