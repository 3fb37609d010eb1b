// Content references to paths of the broadcast file system; see the header for the rule.
#include "appearance/content_path.h"

namespace korvel {

bool ContentPath(std::string_view reference, OctetString& path) {
  const std::size_t slash = reference.find('/');
  if (!path.Assign(slash == std::string_view::npos ? reference : reference.substr(slash + 1))) {
    return false;
  }
  for (std::size_t index = 0; index < path.Length(); ++index) {
    char& byte = path.MutableBytes()[index];
    if (byte == '/') byte = '\\';
  }
  return true;
}

}  // namespace korvel
