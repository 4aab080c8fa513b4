#include "source/declarations.h"

#include <array>
#include <utility>

#include "base/error.h"
#include "source/comments.h"
#include "source/identifiers.h"
#include "source/line_tests.h"
#include "source/line_walk.h"
#include "source/pace.h"

namespace kolvane::source {
namespace {

constexpr std::string_view kModule = "modVBIDEFunctions";
constexpr std::string_view kAs = " As ";
constexpr std::string_view kDim = "Dim";
constexpr std::array<std::string_view, 3> kModuleWords{"Private", "Public", kDim};
constexpr std::array<std::string_view, 2> kDeclares{"Private Declare", "Public Declare"};
constexpr std::string_view kUntyped = "Variant";
constexpr std::string_view kModuleScope = "Module";
constexpr std::string_view kProcedureScope = "Procedure";
// A loop counter of one letter reads as one with a prefix and a name.
constexpr std::string_view kCounterPrefix = "i";
constexpr std::string_view kCounterName = "Count";
constexpr std::array<std::string_view, 2> kCounterTypes{"Integer", "Long"};
constexpr long kKeyIsTaken = 457;

// The second word of a line whose words are parted by single blanks.
bool isConstant(std::string_view line) {
  const std::size_t blank = line.find(' ');
  if (blank == std::string_view::npos) return false;
  const std::string_view second = line.substr(blank + 1);
  return second.substr(0, second.find(' ')) == "Const";
}

std::string_view withoutLastComment(std::string_view text) {
  text = trimWhite(text);
  const std::size_t apostrophe = text.rfind('\'');
  return apostrophe == std::string_view::npos ? text : trimWhite(text.substr(0, apostrophe));
}

// Calls `work(piece)` for the trimmed pieces between commas; for none in an empty text.
template <typename Work>
void forEachPiece(std::string_view text, Work work) {
  if (text.empty()) return;
  while (true) {
    const std::size_t comma = text.find(',');
    work(trimWhite(text.substr(0, comma)));
    if (comma == std::string_view::npos) return;
    text.remove_prefix(comma + 1);
  }
}

// ---- the declaration section

// What follows the leading word of a line that declares variables; "" for another line.
std::string_view moduleDeclaration(std::string_view line) {
  line = trimWhite(line);
  if (Is_Comment_Line(line) || startsWithAny(line, kDeclares) || isConstant(line)) return {};
  for (const std::string_view word : kModuleWords)
    if (line.starts_with(word)) return trimWhite(line.substr(word.size()));
  return {};
}

clsDeclaration moduleVariable(std::string_view piece, std::string_view project) {
  clsDeclaration declaration;
  declaration.Original_Name = Extract_Name(piece);
  declaration.Updated_Name = declaration.Original_Name;
  declaration.Original_Prefix = Extract_Prefix(piece);
  declaration.Updated_Prefix = declaration.Original_Prefix;
  declaration.Variable_Type = Extract_Type(piece);
  declaration.Scope = kModuleScope;
  declaration.Project = project;
  declaration.Just_Original_Prefix = base::mid(declaration.Original_Prefix, 2);
  return declaration;
}

// ---- a procedure

bool declaresLocals(std::string_view line) {
  line = trimWhite(line);
  return line.starts_with(kDim) && !isConstant(line);
}

// A name without a capital stands in the prefix; puts it where a name belongs.
void moveNameFromPrefix(const frame::Services& services, clsDeclaration& declaration) {
  if (!declaration.Updated_Name.empty()) return;
  std::string& prefix = declaration.Original_Prefix;
  const bool counts =
      declaration.Variable_Type == kCounterTypes[0] || declaration.Variable_Type == kCounterTypes[1];
  if (prefix == kCounterPrefix && counts) {
    declaration.Updated_Name = kCounterName;
  } else if (!prefix.empty()) {
    declaration.Updated_Name = services.codePage.upper(prefix.substr(0, 1)) + prefix.substr(1);
    declaration.Original_Name = std::exchange(prefix, {});
  }
}

clsDeclaration localVariable(const frame::Services& services, std::string_view piece,
                             std::string_view project) {
  clsDeclaration declaration;
  declaration.Project = project;
  declaration.Scope = kProcedureScope;
  declaration.Variable_Type = Extract_Type(piece);
  if (piece.find('.') == std::string_view::npos)
    declaration.Class = declaration.Variable_Type;
  else
    Extract_Type(piece, declaration.Project, declaration.Class);
  declaration.Original_Name = Extract_Name(piece);
  declaration.Updated_Name = declaration.Original_Name;
  declaration.Original_Prefix = Extract_Prefix(piece);
  moveNameFromPrefix(services, declaration);
  return declaration;
}

}  // namespace

// ---- the collection

clsDeclaration& colDeclarations::Add(clsDeclaration declaration, std::string_view sKey) {
  if (!sKey.empty() && !places_.try_emplace(std::string(sKey), items_.size()).second)
    throw base::Error(kKeyIsTaken, "This key is already associated with an element of this collection");
  items_.push_back(std::move(declaration));
  return items_.back();
}

clsDeclaration& colDeclarations::Item(int index) { return items_[placeOf(index)]; }
const clsDeclaration& colDeclarations::Item(int index) const { return items_[placeOf(index)]; }
clsDeclaration& colDeclarations::Item(std::string_view key) { return items_[placeOf(key)]; }
const clsDeclaration& colDeclarations::Item(std::string_view key) const { return items_[placeOf(key)]; }
void colDeclarations::Remove(int index) { removeAt(placeOf(index)); }
void colDeclarations::Remove(std::string_view key) { removeAt(placeOf(key)); }

std::size_t colDeclarations::placeOf(int index) const {
  if (index < 1 || index > Count()) throw base::Error(base::errors::kSubscript);
  return static_cast<std::size_t>(index) - 1;
}

std::size_t colDeclarations::placeOf(std::string_view key) const {
  const auto place = places_.find(key);
  if (place == places_.end()) throw base::Error(base::errors::kInvalidCall);
  return place->second;
}

void colDeclarations::removeAt(std::size_t place) {
  std::erase_if(places_, [place](const auto& each) { return each.second == place; });
  for (auto& [key, each] : places_)
    if (each > place) --each;
  items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(place));
}

