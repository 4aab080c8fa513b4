#include "workspace/project_file.h"

#include <algorithm>
#include <array>

#include "base/error.h"
#include "base/text.h"

namespace kolvane::workspace {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// The keys in the order in which the IDE writes them.
enum class Style { kPlain, kQuoted, kEntry };
struct KeyRule {
  std::string_view key;
  Style style;
};
constexpr std::array kKeys = {
    KeyRule{"Type", Style::kPlain},
    // Written in the order in which they were added, one among the other.
    KeyRule{"Reference", Style::kEntry},
    KeyRule{"Object", Style::kEntry},
    KeyRule{"Form", Style::kEntry},
    KeyRule{"Module", Style::kEntry},
    KeyRule{"Class", Style::kEntry},
    KeyRule{"UserControl", Style::kEntry},
    KeyRule{"PropertyPage", Style::kEntry},
    KeyRule{"Designer", Style::kEntry},
    KeyRule{"UserDocument", Style::kEntry},
    KeyRule{"RelatedDoc", Style::kEntry},
    // Each once, in this order.
    KeyRule{"ResFile32", Style::kQuoted},
    KeyRule{"IconForm", Style::kQuoted},
    KeyRule{"Startup", Style::kQuoted},
    KeyRule{"HelpFile", Style::kQuoted},
    KeyRule{"NoControlUpgrade", Style::kPlain},
    KeyRule{"Title", Style::kQuoted},
    KeyRule{"ExeName32", Style::kQuoted},
    KeyRule{"Path32", Style::kQuoted},
    KeyRule{"Command32", Style::kQuoted},
    KeyRule{"Name", Style::kQuoted},
    KeyRule{"HelpContextID", Style::kQuoted},
    KeyRule{"Description", Style::kQuoted},
    KeyRule{"CompatibleMode", Style::kQuoted},
    KeyRule{"CompatibleEXE32", Style::kQuoted},
    KeyRule{"VersionCompatible32", Style::kQuoted},
    KeyRule{"MajorVer", Style::kPlain},
    KeyRule{"MinorVer", Style::kPlain},
    KeyRule{"RevisionVer", Style::kPlain},
    KeyRule{"AutoIncrementVer", Style::kPlain},
    KeyRule{"ServerSupportFiles", Style::kPlain},
    KeyRule{"DllBaseAddress", Style::kPlain},
    KeyRule{"VersionComments", Style::kQuoted},
    KeyRule{"VersionCompanyName", Style::kQuoted},
    KeyRule{"VersionFileDescription", Style::kQuoted},
    KeyRule{"VersionLegalCopyright", Style::kQuoted},
    KeyRule{"VersionLegalTrademarks", Style::kQuoted},
    KeyRule{"VersionProductName", Style::kQuoted},
    KeyRule{"CondComp", Style::kQuoted},
    KeyRule{"CompilationType", Style::kPlain},
    KeyRule{"OptimizationType", Style::kPlain},
    KeyRule{"FavorPentiumPro(tm)", Style::kPlain},
    KeyRule{"CodeViewDebugInfo", Style::kPlain},
    KeyRule{"NoAliasing", Style::kPlain},
    KeyRule{"BoundsCheck", Style::kPlain},
    KeyRule{"OverflowCheck", Style::kPlain},
    KeyRule{"FlPointCheck", Style::kPlain},
    KeyRule{"FDIVCheck", Style::kPlain},
    KeyRule{"UnroundedFP", Style::kPlain},
    KeyRule{"StartMode", Style::kPlain},
    KeyRule{"Unattended", Style::kPlain},
    KeyRule{"Retained", Style::kPlain},
    KeyRule{"ThreadPerObject", Style::kPlain},
    KeyRule{"MaxNumberOfThreads", Style::kPlain},
    KeyRule{"ThreadingModel", Style::kPlain},
    KeyRule{"RemoveUnusedControlInfo", Style::kPlain},
    KeyRule{"DebugStartupOption", Style::kPlain},
    KeyRule{"DebugStartupComponent", Style::kPlain},
    KeyRule{"UseExistingBrowser", Style::kPlain},
};

struct ComponentRule {
  std::string_view key;
  frame::ComponentType type;
};
constexpr std::array kComponents = {
    ComponentRule{"Module", frame::ComponentType::kStdModule},
    ComponentRule{"Class", frame::ComponentType::kClassModule},
    ComponentRule{"Form", frame::ComponentType::kVBForm},
    ComponentRule{"Form", frame::ComponentType::kVBMDIForm},
    ComponentRule{"UserControl", frame::ComponentType::kUserControl},
    ComponentRule{"PropertyPage", frame::ComponentType::kPropPage},
    ComponentRule{"UserDocument", frame::ComponentType::kDocObject},
    ComponentRule{"Designer", frame::ComponentType::kActiveXDesigner},
    ComponentRule{"RelatedDoc", frame::ComponentType::kRelatedDocument},
    ComponentRule{"ResFile32", frame::ComponentType::kResFile},
};

const KeyRule* ruleOf(std::string_view key) {
  const auto* found = std::find_if(kKeys.begin(), kKeys.end(),
                                   [&](const KeyRule& rule) { return base::equalNoCase(rule.key, key); });
  return found == kKeys.end() ? nullptr : found;
}

// Where a key stands in the order; all that are written as they come share one place.
std::size_t rankOf(const KeyRule& rule) {
  return rule.style == Style::kEntry ? 1 : static_cast<std::size_t>(&rule - kKeys.data());
}

std::string_view keyOf(std::string_view line) {
  const std::size_t equals = line.find('=');
  return equals == std::string_view::npos ? std::string_view() : trimRight(trimLeft(line.substr(0, equals)));
}

std::string_view valueOf(std::string_view line) { return line.substr(line.find('=') + 1); }

// The name between the brackets of a section's line.
std::optional<std::string_view> sectionOf(std::string_view line) {
  line = trimRight(trimLeft(line));
  if (line.size() < 2 || line.front() != '[' || line.back() != ']') return std::nullopt;
  return line.substr(1, line.size() - 2);
}

bool isMarked(std::string_view value, char mark) {
  return value.size() >= 2 && value.front() == mark && value.back() == mark;
}

void refuseLineEnds(std::string_view text) {
  if (text.find_first_of("\r\n") != std::string_view::npos)
    throw base::Error(base::errors::kInvalidCall, "A line of a project file cannot hold a line end");
}

}  // namespace

