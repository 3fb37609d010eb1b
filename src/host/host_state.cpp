// The one instance of the platform folder's process-wide record.
#include "host/host_state.h"

namespace korvel {

constinit HostState hostState;

}  // namespace korvel
