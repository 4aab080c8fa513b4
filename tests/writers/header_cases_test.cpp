#include "support/case_file.h"
#include "writers/headers.h"
#include "writers/module_header.h"

namespace kolvane::writers {
namespace {

void bind(test::CaseCommands& commands, const Context& context) {
  bindHeaderCommand(commands.codeWindow, context);
  commands.others["AddModuleHeader"] = [&context] { AddModuleHeader(context.services); };
}

const bool kRegistered = test::registerCases("ProcedureHeaders", "procedure_headers.txt", bind) &&
                         test::registerCases("HeaderRewrites", "header_rewrites.txt", bind) &&
                         test::registerCases("CarefulHeaders", "careful_headers.txt", bind) &&
                         test::registerCases("PropertyHeaders", "property_headers.txt", bind) &&
                         test::registerCases("ModuleHeaders", "module_headers.txt", bind);

}  // namespace
}  // namespace kolvane::writers
