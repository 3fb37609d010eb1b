// Finds the source file and line of a running link or action.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "mheg/carousel_files.h"
#include "objects/ingredients.h"

namespace mheg {

struct Source {
  std::string file;        // the path of the source file in the carousel
  std::uint32_t line = 0;  // 0: unknown
};

class Sources {
 public:
  // Call when the engine has read a file that was compiled from a source file.
  void OnFileRead(const CarouselFile& file) { latest_[file.group] = &file; }
  // Call when a group becomes current. Its source is the last file read with that group name.
  void OnGroupStarted(const korvel::Group& group);

  [[nodiscard]] Source Of(const korvel::Ingredient& object) const;
  [[nodiscard]] Source Of(const korvel::ActionHolder& list,
                          const korvel::ElementaryAction& action) const;

 private:
  [[nodiscard]] Source Find(const korvel::Group* group, std::int32_t object,
                            std::string_view keyword, std::int32_t action) const;

  std::map<std::string, const CarouselFile*, std::less<>> latest_;  // by the name of the group
  std::map<const korvel::Group*, const CarouselFile*> running_;
};

}  // namespace mheg