std::string_view componentKey(frame::ComponentType type) {
  const auto* found = std::find_if(kComponents.begin(), kComponents.end(),
                                   [&](const ComponentRule& rule) { return rule.type == type; });
  return found == kComponents.end() ? std::string_view() : found->key;
}

std::optional<frame::ComponentType> componentTypeOf(std::string_view key) {
  for (const ComponentRule& rule : kComponents)
    if (base::equalNoCase(rule.key, key)) return rule.type;
  return std::nullopt;
}

std::string_view withoutMarks(std::string_view value) {
  value = trimRight(trimLeft(value));
  return isMarked(value, '"') || isMarked(value, '!') ? value.substr(1, value.size() - 2) : value;
}

ComponentLine componentLine(const ProjectEntry& entry) {
  const bool named = base::equalNoCase(entry.key, "Module") || base::equalNoCase(entry.key, "Class");
  const std::size_t semicolon = named ? entry.value.find(';') : std::string_view::npos;
  if (semicolon == std::string_view::npos) return {{}, withoutMarks(entry.value)};
  return {trimRight(trimLeft(entry.value.substr(0, semicolon))),
          withoutMarks(entry.value.substr(semicolon + 1))};
}

std::string componentValue(frame::ComponentType type, std::string_view name, std::string_view file) {
  const bool named = type == frame::ComponentType::kStdModule || type == frame::ComponentType::kClassModule;
  return named ? std::string(name).append("; ").append(file) : std::string(file);
}

std::vector<std::string> componentFiles(const ProjectFile& file) {
  std::vector<std::string> files;
  for (const ProjectEntry& entry : file.entries())
    if (componentTypeOf(entry.key)) files.emplace_back(componentLine(entry).file);
  return files;
}

// ---- reading

ProjectFile ProjectFile::parse(std::shared_ptr<const void> owner, std::string_view bytes) {
  ProjectFile file;
  file.owner_ = std::move(owner);
  LineReader reader(bytes);
  for (std::string_view whole; reader.next(whole);) {
    if (file.lines_.empty() && !lineEndOf(whole).empty()) file.lineEnd_ = lineEndOf(whole);
    file.lines_.push_back({++file.lastId_, SourceLine(whole)});
  }
  for (const ProjectEntry& entry : file.entries())
    if (const KeyRule* rule = ruleOf(entry.key);
        rule && rule->style == Style::kQuoted && isMarked(entry.value, '!'))
      file.mark_ = '!';
  return file;
}

std::string_view ProjectFile::textOf(std::size_t index) const {
  std::string_view text = lines_[index].source.text();
  if (index == 0 && text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  return text;
}

std::vector<ProjectEntry> ProjectFile::entries() const {
  std::vector<ProjectEntry> result;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const std::string_view text = textOf(i);
    if (sectionOf(text)) break;
    if (const std::string_view key = keyOf(text); !key.empty())
      result.push_back({lines_[i].id, static_cast<int>(i) + 1, key, valueOf(text)});
  }
  return result;
}

