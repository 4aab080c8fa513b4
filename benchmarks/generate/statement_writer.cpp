#include "generate/statement_writer.h"

#include <algorithm>
#include <cstddef>

#include "generate/words.h"

namespace kolvane::generate {

namespace {

constexpr int kDeepestBlock = 6;
constexpr int kDeepestExpression = 2;

// Tables of expressions by group; a group without one of its own is asked for a text.
struct ExpressionTables {
  std::span<const PatternRow> leaves;
  std::span<const PatternRow> terms;
};
constexpr std::array<ExpressionTables, kGroups> kExpressions{{
    {kTextLeaves, kTextTerms},
    {kNumberLeaves, kNumberTerms},
    {kFlagLeaves, kFlagTerms},
    {kDecimalLeaves, kDecimalTerms},
    {kMomentLeaves, kMomentTerms},
    {kTextLeaves, kTextTerms},
    {kTextLeaves, kTextTerms},
}};

constexpr std::uint32_t bit(Slot slot) { return std::uint32_t{1} << static_cast<int>(slot); }

template <typename Names>
void append(Names& all, const std::string& name, int index) {
  all.push_back(index < 0 ? name : name + "(" + std::to_string(index) + ")");
}

std::string_view endKeyword(ProcedureKind kind) {
  if (kind == ProcedureKind::kSub) return "Sub";
  return kind == ProcedureKind::kFunction ? "Function" : "Property";
}

}  // namespace

StatementWriter::StatementWriter(Random& random, const Project& project, const Module& module, Text& out)
    : random_(random), project_(project), module_(module), out_(out) {
  collectModuleNames();
  collectControls();
}

// ---- names

void StatementWriter::collectModuleNames() {
  for (const Variable& each : module_.variables) moduleNames_.add(each);
  for (const Constant& each : module_.constants)
    (each.group == Group::kText ? textConstants_ : numberConstants_).push_back(each.name);
  for (const Enumeration& each : module_.enumerations)
    numberConstants_.insert(numberConstants_.end(), each.elements.begin(), each.elements.end());
  for (std::size_t i = 0; i < module_.recordVariables.size(); ++i)
    for (const Variable& field : module_.records[static_cast<std::size_t>(module_.recordTypes[i])].fields) {
      ownTexts_.push_back(module_.recordVariables[i].name + "." + field.name);
      moduleNames_.variables[static_cast<std::size_t>(row(field.type).group)].push_back(ownTexts_.back());
    }
  for (const Procedure& each : module_.procedures) {
    if (each.isHandler || each.alternateTitles) continue;
    if (each.kind == ProcedureKind::kSub && each.name != "Main") ownSubs_.push_back(&each);
    if (each.kind == ProcedureKind::kFunction)
      ownFunctions_[static_cast<std::size_t>(row(each.result).group)].push_back(&each);
  }
}

void StatementWriter::collectControls() {
  for (const Control& control : module_.controls) {
    const ControlUse use = control.type->use;
    if (use == ControlUse::kText) append(textControls_, control.name, control.index);
    if (use == ControlUse::kList) append(listControls_, control.name, control.index);
    if (use == ControlUse::kCheck) append(checkControls_, control.name, control.index);
    if (use == ControlUse::kCaption && !control.name.starts_with("Label"))
      append(captionControls_, control.name, control.index);
  }
}

void StatementWriter::enter(const Procedure& procedure, const std::vector<Variable>& locals,
                            const std::vector<std::string>& loops) {
  procedure_ = &procedure;
  localNames_ = {};
  for (const Variable& each : procedure.parameters) localNames_.add(each);
  addHandlerParameters(procedure.handlerParameters);
  for (const Variable& each : locals) localNames_.add(each);
  loops_ = &loops;
  busyLoops_ = 0;
  lineNumber_ = 0;
  readsBag_ = procedure.name == "UserControl_ReadProperties";
  writesBag_ = procedure.name == "UserControl_WriteProperties";
  chooseRows();
}

// Numbers and flags of "Index As Integer, Cancel As Boolean"; what else an event brings is left alone.
void StatementWriter::addHandlerParameters(const std::string& parameters) {
  const std::string_view text = parameters;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t stop = std::min(text.find(", ", at), text.size());
    std::string_view one = text.substr(at, stop - at);
    at = stop + 2;
    if (one.starts_with("ByVal ")) one.remove_prefix(6);
    const std::string_view name = one.substr(0, one.find(' '));
    if (one.ends_with(" As Integer") || one.ends_with(" As Long"))
      localNames_.variables[static_cast<std::size_t>(Group::kNumber)].push_back(name);
    if (one.ends_with(" As Boolean"))
      localNames_.variables[static_cast<std::size_t>(Group::kFlag)].push_back(name);
    if (one.ends_with(" As Single"))
      localNames_.variables[static_cast<std::size_t>(Group::kDecimal)].push_back(name);
  }
}

