// What audits and searches found, printed as a table for people, as JSON, or as SARIF 2.1.0 for editors and
// code hosts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "commandline/project_command.h"

namespace kolvane::commandline {

// What a kind of finding is called. One constant each, beside the command that finds it.
struct FindingRule {
  std::string_view id;           // "unused-variable"
  std::string_view description;  // one sentence
  std::string_view level;        // of SARIF: "warning", "note"
};

// Texts are UTF-8.
struct Finding {
  const FindingRule* rule = nullptr;
  std::string path;  // of the file; empty for a component that was never saved
  int line = 0;      // as on disk, from 1
  std::string project;
  std::string module;
  std::string procedure;  // empty for the declarations
  std::string subject;    // what it is about: a name, or the line of code; the same wherever it stands
  std::string message;
};

enum class FindingFormat { kTable, kJson, kSarif };

struct FindingOptions {
  bool json = false;
  bool sarif = false;
  FindingFormat format() const {
    return sarif ? FindingFormat::kSarif : json ? FindingFormat::kJson : FindingFormat::kTable;
  }
};

// --json and --sarif, which exclude each other.
void addFindingOptions(CLI::App& command, FindingOptions& options);

// What a finding says of a line of a component's code, in the code page.
struct FindingText {
  int codeLine = 0;
  std::string_view procedure;
  std::string_view subject;
  std::string_view message;
};
Finding findingAt(Session& session, const FindingRule& rule, const ComponentPointer& component,
                  const FindingText& text);

// Prints the findings in the order given. `summary` is the line below the table. `rules` are those that could
// have been found: SARIF names them all. There each finding has a fingerprint that stays the same when its line or
// its file moves, and of equal findings a number.
void printFindings(Session& session, FindingFormat format, const std::vector<const FindingRule*>& rules,
                   const std::vector<Finding>& findings, const std::string& summary);

}  // namespace kolvane::commandline