// The first line behind the section's own; that of the nameless section is the file's first.
std::size_t ProjectFile::sectionStart(std::string_view section) const {
  if (section.empty()) return 0;
  for (std::size_t i = 0; i < lines_.size(); ++i)
    if (const auto name = sectionOf(textOf(i)); name && base::equalNoCase(*name, section)) return i + 1;
  return kNone;
}

std::size_t ProjectFile::sectionEnd(std::size_t start) const {
  while (start < lines_.size() && !sectionOf(textOf(start))) ++start;
  return start;
}

std::size_t ProjectFile::findKey(std::size_t first, std::size_t last, std::string_view key) const {
  for (; first < last; ++first)
    if (base::equalNoCase(keyOf(textOf(first)), key)) return first;
  return kNone;
}

std::optional<std::string> ProjectFile::value(std::string_view section, std::string_view key) const {
  const std::size_t start = sectionStart(section);
  if (start == kNone || key.empty()) return std::nullopt;
  const std::size_t found = findKey(start, sectionEnd(start), key);
  if (found == kNone) return std::nullopt;
  return std::string(section.empty() ? withoutMarks(valueOf(textOf(found))) : valueOf(textOf(found)));
}

std::optional<std::string> ProjectFile::value(std::string_view key) const { return value({}, key); }

std::size_t ProjectFile::indexOf(LineId id) const {
  const auto found =
      std::find_if(lines_.begin(), lines_.end(), [&](const Line& line) { return line.id == id; });
  return found == lines_.end() ? kNone : static_cast<std::size_t>(found - lines_.begin());
}

int ProjectFile::positionOf(LineId id) const { return static_cast<int>(indexOf(id) + 1); }

// ---- writing

std::string ProjectFile::bytes() const {
  std::string result;
  for (const Line& line : lines_) result += line.source.whole();
  return result;
}

void ProjectFile::setText(std::size_t index, std::string_view text) {
  refuseLineEnds(text);
  SourceLine& source = lines_[index].source;
  const bool marked = index == 0 && source.text().starts_with(kByteOrderMark);
  source.setText(marked ? std::string(kByteOrderMark).append(text) : std::string(text));
  edited_ = true;
}

LineId ProjectFile::insert(std::size_t index, std::string_view text) {
  refuseLineEnds(text);
  std::string_view end = lineEnd_;
  if (index > 0 && lineEndOf(lines_[index - 1].source.whole()).empty()) {
    // The file's last line has no end and stays without one: it is the new one now.
    const std::string before(lines_[index - 1].source.text());
    lines_[index - 1].source = SourceLine(before, lineEnd_);
    end = {};
  }
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(index), Line{++lastId_, SourceLine(text, end)});
  edited_ = true;
  return lastId_;
}

// Puts the value behind the "=" and its blanks, in the marks that were there.
void ProjectFile::setLineValue(std::size_t index, std::string_view value) {
  const std::string_view text = textOf(index);
  const std::string_view old = valueOf(text);
  std::string line(text.substr(0, text.size() - old.size()));
  const std::string_view bare = trimRight(trimLeft(old));
  const bool marked = isMarked(bare, '"') || isMarked(bare, '!');
  if (marked) line += bare.front();
  line += value;
  if (marked) line += bare.front();
  if (line != text) setText(index, line);
}

void ProjectFile::setValue(std::string_view key, std::string_view value) {
  const std::size_t found = findKey(0, sectionEnd(0), key);
  if (found != kNone) {
    if (withoutMarks(valueOf(textOf(found))) != value) setLineValue(found, value);
    return;
  }
  const KeyRule* rule = ruleOf(key);
  const std::string mark(rule != nullptr && rule->style == Style::kQuoted ? 1 : 0, mark_);
  insert(placeFor(key), std::string(key).append("=").append(mark).append(value).append(mark));
}

// Behind the last line whose key comes before or with this one; a key that the IDE does not know comes last.
std::size_t ProjectFile::placeFor(std::string_view key) const {
  const KeyRule* rule = ruleOf(key);
  const std::size_t rank = rule != nullptr ? rankOf(*rule) : kKeys.size();
  const std::size_t end = sectionEnd(0);
  std::size_t place = 0;
  for (std::size_t i = 0; i < end; ++i) {
    const std::string_view present = keyOf(textOf(i));
    if (present.empty()) continue;
    const KeyRule* other = ruleOf(present);
    if ((other != nullptr && rankOf(*other) <= rank) || (rule == nullptr)) place = i + 1;
  }
  return place;
}

