// The About box, and its look for a newer version.
#pragma once

#include <string>
#include <string_view>

#include "forms/forms.h"
#include "frame/services.h"
#include "platform/desktop.h"
#include "platform/web_pages.h"

namespace kolvane::frame {

// What stands in a page between `<META NAME="Version" CONTENT="` and `">`; "" when it is not there.
std::string versionInPage(std::string_view page);
// Whether any part of the first version is higher, as a number, than the same part of the second, whatever stands
// in front of it. Three parts count; what is missing is 0.
bool isNewerVersion(std::string_view version, std::string_view than);

class frmAbout final : public forms::Form {
 public:
  // All must outlive the form.
  frmAbout(Services& services, platform::WebPages& pages, platform::Desktop& desktop);

  forms::Label lblTitle{*this, "lblTitle", ""};
  forms::Label lblVersion{*this, "lblVersion", ""};
  forms::Label lblLatestVersion{*this, "lblLatestVersion", ""};
  forms::Label lblDownloadsPage{*this, "lblDownloadsPage", ""};
  forms::CommandButton cmdGetVersionDesc{*this, "cmdGetVersionDesc", "Latest &Version"};
  forms::CommandButton cmdEmail{*this, "cmdEmail", "&Email"};
  forms::CommandButton cmdSysInfo{*this, "cmdSysInfo", "&System Info..."};
  forms::CommandButton cmdOK{*this, "cmdOK", "OK"};

  forms::Layout layout() const override;

 private:
  void cmdGetVersionDesc_Click();
  void cmdEmail_Click();
  void cmdSysInfo_Click();
  // The page's version; "" when it names none, or when it could not be reached, which the user has been told then.
  std::string GetLatestVersionDesc(bool& told);

  Services& services_;
  platform::WebPages& pages_;
  platform::Desktop& desktop_;
};

// Modal.
void Show_About(Services& services, platform::WebPages& pages, platform::Desktop& desktop);

}  // namespace kolvane::frame
