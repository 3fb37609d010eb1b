// The results that operations of the engine return instead of throwing: what happened, and whether
// the caller may continue its own action list.
#pragma once

#include <cstdint>

namespace korvel {

// Operations that content triggers return these; action lists and events propagate them.
enum class [[nodiscard]] Status : std::uint32_t{
    Done = 0,
    Refused = 1,  // refused, not found, or nothing changed; the caller continues
    Failure = 2,  // a failure, here or in a link that ran: everything up the call stack unwinds
    Replaced =
        4,        // the running application or scene was replaced: the caller stops its action list
    Blocked = 6,  // a key that the scene's input event register blocks
};

// The result of preparing, activating or deactivating an object. Not a Status, because its 1 means
// that something changed.
enum class [[nodiscard]] Change : std::uint32_t{
    Nothing = 0,  // the object was already in that state
    Changed = 1,
    Failure = 2,  // stop the action list
};

// Converts the result of an operation that either fails or changes something.
constexpr Change ChangeOf(Status status) {
  return status == Status::Failure ? Change::Failure : Change::Changed;
}

}  // namespace korvel
