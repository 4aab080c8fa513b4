// The code of one module: its visible lines, the hidden attribute lines that belong to its members, and its
// table of procedures, which follows every edit at the cost of what the edit touched.
//
// The text that was loaded is not copied: lines point into it until they are edited. Line ends, odd bytes,
// trailing blanks and a missing last line end are kept, so that bytes() of an unedited text is what was
// loaded.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/code_page.h"
#include "frame/host.h"

namespace kolvane::workspace {

struct ProcedureInfo {
  std::string name;
  frame::ProcKind kind = frame::ProcKind::kProc;
  int startLine = 0;
  int bodyLine = 0;
  int countLines = 0;
};

struct MemberInfo {
  std::string name;
  frame::MemberType type = frame::MemberType::kMethod;
  frame::MemberScope scope = frame::MemberScope::kPublic;
  bool isStatic = false;
  int codeLocation = 0;
  std::string description;
  long helpContextId = 0;
  long standardMethod = 0;
  unsigned memberFlags = 0;
};

// Whether bare declarations of a module are public or private depends on its kind.
enum class CodeKind { kStandardModule, kObjectModule };

class CodeText {
 public:
  // An empty text with CR LF line ends.
  explicit CodeText(CodeKind kind = CodeKind::kStandardModule);
  // `bytes` is the file behind its header; `owner` keeps it alive.
  CodeText(CodeKind kind, std::shared_ptr<const void> owner, std::string_view bytes);
  CodeText(CodeText&&) noexcept;
  CodeText& operator=(CodeText&&) noexcept;
  ~CodeText();

  // The contracts and error numbers of frame::CodeModule.
  int countOfLines() const;
  int countOfDeclarationLines() const;
  std::string lines(int start, int count) const;
  void visitLines(int start, int count, const std::function<void(std::string_view line)>& visit) const;
  // One line without its end, valid until the next edit; empty when the line is not there.
  std::string_view line(int number) const;
  std::string procOfLine(int line, frame::ProcKind& kind) const;
  ProcedureInfo procedure(std::string_view name, frame::ProcKind kind) const;
  std::vector<ProcedureInfo> procedures() const;
  std::vector<MemberInfo> members() const;
  // The range is searched with its end column. A start below 1 reads as 1, a negative end as the end of the
  // text or line; a target with a line end is found nowhere. Case is that of text_fold.h, but for
  // double-byte pages.
  bool find(std::string_view target, frame::TextRange& range, bool wholeWord = false, bool matchCase = false,
            bool pattern = false,
            const base::CodePage& page = base::CodePage::get(base::CodePage::kDefault)) const;

  // Edits re-case the keywords of the lines that they bring, and of those alone. New lines get the line end
  // of the first line that was loaded with one; a last line without one keeps its lack of it until something
  // follows.
  //
  // Hidden attribute lines stay behind the declaration of their member: when lines come or go around it, and
  // when the declaration is replaced by one of the same name and kind. Those of a member that goes are kept
  // aside; they go to the next declaration of that name and kind that appears, or at once to another one that
  // has none, so that code may be moved by deleting and inserting it. Text that brings attribute lines behind
  // a declaration has them hidden, as in a file, and they take the place of older ones.
  void insertLines(int line, std::string_view text);
  void deleteLines(int start, int count);
  void replaceLine(int line, std::string_view text);
  void replaceLines(int start, int count, std::string_view text);
  void addFromString(std::string_view text);
  // Replaces the whole code by a text that is taken as it is, as if it had been loaded: attribute lines in it
  // are hidden, nothing is re-cased.
  void setText(std::string_view text);

  // The file's bytes behind its header, attribute lines and line ends included.
  std::string bytes() const;
  void appendBytes(std::string& out) const;

  // Hidden lines that stand in front of a line in the file. Cost: linear in the members that have any.
  int hiddenLinesBefore(int line) const;

  // Drops the attribute lines that are kept aside for members that are gone. To be called when the text was
  // saved.
  void forgetDroppedAttributes();

  // Called after each edit with the first line touched, the count of lines removed there and of lines put in.
  // Attribute lines that an edit hides count as removed, or as not put in.
  std::function<void(int line, int removed, int inserted)> onEdited;

 private:
  struct Body;
  int lastOf(int start, int count) const;
  void edit(int first, int removed, std::string_view text);
  void edit(int first, int removed, const std::vector<std::string_view>& texts);
  std::unique_ptr<Body> body_;
};

}  // namespace kolvane::workspace
