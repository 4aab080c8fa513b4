// The variables that a module's text declares, read line by line and word by word. A scanner of words, not a
// parser, and its callers count on how it reads: a comma always parts two declarations, that of an array's
// bounds too; a name begins at its first capital and what stands in front of it is the prefix; comparisons
// are exact in case.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "frame/services.h"

namespace kolvane::source {

// A plain record; reports carry other things in its fields. In the order in which a collection takes them.
struct clsDeclaration {
  std::string Original_Name = {};
  std::string Updated_Name = {};
  std::string Original_Prefix = {};
  std::string Updated_Prefix = {};
  std::string Variable_Type = {};
  std::string Scope = {};
  std::string Project = {};
  std::string Class = {};
  std::string Just_Original_Prefix = {};
  bool operator==(const clsDeclaration&) const = default;
};

// Declarations in the order in which they were added. Indexes count from 1; keys compare without case.
// References and iterators hold until the next Add or Remove.
class colDeclarations {
 public:
  // Without a key when `sKey` is empty. A key that is taken raises 457.
  clsDeclaration& Add(clsDeclaration declaration, std::string_view sKey = {});
  // An index out of range raises 9, an unknown key 5.
  clsDeclaration& Item(int index);
  const clsDeclaration& Item(int index) const;
  clsDeclaration& Item(std::string_view key);
  const clsDeclaration& Item(std::string_view key) const;
  int Count() const { return static_cast<int>(items_.size()); }
  // Raises as Item does. Linear in the count.
  void Remove(int index);
  void Remove(std::string_view key);

  auto begin() { return items_.begin(); }
  auto end() { return items_.end(); }
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  std::size_t placeOf(int index) const;
  std::size_t placeOf(std::string_view key) const;
  void removeAt(std::size_t place);

  std::vector<clsDeclaration> items_;
  std::map<std::string, std::size_t, base::LessNoCase> places_;
};

// ---- pieces of one declaration, such as "strName As String"

// What stands in front of the first letter A to Z; "" without one. Of "i As Integer" it is "i".
std::string Extract_Prefix(std::string_view text);
// From the first capital in front of the last " As " up to the first blank; without " As " up to the end. ""
// without a capital.
std::string Extract_Name(std::string_view text);
// What stands behind the first " As ", a comment cut away at the last apostrophe; "Variant" without " As ".
std::string Extract_Type(std::string_view text);
// The same parted at its first point: "Excel.Range" gives a project and a class. Without a point all of it is
// the class and `project` stays as it is; without " As " the class is "".
void Extract_Type(std::string_view text, std::string& project, std::string& className);

// ---- scans; linear in the lines they read

// The variables of the declaration section: lines that begin with Private, Public or Dim, constants and
// Declare statements left out. What else begins so (Enum, Type, WithEvents, Event) reads as a variable.
// `Scope` is "Module", `Project` the active project, and the keys are "1", "2" and on.
colDeclarations Get_Module_Declarations(const frame::Services& services, frame::CodeModule& module);
// The variables of the lines from `firstLine` up to, not including, `lastLine`; the first one is read in any
// case. Only lines that begin with Dim count: no Static, no parameter, no Dim behind a number or a colon.
// `Scope` is "Procedure". Lets events be handled on the way; what they change in the module is seen from then
// on.
colDeclarations Get_Module_Declarations(const frame::Services& services, std::string_view strProject,
                                        frame::CodeModule& module, int firstLine, int lastLine);

}  // namespace kolvane::source
