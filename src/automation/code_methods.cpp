// host/…: code windows and code.
#include <limits>

#include "automation/json_rpc.h"
#include "automation/methods.h"
#include "automation/session.h"
#include "automation/text_of.h"

namespace kolvane::automation::methods {
namespace {

Json rangeJson(const frame::TextRange& range) {
  return {{"startLine", range.startLine},
          {"startColumn", range.startColumn},
          {"endLine", range.endLine},
          {"endColumn", range.endColumn}};
}

std::string editText(const Arguments& arguments, std::string_view op) {
  if (!arguments.has("text"))
    throw RequestError(ErrorCode::kBadParameters,
                       "host/edit needs \"text\" for the op \"" + std::string(op) + "\".");
  return arguments.text("text");
}

}  // namespace

Json hostOpenCode(Session& session, const Arguments& arguments) {
  session.code(arguments.text("component"));
  const auto pane = session.host().openCode(session.component(arguments.text("component")));
  if (arguments.has("line") || arguments.has("column")) {
    const int line = arguments.whole("line", 1);
    const int column = arguments.whole("column", 1);
    pane->SetSelection({line, column, line, column});
  }
  return done();
}

Json hostSelect(Session& session, const Arguments& arguments) {
  frame::TextRange range;
  range.startLine = arguments.whole("startLine");
  range.startColumn = arguments.whole("startColumn");
  range.endLine = arguments.whole("endLine", range.startLine);
  range.endColumn = arguments.whole("endColumn", range.startColumn);
  session.pane(arguments.optionalText("component"))->SetSelection(range);
  return done();
}

Json hostSelection(Session& session, const Arguments& arguments) {
  const auto pane = session.pane(arguments.optionalText("component"));
  Json result = rangeJson(pane->GetSelection());
  result["topLine"] = pane->TopLine();
  return result;
}

Json hostText(Session& session, const Arguments& arguments) {
  const auto module = session.code(arguments.text("component"));
  const int lines = module->CountOfLines();
  const std::string text = module->Lines(arguments.whole("start", 1), arguments.whole("count", lines));
  return {{"text", textOf(session, text)}, {"lines", lines}};
}

Json hostSetText(Session& session, const Arguments& arguments) {
  session.code(arguments.text("component"));
  session.host().setText(session.component(arguments.text("component")), arguments.text("text"));
  return done();
}

Json hostEdit(Session& session, const Arguments& arguments) {
  const auto module = session.code(arguments.text("component"));
  const std::string op = arguments.text("op");
  const int line = arguments.whole("line");
  if (op == "delete")
    module->DeleteLines(line, arguments.whole("count", 1));
  else if (op == "insert")
    module->InsertLines(line, editText(arguments, op));
  else
    module->ReplaceLine(line, editText(arguments, op));
  return done();
}

Json hostFind(Session& session, const Arguments& arguments) {
  frame::TextRange range{arguments.whole("startLine"), arguments.whole("startColumn"),
                         arguments.whole("endLine"), arguments.whole("endColumn")};
  const bool found = session.code(arguments.text("component"))
                         ->Find(arguments.text("target"), range, arguments.truth("wholeWord"),
                                arguments.truth("matchCase"), arguments.truth("pattern"));
  Json result{{"found", found}};
  result.update(rangeJson(range));
  return result;
}

Json hostProcedures(Session& session, const Arguments& arguments) {
  session.code(arguments.text("component"));
  Json list = Json::array();
  for (const auto& procedure : session.host().procedures(session.component(arguments.text("component"))))
    list.push_back({{"name", textOf(session, procedure.name)},
                    {"kind", static_cast<int>(procedure.kind)},
                    {"startLine", procedure.startLine},
                    {"bodyLine", procedure.bodyLine},
                    {"lineCount", procedure.countLines}});
  return {{"procedures", list}};
}

Json hostProcAt(Session& session, const Arguments& arguments) {
  frame::ProcKind kind{};
  const std::string name =
      session.code(arguments.text("component"))->ProcOfLine(arguments.whole("line"), kind);
  return {{"name", textOf(session, name)}, {"kind", static_cast<int>(kind)}};
}

Json hostMembers(Session& session, const Arguments& arguments) {
  Json list = Json::array();
  for (const auto& member : session.code(arguments.text("component"))->Members()->items())
    list.push_back({{"name", textOf(session, member->Name())},
                    {"type", static_cast<int>(member->Type())},
                    {"scope", static_cast<int>(member->Scope())},
                    {"codeLocation", member->CodeLocation()}});
  return {{"members", list}};
}

}  // namespace kolvane::automation::methods
