#include "workspace/code_text.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "workspace/code_body.h"
#include "workspace/code_find.h"

namespace kolvane::workspace {
namespace {

using base::Error;
using frame::ProcKind;

void requireNoNegative(int count) {
  if (count < 0) throw Error(base::errors::kInvalidArgument);
}

void requireLine(int line) {
  if (line < 1) throw Error(base::errors::kInvalidArgument);
}

void requireExistingLine(int line, int lineCount) {
  if (line < 1 || line > lineCount) throw Error(base::errors::kInvalidArgument);
}

void requireKind(ProcKind kind) {
  if (kind < ProcKind::kProc || kind > ProcKind::kGet) throw Error(base::errors::kInvalidCall);
}

ProcedureInfo procedureInfo(const ModuleOutline& outline, const LineStore& lines, std::size_t index) {
  std::string scratch;
  const Title title = outline.title(index, lines, scratch);
  const ProcedureLines place = outline.procedure(index, lines);
  return {std::string(title.name), title.kind, place.start, place.body, place.last - place.start + 1};
}

}  // namespace

CodeText::CodeText(CodeKind kind) : CodeText(kind, nullptr, {}) {}

CodeText::CodeText(CodeKind kind, std::shared_ptr<const void> owner, std::string_view bytes)
    : body_(std::make_unique<Body>(kind, std::move(owner), bytes)) {}

CodeText::CodeText(CodeText&&) noexcept = default;
CodeText& CodeText::operator=(CodeText&&) noexcept = default;
CodeText::~CodeText() = default;

int CodeText::countOfLines() const { return body_->lines.count(); }

int CodeText::countOfDeclarationLines() const { return body_->outline.declarationLines(body_->lines); }

int CodeText::lastOf(int start, int count) const {
  requireLine(start);
  requireNoNegative(count);
  return count > countOfLines() - start ? countOfLines() : start + count - 1;
}

void CodeText::visitLines(int start, int count,
                          const std::function<void(std::string_view line)>& visit) const {
  const int last = lastOf(start, count);
  for (int number = start; number <= last; ++number) visit(body_->lines.line(number));
}

std::string CodeText::lines(int start, int count) const {
  std::string text;
  const int last = lastOf(start, count);
  std::size_t size = 0;
  for (int number = start; number <= last; ++number)
    size += body_->lines.record(number).length + base::kCrLf.size();
  text.reserve(size);
  body_->lines.appendShown(start, last, text);
  return text;
}

std::string_view CodeText::line(int number) const {
  return number < 1 || number > countOfLines() ? std::string_view() : body_->lines.line(number);
}

std::string CodeText::procOfLine(int line, ProcKind& kind) const {
  requireLine(line);
  kind = ProcKind::kProc;
  const std::size_t index = body_->outline.procedureAt(line, body_->lines);
  if (index == ModuleOutline::kNone) return {};
  std::string scratch;
  const Title title = body_->outline.title(index, body_->lines, scratch);
  kind = title.kind;
  return std::string(title.name);
}

ProcedureInfo CodeText::procedure(std::string_view name, ProcKind kind) const {
  requireKind(kind);
  const std::size_t index = body_->outline.procedureNamed(name, kind, body_->lines);
  if (index == ModuleOutline::kNone) throw Error(base::errors::kProcedureNotDefined);
  return procedureInfo(body_->outline, body_->lines, index);
}

std::vector<ProcedureInfo> CodeText::procedures() const {
  std::vector<ProcedureInfo> all;
  all.reserve(body_->outline.procedureCount());
  for (std::size_t i = 0; i < body_->outline.procedureCount(); ++i)
    all.push_back(procedureInfo(body_->outline, body_->lines, i));
  return all;
}

std::vector<MemberInfo> CodeText::members() const { return body_->memberList(); }

bool CodeText::find(std::string_view target, frame::TextRange& range, bool wholeWord, bool matchCase,
                    bool pattern, const base::CodePage& page) const {
  return findInLines(body_->lines, target, range, wholeWord, matchCase, pattern, page);
}

// A line of this module is copied first: where it stands may move.
void CodeText::edit(int first, int removed, std::string_view text) {
  const std::string own(body_->lines.holds(text) ? text : std::string_view());
  edit(first, removed, base::splitLines(own.empty() ? text : own));
}

void CodeText::edit(int first, int removed, const std::vector<std::string_view>& texts) {
  const LineEdit visible = body_->edit(first, removed, texts);
  if (onEdited) onEdited(visible.first, visible.removed, visible.inserted);
}

void CodeText::insertLines(int line, std::string_view text) {
  requireLine(line);
  edit(std::min(line, countOfLines() + 1), 0, text);
}

void CodeText::deleteLines(int start, int count) {
  requireNoNegative(count);
  requireExistingLine(start, countOfLines());
  if (count == 0) return;
  edit(start, std::min(count, countOfLines() - start + 1), std::vector<std::string_view>());
}

void CodeText::replaceLine(int line, std::string_view text) {
  requireExistingLine(line, countOfLines());
  edit(line, 1, text);
}

void CodeText::replaceLines(int start, int count, std::string_view text) {
  if (count < 1) throw Error(base::errors::kInvalidArgument);
  requireExistingLine(start, countOfLines());
  if (count > countOfLines() - start + 1) throw Error(base::errors::kInvalidArgument);
  edit(start, count, text);
}

void CodeText::addFromString(std::string_view text) { insertLines(countOfDeclarationLines() + 1, text); }

void CodeText::setText(std::string_view text) {
  const int removed = countOfLines();
  const auto owner = std::make_shared<const std::string>(text);
  body_ = std::make_unique<Body>(body_->kind, owner, *owner);
  if (onEdited) onEdited(1, removed, countOfLines());
}

std::string CodeText::bytes() const {
  std::string out;
  out.reserve(body_->lines.textBytes());
  appendBytes(out);
  return out;
}

void CodeText::appendBytes(std::string& out) const {
  out.reserve(out.size() + body_->lines.textBytes());
  LineStore::Writer writer(body_->lines, out);
  const AttributeLines& attributes = body_->attributes;
  int written = 0;
  for (std::size_t i = 0; i < attributes.size(); ++i) {
    writer.writeLines(written + 1, attributes.line(i));
    written = attributes.line(i);
    for (const LineRecord& record : attributes.records(i)) writer.write(record);
  }
  writer.writeLines(written + 1, countOfLines());
}

int CodeText::hiddenLinesBefore(int line) const {
  const AttributeLines& attributes = body_->attributes;
  std::size_t hidden = 0;
  for (std::size_t i = 0; i < attributes.size() && attributes.line(i) < line; ++i)
    hidden += attributes.records(i).size();
  return static_cast<int>(hidden);
}

void CodeText::forgetDroppedAttributes() { body_->shelf.clear(); }

}  // namespace kolvane::workspace
