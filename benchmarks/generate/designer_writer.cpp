#include "generate/designer_writer.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "generate/words.h"

namespace kolvane::generate {

namespace {

constexpr int kLevelBlanks = 3;
constexpr std::size_t kNameColumn = 16;

class DesignerWriter {
 public:
  DesignerWriter(Random& random, const Module& module, Text& out)
      : random_(random), module_(module), out_(out) {
    const std::string path = companionPath(module);
    companion_ = path.substr(path.find_last_of('/') + 1);
  }

  void write() {
    out_.line("VERSION 5.00");
    writeLibraries();
    const bool form = module_.kind == ModuleKind::kForm;
    out_.line("Begin ", form ? "VB.Form " : "VB.UserControl ", module_.name, ' ');
    form ? writeForm() : writeUserControl();
    for (const int child : module_.topControls) writeControl(child, 1, "");
    out_.line("End");
  }

 private:
  void writeLibraries() {
    for (const ControlLibrary& library : kControlLibraries)
      for (const Control& control : module_.controls)
        if (control.type->progId.starts_with(library.prefix)) {
          out_.line("Object = \"", library.guid, "\"; \"", library.file, "\"");
          break;
        }
  }

  void name(int level, std::string_view property) {
    out_.blanks(level * kLevelBlanks);
    out_.put(property);
    if (property.size() < kNameColumn) out_.blanks(static_cast<int>(kNameColumn - property.size()));
    out_.put("=   ");
  }
  template <typename... Pieces>
  void property(int level, std::string_view itsName, const Pieces&... value) {
    name(level, itsName);
    out_.line(value...);
  }

  void writeForm() {
    const bool dialog = random_.chance(400);
    const int width = 4680 + random_.below(300) * 15;
    const int height = 3195 + random_.below(250) * 15;
    if (dialog) property(1, "BorderStyle", "3  'Fixed Dialog");
    property(1, "Caption", '"', module_.name.substr(3), '"');
    property(1, "ClientHeight", height);
    property(1, "ClientLeft", 45);
    property(1, "ClientTop", 330);
    property(1, "ClientWidth", width);
    const bool font = random_.chance(600);
    const bool fontLast = random_.chance(660);
    if (font && !fontLast) writeFont(1);
    if (module_.hasCompanion) property(1, "Icon", '"', companion_, "\":0000");
    if (random_.chance(300)) property(1, "KeyPreview", "-1  'True");
    property(1, "LinkTopic", "\"Form1\"");
    if (dialog) property(1, "MaxButton", "0   'False");
    if (dialog) property(1, "MinButton", "0   'False");
    property(1, "ScaleHeight", height);
    property(1, "ScaleWidth", width);
    if (dialog) property(1, "ShowInTaskbar", "0   'False");
    property(1, "StartUpPosition", random_.chance(500) ? "1  'CenterOwner" : "3  'Windows Default");
    if (font && fontLast) writeFont(1);
  }

  void writeUserControl() {
    property(1, "ClientHeight", 3600);
    property(1, "ClientLeft", 0);
    property(1, "ClientTop", 0);
    property(1, "ClientWidth", 4800);
    if (random_.chance(300)) property(1, "KeyPreview", "-1  'True");
    property(1, "ScaleHeight", 3600);
    property(1, "ScaleWidth", 4800);
  }

  void writeFont(int level) {
    static constexpr std::array kNames{"MS Sans Serif", "Tahoma", "Arial", "Courier New"};
    static constexpr std::array kSizes{"8.25", "9.75", "9", "12"};
    const bool bold = random_.chance(400);
    out_.blanks(level * kLevelBlanks);
    out_.line("BeginProperty Font ");
    property(level + 1, "Name", '"', random_.pick(kNames), '"');
    property(level + 1, "Size", random_.pick(kSizes));
    property(level + 1, "Charset", 0);
    property(level + 1, "Weight", bold ? 700 : 400);
    for (const std::string_view flag : {"Underline", "Italic", "Strikethrough"})
      property(level + 1, flag, "0   'False");
    out_.blanks(level * kLevelBlanks);
    out_.line("EndProperty");
  }

  void writeControl(int index, int level, std::string_view parentPrefix) {
    const Control& control = module_.controls[static_cast<std::size_t>(index)];
    out_.blanks(level * kLevelBlanks);
    out_.line("Begin ", control.type->progId, ' ', control.name, ' ');
    // Children of a tab that isn't in front lie far to the left.
    const bool behind = parentPrefix == "tab" && control.index % 2 == 1;
    for (const PropertyRow& each : control.type->properties)
      if (random_.chance(each.perMille)) writeProperty(each, control, level + 1, behind);
    for (const int child : control.children) writeControl(child, level + 1, control.type->prefix);
    out_.blanks(level * kLevelBlanks);
    out_.line("End");
  }

