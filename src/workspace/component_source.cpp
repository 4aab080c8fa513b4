#include "workspace/component_source.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "workspace/designer_tree.h"
#include "workspace/header_lines.h"
#include "workspace/header_templates.h"

namespace kolvane::workspace {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kExtKey = "VB_Ext_KEY";
constexpr std::size_t kQuotedInProblem = 60;

// The attribute lines in the IDE's order; unknown ones follow.
constexpr std::array<std::string_view, 11> kAttributeOrder{"VB_Name",
                                                           "VB_Base",
                                                           "VB_GlobalNameSpace",
                                                           "VB_Creatable",
                                                           "VB_PredeclaredId",
                                                           "VB_Exposed",
                                                           "VB_TemplateDerived",
                                                           "VB_Customizable",
                                                           "VB_Description",
                                                           "VB_HelpID",
                                                           kExtKey};

// The settings of a class in the IDE's order, spelled up to the value as the IDE spells them.
struct ClassSettingLine {
  std::string_view name;
  std::string_view start;
};
constexpr std::array<ClassSettingLine, 5> kClassSettings{
    {{"MultiUse", "  MultiUse = "},
     {"Persistable", "  Persistable = "},
     {"DataBindingBehavior", "  DataBindingBehavior = "},
     {"DataSourceBehavior", "  DataSourceBehavior  = "},
     {"MTSTransactionMode", "  MTSTransactionMode  = "}}};

std::size_t attributeRank(std::string_view name) {
  const auto found = std::find_if(kAttributeOrder.begin(), kAttributeOrder.end(),
                                  [&](std::string_view each) { return base::equalNoCase(each, name); });
  return static_cast<std::size_t>(found - kAttributeOrder.begin());
}

std::size_t classSettingRank(std::string_view name) {
  const auto found =
      std::find_if(kClassSettings.begin(), kClassSettings.end(),
                   [&](const ClassSettingLine& each) { return base::equalNoCase(each.name, name); });
  return static_cast<std::size_t>(found - kClassSettings.begin());
}

bool isVersionLine(std::string_view text) {
  std::string_view rest = trimLeft(text);
  return base::equalNoCase(takeWord(rest), "VERSION") && !rest.empty() && base::isDigit(rest.front());
}

bool isObjectLine(std::string_view text) { return base::equalNoCase(assignmentOf(text).name, "Object"); }

void requireOneLine(std::string_view text) {
  if (text.find_first_of("\r\n") != std::string_view::npos)
    throw base::Error(base::errors::kInvalidCall, "An attribute cannot hold a line end");
}

// A line of a file, fit to stand in a message of one line.
std::string shown(std::string_view line) {
  std::string text(trimRight(trimLeft(line)).substr(0, kQuotedInProblem));
  for (char& c : text)
    if (std::iscntrl(static_cast<unsigned char>(c)) != 0) c = '?';
  return text;
}

// `"key" ,"value"`
std::pair<std::string, std::string> extPairOf(std::string_view value) {
  const std::size_t size = quotedLength(value);
  if (size == 0) return {};
  std::string_view rest = trimLeft(value.substr(size));
  if (!rest.starts_with(',')) return {};
  return {unquoted(value.substr(0, size)), unquoted(trimLeft(rest.substr(1)))};
}

std::string firstLineEnd(std::string_view bytes) {
  std::string_view whole;
  LineReader reader(bytes);
  if (!reader.next(whole)) return std::string(base::kCrLf);
  const std::string_view end = lineEndOf(whole);
  return std::string(end.empty() ? base::kCrLf : end);
}

std::vector<SourceLine> linesOf(std::string_view bytes) {
  std::vector<SourceLine> lines;
  LineReader reader(bytes);
  for (std::string_view whole; reader.next(whole);) lines.emplace_back(whole);
  return lines;
}

}  // namespace

std::string Problem::text() const {
  return line == 0 ? file + ": " + reason : file + "(" + std::to_string(line) + "): " + reason;
}

// ---- the parts of a header

struct ComponentHeader::Body {
  enum class Block { kNone, kClass, kDesigner };

