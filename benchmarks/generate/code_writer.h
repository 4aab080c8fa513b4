// The code of one module: declarations, then procedures, each of exactly the lines that it is given.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "generate/outline.h"
#include "generate/statement_writer.h"
#include "generate/text.h"

namespace kolvane::generate {

class CodeWriter {
 public:
  // All of them must outlive the writer.
  CodeWriter(Random& random, const Project& project, const Module& module, Text& out)
      : random_(random),
        project_(project),
        module_(module),
        out_(out),
        statements_(random, project, module, out) {}

  void writeDeclarations();
  // Brings the file to module.lines, or past it when the procedures need more.
  void writeProcedures();

 private:
  void writeOptions();
  void writeDeclares();
  void writeConstants();
  void writeRecords();
  void writeEnumerations();
  void writeEvents();
  void writeVariables();
  void writeVariable(const Variable& variable);
  std::string typeName(const Variable& variable) const;
  std::string typeName(Type type, int classIndex) const;
  void separate(int perMille);

  int leastLines(const Procedure& procedure) const;
  void writeProcedure(const Procedure& procedure, int lines, bool first);
  int writeLeadIn(const Procedure& procedure, int spare, bool first);
  void writeTitle(const Procedure& procedure, Scope scope);
  std::string parameterText(const Procedure& procedure, std::size_t index) const;
  void writeAttributes(const Procedure& procedure);
  void writeBody(const Procedure& procedure, int lines);
  std::vector<Variable> makeLocals(int room, std::vector<std::string>& loops);
  int writeLocals(const std::vector<Variable>& locals, const std::vector<std::string>& loops);
  void writeLocal(const Variable& variable, std::string_view keyword);
  void writeResult(const Procedure& procedure);
  void writeEnd(const Procedure& procedure);

  Random& random_;
  const Project& project_;
  const Module& module_;
  Text& out_;
  StatementWriter statements_;
};

}  // namespace kolvane::generate
