#include "forms/error_form.h"

#include <memory>
#include <string>

namespace kolvane::forms {

frmVBError::frmVBError(Desk& desk) : Form(desk, "frmVBError", "Application Error") {
  txtSource.setMultiLine(true);
  txtDescription.setMultiLine(true);
  for (TextBox* box : {&txtErrorNo, &txtSource, &txtDescription}) box->setLocked(true);
  cmdClose.setDefault(true);
  cmdClose.setCancel(true);
  cmdClose.setFocus();
  setHelpTopic("ApplicationError.html");
  onLoad = [this] { Form_Load(); };
  cmdClose.onClick = [this] { unload(); };
}

Layout frmVBError::layout() const {
  return column("The application has generated an error.", row("Number:", txtErrorNo),
                row("Source:", txtSource), row("Description:", grow(txtDescription)), buttons(cmdClose));
}

void frmVBError::Form_Load() {
  if (!Error) return;
  txtErrorNo.setText(std::to_string(Error->number()));
  txtSource.setText(Error->source());
  txtDescription.setText(Error->description());
}

namespace {

// Runs work so that everything it throws is an Error.
void raiseAsError(const std::function<void()>& work) {
  try {
    work();
  } catch (const base::Error&) {
    throw;
  } catch (...) {
    throw base::currentError();
  }
}

}  // namespace

void showErrors(Desk& desk, std::string_view module, std::string_view procedure,
                const std::function<void()>& work) {
  showErrors(desk, [&] {
    const base::ErrorScope scope(module, procedure);
    raiseAsError([&] {
      desk.entering(module, procedure);
      work();
    });
  });
}

void showErrors(Desk& desk, const std::function<void()>& work) {
  try {
    raiseAsError(work);
  } catch (const base::Error& error) {
    const auto form = std::make_shared<frmVBError>(desk);
    form->Error = error;
    desk.setBusy(false);
    form->showModal();
  }
}

}  // namespace kolvane::forms