  std::shared_ptr<const void> owner;
  std::size_t codeOffset = 0;
  std::string lineEnd{base::kCrLf};
  std::string_view mark;         // the byte order mark, if there is one
  std::vector<SourceLine> head;  // version and object lines
  Block blockKind = Block::kNone;
  std::string_view block;            // from Begin to End
  std::vector<SourceLine> settings;  // a class's block by lines; `block` is not used then
  std::string_view rootClass;
  std::vector<SourceLine> attributes;
  std::unique_ptr<DesignerTree> tree;
  bool opaque = false;
  bool edited = false;

  const SourceLine* find(std::string_view attribute) const {
    const auto found = std::find_if(attributes.begin(), attributes.end(), [&](const SourceLine& line) {
      return base::equalNoCase(headerAttributeOf(line.text()).name, attribute);
    });
    return found == attributes.end() ? nullptr : &*found;
  }

  SourceLine* find(std::string_view attribute) {
    return const_cast<SourceLine*>(std::as_const(*this).find(attribute));
  }

  // Where a new line of the attribute goes: behind all that the IDE writes before it or with it.
  void insertAttribute(std::string_view name, std::string_view value) {
    const std::size_t rank = attributeRank(name);
    auto place = attributes.begin();
    for (auto line = attributes.begin(); line != attributes.end(); ++line) {
      const Assignment attribute = headerAttributeOf(line->text());
      if (!attribute.name.empty() && attributeRank(attribute.name) <= rank) place = line + 1;
    }
    std::string text = "Attribute ";
    attributes.insert(place, SourceLine(text.append(name).append(" = ").append(value), lineEnd));
    edited = true;
  }
};

// ---- reading

namespace {

// Follows a Begin tree to its end without keeping anything of it but what is open.
class BlockScanner {
 public:
  BlockScanner(LineReader& reader, int& lineNumber, std::vector<Problem>& problems, const std::string& file)
      : reader_(reader), lineNumber_(lineNumber), problems_(problems), file_(file) {}

  // The block's first line was read; reads up to the line that closes it. False when the block has a fault.
  bool scan(std::string_view firstLine) {
    open(firstLine, Bracket::kBegin);
    for (std::string_view whole; depth_ > 0;) {
      const std::size_t offset = reader_.offset();
      if (!reader_.next(whole)) return faultAtOpen("the file ends before the End of ");
      if (whole.front() == 'A' && isHeaderAttribute(whole)) {
        reader_ = LineReader(reader_.bytes(), offset);
        return faultAtOpen("no End for ");
      }
      ++lineNumber_;
      const std::string_view text = withoutLineEnd(whole);
      const Bracket bracket = bracketOf(text);
      if (bracket == Bracket::kBegin || bracket == Bracket::kBeginGroup)
        open(text, bracket);
      else if (bracket != Bracket::kNone)
        close(bracket);
    }
    return !faulty_;
  }

 private:
  struct Open {
    bool group;
    int line;
    std::string_view text;
  };

  static bool isHeaderAttribute(std::string_view whole) {
    return base::startsWithNoCase(headerAttributeOf(withoutLineEnd(whole)).name, "VB_");
  }

  void open(std::string_view text, Bracket bracket) {
    const bool group = bracket == Bracket::kBeginGroup;
    const bool inGroup = depth_ > 0 && depth_ <= kMaxNesting && open_[top()].group;
    if (inGroup && !group) fault(lineNumber_, "an object begins inside a property group");
    if (depth_ == kMaxNesting)
      fault(lineNumber_, "objects nested deeper than " + std::to_string(kMaxNesting) + " levels");
    else if (depth_ < kMaxNesting)
      open_[static_cast<std::size_t>(depth_)] = {group, lineNumber_, text};
    ++depth_;
  }

  void close(Bracket bracket) {
    const bool group = bracket == Bracket::kEndGroup;
    if (depth_ <= kMaxNesting && open_[top()].group != group)
      fault(lineNumber_, group ? "EndProperty without BeginProperty" : "End inside a property group");
    --depth_;
  }

  std::size_t top() const { return static_cast<std::size_t>(std::min(depth_, kMaxNesting) - 1); }

