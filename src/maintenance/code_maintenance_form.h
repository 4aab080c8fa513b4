// The dialog that runs the operations of Code Maintenance, and the one for its options.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/form_slot.h"
#include "forms/list_view.h"
#include "forms/lists.h"
#include "frame/progress_form.h"
#include "frame/tool_form.h"
#include "maintenance/maintenance_run.h"
#include "maintenance/report_form.h"

namespace kolvane::maintenance {

// Fills the list with a row for each operation, ticked as the options of the target say. Any text but "Project" and
// "Module" leaves it empty.
void LoadOptionsIntoListview(const frame::Services& services, forms::ListView& list, std::string_view target);

// What the dialog works with. All of it must outlive the dialog.
struct MaintenanceParts {
  MaintenanceTools tools;
  Reports& reports;
};

// While a run is on, the form does not unload, and OK and Cancel start nothing.
class frmCodeMaintenance final : public frame::ToolForm {
 public:
  explicit frmCodeMaintenance(const MaintenanceParts& parts);

  // Chooses the target of the options when the form is loading, and does nothing otherwise.
  void Get_Options(bool blnLoadingForm);
  // The operations on the active project; False when the user stopped the run at a prompt.
  bool Format_Project(OperationSet chosen, bool showProgress);
  // The operations on the selected component. Raises 91 when there is none.
  void Format_Module(OperationSet chosen, bool showProgress);

  forms::Layout layout() const override;

  forms::ComboBox cboType{*this, "cboType", forms::ComboBox::kDropdownList, {kTargets[0], kTargets[1]}};
  forms::ListView lvwOptions{*this, "lvwOptions", {"Options"}};
  forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
  forms::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void Form_Load() override;
  void cmdOK_Click();

  Target target() const;
  OperationSet ticked();
  // Asks and tells what has to hold before a run; false when it does not.
  bool mayRun(OperationSet chosen);
  bool allSaved();
  void run(OperationSet chosen);
  void showProgress(OperationSet chosen);
  int filesOfProject();

  const MaintenanceParts& parts_;
  forms::FormSlot<frame::frmProgress> progress_;
};

// OK writes the settings; anything else leaves them as they were.
class frmCodeMaintenanceOptions final : public frame::ToolForm {
 public:
  explicit frmCodeMaintenanceOptions(frame::Services& services);

  forms::Layout layout() const override;

  forms::Frame fraDefaults{*this, "fraDefaults", "&Defaults"};
  forms::ComboBox cboDefaultTarget{
      *this, "cboDefaultTarget", forms::ComboBox::kDropdownList, {kTargets[0], kTargets[1]}};
  forms::CheckBox chkShowProgress{*this, "chkShowProgress", "Show &Progress"};
  forms::ComboBox cboTarget{*this, "cboTarget", forms::ComboBox::kDropdownList, {kTargets[0], kTargets[1]}};
  forms::ListView lvwOptions{*this, "lvwOptions", {"Options"}};
  forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
  forms::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  void Form_Load() override;
  void cmdOK_Click();
};

// The tool: one a suite. It owns its dialog.
class CodeMaintenance {
 public:
  // `reports`, and what the tools refer to, must outlive the object.
  CodeMaintenance(const MaintenanceTools& tools, Reports& reports);

  // Shows the dialog and returns at once.
  void Show_CodeMaintenance();
  // Without asking; nothing happens while there is no dialog, and while it runs.
  void unload() { form_.unload(); }
  frmCodeMaintenance& form() { return *form_; }
  const MaintenanceTools& tools() const { return parts_.tools; }

 private:
  MaintenanceParts parts_;
  forms::FormSlot<frmCodeMaintenance> form_;
};

}  // namespace kolvane::maintenance
