#include "writers/handler_text.h"

namespace kolvane::writers {
namespace {

constexpr std::string_view kSourceInModule = "Err.Source = Err.Source & vb_module_name & \".";
constexpr std::string_view kSourceElsewhere = "Err.Source = Err.Source & \".\"  & typename(Me) & \".";

std::string lineOf(const HandlerLine& line, const HandlerValues& values) {
  switch (line.piece) {
    case HandlerPiece::kIndent:
      return std::string(values.indent).append(line.text);
    case HandlerPiece::kExit:
      return std::string("Exit ").append(values.exitWord);
    case HandlerPiece::kSource:
      return std::string(values.indent)
          .append(line.text)
          .append(values.standardModule ? kSourceInModule : kSourceElsewhere)
          .append(values.name)
          .append("\"");
    default:
      return std::string(line.text);
  }
}

}  // namespace

std::vector<std::string> handlerTail(const HandlerKind& kind, const HandlerValues& values) {
  std::vector<std::string> lines;
  for (const HandlerLine& line : kind.tail) lines.push_back(lineOf(line, values));
  return lines;
}

}  // namespace kolvane::writers
