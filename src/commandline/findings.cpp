#include "commandline/findings.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <ostream>

#include "base/text.h"
#include "commandline/text_table.h"
#include "frame/version.h"

namespace kolvane::commandline {
namespace {

using nlohmann::json;

constexpr std::string_view kHex = "0123456789ABCDEF";
constexpr const char* kFileScheme = "file://";
constexpr std::string_view kSarifSchema = "https://json.schemastore.org/sarif-2.1.0.json";
constexpr std::string_view kRunFolder = "%SRCROOT%";
constexpr std::string_view kFingerprint = "findingIdentity/v1";

std::string dumped(const json& value) {
  return value.dump(2, ' ', false, json::error_handler_t::replace) + "\n";
}

// A path as the path of a URI: "/" and the unreserved characters stay.
std::string uriOf(std::string_view path) {
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

// A file below the folder of the run has its address from there, so that results can be told from one checkout to the
// next; another one has its full address.
json sarifFile(Session& session, const std::string& path) {
  const std::string shown = shownPath(session, path);
  if (shown.starts_with('/')) return {{"uri", kFileScheme + uriOf(shown)}};
  return {{"uri", uriOf(shown)}, {"uriBaseId", kRunFolder}};
}

json sarifRunFolder(Session& session) {
  std::string folder = session.environment().files.absolute(".");
  if (!folder.ends_with('/')) folder += '/';
  return {{"uri", kFileScheme + uriOf(folder)},
          {"description", {{"text", "The folder in which the command ran."}}}};
}

// FNV-1a of 64 bits, in hexadecimal: it is compared with that of other runs, so it must never change.
std::string stableHash(std::string_view text) {
  std::uint64_t hash = 14695981039346656037ULL;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
  std::string digits(16, '0');
  for (std::size_t i = digits.size(); i-- > 0; hash >>= 4U) digits[i] = kHex[hash & 15U];
  return digits;
}

// Tells the findings of a run apart by what they are about, whatever line they stand on and however the names are
// spelled.
class Fingerprints {
 public:
  // A number behind the colon counts findings that are the same in all of that.
  std::string next(const Finding& finding) {
    std::string identity(finding.rule->id);
    for (const std::string& part : {finding.project, finding.module, finding.procedure, finding.subject})
      identity.append(1, '\0').append(base::lCase(part));
    return stableHash(identity) + ":" + std::to_string(++counts_[identity]);
  }

 private:
  std::map<std::string, int> counts_;
};

json sarifLocation(Session& session, const Finding& finding) {
  json location;
  if (!finding.path.empty())
    location["physicalLocation"] = {{"artifactLocation", sarifFile(session, finding.path)},
                                    {"region", {{"startLine", finding.line}}}};
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
  Fingerprints fingerprints;
  json results = json::array();
  for (const Finding& finding : findings)
    results.push_back({{"ruleId", finding.rule->id},
                       {"ruleIndex", std::find(rules.begin(), rules.end(), finding.rule) - rules.begin()},
                       {"level", finding.rule->level},
                       {"message", {{"text", finding.message}}},
                       {"locations", json::array({sarifLocation(session, finding)})},
                       {"partialFingerprints", {{kFingerprint, fingerprints.next(finding)}}}});
  const json driver{{"name", "kolvane"},
                    {"version", frame::versionText()},
                    {"informationUri", frame::kProductAddress},
                    {"rules", std::move(ruleList)}};
  const json run{{"tool", {{"driver", driver}}},
                 {"originalUriBaseIds", {{kRunFolder, sarifRunFolder(session)}}},
                 {"columnKind", "unicodeCodePoints"},
                 {"results", std::move(results)}};
  return {{"$schema", kSarifSchema}, {"version", "2.1.0"}, {"runs", json::array({run})}};
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

Finding findingAt(Session& session, const FindingRule& rule, const ComponentPointer& component,
                  const FindingText& text) {
  Finding finding{&rule,
                  {},
                  text.codeLine,
                  {},
                  session.utf8(component->Name()),
                  session.utf8(text.procedure),
                  session.utf8(text.subject),
                  session.utf8(text.message)};
  finding.project = session.utf8(component->VBProject()->Name());
  if (const auto own = std::dynamic_pointer_cast<workspace::Component>(component)) {
    finding.path = own->file().path();
    finding.line = own->fileLine(text.codeLine);
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