  void writeProperty(const PropertyRow& row, const Control& control, int level, bool behind) {
    switch (row.shape) {
      case PropertyShape::kFixed:
        return property(level, row.name, row.value);
      case PropertyShape::kCaption:
        return property(level, row.name, '"', control.caption, '"');
      case PropertyShape::kToolTip:
        return writeToolTip(level, row.name);
      case PropertyShape::kColour:
        return writeColour(level, row.name);
      case PropertyShape::kFont:
        return writeFont(level);
      case PropertyShape::kLeft:
        return property(level, row.name, behind ? control.left - 75000 : control.left);
      case PropertyShape::kTop:
        return property(level, row.name, control.top);
      case PropertyShape::kWidth:
        return property(level, row.name, control.width);
      case PropertyShape::kHeight:
        return property(level, row.name, control.height);
      case PropertyShape::kRight:
        return property(level, row.name, control.left + control.width);
      case PropertyShape::kBottom:
        return property(level, row.name, control.top);
      case PropertyShape::kIndex:
        if (control.index >= 0) property(level, row.name, control.index);
        return;
      case PropertyShape::kTabIndex:
        return property(level, row.name, control.tabIndex);
      case PropertyShape::kTabs:
        return writeTabs(control, level);
      case PropertyShape::kPicture:
        return writePicture(level, row.name);
    }
  }

  void writeToolTip(int level, std::string_view itsName) {
    static constexpr std::array kStarts{"Press F2 to choose the ", "Leave this blank when there is no ",
                                        "Number of the "};
    const std::string_view start = random_.pick(kStarts);
    property(level, itsName, '"', start, random_.pick(words::kNouns), '"');
  }

  void writeColour(int level, std::string_view itsName) {
    static constexpr std::array kColours{"&H00FFFFFF&", "&H00C0C0C0&", "&H8000000F&",
                                         "&H00000080&", "&H00FF0000&", "&H80000018&"};
    property(level, itsName, random_.pick(kColours));
  }

  void writePicture(int level, std::string_view itsName) {
    if (!module_.hasCompanion) return;
    static constexpr std::array kOffsets{"\":0000", "\":030A", "\":0442", "\":08CA"};
    property(level, itsName, '"', companion_, random_.pick(kOffsets));
  }

  void writeTabs(const Control& control, int level) {
    const std::string count = std::to_string(control.children.size());
    property(level, "Tabs", 2);
    property(level, "TabHeight", 520);
    for (int tab = 0; tab < 2; ++tab) {
      const std::string number = std::to_string(tab);
      property(level, "TabCaption(" + number + ")", tab == 0 ? "\"General\"" : "\"Details\"");
      property(level, "Tab(" + number + ").ControlEnabled", tab == 0 ? "-1  'True" : "0   'False");
      for (std::size_t i = 0; tab == 0 && i < control.children.size(); ++i)
        property(level, "Tab(0).Control(" + std::to_string(i) + ")", '"',
                 module_.controls[static_cast<std::size_t>(control.children[i])].name, '"');
      property(level, "Tab(" + number + ").ControlCount", tab == 0 ? count : "0");
    }
  }

  Random& random_;
  const Module& module_;
  Text& out_;
  std::string companion_;
};

// The attribute block, with what VB_Creatable, VB_PredeclaredId and VB_Exposed are.
void writeAttributes(const Module& module, std::array<bool, 3> values, Text& out) {
  const auto text = [](bool value) { return value ? "True" : "False"; };
  out.line("Attribute VB_Name = \"", module.name, "\"");
  out.line("Attribute VB_GlobalNameSpace = False");
  out.line("Attribute VB_Creatable = ", text(values[0]));
  out.line("Attribute VB_PredeclaredId = ", text(values[1]));
  out.line("Attribute VB_Exposed = ", text(values[2]));
}

void writeClassHeader(Random& random, const Module& module, Text& out) {
  out.line("VERSION 1.0 CLASS");
  out.line("BEGIN");
  out.line("  MultiUse = -1  'True");
  if (!random.chance(40)) {
    out.line("  Persistable = 0  'NotPersistable");
    out.line("  DataBindingBehavior = 0  'vbNone");
    out.line("  DataSourceBehavior  = 0  'vbNone");
    out.line("  MTSTransactionMode  = 0  'NotAnMTSObject");
  }
  out.line("END");
  const bool exposed = random.chance(660);
  writeAttributes(module, {exposed || random.chance(900), false, exposed}, out);
  if (random.chance(65)) {
    out.line("Attribute VB_Ext_KEY = \"SavedWithClassBuilder6\" ,\"Yes\"");
    out.line("Attribute VB_Ext_KEY = \"Top_Level\" ,\"Yes\"");
  }
}

}  // namespace

void writeHeader(Random& random, const Module& module, Text& out) {
  switch (module.kind) {
    case ModuleKind::kStandard:
      return out.line("Attribute VB_Name = \"", module.name, "\"");
    case ModuleKind::kClass:
      return writeClassHeader(random, module, out);
    case ModuleKind::kForm:
      DesignerWriter(random, module, out).write();
      return writeAttributes(module, {false, true, false}, out);
    case ModuleKind::kControl:
      DesignerWriter(random, module, out).write();
      return writeAttributes(module, {true, false, true}, out);
  }
}

std::string companionBytes(Random& random) {
  std::string bytes(static_cast<std::size_t>(random.between(1200, 4000)), '\0');
  for (char& byte : bytes) byte = static_cast<char>(random.chance(300) ? random.below(256) : 0);
  return bytes;
}

std::string companionPath(const Module& module) {
  return module.path.substr(0, module.path.size() - 3) +
         (module.kind == ModuleKind::kControl ? "ctx" : "frx");
}

}  // namespace kolvane::generate
