// Writes a wait before each key, even a short one, so that timers expire between the same keys when
// the script is played.
#include "player/recording.h"

#include <algorithm>
#include <string>

#include "mheg/key_names.h"

namespace player {

void Recording::WriteWait(std::uint64_t time) {
  time = std::max(time, last_);
  script_ << "wait " << time - last_ << '\n';
  last_ = time;
}

void Recording::Add(const KeyPress& press) {
  const std::string name = mheg::NameOfKey(press.virtualKey);
  if (name.empty()) return;
  WriteWait(press.time);
  script_ << "key " << name << std::endl;
}

void Recording::End(std::uint64_t time) {
  WriteWait(time);
  script_ << "exit" << std::endl;
}

}  // namespace player
