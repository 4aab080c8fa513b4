#include "workspace/member_list.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "base/text.h"
#include "workspace/text_fold.h"

namespace kolvane::workspace {
namespace {

// "say ""hello""" -> say "hello"; a value without quotes as it is.
std::string unquoted(std::string_view value) {
  if (value.size() < 2 || value.front() != '"' || value.back() != '"') return std::string(value);
  return base::replaceAll(value.substr(1, value.size() - 2), "\"\"", "\"");
}

void setDescription(MemberInfo& member, std::string_view value) { member.description = unquoted(value); }
void setStandardMethod(MemberInfo& member, std::string_view value) {
  member.standardMethod = base::toLong(value);
}
void setHelpContext(MemberInfo& member, std::string_view value) {
  member.helpContextId = base::toLong(value);
}

// -1 only marks a variable with events.
void setVariableHelp(MemberInfo& member, std::string_view value) {
  if (base::toLong(value) != -1) setHelpContext(member, value);
}

// A text of hexadecimal digits.
void setFlags(MemberInfo& member, std::string_view value) {
  const std::string digits = unquoted(value);
  std::from_chars(digits.data(), digits.data() + digits.size(), member.memberFlags, 16);
}

struct AttributeRow {
  std::string_view name;
  void (*set)(MemberInfo&, std::string_view value);
};

constexpr std::array<AttributeRow, 7> kAttributeRows{{
    {"VB_Description", setDescription},
    {"VB_VarDescription", setDescription},
    {"VB_HelpID", setHelpContext},
    {"VB_VarHelpID", setVariableHelp},
    {"VB_UserMemId", setStandardMethod},
    {"VB_VarUserMemId", setStandardMethod},
    {"VB_MemberFlags", setFlags},
}};

class MemberReader {
 public:
  MemberReader(CodeKind kind, const LineStore& lines, const AttributeLines& attributes)
      : lines_(lines), attributes_(attributes) {
    if (kind == CodeKind::kObjectModule) scopes_.declare = frame::MemberScope::kPrivate;
  }

  void readLine(int first, int last) {
    const std::string_view text = lines_.joined(first, last, scratch_);
    touched_.clear();
    counted_ = text.data();
    line_ = first;
    for (const DeclaredName& declared : declaredNames(text, scopes_)) add(declared, first);
    if (touched_.empty()) return;
    const auto* const records = attributes_.behind(last);
    if (!records) return;
    std::unordered_map<std::string, std::size_t> byName;
    for (const std::size_t index : touched_) byName.emplace(foldedText(members_[index].name), index);
    for (const LineRecord& record : *records) applyAttribute(lines_.text(record), byName);
  }

  std::vector<MemberInfo> members() { return std::move(members_); }

 private:
  void add(const DeclaredName& declared, int first) {
    if (declared.type == frame::MemberType::kProperty) {
      const auto [known, isNew] = properties_.emplace(foldedText(declared.name), members_.size());
      if (!isNew) {
        touched_.push_back(known->second);
        return;
      }
    }
    touched_.push_back(members_.size());
    MemberInfo member;
    member.name = declared.name;
    member.type = declared.type;
    member.scope = declared.scope;
    member.isStatic = declared.isStatic;
    member.codeLocation = declared.isTitle ? first : lineOf(declared.name);
    members_.push_back(std::move(member));
  }

  // The line that a name stands on; to be asked for the names of a logical line in their order.
  int lineOf(std::string_view name) {
    line_ += static_cast<int>(std::count(counted_, name.data(), '\n'));
    counted_ = name.data();
    return line_;
  }

  // Of several parts of a property the first one that has an attribute counts.
  void applyAttribute(std::string_view line, const std::unordered_map<std::string, std::size_t>& byName) {
    const auto parsed = parseAttributeLine(line);
    const auto member = parsed ? byName.find(foldedText(parsed->member)) : byName.end();
    if (member == byName.end()) return;
    for (std::size_t row = 0; row < kAttributeRows.size(); ++row) {
      if (!base::equalNoCase(kAttributeRows[row].name, parsed->attribute)) continue;
      if (!given_.insert({member->second, row}).second) return;
      kAttributeRows[row].set(members_[member->second], parsed->value);
    }
  }

  const LineStore& lines_;
  const AttributeLines& attributes_;
  DefaultScopes scopes_;
  std::vector<MemberInfo> members_;
  const char* counted_ = nullptr;  // up to where line ends were counted
  int line_ = 0;
  std::vector<std::size_t> touched_;                     // the members of the line being read
  std::set<std::pair<std::size_t, std::size_t>> given_;  // member and attribute row
  std::unordered_map<std::string, std::size_t> properties_;
  std::string scratch_;
};

}  // namespace

std::vector<MemberInfo> readMembers(CodeKind kind, const LineStore& lines, const ModuleOutline& outline,
                                    const AttributeLines& attributes) {
  MemberReader reader(kind, lines, attributes);
  outline.forEachModuleLine(lines, [&](int first, int last) { reader.readLine(first, last); });
  return reader.members();
}

}  // namespace kolvane::workspace
