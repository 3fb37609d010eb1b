// The doorway of the object model: the records, their values, and the tables that describe them.
#pragma once

#include "objects/action_table.h"  // IWYU pragma: export
#include "objects/class_tables.h"  // IWYU pragma: export
#include "objects/group.h"         // IWYU pragma: export
#include "objects/ingredients.h"   // IWYU pragma: export
#include "objects/ownership.h"     // IWYU pragma: export
#include "objects/status.h"        // IWYU pragma: export
#include "objects/visibles.h"      // IWYU pragma: export
#include "objects/vocabulary.h"    // IWYU pragma: export
