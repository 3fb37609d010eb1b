// The exit statuses of the host application; 0 means that the run ended as requested.
#pragma once

namespace player {

inline constexpr int kRunFailed = 1;  // the engine, a source file, a step or a picture failed
inline constexpr int kWrongUse = 2;   // wrong arguments, an unreadable script, or a folder that is
                                      // missing or has no application
}  // namespace player
