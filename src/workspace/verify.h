// Proof that reading and writing lose nothing: every file of every project is read, taken apart as for
// editing, put together in memory and compared byte by byte with what was read. Nothing is written.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/code_pages.h"
#include "platform/files.h"
#include "workspace/component_source.h"

namespace kolvane::workspace {

// One byte that a save would change. -1 where one side has no byte any more.
struct ByteDifference {
  std::string file;
  std::uint64_t offset = 0;
  int before = -1;
  int after = -1;
};

struct VerifyReport {
  int projects = 0;
  int groups = 0;
  int files = 0;            // components; each once, however many projects name it
  std::uint64_t lines = 0;  // of the components' files, as their line ends part them
  std::uint64_t bytes = 0;  // of all files that were compared
  std::uint64_t differingBytes = 0;
  std::vector<ByteDifference> differences;  // the first kShownDifferences of each file
  std::vector<Problem> problems;
};

inline constexpr std::size_t kShownDifferences = 20;

struct VerifyPages {
  const platform::CodePages& known;
  std::optional<int> number;  // nothing: each project's own, as its names show
};

// `paths` are files (projects, groups, components) and folders, in the system's form. In folders every .vbp
// and .vbg is taken, at any depth; symbolic links are not followed. Components count when a project names
// them or when they are given themselves. `onFile` is called with each file before it is read. Needs the
// memory of one file thrice.
VerifyReport verify(platform::Files& files, const VerifyPages& pages, const std::vector<std::string>& paths,
                    const std::function<void(const std::string& file)>& onFile = {});

}  // namespace kolvane::workspace
