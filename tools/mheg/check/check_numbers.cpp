// Two objects of one number: the second is never found. The number of the group counts too.
#include "mheg/check/check.h"

namespace mheg {

void CheckNumbers(const CheckedGroup& group, Findings& findings) {
  const auto& objects = group.objects;
  for (auto place = objects.begin(); place != objects.end();
       place = objects.upper_bound(place->first)) {
    const std::int32_t number = place->first;
    const std::size_t count = objects.count(number);
    if (number == group.Group().Reference.Number) {
      findings.push_back({number, "an object has the number of the group itself"});
    } else if (count > 1) {
      findings.push_back({number, std::to_string(count) + " objects have this number"});
    }
  }
}

}  // namespace mheg