std::uint32_t StatementWriter::available() const {
  std::uint32_t mask = 0;
  const auto offer = [&](Slot slot, bool there) { mask |= there ? bit(slot) : 0; };
  const auto both = [&](auto member) {
    return !(moduleNames_.*member).empty() || !(localNames_.*member).empty();
  };
  for (std::size_t group = 0; group < 6; ++group)
    offer(static_cast<Slot>(group),
          !moduleNames_.variables[group].empty() || !localNames_.variables[group].empty());
  static_assert(static_cast<int>(Slot::kMoment) == static_cast<int>(Group::kMoment));
  for (std::size_t group = 0; group < 5; ++group)
    offer(static_cast<Slot>(group + static_cast<std::size_t>(Slot::kTextCall)),
          !ownFunctions_[group].empty() || !project_.publicFunctions[group].empty());
  static_assert(static_cast<int>(Slot::kMomentCall) - static_cast<int>(Slot::kTextCall) ==
                static_cast<int>(Group::kMoment));
  offer(Slot::kLoop, !loops_->empty());
  offer(Slot::kCollection, both(&NamesInScope::collections));
  offer(Slot::kRecordset, both(&NamesInScope::recordsets));
  offer(Slot::kTextArray, both(&NamesInScope::textArrays));
  offer(Slot::kNumberArray, both(&NamesInScope::numberArrays));
  const bool objects = both(&NamesInScope::objects);
  for (const Slot slot : {Slot::kObject, Slot::kObjectMethod, Slot::kObjectAssignment, Slot::kObjectProperty})
    offer(slot, objects);
  offer(Slot::kSubCall, !ownSubs_.empty() || !project_.publicSubs.empty());
  offer(Slot::kConstantText, !textConstants_.empty());
  offer(Slot::kConstantNumber, !numberConstants_.empty());
  offer(Slot::kTextControl, !textControls_.empty());
  offer(Slot::kListControl, !listControls_.empty());
  offer(Slot::kCheckControl, !checkControls_.empty());
  offer(Slot::kCaptionControl, !captionControls_.empty());
  offer(Slot::kForm, !project_.forms.empty());
  offer(Slot::kOwnForm, module_.kind == ModuleKind::kForm);
  offer(Slot::kEvent, !module_.events.empty());
  offer(Slot::kReadBag, readsBag_);
  offer(Slot::kWriteBag, writesBag_);
  return mask;
}

void StatementWriter::chooseRows() {
  const std::uint32_t mask = available();
  anyRow_ = Choices(kStatements, mask);
  oneLineRow_ = Choices(kStatements, mask, [](const PatternRow& each) { return each.lines == 1; });
  plainRow_ = Choices(kStatements, mask, [](const PatternRow& each) {
    return each.lines == 1 && each.kind == RowKind::kStatement;
  });
  for (std::size_t group = 0; group < kGroups; ++group) {
    leaves_[group] = Choices(kExpressions[group].leaves, mask);
    terms_[group] = Choices(kExpressions[group].terms, mask);
  }
}

// ---- statements

void StatementWriter::fill(int lines, int level) {
  lastBlank_ = true;
  const bool alone = lines == 1;
  while (lines > 0) {
    if (alone && !random_.chance(20)) {
      writeRow(plainRow_.pick(random_), level, 0);
      return;
    }
    lines -= writeStatement(lines, level);
  }
}

bool StatementWriter::fits(const PatternRow& row, int room) const {
  if (row.lines > room) return false;
  if (row.kind == RowKind::kBlank) return !lastBlank_ && room > 1;
  return (row.needs & bit(Slot::kLoop)) == 0 || busyLoops_ < loops_->size();
}

const PatternRow& StatementWriter::chooseStatement(int room, int level) {
  if (level < kDeepestBlock)
    for (int attempt = 0; attempt < 4; ++attempt)
      if (const PatternRow& row = anyRow_.pick(random_); fits(row, room)) return row;
  for (int attempt = 0; attempt < 2; ++attempt)
    if (const PatternRow& row = oneLineRow_.pick(random_); fits(row, room)) return row;
  return plainRow_.pick(random_);
}

