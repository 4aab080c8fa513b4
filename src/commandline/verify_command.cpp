// kolvane verify: the proof that opening and saving changes nothing.
#include <nlohmann/json.hpp>
#include <ostream>

#include "commandline/commands.h"
#include "commandline/progress.h"
#include "commandline/project_command.h"
#include "workspace/verify.h"

namespace kolvane::commandline {
namespace {

using workspace::ByteDifference;
using workspace::VerifyReport;

struct Interrupted {};

std::string byteText(int value) {
  if (value < 0) return "none";
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto byte = static_cast<std::size_t>(value);
  return {kDigits[byte >> 4 & 15], kDigits[byte & 15]};
}

void printDifferences(std::ostream& out, const VerifyReport& report) {
  for (const ByteDifference& difference : report.differences)
    out << difference.file << ": offset " << difference.offset << ": " << byteText(difference.before)
        << " would become " << byteText(difference.after) << "\n";
  if (report.differingBytes > report.differences.size())
    out << "… and " << report.differingBytes - report.differences.size() << " more bytes\n";
}

std::string outcomeOf(const VerifyReport& report) {
  if (report.bytes == 0) return "nothing to compare";
  if (report.differingBytes == 0) return "every byte comes back";
  return counted(static_cast<long>(report.differingBytes), "byte", "bytes") + " would differ";
}

void printText(std::ostream& out, const VerifyReport& report) {
  printDifferences(out, report);
  out << counted(report.projects, "project", "projects") << ", "
      << (report.groups > 0 ? counted(report.groups, "group", "groups") + ", " : "")
      << counted(report.files, "file", "files") << ", "
      << counted(static_cast<long>(report.lines), "line", "lines") << ", "
      << counted(static_cast<long>(report.bytes), "byte", "bytes") << ": " << outcomeOf(report) << "\n";
}

void printJson(std::ostream& out, const VerifyReport& report) {
  nlohmann::json differences = nlohmann::json::array();
  for (const ByteDifference& difference : report.differences)
    differences.push_back({{"file", difference.file},
                           {"offset", difference.offset},
                           {"before", difference.before},
                           {"after", difference.after}});
  nlohmann::json problems = nlohmann::json::array();
  for (const auto& problem : report.problems)
    problems.push_back({{"file", problem.file}, {"line", problem.line}, {"reason", problem.reason}});
  out << nlohmann::json{{"projects", report.projects},
                        {"groups", report.groups},
                        {"files", report.files},
                        {"lines", report.lines},
                        {"bytes", report.bytes},
                        {"differingBytes", report.differingBytes},
                        {"differences", std::move(differences)},
                        {"problems", std::move(problems)}}
             .dump(2, ' ', false, nlohmann::json::error_handler_t::replace)
      << "\n";
}

Exit verifyPaths(Invocation& invocation, const std::vector<std::string>& paths, bool json) {
  Environment& environment = invocation.environment;
  workspace::VerifyPages pages{*environment.codePages, invocation.global.codePage};
  VerifyReport report;
  try {
    Progress progress(environment.terminal);
    report = workspace::verify(environment.files, pages, paths, [&](const std::string& file) {
      if (environment.interrupted()) throw Interrupted{};
      progress.step(file);
    });
  } catch (const Interrupted&) {
    environment.terminal.err << "kolvane: interrupted\n";
    return Exit::kFailed;
  }
  for (const auto& problem : report.problems)
    environment.terminal.err << "kolvane: " << problem.text() << "\n";
  json ? printJson(environment.terminal.out, report) : printText(environment.terminal.out, report);
  if (report.differingBytes > 0) return Exit::kFindings;
  // Of what could not be read nothing is proved.
  return report.problems.empty() ? Exit::kDone : Exit::kFailed;
}

}  // namespace

void declareVerify(CLI::App& parent, Invocation& invocation) {
  auto paths = std::make_shared<std::vector<std::string>>();
  auto json = std::make_shared<bool>(false);
  CLI::App* command = parent.add_subcommand(
      "verify", "Prove for every project below the paths that opening and saving changes no byte");
  command->add_option("PATH", *paths, "Folders, projects, groups or single modules")->required();
  command->add_flag("--json", *json, "Print the result as JSON");
  command->callback([paths, json, &invocation] { invocation.exit = verifyPaths(invocation, *paths, *json); });
}

}  // namespace kolvane::commandline
