#include <algorithm>

#include "base/text.h"
#include "forms/form.h"
#include "forms/layout.h"
#include "forms/snapshot.h"

namespace kolvane::forms {

namespace {

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char character = text[i];
    if (character == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    if (character == '\r' || character == '\n')
      result += "\\n";
    else if (character == '\t')
      result += "\\t";
    else if (character == '"')
      result += "\"\"";
    else
      result += character;
  }
  return result + "\"";
}

std::string quotedList(const std::vector<std::string>& texts, std::string_view between) {
  std::string result;
  for (const auto& text : texts) {
    if (!result.empty()) result += between;
    result += quoted(text);
  }
  return result;
}

bool holds(const std::optional<std::vector<int>>& list, int number) {
  return list && std::binary_search(list->begin(), list->end(), number);
}

const char* tickMark(bool ticked) { return ticked ? "[x] " : "[ ] "; }

class Writer {
 public:
  explicit Writer(const Form& form) : form_(form) {}

  std::string write() {
    const FormState state = snapshot(form_);
    line(0, state.name + " " + quoted(state.caption) + (state.modal ? ", modal" : ""));
    for (const auto& menu : state.menus) menuLine(1, menu);
    item(1, form_.currentLayout());
    return std::move(text_);
  }

 private:
  void line(int depth, const std::string& text) {
    text_.append(static_cast<std::size_t>(depth) * 2, ' ').append(text).append("\n");
  }

  void menuLine(int depth, const MenuState& menu) {
    std::string text = "Menu " + menu.name + " " + quoted(menu.caption);
    if (!menu.shortcut.empty()) text += " " + menu.shortcut;
    if (menu.checked) text += ", checked";
    if (!menu.enabled) text += ", disabled";
    if (!menu.visible) text += ", hidden";
    line(depth, text);
    for (const auto& item : menu.items) menuLine(depth + 1, item);
  }

  void item(int depth, const Layout& layout) {
    switch (layout.type) {
      case Layout::Type::kText:
        if (!layout.text.empty()) line(depth, quoted(layout.text));
        return;
      case Layout::Type::kUnplaced:
        return;
      case Layout::Type::kTabs:
        control(depth, *layout.control);
        pages(depth + 1, layout);
        return;
      case Layout::Type::kControl:
      case Layout::Type::kGroup:
        control(depth, *layout.control);
        break;
      default:
        break;
    }
    const int inner = layout.type == Layout::Type::kGroup ? depth + 1 : depth;
    for (std::size_t i = 0; i < layout.children.size(); ++i)
      if (!labelledBy(layout, i)) item(inner, layout.children[i]);  // a label stands in its control's line
  }

  void pages(int depth, const Layout& layout) {
    const ControlState state = layout.control->snapshot();
    for (std::size_t i = 0; i < layout.children.size() && i < state.pages->size(); ++i) {
      const bool shown = static_cast<int>(i) == *state.tab;
      line(depth, "page " + std::to_string(i) + " " + quoted((*state.pages)[i]) + (shown ? ", shown" : ""));
      if (shown) item(depth + 1, layout.children[i]);
    }
  }

  void control(int depth, const Control& control) {
    const ControlState state = control.snapshot();
    const std::string& label = form_.place(control).label;
    std::string text = label.empty() ? std::string() : quoted(label) + " ";
    text += std::string(kindRow(state.kind).name) + " " + state.name;
    if (!control.caption().empty()) text += " " + quoted(control.caption());
    text += inlineState(state) + flags(state);
    line(depth, text);
    content(depth + 1, state);
  }

  static std::string flags(const ControlState& state) {
    std::string text;
    if (state.locked) text += ", locked";
    if (!state.enabled) text += ", disabled";
    if (!state.visible) text += ", hidden";
    if (state.defaultButton) text += ", default";
    if (state.cancelButton) text += ", cancel";
    if (state.focus) text += ", focus";
    return text;
  }

  static bool ofLines(const ControlState& state) {
    return state.text && !state.items && state.text->find('\n') != std::string::npos;
  }

  static std::string inlineState(const ControlState& state) {
    std::string text;
    switch (state.kind) {
      case Kind::kCheckBox:
        return *state.value == 0 ? " [ ]" : *state.value == 1 ? " [x]" : " [~]";
      case Kind::kOptionButton:
        return *state.value == 0 ? " ( )" : " (o)";
      case Kind::kProgressBar:
        return " " + base::numberText(*state.value) + " in " + base::numberText(*state.min) + " to " +
               base::numberText(*state.max);
      case Kind::kStatusBar:
        for (const auto& panel : *state.panels)
          text += (text.empty() ? " " : " | ") + (panel.key.empty() ? std::string() : panel.key + " ") +
                  quoted(panel.text);
        return text;
      default:
        break;
    }
    if (state.text && !ofLines(state)) {
      text += " = " +
              quoted(state.password ? base::repeat('*', static_cast<int>(state.text->size())) : *state.text);
    }
    if (state.text && state.items && !state.items->empty() && !ofFiles(state.kind))
      text += " of " + quotedList(*state.items, ", ");
    if (!state.picture.empty()) text += " picture " + quoted(state.picture);
    return text;
  }

  static bool ofFiles(Kind kind) { return kind == Kind::kFolderList || kind == Kind::kFileList; }

  void content(int depth, const ControlState& state) {
    if (ofLines(state))
      for (const auto part : base::splitLines(*state.text))
        line(depth, part.empty() ? "|" : "| " + std::string(part));
    if (state.items && (!state.text || ofFiles(state.kind))) listItems(depth, state);
    if (state.rows) tableRows(depth, state);
    if (state.nodes) nodes(depth, state, *state.nodes);
  }

  void listItems(int depth, const ControlState& state) {
    for (std::size_t i = 0; i < state.items->size(); ++i) {
      const int index = static_cast<int>(i);
      const bool marked =
          state.checkBoxes || !state.selected ? index == *state.listIndex : holds(state.selected, index);
      line(depth, (marked ? "> " : "  ") +
                      std::string(state.checkBoxes ? tickMark(holds(state.checked, index)) : "") +
                      quoted((*state.items)[i]));
    }
  }

  void tableRows(int depth, const ControlState& state) {
    const bool grid = state.kind == Kind::kGrid;
    const int first = grid ? 0 : 1;
    if (state.columns && !state.columns->empty()) line(depth, "= " + quotedList(*state.columns, " | "));
    for (std::size_t i = 0; i < state.rows->size(); ++i) {
      const int row = static_cast<int>(i) + first;
      const char* mark = grid && row < state.fixedRows ? "= " : holds(state.selected, row) ? "> " : "  ";
      line(depth, mark + std::string(state.checkBoxes ? tickMark(holds(state.checked, row)) : "") +
                      quotedList((*state.rows)[i], " | "));
    }
  }

  void nodes(int depth, const ControlState& state, const std::vector<NodeState>& list) {
    for (const auto& node : list) {
      const char* fold = node.children.empty() ? "" : node.expanded ? "- " : "+ ";
      line(depth, (node.selected ? "> " : "  ") + std::string(fold) +
                      (state.checkBoxes ? tickMark(node.checked) : "") + quoted(node.text));
      nodes(depth + 1, state, node.children);
    }
  }

  const Form& form_;
  std::string text_;
};

}  // namespace

std::string dump(const Form& form) { return Writer(form).write(); }

}  // namespace kolvane::forms
