// The results that operations of the engine return instead of throwing: what happened, and whether
// the caller may continue its own action list.
#pragma once

#include <cstdint>

namespace korvel {

// Content-driven operations return these through action lists and events.
enum class [[nodiscard]] Status : std::uint32_t{
    Done = 0,
    Refused = 1,  // refused, not found, or nothing changed; the caller continues
    Failure = 2,  // a failure, or a raised event asked the caller to stop: everything up the stack
                  // unwinds
    Replaced =
        4,        // the running application or scene was replaced: the caller stops its action list
    Blocked = 6,  // a key that the scene's input event register blocks
};

// The result of preparing, activating or deactivating an object. Not a Status, because 1 has the
// opposite meaning there.
enum class [[nodiscard]] Change : std::uint32_t{
    Nothing = 0,  // the object was already in that state
    Changed = 1,
    Failure = 2,  // stop the action list
};

// The change of an operation whose only other result is a failure.
constexpr Change ChangeOf(Status status) {
  return status == Status::Failure ? Change::Failure : Change::Changed;
}

}  // namespace korvel
