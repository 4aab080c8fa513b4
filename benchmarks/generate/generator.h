// Visual Basic 6 projects of any size in the manner of real ones, for measurements and for tests that want
// much code or many different modules.
//
// What is written reads like code of the IDE: canonical keyword case and spacing, balanced blocks, declared
// names, event handlers for the controls that a form has, calls of procedures that exist. The mix of modules,
// forms and classes, the share of designer lines, the lengths of procedures, modifiers, continued titles,
// comments, blank lines and line ends follow what was counted in large public programs.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kolvane::generate {

struct Options {
  std::uint64_t seed = 1;
  // Component files: standard modules, classes, forms and user controls (at least 1).
  int files = 600;
  // Physical lines of all component files together. Met exactly, unless it is too few for that many files: a
  // form wants about 60 lines, any other file about 30, and gets them.
  int lines = 450'000;
  // Above 0: one standard module of so many lines instead, with so many procedures (0: as many as lines of
  // usual length make). `files` and `lines` do not count then. The code lines, without the one attribute line
  // in front, are met exactly when each procedure can have at least 8 of them.
  int moduleLines = 0;
  int procedures = 0;
};

struct GeneratedFile {
  std::string path;   // relative, parted by "/"
  std::string bytes;  // as on disk: Windows-1252, CR LF or (in about one file of ten) LF
};

// The project file comes first; it lists every component. Companion files (.frx) of forms follow their forms
// and hold arbitrary bytes. The same options give the same bytes on every machine. A count out of range
// (below 0, files or lines below 1) raises std::invalid_argument.
std::vector<GeneratedFile> generate(const Options& options);

}  // namespace kolvane::generate
