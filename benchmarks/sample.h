// Generated projects on the disk, and the same opened in a host.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "generate/generator.h"
#include "workspace/workspace.h"

namespace kolvane::benchmarks {

struct Sample {
  std::string folder;
  std::string project;                  // path of the .vbp
  std::vector<std::string> components;  // paths, without companion files
  std::size_t lines = 0;                // of the components
  std::size_t bytes = 0;
};

// Writes the project into a new folder below `folder`.
Sample writeSample(const std::string& folder, const std::string& name, const generate::Options& options);

struct OpenProject {
  std::unique_ptr<platform::Files> files;
  std::unique_ptr<platform::Clipboard> clipboard;
  std::shared_ptr<workspace::Workspace> host;
  std::shared_ptr<frame::VBProject> project;
  std::vector<std::shared_ptr<frame::CodeModule>> modules;
  std::size_t procedures = 0;
};

// Opens the project and asks each module for its procedures. A project that does not open without a fault
// raises std::runtime_error: there would be nothing to measure.
OpenProject open(const std::string& project);
// The same without asking: `modules` stays empty and `procedures` 0.
OpenProject openUnread(const std::string& project);

}  // namespace kolvane::benchmarks
