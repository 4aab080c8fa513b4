// What a logical line means to the outline of its module: titles and ends of procedures, blocks,
// declarations.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "frame/host.h"

namespace kolvane::workspace {

// Where a logical line begins.
enum class ScanState : unsigned char {
  kModule,
  kBlock,  // inside a Type or an Enum
  kProcedure,
};

// [Public|Private|Friend|Global] [Static] (Sub|Function|Property Get|Let|Set) name
struct Title {
  std::string_view name;
  frame::ProcKind kind = frame::ProcKind::kProc;
  frame::MemberScope scope = frame::MemberScope::kPublic;
  bool isStatic = false;
};

std::optional<Title> parseTitle(std::string_view logicalLine);

struct ScanStep {
  ScanState after = ScanState::kModule;
  std::optional<Title> opened;  // the procedure that the line opens; it closes it too when `after` is kModule
};

// The line's effect on the scan. A title inside a procedure opens none. A block that nothing closes ends in
// front of the next title, so that an unfinished Type costs no procedure its place. Any End Sub, End Function
// or End Property at the start of a statement closes a procedure, any End Type or End Enum a block.
ScanStep scanLine(ScanState state, std::string_view logicalLine);

// Whether a line of code stands there: neither blank nor comment nor compiler directive.
bool isCode(std::string_view logicalLine);

// Whether a line at module level holds a declaration other than a title.
bool holdsDeclaration(std::string_view logicalLine);

// One name that a line at module level makes known.
struct DeclaredName {
  std::string_view name;
  frame::MemberType type = frame::MemberType::kMethod;
  frame::ProcKind procKind = frame::ProcKind::kProc;
  frame::MemberScope scope = frame::MemberScope::kPublic;
  bool isStatic = false;
  bool isTitle = false;
};

// The scopes of declarations that name none.
struct DefaultScopes {
  frame::MemberScope declare = frame::MemberScope::kPublic;
};

// The names of titles, variable lists, constants, events and Declare statements, in order, whatever the line
// stands in. Types, enumerations and their elements are no members and are left out.
std::vector<DeclaredName> declaredNames(std::string_view logicalLine, const DefaultScopes& scopes = {});

}  // namespace kolvane::workspace
