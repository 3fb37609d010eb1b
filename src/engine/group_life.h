// How a decoded group starts and how a running group ends: the steps that Launch, Spawn, Quit,
// TransitionTo, the engine start and the close-down have in common.
#pragma once

#include "objects/decoded_group.h"
#include "objects/status.h"

namespace korvel {

// Starts the application that has just been made current: its references, OnStartUp, links, items,
// itself. Failure when a step failed; Replaced when the first OnStartUp or the items replaced what
// was running.
Status StartApplication(Application& application) noexcept;

// Starts the scene that has just been made current: its references, links, items, itself. Failure
// when a step failed; everything else is Done, a replacement included.
Status StartScene(Scene& scene) noexcept;

// Ends a group: takes its links out, raises IsDeleted, takes it out of every register, and leaves
// its memory to be released once nothing runs. Failure when a link of IsDeleted stopped it; the
// group then stays, without links, if it still runs. Refused when the group had not become
// available and Replaced when a link of IsDeleted has ended everything itself; the group ends all
// the same. A group that is ending already is left to whoever is ending it.
Status EndGroup(Group& group) noexcept;

// Ends the scene and then the application. Replaced when links have put others in their place
// meanwhile.
Status EndRunningGroups() noexcept;

// Ends the scene alone.
Status EndScene() noexcept;

// Ends what runs without events and messages, as a start from the beginning does.
void BuryRunningGroups() noexcept;

// Makes a decoded group the current one of its kind; what was current has been ended before.
Application& AdoptApplication(OwnedGroup&& group) noexcept;
Scene& AdoptScene(OwnedGroup&& group) noexcept;

}  // namespace korvel