  bool faultAtOpen(std::string_view reason) {
    const Open& innermost = open_[top()];
    fault(innermost.line, std::string(reason).append("\"").append(shown(innermost.text)).append("\""));
    return false;
  }

  // One fault is told; what follows it in the same block is its consequence.
  void fault(int line, std::string reason) {
    if (!faulty_) problems_.push_back({file_, line, std::move(reason)});
    faulty_ = true;
  }

  LineReader& reader_;
  int& lineNumber_;
  std::vector<Problem>& problems_;
  const std::string& file_;
  std::array<Open, kMaxNesting> open_{};
  int depth_ = 0;
  bool faulty_ = false;
};

}  // namespace

ComponentHeader ComponentHeader::parse(std::shared_ptr<const void> owner, std::string_view bytes,
                                       const std::string& file, std::vector<Problem>& problems) {
  auto body = std::make_unique<Body>();
  body->owner = std::move(owner);
  body->lineEnd = firstLineEnd(bytes);
  if (bytes.starts_with(kByteOrderMark)) body->mark = bytes.substr(0, kByteOrderMark.size());
  body->codeOffset = body->mark.size();

  LineReader reader(bytes, body->mark.size());
  int lineNumber = 0;
  bool versionSeen = false;
  bool attributeSeen = false;
  // Lines go to what stands in front of the block until the block was seen. Blank lines belong to the header
  // only when more of the header follows.
  std::vector<SourceLine>* target = &body->head;
  const auto keepBlanksBefore = [&](std::string_view whole) {
    const auto start = static_cast<std::size_t>(whole.data() - bytes.data());
    if (start > body->codeOffset)
      target->emplace_back(bytes.substr(body->codeOffset, start - body->codeOffset));
    return start;
  };
  const auto keep = [&](std::string_view whole) {
    keepBlanksBefore(whole);
    target->emplace_back(whole);
    body->codeOffset = reader.offset();
  };
  for (std::string_view whole; reader.next(whole);) {
    ++lineNumber;
    const std::string_view text = withoutLineEnd(whole);
    const Bracket bracket = bracketOf(text);
    if (trimLeft(text).empty()) continue;
    if (!headerAttributeOf(text).name.empty()) {
      target = &body->attributes;
      keep(whole);
      attributeSeen = true;
    } else if (attributeSeen) {
      break;
    } else if (body->blockKind != Body::Block::kNone) {
      if (bracket != Bracket::kEnd && bracket != Bracket::kEndGroup) break;
      // One End too many: the tree before it is no longer to be trusted.
      if (!body->opaque) problems.push_back({file, lineNumber, "End without Begin"});
      body->opaque = true;
      keep(whole);
    } else if (bracket == Bracket::kBegin) {
      const std::size_t begin = keepBlanksBefore(whole);
      std::string_view words = text;
      takeWord(words);
      body->rootClass = takeWord(words);
      body->blockKind = body->rootClass.empty() ? Body::Block::kClass : Body::Block::kDesigner;
      body->opaque = !BlockScanner(reader, lineNumber, problems, file).scan(text);
      body->codeOffset = reader.offset();
      body->block = bytes.substr(begin, body->codeOffset - begin);
      target = &body->attributes;
    } else if (isVersionLine(text)) {
      keep(whole);
      versionSeen = true;
    } else if (versionSeen && isObjectLine(text)) {
      keep(whole);
    } else {
      break;
    }
  }
  if (body->blockKind == Body::Block::kClass && !body->opaque) body->settings = linesOf(body->block);
  return ComponentHeader(std::move(body));
}

ComponentHeader ComponentHeader::create(frame::ComponentType type, std::string_view name,
                                        std::string_view lineEnd) {
  auto text = std::make_shared<const std::string>(newHeaderText(type, name, lineEnd));
  std::vector<Problem> none;
  ComponentHeader header = parse(text, *text, std::string(name), none);
  header.body_->edited = true;
  return header;
}

ComponentHeader::ComponentHeader(std::unique_ptr<Body> body) : body_(std::move(body)) {}
ComponentHeader::ComponentHeader(ComponentHeader&&) noexcept = default;
ComponentHeader& ComponentHeader::operator=(ComponentHeader&&) noexcept = default;
ComponentHeader::~ComponentHeader() = default;