int StatementWriter::writeStatement(int room, int level) {
  const PatternRow& row = chooseStatement(room, level);
  if (row.kind == RowKind::kBlank) {
    blankLine(level);
    return 1;
  }
  int extra = 0;
  for (int i = 0; i < row.blocks; ++i) extra += random_.few(level > 2 ? 5 : 11) - 1;
  extra = std::min(extra, room - row.lines);
  if (row.blocks == 0) extra = 0;
  writeRow(row, level, extra);
  return row.lines + extra;
}

void StatementWriter::blankLine(int level) {
  if (random_.below(1000) < module_.style.blankLinesWithBlanks) out_.blanks(level * module_.style.indent);
  out_.end();
  lastBlank_ = true;
}

void StatementWriter::write(const PatternRow& row, int level) { writeRow(row, level, 0); }

// `extra` lines more than the row has itself go into its blocks.
void StatementWriter::writeRow(const PatternRow& row, int level, int extra) {
  Registers registers;
  const std::size_t loopsBefore = busyLoops_;
  int blocks = row.blocks;
  std::string_view rest = row.text;
  while (true) {
    const std::size_t stop = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, stop);
    int deeper = 0;
    for (; !line.empty() && (line[0] == '\t' || line[0] == '\v'); line.remove_prefix(1))
      deeper += line[0] == '\t' || module_.style.caseIndented ? 1 : 0;
    if (line == "~") {
      const int part = --blocks == 0 ? extra : random_.below(extra + 1);
      extra -= part;
      fill(1 + part, level + deeper);
    } else {
      writeLine(line, level + deeper, row.lines == 1 && row.kind == RowKind::kStatement, registers);
    }
    if (stop == rest.size()) break;
    rest.remove_prefix(stop + 1);
  }
  busyLoops_ = loopsBefore;
  lastBlank_ = false;
}

void StatementWriter::writeLine(std::string_view line, int level, bool numbered, Registers& registers) {
  if (line.empty()) return blankLine(level);
  int indent = level * module_.style.indent;
  if (line[0] == '@' || line[0] == '#') indent = 0;
  if (line[0] == '@') line.remove_prefix(1);
  if (numbered && module_.style.lineNumbers) {
    const std::string number = std::to_string(lineNumber_ += 10);
    out_.put(number);
    indent = std::max(1, indent - static_cast<int>(number.size()));
  }
  out_.blanks(indent);
  writeInline(line, registers, 0);
  if (numbered && random_.chance(80)) {
    out_.put("  ' ");
    writeSentence();
  }
  out_.end();
}

void StatementWriter::writeInline(std::string_view pattern, Registers& registers, int depth) {
  for (std::size_t at = 0; at < pattern.size();) {
    const std::size_t brace = std::min(pattern.find('{', at), pattern.size());
    out_.put(pattern.substr(at, brace - at));
    if (brace == pattern.size()) return;
    const char digit = pattern[brace + 3];
    writeSlot(slotAt(pattern, brace), digit == '}' ? 0 : static_cast<std::size_t>(digit - '0'), registers,
              depth);
    at = brace + (digit == '}' ? 4 : 5);
  }
}

// ---- slots

void StatementWriter::writeName(std::string_view name, std::size_t place, Registers& registers) {
  out_.put(name);
  if (place > 0) registers.names[place] = name;
}

std::string_view StatementWriter::variable(Group group) {
  const auto& local = localNames_.variables[static_cast<std::size_t>(group)];
  const auto& wide = moduleNames_.variables[static_cast<std::size_t>(group)];
  const bool useLocal = wide.empty() || (!local.empty() && random_.chance(720));
  return useLocal ? random_.pick(local) : random_.pick(wide);
}

const ObjectName& StatementWriter::object() {
  const bool useLocal = moduleNames_.objects.empty() || (!localNames_.objects.empty() && random_.chance(720));
  return random_.pick(useLocal ? localNames_.objects : moduleNames_.objects);
}

