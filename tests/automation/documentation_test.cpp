// docs/automation.md: its tables are the method table, and its session is one that takes place. With
// KOLVANE_REWRITE set the tables are written anew.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "automation/method_table.h"
#include "base/text.h"
#include "transcript.h"

namespace kolvane::test {
namespace {

constexpr const char* kDocument = KOLVANE_SOURCE_DIR "/docs/automation.md";

std::vector<std::string> documentLines() {
  std::ifstream file(kDocument);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

std::string joined(const std::vector<std::string>& lines) { return base::join(lines, "\n"); }

// The part of the document that the table makes.
std::vector<std::string> methodTables() {
  std::vector<std::string> lines;
  std::string_view group;
  for (const automation::Method& method : automation::allMethods()) {
    if (method.group() != group) {
      group = method.group();
      lines.insert(lines.end(), {"", "### " + std::string(group), "", "| method | parameters | gives | |",
                                 "|---|---|---|---|"});
    }
    std::vector<std::string> parameters;
    for (const automation::Parameter& parameter : method.parameters)
      parameters.push_back(automation::describe(parameter));
    std::string does(method.does);
    if (method.run == nullptr) does += " Not available in this version: error 445.";
    lines.push_back("| `" + std::string(method.name) + "` |" +
                    (parameters.empty() ? "" : " " + base::join(parameters, ", ")) + " | " +
                    std::string(method.gives) + " | " + does + " |");
  }
  return lines;
}

// Where the tables begin: the empty line above the first group.
std::size_t startOfTables(const std::vector<std::string>& lines) {
  for (std::size_t i = 1; i < lines.size(); ++i)
    if (lines[i].starts_with("### ")) return i - 1;
  return lines.size();
}

TEST(AutomationDocument, HoldsTheMethodTable) {
  std::vector<std::string> lines = documentLines();
  const auto start = lines.begin() + static_cast<std::ptrdiff_t>(startOfTables(lines));
  const std::string tables = joined({start, lines.end()});
  lines.erase(start, lines.end());
  if (std::getenv("KOLVANE_REWRITE") != nullptr)
    std::ofstream(kDocument, std::ios::binary) << joined(lines) << "\n" << joined(methodTables()) << "\n";
  EXPECT_EQ(tables, joined(methodTables()));
}

TEST(AutomationDocument, SessionTakesPlace) {
  Transcript session;
  session.name = "the document's session";
  bool inside = false;
  for (const std::string& line : documentLines()) {
    constexpr std::string_view kToServer = "→", kFromServer = "←";
    if (line.starts_with("```")) inside = line == "```session";
    if (inside && line.starts_with(kToServer)) session.lines.push_back(">|" + line.substr(kToServer.size()));
    if (inside && line.starts_with(kFromServer))
      session.lines.push_back("<|" + line.substr(kFromServer.size()));
  }
  ASSERT_FALSE(session.lines.empty());
  EXPECT_EQ(joined(play(session)), joined(session.lines));
}

}  // namespace
}  // namespace kolvane::test
