// The report window: findings of the audits and callers of a procedure, each with the line that it leads to.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/buttons.h"
#include "forms/grid.h"
#include "forms/indicators.h"
#include "frame/tool_form.h"

namespace kolvane::maintenance {

// The kinds of report, by their titles. They are compared exactly; some end in a blank.
namespace report_title {
inline constexpr std::string_view kModulePrefixes = "Modu Variable prefixes report ";
inline constexpr std::string_view kProjectPrefixes = "Proj Variable prefixes report ";
inline constexpr std::string_view kModuleUnusedVariables = "Modu Unused variables report ";
inline constexpr std::string_view kProjectUnusedVariables = "Proj Unused variables report ";
inline constexpr std::string_view kModuleUnusedProcedures = "Modu Unused Procedures report";
inline constexpr std::string_view kProjectUnusedProcedures = "Proj Unused Procedures report";
inline constexpr std::string_view kListMyCallers = "List My Callers";
}  // namespace report_title

// What ShowCount is given for each kind of finding.
namespace report_count {
inline constexpr std::string_view kPrefixes = " incorrect prefixes.";
inline constexpr std::string_view kUnusedVariables = " unused variables.";
inline constexpr std::string_view kUnusedProcedures = " unused procedures.";
}  // namespace report_count

// Its rows stay in the order in which they are added. `grdLines` has a row for each row of `grdResults`:
// project, module and line, "" for no line.
class frmReport final : public frame::ToolForm {
 public:
  // The services must outlive the form.
  explicit frmReport(frame::Services& services);

  // Loads the form, empties it and makes it a report of that kind. A title that is none of report_title
  // changes nothing but ReportType.
  void SetupReport(std::string_view strType);
  const std::string& ReportType() const { return reportType_; }
  void setReportType(std::string_view type) { reportType_ = type; }

  // One row each. `_CM_` is for the report on a module, `_Proj_` for that on a project.
  void Add_ReportVariablePrefixes_CM_Item(std::string_view strProcedure, std::string_view strName,
                                          std::string_view strUsedPrefix, std::string_view strCorrectPrefix,
                                          std::string_view strType, std::string_view strLine,
                                          std::string_view strProject, std::string_view strModule);
  void Add_ReportVariablePrefixes_Proj_Item(std::string_view strProcedure, std::string_view strName,
                                            std::string_view strUsedPrefix, std::string_view strCorrectPrefix,
                                            std::string_view strType, std::string_view strLine,
                                            std::string_view strProject, std::string_view strModule);
  void Add_ReportUnusedVariables_CM_Item(std::string_view strProcedure, std::string_view strName,
                                         std::string_view strType, std::string_view strLine,
                                         std::string_view strProject, std::string_view strModule);
  void Add_ReportUnusedVariables_Proj_Item(std::string_view strProcedure, std::string_view strName,
                                           std::string_view strType, std::string_view strLine,
                                           std::string_view strProject, std::string_view strModule);
  void Add_ReportUnusedProcedures_CM_Item(std::string_view strName, std::string_view strType,
                                          std::string_view strReturns, std::string_view strDescription,
                                          std::string_view strLine, std::string_view strProject,
                                          std::string_view strModule);
  void Add_ReportUnusedProcedures_Proj_Item(std::string_view strName, std::string_view strType,
                                            std::string_view strReturns, std::string_view strDescription,
                                            std::string_view strLine, std::string_view strProject,
                                            std::string_view strModule);
  void Add_ListMyCalllers_Item(std::string_view strProject, std::string_view strModule,
                               std::string_view strProcedure, std::string_view strLine);

  // "There are 3 incorrect prefixes." in the status bar; nothing in it for an empty report.
  void ShowCount(std::string_view strCaption);
  // The count of calling lines, told in the status bar when there are any.
  int ShowCount_ListMyCallers(std::string_view strName);

  // "Main, Class1.Load": the rows as the Called From field has them. A caller in the same module as `home`
  // goes without a qualifier, one elsewhere with its module's name. Without `home` it is the selected
  // component.
  std::string GetCallers(frame::VBComponent* home = nullptr);
  // Writes GetCallers() into the Called From field of the header above the procedure at the module's cursor.
  // Nothing happens to a procedure without that field and to a property. Without arguments it is the selected
  // component. A text wider than the option allows is cut into several lines; lines that an older one left
  // behind stay.
  void UpdateCalledFrom(std::shared_ptr<frame::VBComponent> objComp2 = nullptr,
                        std::shared_ptr<frame::CodeModule> objCM2 = nullptr);

  bool isEmpty() const;
  // Of findings.
  int countOfRows() const;

  std::string helpTopic() const override;
  forms::Layout layout() const override;

  forms::Grid grdResults{*this, "grdResults"};
  forms::Grid grdLines{*this, "grdLines", 2, 3};
  forms::CommandButton cmdCodeClose{*this, "cmdCodeClose", "Goto Co&de && Close"};
  forms::CommandButton cmdUpdateHeaders{*this, "cmdUpdateHeaders", "&Update"};
  forms::CommandButton cmdClose{*this, "cmdClose", "&Close"};
  forms::StatusBar StatusBar1{*this, "StatusBar1"};

 private:
  using Fields = std::initializer_list<std::string_view>;

  void addRow(Fields fields, std::string_view project, std::string_view module, std::string_view line);
  bool isCallers() const { return reportType_ == report_title::kListMyCallers; }
  void goToSelected();
  void cmdCodeClose_Click();
  void cmdUpdateHeaders_Click();

  std::string reportType_;
};

// The report windows of a suite. Several may be open at a time; each lives until it is unloaded.
class Reports {
 public:
  // The services must outlive the object.
  explicit Reports(frame::Services& services) : services_(services) {}
  ~Reports();
  Reports(const Reports&) = delete;
  Reports& operator=(const Reports&) = delete;

  // A new one, hidden. One that is not wanted after all is let go with unload().
  std::shared_ptr<frmReport> create();
  // Unloads all of them.
  void unloadAll();
  int count() const { return static_cast<int>(open_.size()); }

  frame::Services& services() const { return services_; }

 private:
  frame::Services& services_;
  std::vector<std::shared_ptr<frmReport>> open_;
};

}  // namespace kolvane::maintenance
