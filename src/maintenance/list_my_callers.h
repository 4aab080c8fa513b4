// List My Callers, and the Called From field of procedure headers that it fills.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "forms/form_slot.h"
#include "frame/services.h"
#include "maintenance/caller_search.h"
#include "maintenance/cancel_search_form.h"
#include "maintenance/report_form.h"
#include "source/pace.h"
#include "writers/procedure_failures.h"

namespace kolvane::maintenance {

// What became of the Called From fields of a project.
struct CalledFromResult {
  int modules = 0;  // that were gone through to their end
  std::vector<std::string>
      notes;  // one for each module that could not be changed, and each procedure that failed
  bool cancelled = false;
};

// One a suite. A search lets events through, so that its cancel dialog takes a click; another one that is
// asked for meanwhile does not start.
class Callers {
 public:
  // Both must outlive the object.
  Callers(frame::Services& services, Reports& reports);
  ~Callers();
  Callers(const Callers&) = delete;
  Callers& operator=(const Callers&) = delete;

  // The callers of the procedure at the module's cursor. The module is that of the component, or the one
  // given when there is none. With `show` the report is shown, or a notice that there are no callers, and
  // nothing comes back; else the report comes back hidden, to be unloaded by the caller. Nothing happens, and
  // nothing comes back, when the cursor is in no procedure.
  std::shared_ptr<frmReport> ListMyCallers(std::shared_ptr<frame::VBComponent> component, bool show,
                                           std::shared_ptr<frame::CodeModule> module = nullptr);
  // The code window's menu item: the procedure at the cursor of the active code pane. Errors are shown.
  void evtListMyCallers_Click();

  // Writes the Called From field of every Sub and Function of the module whose header has one. The cursor is
  // where it was afterwards. False when the user cancelled: the field whose search that ended, and those
  // behind it, stay as they were. Under care a procedure that fails keeps its field and the others are
  // treated; it joins `failures`, or, without them, the one error that is raised at the end.
  bool UpdateCalledFrom_CM(frame::CodeModule& module,
                           std::vector<writers::ProcedureFailure>* failures = nullptr);
  // The same for all modules of a project, without any dialog. A module that cannot be changed is passed over
  // with a note, and so is a procedure that fails under care. `progress` is told each module's name; `keepGoing` is asked often.
  CalledFromResult UpdateCalledFrom(frame::VBProject& project, KeepGoing keepGoing = nullptr,
                                    const std::function<void(const std::string&)>& progress = nullptr);

  // The text of the Called From field for the procedure at the module's cursor, for
  // writers::Context::findCallers.
  std::string callersText(frame::CodeModule& module);

  // While one lives, the modules' text is read once for all searches, and one cancel dialog stands for them
  // all. Code may change meanwhile in comments only. Batches may nest.
  class Batch {
   public:
    explicit Batch(Callers& callers, bool showCancelDialog = true);
    ~Batch();
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

   private:
    Callers& callers_;
  };

  // State of the search that runs, or ran last.
  bool SearchCancelled() const { return searchCancelled_; }

 private:
  class Running;

  void startSearch(bool showCancelDialog);
  void endSearch();
  bool keepGoing();
  std::shared_ptr<frmReport> list(const SoughtProcedure& sought, bool show);
  void search(const SoughtProcedure& sought, frmReport& report);
  CallerSearch& batchSearch();
  bool updateField(const std::shared_ptr<frame::VBComponent>& component, frame::Member& member);

  frame::Services& services_;
  Reports& reports_;
  bool searchCancelled_ = false;
  std::string searchTimeLimit_;  // seconds
  base::DateTime searchStartTime_;
  bool cancelDialogShown_ = false;
  bool running_ = false;
  source::Pace pace_;  // of a batch
  KeepGoing asked_;    // by who runs a batch without a dialog
  forms::FormSlot<frmCancelSearch> cancelDialog_;
  std::weak_ptr<frmReport> shownReport_;

  int batches_ = 0;
  std::unique_ptr<ProjectWords> words_;
  std::unique_ptr<CallerSearch> batchSearch_;
};

}  // namespace kolvane::maintenance
