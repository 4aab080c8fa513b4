// What one module declares.
#pragma once

#include "generate/outline.h"

namespace kolvane::generate {

// Events of a class or user control.
void declareEvents(Random& random, Module& module);

// Everything else: controls, declarations and procedures. `procedures` above 0 is their exact count.
void outlineModule(Random& random, Project& project, int moduleIndex, int procedures);

// About so many lines of a file are its header and designer.
int headerLines(const Module& module);

// The controls and menus of a form or user control.
void placeControls(Random& random, Module& module, Names& names);

}  // namespace kolvane::generate
