// The event types, with the word that the textual notation writes for each.
#pragma once

#include <array>
#include <cstdint>

namespace korvel {

enum class EventType : std::int32_t {
  IsAvailable = 1,
  ContentAvailable = 2,
  IsDeleted = 3,
  IsRunning = 4,
  IsStopped = 5,
  UserInput = 6,
  AnchorFired = 7,
  TimerFired = 8,
  AsynchStopped = 9,
  InteractionCompleted = 10,
  TokenMovedFrom = 11,
  TokenMovedTo = 12,
  StreamEvent = 13,
  StreamPlaying = 14,
  StreamStopped = 15,
  CounterTrigger = 16,
  HighlightOn = 17,
  HighlightOff = 18,
  CursorEnter = 19,
  CursorLeave = 20,
  IsSelected = 21,
  IsDeselected = 22,
  TestEvent = 23,
  FirstItemPresented = 24,
  LastItemPresented = 25,
  HeadItems = 26,
  TailItems = 27,
  ItemSelected = 28,
  ItemDeselected = 29,
  EntryFieldFull = 30,
  EngineEvent = 31,
};

// The words of types 1 to 31, in their order.
inline constexpr std::array<const char*, 31> kEventWords = {
    "IsAvailable",       "ContentAvailable",
    "IsDeleted",         "IsRunning",
    "IsStopped",         "UserInput",
    "AnchorFired",       "TimerFired",
    "AsynchStopped",     "InteractionCompleted",
    "TokenMovedFrom",    "TokenMovedTo",
    "StreamEvent",       "StreamPlaying",
    "StreamStopped",     "CounterTrigger",
    "HighlightOn",       "HighlightOff",
    "CursorEnter",       "CursorLeave",
    "IsSelected",        "IsDeselected",
    "TestEvent",         "FirstItemPresented",
    "LastItemPresented", "HeadItems",
    "TailItems",         "ItemSelected",
    "ItemDeselected",    "EntryFieldFull",
    "EngineEvent"};

}  // namespace korvel
