// The engine running flag and the request to close, as those who set them see them. Who only asks
// uses the doorway. Any thread.
#pragma once

namespace korvel {

// Sets the running flag; a close that has been asked for still wins.
void AllowRunning() noexcept;

// Clears the running flag: a waiting file fetch gives up, keys and timer expiries are dropped.
void StopRunning() noexcept;

// Clears the running flag for good: until the engine has ended nothing runs again.
void StopForClose() noexcept;

}  // namespace korvel