void StatementWriter::writeSlot(Slot slot, std::size_t place, Registers& registers, int depth) {
  if (static_cast<int>(slot) < kScopedSlots) return writeScopedSlot(slot, place, registers, depth);
  switch (slot) {
    case Slot::kTextExpression:
      return writeExpression(Group::kText, depth + 1);
    case Slot::kNumberExpression:
      return writeExpression(Group::kNumber, depth + 1);
    case Slot::kFlagExpression:
      return writeExpression(Group::kFlag, depth + 1);
    case Slot::kDecimalExpression:
      return writeExpression(Group::kDecimal, depth + 1);
    case Slot::kMomentExpression:
      return writeExpression(Group::kMoment, depth + 1);
    case Slot::kRepeat:
      return out_.put(registers.names[place]);
    case Slot::kCaseLabel:
      return out_.put(registers.lastCase += random_.few(4));
    case Slot::kObjectClass:
      return out_.put(project_.modules[static_cast<std::size_t>(registers.objectClass)].name);
    case Slot::kLoopValue:
      return busyLoops_ > 0 ? out_.put((*loops_)[busyLoops_ - 1]) : writeLiteral(Slot::kNumberLiteral);
    case Slot::kComment:
      return writeSentence();
    case Slot::kNoun:
      return out_.put(random_.pick(words::kNouns));
    case Slot::kProcedureKeyword:
      return out_.put(endKeyword(procedure_->kind));
    case Slot::kProcedureName:
      return out_.put(procedure_->name);
    case Slot::kErrorLabel:
      return out_.put(module_.style.errorLabel);
    case Slot::kExitLabel:
      return out_.put(module_.style.exitLabel);
    case Slot::kCondition:
      return out_.put(random_.pick(words::kConditions));
    case Slot::kAuthor:
      return out_.put(random_.pick(words::kAuthors));
    default:
      return writeLiteral(slot);
  }
}

void StatementWriter::writeScopedSlot(Slot slot, std::size_t place, Registers& registers, int depth) {
  const auto either = [&](auto member) -> std::string_view {
    const auto& local = localNames_.*member;
    return random_.pick(local.empty() ? moduleNames_.*member : local);
  };
  switch (slot) {
    case Slot::kLoop:
      return writeName((*loops_)[std::min(busyLoops_++, loops_->size() - 1)], place, registers);
    case Slot::kCollection:
      return writeName(either(&NamesInScope::collections), place, registers);
    case Slot::kRecordset:
      return writeName(either(&NamesInScope::recordsets), place, registers);
    case Slot::kTextArray:
      return writeName(either(&NamesInScope::textArrays), place, registers);
    case Slot::kNumberArray:
      return writeName(either(&NamesInScope::numberArrays), place, registers);
    case Slot::kObject:
      return writeObject(place, registers);
    case Slot::kTextCall:
    case Slot::kNumberCall:
    case Slot::kFlagCall:
    case Slot::kDecimalCall:
    case Slot::kMomentCall:
      return writeFunctionCall(static_cast<Group>(static_cast<int>(slot) - static_cast<int>(Slot::kTextCall)),
                               depth);
    case Slot::kSubCall:
      return writeSubCall(depth);
    case Slot::kObjectMethod:
    case Slot::kObjectAssignment:
    case Slot::kObjectProperty:
      return writeObjectMember(slot, depth);
    case Slot::kConstantText:
      return out_.put(random_.pick(textConstants_));
    case Slot::kConstantNumber:
      return out_.put(random_.pick(numberConstants_));
    case Slot::kTextControl:
      return writeName(random_.pick(textControls_), place, registers);
    case Slot::kListControl:
      return writeName(random_.pick(listControls_), place, registers);
    case Slot::kCheckControl:
      return writeName(random_.pick(checkControls_), place, registers);
    case Slot::kCaptionControl:
      return writeName(random_.pick(captionControls_), place, registers);
    case Slot::kForm:
      return out_.put(project_.modules[static_cast<std::size_t>(random_.pick(project_.forms))].name);
    case Slot::kOwnForm:
      return out_.put("Me");
    case Slot::kEvent:
      return writeEvent(depth);
    case Slot::kReadBag:
    case Slot::kWriteBag:
      return out_.put("PropBag");
    default:
      return writeName(variable(static_cast<Group>(slot)), place, registers);
  }
}

void StatementWriter::writeExpression(Group group) { writeExpression(group, 0); }

void StatementWriter::writeExpression(Group group, int depth) {
  const auto table = static_cast<std::size_t>(group);
  Registers registers;
  const bool leaf = depth > kDeepestExpression || random_.chance(depth > 1 ? 560 : 290);
  writeInline((leaf ? leaves_ : terms_)[table].pick(random_).text, registers, depth);
}

const Procedure& StatementWriter::procedureAt(const Project::Place& place) const {
  return project_.modules[static_cast<std::size_t>(place.module)]
      .procedures[static_cast<std::size_t>(place.procedure)];
}

void StatementWriter::writeFunctionCall(Group group, int depth) {
  const auto& own = ownFunctions_[static_cast<std::size_t>(group)];
  const auto& all = project_.publicFunctions[static_cast<std::size_t>(group)];
  const bool useOwn = all.empty() || (!own.empty() && random_.chance(550));
  const Procedure& called = useOwn ? *random_.pick(own) : procedureAt(random_.pick(all));
  out_.put(called.name);
  writeArguments(called, false, depth);
}

