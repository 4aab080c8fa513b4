#include "writers/kept_fields.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "base/text.h"
#include "source/code_tabs.h"
#include "source/line_tests.h"

namespace kolvane::writers {
namespace {

using base::trim;

constexpr std::string_view kNoParameters = "None";

// A text that the Parameters field cannot take.
std::string parametersComment(std::string_view text) { return std::string("' Parameters: ").append(text); }

std::string_view firstWord(std::string_view text) { return text.substr(0, text.find(' ')); }
std::string_view behindFirstWord(std::string_view text) { return text.substr(firstWord(text).size()); }

// ---- one parameter

struct Parameter {
  std::string_view name;
  std::string_view tail;  // behind name and type, with its leading blank
  bool optional = false;
  bool typed = false;
};

bool isName(std::string_view word) {
  if (const std::size_t bracket = word.find('('); bracket != std::string_view::npos)
    word = word.substr(0, bracket);
  while (!word.empty() && std::string_view("$%&!#@").find(word.back()) != std::string_view::npos)
    word.remove_suffix(1);
  return !word.empty() && !base::isDigit(word.front()) &&
         std::all_of(word.begin(), word.end(), base::isWordCharacter);
}

std::optional<Parameter> parseParameter(std::string_view text) {
  constexpr std::array<std::string_view, 4> kModifiers{"Optional ", "ParamArray ", "ByVal ", "ByRef "};
  constexpr std::array<std::string_view, 2> kTypeMarks{" - ", " As "};
  constexpr std::string_view kNew = "New ";
  Parameter parameter;
  text = trim(text);
  for (const std::string_view modifier : kModifiers)
    if (text.starts_with(modifier)) {
      parameter.optional = parameter.optional || modifier == kModifiers[0];
      text = trim(text.substr(modifier.size()));
    }
  parameter.name = firstWord(text);
  if (!isName(parameter.name)) return std::nullopt;
  parameter.tail = behindFirstWord(text);
  for (const std::string_view mark : kTypeMarks) {
    if (!parameter.tail.starts_with(mark)) continue;
    std::string_view type = base::lTrim(parameter.tail.substr(mark.size()));
    if (type.starts_with(kNew)) type = base::lTrim(type.substr(kNew.size()));
    parameter.typed = !type.empty();
    if (parameter.typed) parameter.tail = behindFirstWord(type);
    break;
  }
  return parameter;
}

// The length of a value that a text begins with: a literal in quotes, else up to the next blank.
std::size_t valueLength(std::string_view text) {
  const std::size_t from = text.starts_with('"') ? std::min(text.find('"', 1), text.size()) : 0;
  return std::min(text.find(' ', from), text.size());
}

// What somebody wrote behind a parameter. `said` is what the title has behind its type now.
std::string_view commentOf(const Parameter& old, std::string_view said) {
  constexpr std::string_view kDefaultMark = " = ";
  std::string_view tail = old.tail;
  if (!said.empty() && tail.starts_with(said)) {
    const std::string_view rest = tail.substr(said.size());
    if (rest.empty() || rest.starts_with(' ')) return trim(rest);
  }
  if (old.optional && tail.starts_with(kDefaultMark)) {
    tail.remove_prefix(kDefaultMark.size());
    tail.remove_prefix(valueLength(tail));
  }
  return trim(tail);
}

// ---- all parameters

// Pieces between the commas that part parameters, those in literals and brackets apart.
std::vector<std::string> titleParameters(std::string_view text) {
  std::vector<std::string> pieces(1);
  bool inString = false;
  int open = 0;
  for (const char c : text) {
    if (c == '"') inString = !inString;
    if (!inString && c == '(') ++open;
    if (!inString && c == ')') --open;
    if (c == ',' && !inString && open <= 0)
      pieces.emplace_back();
    else
      pieces.back().push_back(c);
  }
  return pieces;
}

struct FreshParameter {
  std::string text;  // as the title has it
  std::optional<Parameter> parsed;
};

const FreshParameter* findNamed(const std::vector<FreshParameter>& parameters, std::string_view name) {
  for (const FreshParameter& each : parameters)
    if (each.parsed && base::equalNoCase(each.parsed->name, name)) return &each;
  return nullptr;
}

// Whether a piece of the old text begins a parameter, and not the rest of a comment.
bool beginsParameter(std::string_view piece, const std::vector<FreshParameter>& fresh) {
  const auto parameter = parseParameter(piece);
  if (!parameter) return false;
  if (parameter->typed) return true;
  const FreshParameter* known = findNamed(fresh, parameter->name);
  return known ? !known->parsed->typed : parameter->optional || parameter->tail.empty();
}

bool hasComment(std::string_view element) {
  const auto parameter = parseParameter(element);
  return !parameter || !commentOf(*parameter, {}).empty();
}

// The old text cut into parameters with their comments. A first piece that begins none stands alone.
std::vector<std::string> oldElements(const std::vector<std::string>& lines,
                                     const std::vector<FreshParameter>& fresh) {
  std::vector<std::string> elements;
  for (const std::string& line : lines) {
    bool first = true;
    for (const std::string& piece : base::split(line, ",")) {
      const bool startsLine = std::exchange(first, false);
      const std::string_view text = trim(piece);
      if (text.empty()) continue;
      const auto parameter = parseParameter(text);
      const bool bare = parameter && !parameter->typed && !findNamed(fresh, parameter->name);
      const bool goesOn = !elements.empty() && hasComment(elements.back());
      if (elements.empty() || (beginsParameter(text, fresh) && !(bare && goesOn))) {
        elements.emplace_back(text);
      } else if (startsLine) {
        elements.back().append(" ").append(text);
      } else {
        elements.back().append(",").append(piece);
      }
    }
  }
  for (std::string& element : elements) element = std::string(trim(element));
  return elements;
}

// The lines of a field, the first one apart, without the start that the layout gives them.
std::vector<std::string> linesOfValue(const StandingField& field) {
  const std::string start = source::headerContinuation("").substr(1);
  std::vector<std::string> lines{field.value};
  for (const std::string& further : field.further)
    lines.emplace_back(trim(further.starts_with(start) ? further.substr(start.size()) : further));
  return lines;
}

// ---- the other fields that follow the title

constexpr std::array<std::string_view, 14> kTypeWords{"Boolean", "Byte",    "Currency", "Date",   "Decimal",
                                                      "Double",  "Integer", "Long",     "None",   "Nothing",
                                                      "Object",  "Single",  "String",   "Variant"};

bool isTypeWord(std::string_view word) {
  if (word.ends_with("()")) word.remove_suffix(2);
  return std::find(kTypeWords.begin(), kTypeWords.end(), word) != kTypeWords.end();
}

// What somebody wrote behind the result's type; a comment of the title stands there too.
std::string_view resultComment(std::string_view old, std::string_view fresh) {
  const std::string_view word = firstWord(old);
  std::string_view rest = old;
  if (old.starts_with(fresh) && (old.size() == fresh.size() || old[fresh.size()] == ' '))
    rest = old.substr(fresh.size());
  else if (word.size() == old.size() || isTypeWord(word) || trim(behindFirstWord(old)).starts_with('\''))
    rest = behindFirstWord(old);
  rest = trim(rest);
  return rest.starts_with('\'') ? std::string_view() : rest;
}

void appendText(std::string& value, std::string_view text) {
  if (!text.empty()) value.append(" ").append(text);
}

class Keeper {
 public:
  Keeper(const frame::Services& services, const StandingHeader& header, HeaderValues fresh,
         std::string_view indent)
      : services_(services),
        header_(header),
        lineStart_(std::string(indent).append("'").append(source::commentCharacter(services))),
        kept_{std::move(fresh), header.unfit} {}