// ---- pieces

std::string Extract_Prefix(std::string_view text) {
  const int capital = FirstCapitalLetter(text);
  return capital == 0 ? std::string() : std::string(trimWhite(base::left(text, capital - 1)));
}

std::string Extract_Name(std::string_view text) {
  const std::size_t as = text.rfind(kAs);
  const std::string_view name = as == std::string_view::npos ? trimWhite(text) : text.substr(0, as + 1);
  const int capital = FirstCapitalLetter(name);
  if (capital == 0) return {};
  const std::string_view rest = base::mid(name, capital);
  // The length is the place of the first blank, counted from the start of the text and not of the name.
  return std::string(
      trimWhite(as == std::string_view::npos ? rest : base::left(rest, base::inStr(name, " "))));
}

std::string Extract_Type(std::string_view text) {
  text = withoutLastComment(text);
  const std::size_t as = text.find(kAs);
  return std::string(as == std::string_view::npos ? kUntyped : trimWhite(text.substr(as + kAs.size())));
}

void Extract_Type(std::string_view text, std::string& project, std::string& className) {
  text = withoutLastComment(text);
  const std::size_t as = text.find(kAs);
  const std::string_view type =
      as == std::string_view::npos ? std::string_view() : trimWhite(text.substr(as + kAs.size()));
  const std::size_t point = type.find('.');
  if (point == std::string_view::npos) {
    className = type;
    return;
  }
  project = type.substr(0, point);
  className = type.substr(point + 1);
}

// ---- scans

colDeclarations Get_Module_Declarations(const frame::Services& services, frame::CodeModule& module) {
  const base::ErrorScope scope{kModule, "Get_Module_Declarations"};
  colDeclarations declarations;
  std::string project;
  const auto work = [&](int, std::string_view line) {
    forEachPiece(moduleDeclaration(line), [&](std::string_view piece) {
      if (project.empty()) {
        const auto active = services.vbe.ActiveVBProject();
        if (!active) throw base::Error(base::errors::kObjectNotSet);
        project = active->Name();
      }
      declarations.Add(moduleVariable(piece, project), std::to_string(declarations.Count() + 1));
    });
  };
  walkLines(module, 1, module.CountOfDeclarationLines(), work, [] {});
  return declarations;
}

colDeclarations Get_Module_Declarations(const frame::Services& services, std::string_view strProject,
                                        frame::CodeModule& module, int firstLine, int lastLine) {
  const base::ErrorScope scope{kModule, "Get_Module_Declarations"};
  colDeclarations declarations;
  Pace pace(services.desk);
  const auto work = [&](int, std::string_view line) {
    if (!declaresLocals(line)) return;
    const std::string code = Remove_Comments(line);
    const std::string_view names = trimWhite(trimWhite(code).substr(kDim.size()));
    forEachPiece(
        names, [&](std::string_view piece) { declarations.Add(localVariable(services, piece, strProject)); });
  };
  walkLines(module, firstLine, std::max(firstLine, lastLine - 1), work, [&pace] { pace.step(); });
  return declarations;
}

}  // namespace kolvane::source
