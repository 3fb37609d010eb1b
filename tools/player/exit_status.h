// The exit statuses of the host application; 0 means that the run ended as requested.
#pragma once

namespace player {

inline constexpr int kRunFailed = 1;  // the engine, a step of the script, or a picture failed
inline constexpr int kWrongUse = 2;   // wrong arguments, a missing folder, an unreadable script

}  // namespace player
