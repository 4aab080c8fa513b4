// Modules as readable text for the tests of CodeText.
#pragma once

#include <string>
#include <string_view>

#include "base/text.h"
#include "workspace/code_text.h"

namespace kolvane::test {

using workspace::CodeKind;
using workspace::CodeText;

// Line feeds as another line end.
inline std::string withEnds(std::string_view text, std::string_view lineEnd = base::kCrLf) {
  return base::replaceAll(text, "\n", lineEnd);
}

// A module whose file ends its lines with CR LF. The bytes live as long as the module.
inline CodeText load(std::string_view text, CodeKind kind = CodeKind::kObjectModule) {
  const auto bytes = std::make_shared<const std::string>(withEnds(text));
  return CodeText(kind, bytes, *bytes);
}

// The visible lines, each with a line feed.
inline std::string visible(const CodeText& code) {
  std::string text;
  for (int i = 1; i <= code.countOfLines(); ++i) text.append(code.line(i)).push_back('\n');
  return text;
}

// The bytes with line feeds for line ends.
inline std::string written(const CodeText& code) { return base::replaceAll(code.bytes(), "\r\n", "\n"); }

// "D=1; A/0 2 4 4; …": the declarations, then each procedure's name and kind, start, body and count.
inline std::string outline(const CodeText& code) {
  std::string text = "D=" + std::to_string(code.countOfDeclarationLines());
  for (const auto& p : code.procedures())
    text += "; " + p.name + "/" + std::to_string(static_cast<int>(p.kind)) + " " +
            std::to_string(p.startLine) + " " + std::to_string(p.bodyLine) + " " +
            std::to_string(p.countLines);
  return text;
}

inline std::string procedureOf(const CodeText& code, int line) {
  frame::ProcKind kind{};
  const std::string name = code.procOfLine(line, kind);
  return name + "/" + std::to_string(static_cast<int>(kind));
}

}  // namespace kolvane::test
