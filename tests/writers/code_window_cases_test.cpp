#include "support/case_file.h"
#include "writers/code_window_commands.h"

namespace kolvane::writers {
namespace {

void bind(test::CaseCommands& commands, const Context& context) {
  bindCodeWindowCommands(commands.codeWindow, context);
}

const bool kRegistered = test::registerCases("ErrorHandlers", "error_handlers.txt", bind) &&
                         test::registerCases("CommentBlocks", "comment_blocks.txt", bind) &&
                         test::registerCases("SelectionCommands", "selection_commands.txt", bind) &&
                         test::registerCases("SplitAndJoin", "split_and_join.txt", bind);

}  // namespace
}  // namespace kolvane::writers
