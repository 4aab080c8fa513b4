// Statements of one procedure after the other, from the tables of patterns and the names in scope.
#pragma once

#include <array>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "generate/in_scope.h"
#include "generate/outline.h"
#include "generate/patterns.h"
#include "generate/text.h"

namespace kolvane::generate {

class StatementWriter {
 public:
  // All of them must outlive the writer.
  StatementWriter(Random& random, const Project& project, const Module& module, Text& out);

  // What follows is code of this procedure. `locals` and `loops`, the variables that its loops count in, must
  // stay as they are until the next call.
  void enter(const Procedure& procedure, const std::vector<Variable>& locals,
             const std::vector<std::string>& loops);

  // Exactly so many lines of statements, comments and blank lines, `level` steps indented.
  void fill(int lines, int level);
  // The lines of a pattern that has no "~".
  void write(const PatternRow& row, int level);
  void writeExpression(Group group);
  void blankLine(int level);

 private:
  struct Registers {
    std::array<std::string, 4> names;
    int lastCase = 0;
    int objectClass = -1;
  };

  void collectModuleNames();
  void collectControls();
  void addHandlerParameters(const std::string& parameters);
  std::uint32_t available() const;
  void chooseRows();

  int writeStatement(int room, int level);
  const PatternRow& chooseStatement(int room, int level);
  bool fits(const PatternRow& row, int room) const;
  void writeRow(const PatternRow& row, int level, int extra);
  void writeLine(std::string_view line, int level, bool numbered, Registers& registers);
  void writeInline(std::string_view pattern, Registers& registers, int depth);
  void writeSlot(Slot slot, std::size_t place, Registers& registers, int depth);
  void writeScopedSlot(Slot slot, std::size_t place, Registers& registers, int depth);
  void writeName(std::string_view name, std::size_t place, Registers& registers);
  void writeExpression(Group group, int depth);
  void writeFunctionCall(Group group, int depth);
  void writeSubCall(int depth);
  void writeArguments(const Procedure& called, bool asStatement, int depth);
  void writeObject(std::size_t place, Registers& registers);
  void writeObjectMember(Slot slot, int depth);
  void writeEvent(int depth);
  void writeLiteral(Slot slot);
  void writeSentence();
  void writeWithNouns(std::string_view text, bool lowerCase);
  std::string_view variable(Group group);
  const ObjectName& object();
  const Procedure& procedureAt(const Project::Place& place) const;

  Random& random_;
  const Project& project_;
  const Module& module_;
  Text& out_;

  NamesInScope moduleNames_;
  NamesInScope localNames_;
  std::deque<std::string> ownTexts_;  // names made here that the scopes refer to
  std::vector<std::string> textControls_, listControls_, checkControls_, captionControls_;
  std::vector<std::string_view> textConstants_, numberConstants_;
  std::vector<const Procedure*> ownSubs_;
  std::array<std::vector<const Procedure*>, kGroups> ownFunctions_;

  const Procedure* procedure_ = nullptr;
  const std::vector<std::string>* loops_ = nullptr;
  std::size_t busyLoops_ = 0;
  int lineNumber_ = 0;
  bool lastBlank_ = false;
  bool readsBag_ = false;
  bool writesBag_ = false;

  Choices anyRow_, oneLineRow_, plainRow_;
  std::array<Choices, kGroups> leaves_, terms_;
};

}  // namespace kolvane::generate