void StatementWriter::writeSubCall(int depth) {
  const bool useOwn = project_.publicSubs.empty() || (!ownSubs_.empty() && random_.chance(600));
  const Procedure& called = useOwn ? *random_.pick(ownSubs_) : procedureAt(random_.pick(project_.publicSubs));
  const bool keyword = module_.style.callKeyword;
  if (keyword) out_.put("Call ");
  out_.put(called.name);
  writeArguments(called, !keyword, depth);
}

void StatementWriter::writeArguments(const Procedure& called, bool asStatement, int depth) {
  if (called.parameters.empty()) {
    if (!asStatement && random_.chance(300)) out_.put("()");
    return;
  }
  out_.put(asStatement ? ' ' : '(');
  bool first = true;
  for (const Variable& parameter : called.parameters) {
    if (!first) out_.put(", ");
    first = false;
    writeExpression(row(parameter.type).group, depth + 2);
  }
  if (!asStatement) out_.put(')');
}

void StatementWriter::writeObject(std::size_t place, Registers& registers) {
  const ObjectName& chosen = object();
  registers.objectClass = chosen.classIndex;
  writeName(chosen.name, place, registers);
}

// A member that the class does not have becomes one that every object of a program like this has.
void StatementWriter::writeObjectMember(Slot slot, int depth) {
  const ObjectName& chosen = object();
  const Module& type = project_.modules[static_cast<std::size_t>(chosen.classIndex)];
  const auto& members = slot == Slot::kObjectMethod       ? type.publicSubs
                        : slot == Slot::kObjectAssignment ? type.publicLets
                                                          : type.publicTexts;
  if (members.empty()) {
    if (slot == Slot::kObjectProperty) return out_.put("vbNullString");
    out_.put("Set ");
    out_.put(chosen.name);
    return out_.put(" = Nothing");
  }
  const Procedure& member = type.procedures[static_cast<std::size_t>(random_.pick(members))];
  out_.put(chosen.name);
  out_.put('.');
  out_.put(member.name);
  if (slot == Slot::kObjectMethod) writeArguments(member, true, depth);
  if (slot != Slot::kObjectAssignment) return;
  out_.put(" = ");
  writeExpression(row(member.parameters.front().type).group, depth + 1);
}

void StatementWriter::writeEvent(int depth) {
  const Procedure& event = random_.pick(module_.events);
  out_.put(event.name);
  if (event.handlerParameters.empty()) return;
  out_.put('(');
  writeExpression(event.handlerParameters.ends_with("Boolean") ? Group::kFlag : Group::kNumber, depth + 2);
  out_.put(')');
}

void StatementWriter::writeLiteral(Slot slot) {
  static constexpr std::array kDecimals{"0.5", "1.16", "100#", "0.01", "1000#", "2.54", "12.75", "0.001"};
  static constexpr std::array kHex{"&H10", "&HFF", "&H8000&", "&HFFFF&", "&H1A", "&H200"};
  switch (slot) {
    case Slot::kTextLiteral: {
      out_.put('"');
      const bool accented = module_.style.accented && random_.chance(90);
      writeWithNouns(accented ? random_.pick(words::kAccentedTexts) : random_.pick(words::kTexts), false);
      return out_.put('"');
    }
    case Slot::kNumberLiteral:
      return out_.put(random_.chance(700) ? random_.few(12) : random_.below(1200));
    case Slot::kDecimalLiteral:
      return out_.put(random_.pick(kDecimals));
    case Slot::kHexLiteral:
      return out_.put(random_.pick(kHex));
    case Slot::kDateLiteral:
    case Slot::kDay: {
      const std::string_view mark = slot == Slot::kDateLiteral ? "#" : "";
      out_.put(mark);
      out_.put(random_.between(1, 12));
      out_.put('/');
      out_.put(random_.between(1, 28));
      out_.put('/');
      out_.put(random_.between(1998, 2008));
      return out_.put(mark);
    }
    default:
      return;
  }
}

void StatementWriter::writeSentence() {
  const bool accented = module_.style.accented && random_.chance(160);
  writeWithNouns(accented ? random_.pick(words::kAccentedSentences) : random_.pick(words::kSentences), true);
}

void StatementWriter::writeWithNouns(std::string_view text, bool lowerCase) {
  for (const char c : text) {
    if (c != '%') {
      out_.put(c);
      continue;
    }
    const std::string_view noun = random_.pick(words::kNouns);
    out_.put(lowerCase ? lowerAscii(noun[0]) : noun[0]);
    out_.put(noun.substr(1));
  }
}

}  // namespace kolvane::generate
