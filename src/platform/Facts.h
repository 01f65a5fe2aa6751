// Asks the operating system for what `SystemFacts` holds.
#pragma once

#include "engine/ports/cSystemFacts.h"

namespace tessel {

// Needs the application object. What cannot be found out is empty.
SystemFacts systemFacts();

} // namespace tessel