std::size_t ComponentHeader::codeOffset() const { return body_->codeOffset; }
bool ComponentHeader::opaque() const { return body_->opaque; }
std::string_view ComponentHeader::lineEnd() const { return body_->lineEnd; }
std::string_view ComponentHeader::rootClass() const { return body_->rootClass; }

// ---- attributes

std::optional<std::string> ComponentHeader::attribute(std::string_view name) const {
  const SourceLine* line = std::as_const(*body_).find(name);
  if (line == nullptr) return std::nullopt;
  return unquoted(headerAttributeOf(line->text()).value);
}

void ComponentHeader::setAttribute(std::string_view name, std::string_view value, bool quotes) {
  requireOneLine(value);
  const std::string spelled = quotes ? quoted(value) : std::string(value);
  SourceLine* line = body_->find(name);
  if (line == nullptr) return body_->insertAttribute(name, spelled);
  const std::string_view text = line->text();
  const std::string_view old = headerAttributeOf(text).value;
  if (old == spelled) return;
  line->setText(std::string(text.substr(0, static_cast<std::size_t>(old.data() - text.data()))) + spelled);
  body_->edited = true;
}

std::string ComponentHeader::extProperty(std::string_view key) const {
  for (const SourceLine& line : body_->attributes) {
    const Assignment attribute = headerAttributeOf(line.text());
    if (!base::equalNoCase(attribute.name, kExtKey)) continue;
    if (auto [name, value] = extPairOf(attribute.value); base::equalNoCase(name, key)) return value;
  }
  return {};
}

void ComponentHeader::setExtProperty(std::string_view key, std::string_view value) {
  requireOneLine(key);
  requireOneLine(value);
  const std::string spelled = quoted(key) + " ," + quoted(value);
  for (SourceLine& line : body_->attributes) {
    const std::string_view text = line.text();
    const Assignment attribute = headerAttributeOf(text);
    if (!base::equalNoCase(attribute.name, kExtKey)) continue;
    const auto [name, old] = extPairOf(attribute.value);
    if (!base::equalNoCase(name, key)) continue;
    if (old == value) return;
    const auto start = static_cast<std::size_t>(attribute.value.data() - text.data());
    line.setText(std::string(text.substr(0, start)).append(quoted(name)).append(" ,").append(quoted(value)));
    body_->edited = true;
    return;
  }
  body_->insertAttribute(kExtKey, spelled);
}

// ---- class settings

std::optional<long> ComponentHeader::classSetting(std::string_view name) const {
  for (const SourceLine& line : body_->settings) {
    const Assignment setting = assignmentOf(line.text());
    if (base::equalNoCase(setting.name, name))
      return base::toLong(setting.value.substr(0, setting.value.find('\'')));
  }
  return std::nullopt;
}

void ComponentHeader::setClassSetting(std::string_view name, long value, std::string_view comment) {
  if (body_->opaque) throw base::Error(base::errors::kInvalidFormat, "The class's header has a fault");
  if (body_->blockKind == Body::Block::kDesigner) throw base::Error(base::errors::kUnknownProperty);
  if (classSetting(name) == value) return;
  const std::string spelled = numberWithName(value, comment);
  std::vector<SourceLine>& lines = body_->settings;
  body_->edited = true;
  for (SourceLine& line : lines) {
    const std::string_view text = line.text();
    const Assignment setting = assignmentOf(text);
    if (!base::equalNoCase(setting.name, name)) continue;
    const auto start = static_cast<std::size_t>(setting.value.data() - text.data());
    line.setText(std::string(text.substr(0, start)).append(spelled));
    return;
  }
  if (lines.empty()) {
    if (body_->head.empty()) body_->head.emplace_back("VERSION 1.0 CLASS", body_->lineEnd);
    lines.emplace_back("BEGIN", body_->lineEnd);
    lines.emplace_back("END", body_->lineEnd);
    body_->blockKind = Body::Block::kClass;
  }
  const std::size_t rank = classSettingRank(name);
  auto place = lines.begin() + 1;
  for (auto line = place; line + 1 < lines.end(); ++line)
    if (classSettingRank(assignmentOf(line->text()).name) <= rank) place = line + 1;
  const std::string start = rank < kClassSettings.size() ? std::string(kClassSettings[rank].start)
                                                         : "  " + std::string(name) + " = ";
  lines.insert(place, SourceLine(start + spelled, body_->lineEnd));
}

