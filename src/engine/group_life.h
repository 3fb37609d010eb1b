// How a decoded group starts and how a running group ends: the steps that Launch, Spawn, Quit,
// TransitionTo, the engine start and the close-down have in common.
#pragma once

#include "objects/ownership.h"
#include "objects/status.h"

namespace korvel {

// Starts the application that has just been made current: its references, OnStartUp, links, items,
// itself. Failure when a step failed; Replaced when the first OnStartUp or the items replaced what
// was running.
Status StartApplication(Application& application);

// Starts the scene that has just been made current: its references, links, items, itself. Failure
// when a step failed; everything else is Done, a replacement included.
Status StartScene(Scene& scene);

// Ends a running group, unless it is null: removes its links, raises IsDeleted, removes everything
// that it owns from the engine's registers, and leaves its memory to be released once nothing runs.
// Failure when a link of IsDeleted has asked to stop; the group then stays, without its links.
// Replaced when such a link has replaced the group; it has then left the registers before its
// successor came.
Status EndGroup(Group* group);

// Ends the scene and then the application. Replaced when a link has put others in their place.
Status EndRunningGroups();

// Ends the scene alone.
Status EndScene();

// Ends what runs without events and messages, and clears the link tables.
void BuryRunningGroups();

// Makes a decoded group the current one of its kind; what was current has been ended before.
Application& AdoptApplication(OwnedGroup&& group);
Scene& AdoptScene(OwnedGroup&& group);

}  // namespace korvel
