#include "frame/about_form.h"

#include <array>
#include <memory>

#include "base/error.h"
#include "base/text.h"
#include "frame/system_programs.h"

namespace kolvane::frame {
namespace {

constexpr std::string_view kVersionMark = "<META NAME=\"Version\" CONTENT=\"";
constexpr std::string_view kMailAddress = "mailto:kolvane@kolvane.example";
constexpr std::string_view kNotReached = "Can't connect to the internet at the present time!";
constexpr std::string_view kLatest = "You are using the latest version!";

std::string noDetails() {
  return "Unable to get the lastest version details!\r\nPlease look at the downloads page, " +
         std::string(kProductAddress) + ", or ask on the mailing list there.";
}

std::array<long, 3> partsOf(std::string_view version) {
  std::array<long, 3> parts{};
  const auto texts = base::split(version, ".");
  for (std::size_t i = 0; i < parts.size() && i < texts.size(); ++i)
    parts[i] = base::toLong(base::trim(texts[i]));
  return parts;
}

}  // namespace

std::string versionInPage(std::string_view page) {
  const std::size_t mark = page.find(kVersionMark);
  if (mark == std::string_view::npos) return {};
  const std::size_t from = mark + kVersionMark.size();
  const std::size_t end = page.find("\">", from);
  return end == std::string_view::npos ? std::string() : std::string(page.substr(from, end - from));
}

bool isNewerVersion(std::string_view version, std::string_view than) {
  const auto parts = partsOf(version);
  const auto own = partsOf(than);
  for (std::size_t i = 0; i < parts.size(); ++i)
    if (parts[i] > own[i]) return true;
  return false;
}

frmAbout::frmAbout(Services& services, platform::WebPages& pages, platform::Desktop& desktop)
    : Form(services.desk, "frmAbout", "About " + std::string(base::kProductName)),
      services_(services),
      pages_(pages),
      desktop_(desktop) {
  lblTitle.setCaption(base::kProductName);
  lblVersion.setCaption("Version " + versionText());
  lblDownloadsPage.setCaption(kProductAddress);
  cmdGetVersionDesc.setTooltip("Check that you are using the latest version");
  cmdEmail.setTooltip("Loads your email client");
  cmdOK.setDefault(true);
  cmdOK.setCancel(true);
  setFixedSize(true);
  setHelpTopic("About.html");
  cmdGetVersionDesc.onClick = entry("cmdGetVersionDesc_Click", &frmAbout::cmdGetVersionDesc_Click);
  cmdEmail.onClick = entry("cmdEmail_Click", &frmAbout::cmdEmail_Click);
  cmdSysInfo.onClick = entry("cmdSysInfo_Click", &frmAbout::cmdSysInfo_Click);
  cmdOK.onClick = [this] { unload(); };
}

forms::Layout frmAbout::layout() const {
  return forms::column(lblTitle, lblVersion, lblLatestVersion, lblDownloadsPage,
                       forms::buttons(cmdGetVersionDesc, cmdEmail, cmdSysInfo, cmdOK));
}

std::string frmAbout::GetLatestVersionDesc(bool& told) {
  desk().setBusy(true);
  std::string page;
  try {
    page = pages_.read(std::string(kProductAddress));
  } catch (const base::Error&) {
    told = true;
  }
  desk().setBusy(false);
  if (told) desk().msgBox(kNotReached, forms::box::kNotice, base::kProductName);
  return versionInPage(page);
}

void frmAbout::cmdGetVersionDesc_Click() {
  bool told = false;
  const std::string latest = GetLatestVersionDesc(told);
  if (told) return;
  if (base::trim(latest).empty()) {
    desk().msgBox(noDetails(), forms::box::kExclamation, base::kProductName);
    return;
  }
  lblLatestVersion.setCaption("Latest version " + latest);
  if (isNewerVersion(latest, versionText()))
    desk().msgBox("The lastest version available is " + latest + " and you are using " + versionText() + "!",
                  forms::box::kExclamation, base::kProductName);
  else
    desk().msgBox(kLatest, forms::box::kInformation, base::kProductName);
}

void frmAbout::cmdEmail_Click() { desktop_.start(std::string(kMailAddress)); }

void frmAbout::cmdSysInfo_Click() { desktop_.start(systemInformationProgram(services_)); }

void Show_About(Services& services, platform::WebPages& pages, platform::Desktop& desktop) {
  std::make_shared<frmAbout>(services, pages, desktop)->showModal();
}

}  // namespace kolvane::frame