void ProjectFile::setValue(std::string_view section, std::string_view key, std::string_view value) {
  if (section.empty()) return setValue(key, value);
  refuseLineEnds(section);
  refuseLineEnds(key);
  refuseLineEnds(value);
  std::size_t start = sectionStart(section);
  if (start == kNone) {
    if (!lines_.empty() && !trimLeft(lines_.back().source.text()).empty()) insert(lines_.size(), "");
    insert(lines_.size(), std::string("[").append(section).append("]"));
    start = lines_.size();
  }
  std::size_t end = sectionEnd(start);
  if (const std::size_t found = findKey(start, end, key); found != kNone) {
    const std::string_view text = textOf(found);
    const std::string line = std::string(text.substr(0, text.find('=') + 1)).append(value);
    if (line != text) setText(found, line);
    return;
  }
  while (end > start && trimLeft(lines_[end - 1].source.text()).empty()) --end;
  insert(end, std::string(key).append("=").append(value));
}

LineId ProjectFile::addEntry(std::string_view key, std::string_view value) {
  if (const KeyRule* rule = ruleOf(key); rule != nullptr && rule->style == Style::kQuoted) {
    setValue(key, value);
    return lines_[findKey(0, sectionEnd(0), key)].id;
  }
  return insert(placeFor(key), std::string(key).append("=").append(value));
}

void ProjectFile::setEntry(LineId id, std::string_view value) {
  if (const std::size_t index = indexOf(id); index != kNone) setLineValue(index, value);
}

void ProjectFile::removeEntry(LineId id) {
  const std::size_t index = indexOf(id);
  if (index == kNone) return;
  lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(index));
  edited_ = true;
}

void ProjectFile::setComponentName(LineId id, std::string_view name) {
  const std::size_t index = indexOf(id);
  if (index == kNone) return;
  const std::string_view text = textOf(index);
  const ComponentLine parts = componentLine({id, 0, keyOf(text), valueOf(text)});
  if (parts.name.empty() || parts.name == name) return;
  const auto offset = static_cast<std::size_t>(parts.name.data() - text.data());
  setText(index, std::string(text).replace(offset, parts.name.size(), name));
}

void ProjectFile::setComponentFile(LineId id, std::string_view file) {
  const std::size_t index = indexOf(id);
  if (index == kNone) return;
  const std::string_view text = textOf(index);
  const ComponentLine parts = componentLine({id, 0, keyOf(text), valueOf(text)});
  if (parts.file == file) return;
  const auto offset = static_cast<std::size_t>(parts.file.data() - text.data());
  setText(index, std::string(text).replace(offset, parts.file.size(), file));
}

// ---- new projects

ProjectFile ProjectFile::create(frame::ProjectType type, std::string_view name) {
  struct Kind {
    std::string_view type;
    bool server;
  };
  constexpr std::array kKinds = {Kind{"Exe", false}, Kind{"OleExe", true}, Kind{"OleDll", true},
                                 Kind{"Control", true}};
  const Kind& kind = kKinds.at(static_cast<std::size_t>(type));
  constexpr std::string_view kAutomation =
      "*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#C:\\Windows\\System32\\stdole2.tlb#OLE Automation";
  ProjectFile file;
  file.insert(0, std::string("Type=").append(kind.type));
  file.addEntry("Reference", kAutomation);
  file.setValue("Startup", "(None)");
  file.setValue("Command32", "");
  file.setValue("Name", name);
  file.setValue("HelpContextID", "0");
  file.setValue("CompatibleMode", kind.server ? "1" : "0");
  file.setValue("MajorVer", "1");
  for (const std::string_view key :
       {"MinorVer", "RevisionVer", "AutoIncrementVer", "ServerSupportFiles", "CompilationType",
        "OptimizationType", "FavorPentiumPro(tm)", "CodeViewDebugInfo", "NoAliasing", "BoundsCheck",
        "OverflowCheck", "FlPointCheck", "FDIVCheck", "UnroundedFP"})
    file.setValue(key, "0");
  file.setValue("StartMode", kind.server ? "1" : "0");
  for (const std::string_view key : {"Unattended", "Retained", "ThreadPerObject"}) file.setValue(key, "0");
  file.setValue("MaxNumberOfThreads", "1");
  if (kind.server) file.setValue("ThreadingModel", "1");
  file.setValue("MS Transaction Server", "AutoRefresh", "1");
  file.edited_ = false;
  return file;
}

}  // namespace kolvane::workspace
