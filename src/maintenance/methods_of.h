// The procedures that a walk over a module looks at.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "base/statement_lexer.h"
#include "frame/host.h"
// GetProcedureRealStartLine and GetProcEndLine, which such walks go on with.
#include "source/procedure_questions.h"

namespace kolvane::maintenance {

// Methods behind the declaration section: every Sub and Function. Declare statements and properties do not
// count.
inline bool isMethodBehindDeclarations(frame::Member& member, int countOfDeclarationLines) {
  return member.Type() == frame::MemberType::kMethod && member.CodeLocation() > countOfDeclarationLines;
}

// Conditional compilation may put a Declare among the procedures. It is a member too, but no procedure to the host.
inline bool isDeclare(std::string_view line) {
  base::StatementLexer lexer(line);
  base::Token token = lexer.next();
  if (token.isWord("Public") || token.isWord("Private")) token = lexer.next();
  return token.isWord("Declare");
}

// Those of the module, in its order, as they are now.
inline std::vector<std::shared_ptr<frame::Member>> methodsOf(frame::CodeModule& module) {
  const int declarations = module.CountOfDeclarationLines();
  auto members = module.Members()->items();
  std::erase_if(members, [&module, declarations](const std::shared_ptr<frame::Member>& member) {
    return !isMethodBehindDeclarations(*member, declarations) ||
           isDeclare(source::lineText(module, member->CodeLocation()));
  });
  return members;
}

// The types of components in which unused procedures are looked for.
inline bool reportsUnusedProcedures(frame::ComponentType type) {
  using enum frame::ComponentType;
  return type == kStdModule || type == kClassModule || type == kVBForm || type == kVBMDIForm ||
         type == kPropPage || type == kUserControl;
}

}  // namespace kolvane::maintenance
