// kolvane_form_pictures FOLDER [dark]: shows the suite's dialogs one after the other, on the screen that
// QT_QPA_PLATFORM and DISPLAY name, and writes a picture of each into the folder.
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QPalette>
#include <QRegularExpression>
#include <QTimer>
#include <functional>
#include <iostream>
#include <set>

#include "base/error.h"
#include "forms/error_form.h"
#include "forms/forms.h"
#include "forms/user.h"
#include "frame/about_form.h"
#include "frame/catalogue.h"
#include "frame/progress_form.h"
#include "maintenance/report_form.h"
#include "platform/memory_files.h"
#include "platform/memory_tree_store.h"
#include "qt/qt_desk.h"
#include "suite/suite.h"
#include "workspace/workspace.h"

namespace {

using namespace kolvane;

// A module for the tools to work on.
constexpr std::string_view kModule =
    "Option Explicit\r\n\r\nPublic Total As Long\r\n\r\nPublic Sub Add(ByVal Amount As Long)\r\n"
    "    Total = Total + Amount\r\nEnd Sub\r\n\r\nPublic Function Half() As Long\r\n    Half = Total / 2\r\n"
    "End Function\r\n";

QPalette darkPalette() {
  QPalette palette(QColor(45, 45, 48));
  palette.setColor(QPalette::Base, QColor(30, 30, 30));
  palette.setColor(QPalette::AlternateBase, QColor(45, 45, 48));
  palette.setColor(QPalette::Highlight, QColor(38, 110, 190));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(128, 128, 128));
  return palette;
}

class Folders final : public forms::FolderSource {
 public:
  std::vector<std::string> drives() override { return {"c:", "d: [DATA]"}; }
  std::vector<std::string> folders(const std::string&) override { return {"Forms", "Modules", "Old"}; }
  std::vector<std::string> files(const std::string&) override {
    return {"Main.bas", "Order.cls", "Start.frm"};
  }
};

// Every kind of control on one form.
class frmGallery final : public forms::Form {
 public:
  frmGallery(forms::Desk& desk, forms::FolderSource& folders)
      : Form(desk, "frmGallery", "Gallery"),
        drvDrive(*this, "drvDrive", folders),
        dirFolder(*this, "dirFolder", folders),
        filFiles(*this, "filFiles", folders) {
    txtLines.setMultiLine(true);
    txtLines.setText("First line\r\nsecond line");
    rtfCode.setText("Sub Main()\r\n    Total = 0\r\nEnd Sub");
    imgType.add("a", "String", "Search");
    imgType.add("b", "Long", "Hot Key Setup", 1);
    imgType.setListIndex(0);
    optOne.setValue(true);
    chkGrey.setValue(forms::Check::kGrayed);
    lstTicks.setCheckBoxes(true);
    lstTicks.addItems({"Red", "Green", "Blue"});
    lstTicks.setSelected(1, true);
    lvwRows.add("Main.bas", "", "Search").setCell(1, "12");
    lvwRows.add("Order.cls").setCell(1, "340");
    lvwRows.sort(0);
    forms::TreeNode& project = tvwTree.addRoot("p", "Project1");
    tvwTree.add(project, "m", "Module1");
    tvwTree.add(project, "f", "Form1");
    project.setExpanded(true);
    grdCells.setColumns(3);
    for (int i = 0; i < 3; ++i)
      grdCells.setCell(0, i, std::string(1, static_cast<char>('A' + i)) + " column");
    grdCells.removeItem(1);
    for (const auto* line : {"modA\tMain\t1", "modA\tAdd\t7", "modB\tHalf\t2"}) grdCells.addItem(line);
    grdCells.setMergedColumn(0, true);
    grdCells.setCellColour(2, 2, forms::Grid::colour(255, 230, 150));
    prgDone.setValue(40);
    dirFolder.setPath("C:\\Work");
    filFiles.setPath("C:\\Work");
    StatusBar1.setText(1, "3 rows");
    StatusBar1.addPanel("x", "Ready");
    kbxKey.set(116, forms::keys::kCtrl);
    cmdOK.setDefault(true);
    cmdPicture.setPicture("Search");
    cmdOff.setEnabled(false);
  }

  forms::Menu mnuFile{*this, "mnuFile", "&File"};
  forms::Menu mnuExit{mnuFile, "mnuExit", "E&xit"};
  forms::Label lblText{*this, "lblText", "A label that says what this form is for."};
  forms::TextBox txtName{*this, "txtName", "A name"};
  forms::TextBox txtLines{*this, "txtLines"};
  forms::RichTextBox rtfCode{*this, "rtfCode"};
  forms::KeyBox kbxKey{*this, "kbxKey"};
  forms::ComboBox cboScope{*this, "cboScope", forms::ComboBox::kDropdownCombo, {"Public", "Private"}};
  forms::ImageCombo imgType{*this, "imgType"};
  forms::Frame fraOptions{*this, "fraOptions", "O&ptions"};
  forms::OptionButton optOne{*this, "optOne", "&One"};
  forms::OptionButton optTwo{*this, "optTwo", "&Two"};
  forms::CheckBox chkGrey{*this, "chkGrey", "&Grey"};
  forms::Picture picFace{*this, "picFace", "Search"};
  forms::Tabs tabPages{*this, "tabPages", {"Lists", "Tables", "Files"}};
  forms::ListBox lstTicks{*this, "lstTicks"};
  forms::TreeView tvwTree{*this, "tvwTree"};
  forms::ListView lvwRows{*this, "lvwRows", {"File", "Lines"}};
  forms::Grid grdCells{*this, "grdCells"};
  forms::DriveList drvDrive;
  forms::FolderList dirFolder;
  forms::FileList filFiles;
  forms::ProgressBar prgDone{*this, "prgDone"};
  forms::CommandButton cmdPicture{*this, "cmdPicture", "&Find"};
  forms::CommandButton cmdOff{*this, "cmdOff", "Disabled"};
  forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
  forms::StatusBar StatusBar1{*this, "StatusBar1"};

