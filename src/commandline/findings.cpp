#include "commandline/findings.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

#include "commandline/text_table.h"
#include "frame/version.h"

namespace kolvane::commandline {
namespace {

using nlohmann::json;

std::string dumped(const json& value) {
  return value.dump(2, ' ', false, json::error_handler_t::replace) + "\n";
}

// A path as the path of a URI: "/" and the unreserved characters stay.
std::string uriOf(std::string_view path) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string uri;
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = (byte < 128 && std::isalnum(byte) != 0) ||
                       std::string_view("/-._~").find(c) != std::string_view::npos;
    if (plain)
      uri += c;
    else
      (uri += '%') += {kHex[byte >> 4U], kHex[byte & 15U]};
  }
  return uri;
}

json sarifLocation(Session& session, const Finding& finding) {
  const std::string shown = shownPath(session, finding.path);
  json file;
  if (shown.starts_with('/'))
    file = {{"uri", "file://" + uriOf(shown)}};
  else
    file = {{"uri", uriOf(shown)}, {"uriBaseId", "%SRCROOT%"}};
  json location;
  if (!finding.path.empty())
    location["physicalLocation"] = {{"artifactLocation", file}, {"region", {{"startLine", finding.line}}}};
  const std::string name = finding.module + (finding.procedure.empty() ? "" : "." + finding.procedure);
  location["logicalLocations"] = json::array({{{"fullyQualifiedName", name}}});
  return location;
}

json sarifRule(const FindingRule& rule) {
  return {{"id", rule.id},
          {"shortDescription", {{"text", rule.description}}},
          {"defaultConfiguration", {{"level", rule.level}}}};
}

json sarifOf(Session& session, const std::vector<const FindingRule*>& rules,
             const std::vector<Finding>& findings) {
  json ruleList = json::array();
  for (const FindingRule* rule : rules) ruleList.push_back(sarifRule(*rule));
  json results = json::array();
  for (const Finding& finding : findings)
    results.push_back({{"ruleId", finding.rule->id},
                       {"ruleIndex", std::find(rules.begin(), rules.end(), finding.rule) - rules.begin()},
                       {"level", finding.rule->level},
                       {"message", {{"text", finding.message}}},
                       {"locations", json::array({sarifLocation(session, finding)})}});
  const json driver{{"name", "kolvane"}, {"version", frame::versionText()}, {"rules", std::move(ruleList)}};
  const json run{
      {"tool", {{"driver", driver}}}, {"columnKind", "unicodeCodePoints"}, {"results", std::move(results)}};
  return {{"version", "2.1.0"}, {"runs", json::array({run})}};
}

json jsonOf(const std::vector<Finding>& findings) {
  json list = json::array();
  for (const Finding& finding : findings)
    list.push_back({{"rule", finding.rule->id},
                    {"path", finding.path},
                    {"line", finding.line},
                    {"project", finding.project},
                    {"module", finding.module},
                    {"procedure", finding.procedure},
                    {"message", finding.message}});
  return {{"findings", std::move(list)}};
}

std::string tableOf(Session& session, const std::vector<Finding>& findings) {
  TextTable table;
  for (const Finding& finding : findings) {
    const std::string file = finding.path.empty() ? finding.module : shownPath(session, finding.path);
    table.add({file + ":" + std::to_string(finding.line), finding.procedure, finding.message});
  }
  return table.text(session.terminal().outIsTerminal ? session.terminal().width : 0);
}

}  // namespace

void addFindingOptions(CLI::App& command, FindingOptions& options) {
  const auto jsonFlag = command.add_flag("--json", options.json, "Print the result as JSON");
  command.add_flag("--sarif", options.sarif, "Print the result as SARIF 2.1.0, for editors and code hosts")
      ->excludes(jsonFlag);
}

Finding findingAt(Session& session, const FindingRule& rule, const ComponentPointer& component, int codeLine,
                  std::string_view procedure, std::string_view message) {
  Finding finding{&rule,
                  {},
                  codeLine,
                  {},
                  session.utf8(component->Name()),
                  session.utf8(procedure),
                  session.utf8(message)};
  finding.project = session.utf8(component->VBProject()->Name());
  if (const auto own = std::dynamic_pointer_cast<workspace::Component>(component)) {
    finding.path = own->file().path();
    finding.line = own->fileLine(codeLine);
  }
  return finding;
}

void printFindings(Session& session, FindingFormat format, const std::vector<const FindingRule*>& rules,
                   const std::vector<Finding>& findings, const std::string& summary) {
  std::ostream& out = session.terminal().out;
  switch (format) {
    case FindingFormat::kJson:
      out << dumped(jsonOf(findings));
      break;
    case FindingFormat::kSarif:
      out << dumped(sarifOf(session, rules, findings));
      break;
    case FindingFormat::kTable:
      out << tableOf(session, findings) << summary << "\n";
      break;
  }
  out.flush();
}

}  // namespace kolvane::commandline
