// The audits over whole modules, as text in and text out: those of the reports, and those of modules.
#include <gtest/gtest.h>

#include "base/text.h"
#include "maintenance/audits.h"
#include "maintenance/module_audits.h"
#include "support/case_file.h"
#include "support/test_host.h"

namespace kolvane::maintenance {
namespace {

constexpr std::string_view kModules = "modules";

std::string shown(const std::string& text) { return text.empty() ? "-" : text; }

std::string prefixFinding(const source::clsDeclaration& finding) {
  return base::join({finding.Updated_Name + "@" + finding.Scope, shown(finding.Original_Name),
                     shown(finding.Original_Prefix), finding.Updated_Prefix, finding.Variable_Type},
                    "; ");
}

std::string variableFinding(const source::clsDeclaration& finding) {
  return base::join({finding.Updated_Name + "@" + finding.Scope,
                     finding.Just_Original_Prefix + finding.Original_Name, finding.Variable_Type},
                    "; ");
}

std::string procedureFinding(const source::clsDeclaration& finding) {
  return base::join({finding.Updated_Name + "@" + finding.Scope, finding.Variable_Type,
                     finding.Original_Prefix, shown(finding.Updated_Prefix)},
                    "; ");
}

// "Prefixes", "Variables" or "Procedures", and the component when there are several.
std::vector<std::string> run(test::TestHost& host, std::string_view audit, const std::string& fileName) {
  frame::CodeModule& module = host.module(fileName);
  frame::VBComponent& component = host.component(fileName);
  source::colDeclarations found;
  std::string (*line)(const source::clsDeclaration&) = prefixFinding;
  if (audit == "Prefixes") {
    found = ReportOnVariablePrefixes_CodeModule(host.services(), module, "P").value();
  } else if (audit == "Variables") {
    found = ReportOnUnusedVariables_CodeModule(host.services(), module, "P");
    line = variableFinding;
  } else if (audit == "Procedures") {
    found = ReportOnUnusedProcedure_CodeModule(host.services(), *component.VBProject(), component, module);
    line = procedureFinding;
  } else {
    ADD_FAILURE() << "no such audit: " << audit;
  }
  std::vector<std::string> lines;
  for (const source::clsDeclaration& finding : found) lines.push_back(line(finding));
  return lines;
}

std::vector<std::string> runOnModule(test::TestHost& host, std::string_view audit,
                                     const std::string& fileName) {
  const auto operation = operationNamed(base::lCase(audit));
  std::vector<std::string> lines;
  for (const AuditFinding& finding :
       ModuleAudits(host.services()).find(operation.value(), host.component(fileName)))
    lines.push_back(finding.procedure + "@" + std::to_string(finding.line) + "; " + finding.subject + " " +
                    finding.type + (finding.prefix.empty() ? "" : "; " + finding.prefix));
  return lines;
}

class AuditCases : public testing::TestWithParam<std::string_view> {};

TEST_P(AuditCases, FindWhatTheySay) {
  const std::string path = KOLVANE_SOURCE_DIR "/tests/cases/audits_" + std::string(GetParam()) + ".txt";
  for (const test::Case& each : test::readCases(path)) {
    SCOPED_TRACE(each.name);
    test::TestHost host;
    for (const test::CaseComponent& component : each.components)
      host.addComponent(component.fileName, component.code.lines);
    std::vector<std::string> found;
    for (const test::CaseStep& step : each.steps) {
      if (step.kind == test::CaseStep::Kind::kExpect) {
        EXPECT_EQ(found, step.code.lines);
        continue;
      }
      const auto words = base::split(step.argument, " ");
      const auto audit = GetParam() == kModules ? runOnModule : run;
      found = audit(host, words[0], words.size() > 1 ? words[1] : each.components.front().fileName);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Audits, AuditCases,
                         testing::Values("prefixes", "unused_variables", "unused_procedures", kModules));

}  // namespace
}  // namespace kolvane::maintenance