  KeptFields run() {
    for (std::size_t i = 0; i < kHeaderValues.size(); ++i)
      if (const StandingField* field = header_.field(kHeaderValues[i].field); field && field->hasText())
        kept_.values.kept[i] = keep(*field, kept_.values.*kHeaderValues[i].value);
    return std::move(kept_);
  }

 private:
  // Whether the field stays when it is switched off. What the title says nothing of is kept as it stands.
  bool keep(const StandingField& field, std::string& value) {
    const std::string fresh = value;
    if (field.label == "Parameters" && !fresh.empty()) {
      value = withComments(services_, fresh, linesOfValue(field), kept_.unfit);
      return value != fresh;
    }
    if (field.label == "Name" || (field.label == "Returns" && !fresh.empty())) {
      appendText(value, field.label == "Name" ? trim(behindFirstWord(field.value))
                                              : resultComment(field.value, value));
      addFurther(field, value);
      return value != fresh;
    }
    if (field.label == "Called From" && !value.empty()) return true;
    value = field.label == "Date" && !field.value.empty() ? headerDate(services_, field.value) : field.value;
    addFurther(field, value);
    return true;
  }

  void addFurther(const StandingField& field, std::string& value) {
    for (const std::string& line : field.further) value.append(base::kCrLf).append(lineStart_).append(line);
  }

  const frame::Services& services_;
  const StandingHeader& header_;
  std::string lineStart_;  // of the further lines of a value
  KeptFields kept_;
};

}  // namespace

std::string withComments(const frame::Services& services, std::string_view fresh,
                         const std::vector<std::string>& old, std::vector<std::string>& unfit) {
  const std::string lineStart = source::headerContinuation(source::commentCharacter(services));
  const std::string indented = source::headerIndent(services) + lineStart;
  const std::string text = base::replaceAll(fresh, "\r" + indented, "");
  std::vector<FreshParameter> parameters;
  if (trim(text) != kNoParameters)
    for (std::string& each : titleParameters(text)) parameters.push_back({std::move(each), {}});
  // The parts point into the texts, which stay where they are from here on.
  for (FreshParameter& each : parameters) each.parsed = parseParameter(each.text);
  std::vector<std::string> comments(parameters.size());
  bool commented = false;
  for (const std::string& element : oldElements(old, parameters)) {
    const auto parameter = parseParameter(element);
    const bool begins = parameter && beginsParameter(element, parameters);
    const FreshParameter* now = begins ? findNamed(parameters, parameter->name) : nullptr;
    std::string& comment =
        now ? comments[static_cast<std::size_t>(now - parameters.data())] : unfit.emplace_back();
    const std::string_view written =
        now ? commentOf(*parameter, now->parsed->tail) : std::string_view(element);
    if (now && !written.empty()) {
      appendText(comment, written);
      commented = true;
    } else if (!now && (begins ? hasComment(element) : written != kNoParameters)) {
      comment = parametersComment(written);
    } else if (!now) {
      unfit.pop_back();
    }
  }
  if (!commented) return std::string(fresh);
  std::string result;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (i > 0) result.append(i % 2 == 0 ? ",\r" + indented : ",");
    result.append(parameters[i].text).append(comments[i]);
  }
  return result;
}

KeptFields keptFields(const frame::Services& services, const StandingHeader& header, HeaderValues fresh,
                      std::string_view indent) {
  return Keeper(services, header, std::move(fresh), indent).run();
}

}  // namespace kolvane::writers
