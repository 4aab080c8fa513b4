// A dialog with every kind of control.
#pragma once

#include "support.h"

namespace kolvane::forms {

class frmEverything final : public Form {
 public:
  explicit frmEverything(Desk& desk) : Form(desk, "frmEverything", "Every kind") {
    mnuOpen.setShortcut('O', keys::kCtrl);
    mnuWrap.setChecked(true);
    mnuPrint.setEnabled(false);
    txtName.setText("Ann \"the\" author");
    txtSecret.setText("secret");
    txtSecret.setPassword(true);
    txtCode.setText("Dim a\r\n\r\nDim b");
    txtCode.setLocked(true);
    chkHeader.setChecked(true);
    optPublic.setValue(true);
    cboScope.setListIndex(1);
    imgcboIcon.add("X16", "", "Critical");
    imgcboIcon.add("X32", "Question", "Question");
    imgcboIcon.setListIndex(1);
    lstNames.addItems({"beta", "alpha", "Gamma"});
    lstNames.setSorted(true);
    lstNames.setListIndex(1);
    lstTicks.setCheckBoxes(true);
    lstTicks.addItems({"one", "two"});
    lstTicks.setSelected(1, true);
    lvwRows.setCheckBoxes(true);
    lvwRows.add("modA", "A").setCell(1, "12");
    lvwRows.add("modB", "B").setChecked(true);
    treParts.setCheckBoxes(true);
    TreeNode& project = treParts.addRoot("P", "Ledger");
    project.setExpanded(true);
    treParts.add(project, "F", "frmMain").setChecked(true);
    treParts.add(treParts.add(project, "M", "Modules"), "M1", "modPosting");
    treParts.select(treParts.find("F"));
    grdLines.setRows(1);
    grdLines.addItem("10\tDim x");
    grdLines.addItem("20\tx = 1\tdropped");
    grdLines.setCell(0, 0, "Line");
    grdLines.setCell(0, 1, "Code");
    grdLines.setRow(2);
    prgDone.setMax(40);
    prgDone.setValue(10);
    StatusBar1.setText(1, "Ready");
    StatusBar1.addPanel("RowCount", "2 rows");
    hotKey.set('P', keys::kCtrl + keys::kShift);
    Dir1.setPath("C:\\Ledger");
    File1.setPath("C:\\Ledger");
    File1.setPattern("*.bas; *.frm");
    cmdClose.setCancel(true);
    cmdApply.setEnabled(false);
    cmdPrint.setVisible(false);
  }

  FakeFolders folders;
  Menu mnuFile{*this, "mnuFile", "&File"};
  Menu mnuOpen{mnuFile, "mnuOpen", "&Open"};
  Menu mnuBar{mnuFile, "mnuBar", "-"};
  Menu mnuWrap{mnuFile, "mnuWrap", "&Wrap"};
  Menu mnuPrint{*this, "mnuPrint", "&Print"};
  Label lblTitle{*this, "lblTitle", "Everything at once"};
  TextBox txtName{*this, "txtName"};
  TextBox txtSecret{*this, "txtSecret"};
  RichTextBox txtCode{*this, "txtCode"};
  CheckBox chkHeader{*this, "chkHeader", "&Header"};
  Frame fraScope{*this, "fraScope", "&Scope"};
  OptionButton optPrivate{*this, "optPrivate", "Pri&vate"};
  OptionButton optPublic{*this, "optPublic", "Pu&blic"};
  ComboBox cboScope{*this, "cboScope", ComboBox::kDropdownCombo, {"Private", "Public"}};
  ImageCombo imgcboIcon{*this, "imgcboIcon"};
  Picture picIcon{*this, "picIcon", "Question"};
  Tabs tabLists{*this, "tabLists", {"Lists", "Trees", "Files"}};
  ListBox lstNames{*this, "lstNames"};
  ListBox lstTicks{*this, "lstTicks"};
  ListView lvwRows{*this, "lvwRows", {"Module", "Lines"}};
  TreeView treParts{*this, "treParts"};
  Grid grdLines{*this, "grdLines"};
  DriveList Drive1{*this, "Drive1", folders};
  FolderList Dir1{*this, "Dir1", folders};
  FileList File1{*this, "File1", folders};
  KeyBox hotKey{*this, "txtHotKey"};
  ProgressBar prgDone{*this, "prgDone"};
  StatusBar StatusBar1{*this, "StatusBar1"};
  Timer tmrTimer{*this, "tmrTimer", 1500};
  ControlArray<TextBox> txtPara{*this, "txtPara", 2, 1};
  CommandButton cmdApply{*this, "cmdApply", "&Apply"};
  CommandButton cmdPrint{*this, "cmdPrint", "Print"};
  CommandButton cmdClose{*this, "cmdClose", "&Close"};

  Layout layout() const override {
    return column(lblTitle, row("&Name:", txtName, "Sec&ret:", txtSecret), grow(txtCode), chkHeader,
                  group(fraScope, row(optPrivate, optPublic), row("Sc&ope:", cboScope), imgcboIcon, picIcon),
                  tabs(tabLists, page(row(lstNames, lstTicks), lvwRows), page(treParts, grow(grdLines)),
                       page(Drive1, Dir1, File1)),
                  grid(2, "&Key:", hotKey, "Para&meters:", txtPara[1], "", txtPara[2]), space(120), prgDone,
                  "Nothing is saved until you press Apply.", buttons(stretch(), cmdApply, cmdClose),
                  StatusBar1, unplaced(cmdPrint));
  }
};

}  // namespace kolvane::forms
