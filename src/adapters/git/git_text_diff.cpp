#include "adapters/git/git_text_diff.h"

#include <git2.h>

#include "base/error.h"

namespace kolvane::adapters {
namespace {

using platform::DiffHunk;
using platform::DiffLine;

void check(int result) {
  if (result >= 0) return;
  const git_error* error = git_error_last();
  throw base::Error(base::errors::kInternal,
                    error != nullptr ? error->message : "the texts could not be compared");
}

using Patch = std::unique_ptr<git_patch, decltype(&git_patch_free)>;

Patch makePatch(std::string_view before, std::string_view after, int context) {
  git_diff_options options;
  check(git_diff_options_init(&options, GIT_DIFF_OPTIONS_VERSION));
  options.flags |= GIT_DIFF_FORCE_TEXT | GIT_DIFF_INDENT_HEURISTIC;
  options.context_lines = static_cast<std::uint32_t>(context);
  git_patch* patch = nullptr;
  check(git_patch_from_buffers(&patch, before.data(), before.size(), "old", after.data(), after.size(), "new",
                               &options));
  return {patch, git_patch_free};
}

// The library gives a missing line end as a line of its own kind behind the line concerned.
void addLine(DiffHunk& hunk, const git_diff_line& line) {
  switch (line.origin) {
    case GIT_DIFF_LINE_CONTEXT:
    case GIT_DIFF_LINE_ADDITION:
    case GIT_DIFF_LINE_DELETION:
      hunk.lines.push_back(
          {static_cast<DiffLine::Kind>(line.origin), std::string(line.content, line.content_len), false});
      break;
    default:
      if (!hunk.lines.empty()) {
        hunk.lines.back().lacksEnd = true;
        if (auto& text = hunk.lines.back().text; !text.empty() && text.back() == '\n') text.pop_back();
      }
  }
}

class GitTextDiff final : public platform::TextDiff {
 public:
  GitTextDiff() { git_libgit2_init(); }
  GitTextDiff(const GitTextDiff&) = delete;
  GitTextDiff& operator=(const GitTextDiff&) = delete;
  ~GitTextDiff() override { git_libgit2_shutdown(); }

  std::vector<DiffHunk> compare(std::string_view before, std::string_view after, int context) override {
    const Patch patch = makePatch(before, after, context);
    std::vector<DiffHunk> hunks(patch ? git_patch_num_hunks(patch.get()) : 0);
    for (std::size_t i = 0; i < hunks.size(); ++i) hunks[i] = hunkAt(patch.get(), i);
    return hunks;
  }

 private:
  static DiffHunk hunkAt(git_patch* patch, std::size_t index) {
    const git_diff_hunk* found = nullptr;
    std::size_t count = 0;
    check(git_patch_get_hunk(&found, &count, patch, index));
    DiffHunk hunk{found->old_start, found->old_lines, found->new_start, found->new_lines, {}};
    for (std::size_t i = 0; i < count; ++i) {
      const git_diff_line* line = nullptr;
      check(git_patch_get_line_in_hunk(&line, patch, index, i));
      addLine(hunk, *line);
    }
    return hunk;
  }
};

}  // namespace

std::unique_ptr<platform::TextDiff> makeGitTextDiff() { return std::make_unique<GitTextDiff>(); }

}  // namespace kolvane::adapters
