#include "writers/header_pass.h"

#include <algorithm>
#include <string>

#include "base/error.h"
#include "source/code_tabs.h"
#include "source/line_tests.h"
#include "source/procedure_list.h"
#include "source/procedure_questions.h"
#include "writers/header_reading.h"
#include "writers/headers.h"

namespace kolvane::writers {
namespace {

using source::ListedProcedure;

bool commandKnowsTitle(frame::CodeModule& module, int titleLine) {
  const std::string title = source::lineText(module, titleLine);
  return source::Is_Procedure_Title(title) || source::Is_Property_Title(title);
}

std::string textAbove(frame::CodeModule& module, int firstLine, int titleLine) {
  return module.Lines(firstLine, titleLine - firstLine);
}

// True when the header's text is another one afterwards. Only lines above the title are touched, none above
// the region.
bool writeOne(const Context& context, frame::CodeModule& module, const ListedProcedure& procedure,
              Describe describe) {
  const int linesBefore = module.CountOfLines();
  const std::string before = textAbove(module, procedure.startLine, procedure.titleLine);
  Add_Procedure_Header(context, module, procedure.name, procedure.titleLine, false, describe);
  const int titleLine = procedure.titleLine + module.CountOfLines() - linesBefore;
  return textAbove(module, procedure.startLine, titleLine) != before;
}

bool hasHeader(const frame::Services& services, frame::CodeModule& module, const ListedProcedure& procedure) {
  const bool above = services.care.guards(frame::Guard::kComments)
                         ? hasStandingHeader(services, module, procedure.titleLine, procedure.name)
                         : hasHeaderAbove(services, module, procedure.titleLine);
  return above || Header_Exists_Within_Procedure(module, procedure.titleLine);
}

}  // namespace

bool hasHeaderAbove(const frame::Services& services, frame::CodeModule& module, int titleLine) {
  const std::string name = fieldStart(source::commentCharacter(services), "Name");
  for (int line = titleLine - 1; line >= 1; --line) {
    const std::string text = source::lineText(module, line);
    if (source::trimWhite(text).starts_with(name)) return true;
    if (!source::Is_Blank_Line(text) && !source::Is_Comment_Line(text)) break;
  }
  return false;
}

HeaderPassResult writeHeaders(const Context& context, frame::CodeModule& module, HeaderPass pass,
                              Describe describe) {
  const base::ErrorScope scope{"modVBIDEFunctions", "writeHeaders"};
  const frame::Services& services = context.services;
  HeaderPassResult result;
  auto procedures = source::listProcedures(module);
  // From the last one up: what is written moves only lines that are done with.
  std::reverse(procedures.begin(), procedures.end());
  for (const ListedProcedure& procedure : procedures) {
    if (procedure.titleLine == 0 || !commandKnowsTitle(module, procedure.titleLine)) {
      ++result.skipped;
      continue;
    }
    if (pass == HeaderPass::kMissing && hasHeader(services, module, procedure)) {
      ++result.unchanged;
      continue;
    }
    if (!services.care.guards(frame::Guard::kComments))
      result.commentsGone += commentsThatWouldGo(services, module, procedure.titleLine, procedure.name);
    attemptProcedure(services, result.failures, procedure.name, [&] {
      ++(writeOne(context, module, procedure, describe) ? result.written : result.unchanged);
    });
  }
  // Told in the order of the module.
  std::reverse(result.failures.begin(), result.failures.end());
  return result;
}

}  // namespace kolvane::writers