// ---- designers

std::vector<std::string> ComponentHeader::objectLines() const {
  std::vector<std::string> lines;
  for (const SourceLine& line : body_->head)
    if (isObjectLine(line.text())) lines.emplace_back(assignmentOf(line.text()).value);
  return lines;
}

void ComponentHeader::addObjectLine(std::string_view text) {
  requireOneLine(text);
  const std::vector<std::string> lines = objectLines();
  if (std::any_of(lines.begin(), lines.end(),
                  [&](const std::string& line) { return base::equalNoCase(line, text); }))
    return;
  auto place = body_->head.begin();
  for (auto line = body_->head.begin(); line != body_->head.end(); ++line)
    if (isVersionLine(line->text()) || isObjectLine(line->text())) place = line + 1;
  body_->head.insert(place, SourceLine("Object = " + std::string(text), body_->lineEnd));
  body_->edited = true;
}

void ComponentHeader::rename(std::string_view name) {
  if (body_->blockKind == Body::Block::kDesigner) {
    if (body_->opaque)
      throw base::Error(base::errors::kInvalidFormat, "The form's description in its file has a fault");
    if (DesignerTree* tree = designer(); tree->root() != nullptr) tree->rename(*tree->root(), name);
  }
  setAttribute("VB_Name", name, true);
}

DesignerTree* ComponentHeader::designer() {
  if (body_->blockKind != Body::Block::kDesigner) return nullptr;
  if (body_->tree == nullptr)
    body_->tree = body_->opaque ? std::make_unique<DesignerTree>(body_->block)
                                : std::make_unique<DesignerTree>(body_->block, body_->lineEnd);
  return body_->tree.get();
}

std::vector<std::string> ComponentHeader::companions() const {
  std::string rewritten;
  std::string_view bytes = body_->block;
  if (body_->tree != nullptr && body_->tree->edited()) {
    body_->tree->appendBytes(rewritten);
    bytes = rewritten;
  }
  std::vector<std::string> files;
  // Every reference holds `":`; the lines in between need no look.
  for (std::size_t at = 0; (at = bytes.find("\":", at)) != std::string_view::npos;) {
    const std::size_t before = bytes.find_last_of("\r\n", at);
    const std::size_t start = before == std::string_view::npos ? 0 : before + 1;
    const std::size_t end = std::min(bytes.find_first_of("\r\n", at), bytes.size());
    std::string file = companionOf(assignmentOf(bytes.substr(start, end - start)).value);
    const auto same = [&](const std::string& each) { return base::equalNoCase(each, file); };
    if (!file.empty() && std::none_of(files.begin(), files.end(), same)) files.push_back(std::move(file));
    at = end;
  }
  return files;
}

// ---- writing

void ComponentHeader::appendBytes(std::string& out) const {
  // The last line of a header that was cut off may lack its end; a line that was added behind it needs one.
  bool open = false;
  const auto append = [&](std::string_view whole) {
    if (whole.empty()) return;
    if (open) out.append(body_->lineEnd);
    out.append(whole);
    open = lineEndOf(whole).empty();
  };
  out.append(body_->mark);
  for (const SourceLine& line : body_->head) append(line.whole());
  if (body_->tree != nullptr && body_->tree->edited()) {
    std::string block;
    body_->tree->appendBytes(block);
    append(block);
  } else if (body_->settings.empty()) {
    append(body_->block);
  }
  for (const SourceLine& line : body_->settings) append(line.whole());
  for (const SourceLine& line : body_->attributes) append(line.whole());
}

bool ComponentHeader::edited() const {
  return body_->edited || (body_->tree != nullptr && body_->tree->edited());
}

}  // namespace kolvane::workspace