  forms::Layout layout() const override {
    using namespace forms;
    return column(lblText, row("&Name:", txtName, cmdPicture), row("&Scope:", cboScope),
                  row("&Image:", imgType), row("&Key:", kbxKey), row("&Lines:", txtLines),
                  row("&Code:", rtfCode), row(group(fraOptions, optOne, optTwo, chkGrey), picFace),
                  grow(tabs(tabPages, page(row(grow(lstTicks), grow(tvwTree))), page(lvwRows, grdCells),
                            page(drvDrive, row(dirFolder, filFiles)))),
                  prgDone, buttons(cmdOff, cmdOK), StatusBar1);
  }
};

class Photographer {
 public:
  Photographer(qt::QtDesk& desk, QString folder) : desk_(desk), folder_(std::move(folder)) { goOn(); }

 private:
  // Also within the loops of the dialogs that it opens.
  void goOn() {
    QTimer::singleShot(40, qApp, [this] {
      goOn();
      look();
    });
  }

  // The uppermost window is taken once it has settled; what its menus open comes next, then it is closed.
  void look() {
    QWidget* top = QApplication::activeModalWidget();
    if (!top && desk_.openForms().active()) top = desk_.window(*desk_.openForms().active());
    if (!top || !top->isVisible()) return;
    if (top != last_) {
      last_ = top;
      return;
    }
    last_ = nullptr;
    QString name = top->objectName().isEmpty() ? top->windowTitle() : top->objectName();
    name.replace(QRegularExpression("[^A-Za-z0-9]+"), "-");
    while (!taken_.insert(name).second) name += "x";
    top->grab().save(folder_ + "/" + name + ".png");
    std::cout << name.toStdString() << " " << top->width() << "x" << top->height() << "\n";
    forms::Form* form = desk_.openForms().active();
    if (!form || desk_.window(*form) != top) return void(top->close());
    const std::string formName = form->name();
    for (forms::Control* control : form->controls()) {
      if (control->kind() == forms::Kind::kTabs) {
        auto& tabs = static_cast<forms::Tabs&>(*control);
        if (tabs.tab() + 1 < tabs.pages()) return tabs.setTab(tabs.tab() + 1);
      }
      if (control->kind() != forms::Kind::kMenu) continue;
      auto& menu = static_cast<forms::Menu&>(*control);
      const bool leaf = menu.items().empty() && menu.enabled() && menu.visible() && !menu.separator();
      if (!leaf || menu.caption() == "E&xit" || !chosen_.insert(formName + menu.name()).second) continue;
      return void(forms::user::click(menu));
    }
    form->unload(forms::UnloadMode::kEnd);
  }

  qt::QtDesk& desk_;
  QString folder_;
  const QWidget* last_ = nullptr;
  std::set<QString> taken_;
  std::set<std::string> chosen_;  // menu items that were clicked
};

void wait() {
  QElapsedTimer time;
  time.start();
  while (time.elapsed() < 900) QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setStyle("Fusion");
  if (argc < 2) {
    std::cerr << "usage: kolvane_form_pictures FOLDER [dark]\n";
    return 2;
  }
  QDir().mkpath(argv[1]);
  if (argc > 2) QApplication::setPalette(darkPalette());

  const base::CodePage& codePage = base::CodePage::get(base::CodePage::kDefault);
  platform::MemoryFiles files;
  platform::MemoryClipboard clipboard;
  platform::RecordedKeystrokes keystrokes;
  platform::MemoryTreeStore store;
  platform::FixedClock clock{base::DateTime{2026, 11, 22, 10, 20, 30}};
  platform::FixedUser user{"ann"};
  platform::Random random;
  platform::NoWebPages pages;
  qt::QtDesk desk{{.codePage = codePage, .pictures = KOLVANE_SOURCE_DIR "/data"}};
  const auto host = workspace::Workspace::create(files, clipboard, codePage);
  const auto project = host->newProject();
  suite::Suite suite(
      {*host, store, desk, clock, user, random, clipboard, keystrokes, files, pages, codePage, ""});

  const auto component =
      host->addComponent(project, frame::ComponentType::kStdModule, "Module1", std::string(kModule));
  component->Activate();
  component->CodeModule()->CodePane()->SetSelection({5, 1, 5, 1});

  const Photographer photographer(desk, argv[1]);
  for (const frame::CatalogueRow& row : frame::kCatalogue) {
    if (!suite.available(row)) continue;
    std::cout << "-- " << row.menuCaption << "\n";
    suite.click(row);
    wait();
  }
  maintenance::frmReport report(suite.services(), {});
  report.SetupReport(maintenance::report_title::kProjectPrefixes);
  for (int i = 0; i < 6; ++i)
    report.Add_ReportVariablePrefixes_Proj_Item("Add", "Total" + std::to_string(i), "", "lng", "Long", "5",
                                                "Project1", "Module1");
  report.show();
  wait();
  suite.about();
  Folders folders;
  frmGallery gallery(desk, folders);
  gallery.show();
  wait();
  desk.msgBox("Save the changes to Module1?\r\nThey are lost otherwise.",
              forms::box::kYesNoCancel + forms::box::kQuestion, "KolvaneLite");
  desk.inputBox("Name of the new procedure:", "KolvaneLite", "Main");
  forms::showErrors(desk, "modMain", "Main", [] { throw base::Error(13, "Type mismatch"); });
  frame::frmProgress progress(desk);
  progress.show();
  wait();
  wait();
  return 0;
}
