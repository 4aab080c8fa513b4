#include "maintenance/report_form.h"

#include <algorithm>
#include <array>

#include "base/error.h"
#include "base/text.h"
#include "frame/form_placement.h"
#include "frame/options.h"
#include "maintenance/called_from_field.h"
#include "maintenance/callers_options_form.h"

namespace kolvane::maintenance {
namespace {

constexpr std::string_view kModule = "frmReport";
constexpr std::string_view kPlacement = "List My Callers";
constexpr std::array kMenus{
    frame::popup(0, "mnuFile", "&File"),
    frame::popup(1, "mnuOptions", "&Options"),
    frame::popup(2, "mnuListMyCallers", "List &My Callers"),
    frame::opens(2, "mnuGeneralOptions", "&General Options", frame::kGeneralOptionsTool),
    frame::leaves(1, "mnuExit", "E&xit"),
    frame::popup(0, "mnuHelp", "&Help"),
    frame::helps(1, "mnuContents", "&Contents..."),
    frame::opens(1, "mnuAbout", "&About", frame::kAboutBox),
};
// Where it stands is told by the kind of report, not as it loads.
constexpr frame::FormTraits kTraits{
    .name = kModule, .caption = report_title::kListMyCallers, .fixedSize = false, .menus = kMenus};
constexpr frame::Option kCalledFromField = frame::option("SCF29");
// The part of a title that tells module from project.
constexpr int kKindCharacters = 5;

// Columns of the grid that is not seen.
constexpr int kProjectColumn = 0, kModuleColumn = 1, kProcedureColumn = 2, kLineColumn = 2;
constexpr int kFirstRow = 1;

struct ReportKind {
  std::string_view title;
  int columns;
  std::array<std::string_view, 6> headers;
  int mergedColumns;
};

constexpr std::array<ReportKind, 7> kReportKinds{{
    {report_title::kModulePrefixes, 5, {"Procedure", "Name", "Used Prefix", "Correct Prefix", "Type"}, 1},
    {report_title::kProjectPrefixes,
     6,
     {"Module", "Procedure", "Name", "Used Prefix", "Correct Prefix", "Type"},
     1},
    {report_title::kModuleUnusedVariables, 3, {"Procedure", "Name", "Type"}, 1},
    {report_title::kProjectUnusedVariables, 4, {"Module", "Procedure", "Name", "Type"}, 1},
    {report_title::kModuleUnusedProcedures, 4, {"Procedure", "Type", "Returns", "Description"}, 1},
    {report_title::kProjectUnusedProcedures, 5, {"Module", "Procedure", "Type", "Returns", "Description"}, 1},
    {report_title::kListMyCallers, 3, {"Project", "Module", "Procedure"}, 2},
}};

const ReportKind* findKind(std::string_view title) {
  const auto* const row = std::find_if(kReportKinds.begin(), kReportKinds.end(),
                                       [title](const ReportKind& kind) { return kind.title == title; });
  return row == kReportKinds.end() ? nullptr : row;
}

// What a report is about, for its caption.
std::string subjectOf(frame::VBE& vbe, std::string_view title) {
  if (title.starts_with("Modu")) {
    const auto component = vbe.SelectedVBComponent();
    return component ? component->Name() : std::string();
  }
  const auto project = vbe.ActiveVBProject();
  return project ? project->Name() : std::string();
}

bool isBlankRow(const forms::Grid& grid, int row) {
  for (int column = 0; column < grid.columns(); ++column)
    if (!grid.cell(row, column).empty()) return false;
  return true;
}

void emptyGrid(forms::Grid& grid) {
  grid.setRows(kFirstRow + 1);
  grid.clear();
}

// The host's numbers for a name that is no plain procedure.
bool isNoSuchProcedure(long number) {
  constexpr long kServerFault = -2147417851;
  return number == base::errors::kProcedureNotDefined || number == kServerFault;
}

}  // namespace

frmReport::frmReport(frame::Services& services) : ToolForm(services, kTraits) {
  tie(forms::kClick, menu("mnuListMyCallers"), [this] { showListMyCallersOptions(services_); });
  cancelBy(cmdClose);
  tie(forms::kClick, cmdCodeClose, &frmReport::cmdCodeClose_Click);
  tie(forms::kClick, cmdUpdateHeaders, &frmReport::cmdUpdateHeaders_Click);
  tie(forms::kDblClick, grdResults, &frmReport::goToSelected);
  onUnload = [this](bool&) {
    if (isCallers()) frame::savePlacement(*this, services_.settings, kPlacement);
  };
}

forms::Layout frmReport::layout() const {
  using namespace forms;
  return column(grow(grdResults), buttons(cmdCodeClose, cmdUpdateHeaders, cmdClose), StatusBar1,
                unplaced(grdLines));
}

std::string frmReport::helpTopic() const {
  return isCallers() ? "ListMyCallers.Html" : "CodeMaintenance.Html";
}

void frmReport::SetupReport(std::string_view strType) {
  const base::ErrorScope scope{kModule, "SetupReport"};
  load();
  reportType_ = strType;
  restorePlacement(*this, services_.settings, kPlacement);
  const ReportKind* const kind = findKind(strType);
  if (!kind) return;

  const bool callers = isCallers();
  setCaption(callers ? std::string(strType)
                     : std::string(base::mid(strType, kKindCharacters + 1)) + " - " +
                           subjectOf(services_.vbe, strType));
  menu("mnuListMyCallers").setVisible(callers);
  cmdUpdateHeaders.setVisible(callers && frame::isOn(services_, kCalledFromField));
  emptyGrid(grdResults);
  emptyGrid(grdLines);
  grdResults.setColumns(kind->columns);
  for (int column = 0; column < kind->columns; ++column) {
    grdResults.setCell(0, column, kind->headers[static_cast<std::size_t>(column)]);
    grdResults.setMergedColumn(column, column < kind->mergedColumns);
  }
  StatusBar1.setText(1, "");
}

void frmReport::addRow(Fields fields, std::string_view project, std::string_view module,
                       std::string_view line) {
  const auto joined = [](Fields texts) {
    return base::join(std::vector<std::string>(texts.begin(), texts.end()), "\t");
  };
  grdResults.addItem(joined(fields));
  grdLines.addItem(joined({project, module, line}));
  if (!isBlankRow(grdResults, kFirstRow)) return;
  grdResults.removeItem(kFirstRow);
  grdLines.removeItem(kFirstRow);
}

void frmReport::Add_ReportVariablePrefixes_CM_Item(std::string_view strProcedure, std::string_view strName,
                                                   std::string_view strUsedPrefix,
                                                   std::string_view strCorrectPrefix,
                                                   std::string_view strType, std::string_view strLine,
                                                   std::string_view strProject, std::string_view strModule) {
  addRow({strProcedure, strName, strUsedPrefix, strCorrectPrefix, strType}, strProject, strModule, strLine);
}

void frmReport::Add_ReportVariablePrefixes_Proj_Item(std::string_view strProcedure, std::string_view strName,
                                                     std::string_view strUsedPrefix,
                                                     std::string_view strCorrectPrefix,
                                                     std::string_view strType, std::string_view strLine,
                                                     std::string_view strProject,
                                                     std::string_view strModule) {
  addRow({strModule, strProcedure, strName, strUsedPrefix, strCorrectPrefix, strType}, strProject, strModule,
         strLine);
}

void frmReport::Add_ReportUnusedVariables_CM_Item(std::string_view strProcedure, std::string_view strName,
                                                  std::string_view strType, std::string_view strLine,
                                                  std::string_view strProject, std::string_view strModule) {
  addRow({strProcedure, strName, strType}, strProject, strModule, strLine);
}

void frmReport::Add_ReportUnusedVariables_Proj_Item(std::string_view strProcedure, std::string_view strName,
                                                    std::string_view strType, std::string_view strLine,
                                                    std::string_view strProject, std::string_view strModule) {
  addRow({strModule, strProcedure, strName, strType}, strProject, strModule, strLine);
}

void frmReport::Add_ReportUnusedProcedures_CM_Item(std::string_view strName, std::string_view strType,
                                                   std::string_view strReturns,
                                                   std::string_view strDescription, std::string_view strLine,
                                                   std::string_view strProject, std::string_view strModule) {
  addRow({strName, strType, strReturns, strDescription}, strProject, strModule, strLine);
}

void frmReport::Add_ReportUnusedProcedures_Proj_Item(std::string_view strName, std::string_view strType,
                                                     std::string_view strReturns,
                                                     std::string_view strDescription,
                                                     std::string_view strLine, std::string_view strProject,
                                                     std::string_view strModule) {
  addRow({strModule, strName, strType, strReturns, strDescription}, strProject, strModule, strLine);
}

void frmReport::Add_ListMyCalllers_Item(std::string_view strProject, std::string_view strModule,
                                        std::string_view strProcedure, std::string_view strLine) {
  addRow({strProject, strModule, strProcedure}, strProject, strModule, strLine);
}

bool frmReport::isEmpty() const {
  return grdResults.rows() <= kFirstRow || base::trim(grdResults.cell(kFirstRow, 0)).empty();
}

int frmReport::countOfRows() const { return grdResults.rows() - kFirstRow; }

void frmReport::ShowCount(std::string_view strCaption) {
  const std::string count = "There are " + std::to_string(countOfRows());
  StatusBar1.setText(1, isEmpty() ? std::string() : count + std::string(strCaption));
}

int frmReport::ShowCount_ListMyCallers(std::string_view strName) {
  if (isEmpty()) return 0;
  StatusBar1.setText(
      1, "Procedure " + std::string(strName) + " called " + std::to_string(countOfRows()) + " time(s).");
  return countOfRows();
}

std::string frmReport::GetCallers(frame::VBComponent* home) {
  const base::ErrorScope scope{kModule, "GetCallers"};
  if (isEmpty()) return {};
  const auto selected = home ? nullptr : services_.vbe.SelectedVBComponent();
  frame::VBComponent* const component = home ? home : selected.get();
  const auto project = home ? home->VBProject() : services_.vbe.ActiveVBProject();
  const std::string homeModule = component ? component->Name() : std::string();
  const std::string homeProject = project ? project->Name() : std::string();
  std::vector<std::string> callers;
  for (int row = kFirstRow; row < grdResults.rows(); ++row) {
    const std::string& module = grdResults.cell(row, kModuleColumn);
    const std::string& itsProject = grdResults.cell(row, kProjectColumn);
    std::string qualifier;
    if (itsProject != homeProject) qualifier = itsProject + ".";
    if (module != homeModule) qualifier = module + ".";
    callers.push_back(qualifier + grdResults.cell(row, kProcedureColumn));
  }
  return base::join(callers, ", ");
}

void frmReport::UpdateCalledFrom(std::shared_ptr<frame::VBComponent> objComp2,
                                 std::shared_ptr<frame::CodeModule> objCM2) {
  const base::ErrorScope scope{kModule, "UpdateCalledFrom"};
  services_.desk.setBusy(true);
  if (!objComp2 && !objCM2) objComp2 = services_.vbe.SelectedVBComponent();
  if (!objCM2 && objComp2) objCM2 = objComp2->CodeModule();
  if (!objCM2) throw base::Error(base::errors::kObjectNotSet);
  frame::CodeModule& module = *objCM2;

  const std::string procedure = module.ProcOfLine(module.CodePane()->GetSelection().startLine);
  int line = 0;
  try {
    line = calledFromLine(services_, module, procedure);
  } catch (const base::Error& error) {
    if (isNoSuchProcedure(error.number())) return;
    throw;
  }
  if (line > 0) writeCalledFrom(services_, module, line, GetCallers(objComp2.get()));
  services_.desk.setBusy(false);
}

void frmReport::goToSelected() {
  const int row = grdResults.row();
  if (row < kFirstRow || row >= grdLines.rows()) return;
  const std::string& lineCell = grdLines.cell(row, kLineColumn);
  if (base::trim(lineCell).empty()) return;
  const forms::Grid& names = isCallers() ? grdResults : grdLines;
  const auto project = services_.vbe.VBProjects()->Item(names.cell(row, kProjectColumn));
  const auto module = project->VBComponents()->Item(names.cell(row, kModuleColumn))->CodeModule();
  if (!module) throw base::Error(base::errors::kObjectNotSet);
  const auto line = static_cast<int>(base::toLong(lineCell));
  const auto pane = module->CodePane();
  pane->Show();
  pane->setTopLine(line);
  pane->SetSelection({line, 1, line, 1});
}

void frmReport::cmdCodeClose_Click() {
  goToSelected();
  unload();
}

void frmReport::cmdUpdateHeaders_Click() {
  frame::savePlacement(*this, services_.settings, kPlacement);
  UpdateCalledFrom();
}

Reports::~Reports() {
  for (const auto& report : open_) report->setRelease(nullptr);
}

std::shared_ptr<frmReport> Reports::create() {
  auto report = std::make_shared<frmReport>(services_);
  const frmReport* const key = report.get();
  report->setRelease([this, key] {
    std::erase_if(open_, [key](const std::shared_ptr<frmReport>& open) { return open.get() == key; });
  });
  open_.push_back(report);
  return report;
}

void Reports::unloadAll() {
  const auto reports = open_;
  for (const auto& report : reports) report->unload(forms::UnloadMode::kEnd);
}

}  // namespace kolvane::maintenance
