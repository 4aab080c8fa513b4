#include "frame/window_menus.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "forms/error_form.h"

namespace kolvane::frame {
namespace {

// What the setting of a popup's item reads as when it is not stored.
constexpr std::string_view kItemWithoutSetting = "1";

template <typename Work>
void resumeNext(Work&& work) {
  try {
    work();
  } catch (const base::Error&) {
  }
}

std::string entryKey(std::string_view prefix, std::string_view key) {
  return std::string(prefix) + std::string(key);
}

std::shared_ptr<CommandBar> findBar(VBE& vbe, int index) {
  const auto bars = vbe.CommandBars();
  return index <= bars->Count() ? bars->Item(index) : nullptr;
}

}  // namespace

// ---- the parts of all entries

WindowMenus::ControlPointer WindowMenus::addTop(int barIndex, ControlKind kind, std::string_view caption,
                                                bool& group) {
  const auto bar = findBar(services_.vbe, barIndex);
  if (!bar) return nullptr;
  const ControlPointer control = bar->Controls()->Add(kind);
  top_.push_back({control});
  control->setCaption(caption);
  if (std::exchange(group, false)) control->setBeginGroup(true);
  return control;
}

WindowMenus::ControlPointer WindowMenus::addBelow(CommandBarControl& popup, ControlKind kind,
                                                  std::string_view caption) {
  const ControlPointer control = popup.Controls()->Add(kind);
  control->setCaption(caption);
  return control;
}

void WindowMenus::addEntry(int barIndex, const MenuEntry& entry, bool& group, const std::string& caption) {
  if (!has(entry.handler)) return;
  const ControlPointer control = addTop(barIndex, ControlKind::kButton, caption, group);
  if (!control) return;
  top_.back().handler = entry.handler;
  giveFace(*control, entry.pictureKey);
  onHandler(control, entry.handler);
}

// A button that gets no picture is there all the same.
void WindowMenus::giveFace(CommandBarControl& control, std::string_view pictureKey) {
  if (pictureKey.empty()) return;
  PutImageIntoClipboard(services_.clipboard, pictureKey, variant_);
  try {
    control.PasteFace();
  } catch (const base::Error& error) {
    if (error.number() != base::errors::kInvalidCall) throw;
  }
}

void WindowMenus::onClick(const ControlPointer& control, std::string_view action,
                          std::function<void()> work) {
  top_.back().actions.emplace_back(control.get(), action);
  top_.back().clicks.push_back(services_.vbe.Events()->CommandBarEvents(
      control, [work = std::move(work)](const ControlPointer&, bool&, bool&) { work(); }));
}

void WindowMenus::onHandler(const ControlPointer& control, std::string_view handler) {
  onClick(control, handler, [this, handler] {
    const auto found = bindings_.clicks.find(handler);
    if (found == bindings_.clicks.end() || !found->second) return;
    forms::showErrors(services_.desk, "Connect", handler, found->second);
  });
}

// ---- the controls window's menu

void WindowMenus::AddToControlWindowMenu(const MenuEntry& entry, std::string_view key, bool& group) {
  if (services_.settings.flag(entryKey(kControlMenuPrefix, key)))
    addEntry(kControlsWindowMenuIndex, entry, group, std::string(entry.caption));
}

void WindowMenus::AddTabOrderToControlsWindowMenu(bool& group) {
  addEntry(kControlsWindowMenuIndex, kTabOrderEntry, group, std::string(kTabOrderEntry.caption));
}

void WindowMenus::addForSelection(const MenuEntry& entry, const std::string& caption) {
  removeEntry(entry);
  bool group = false;
  addEntry(kControlsWindowMenuIndex, entry, group, caption);
}

void WindowMenus::AddSwapControlsToControlsWindowMenu() {
  addForSelection(kSwapControlsEntry, std::string(kSwapControlsEntry.caption));
}

void WindowMenus::AddSelectedControlsToControlsWindowMenu() {
  addForSelection(kSelectedControlsEntry, std::string(kSelectedControlsEntry.caption));
}

void WindowMenus::AddCopyControlCodeToControlsWindowMenu(const std::string& name) {
  addForSelection(kCopyControlCodeEntry, std::string(kCopyControlCodeEntry.caption) + name + " Code");
}

void WindowMenus::AddPasteControlCodeToControlsWindowMenu(const std::string& name) {
  addForSelection(kPasteControlCodeEntry, std::string(kPasteControlCodeEntry.caption) + name + " Code");
}

bool WindowMenus::hasEntry(const MenuEntry& entry) const {
  return std::any_of(top_.begin(), top_.end(),
                     [&entry](const Top& top) { return top.handler == entry.handler; });
}

void WindowMenus::removeEntry(const MenuEntry& entry) {
  const auto found = std::find_if(top_.begin(), top_.end(),
                                  [&entry](const Top& top) { return top.handler == entry.handler; });
  if (found == top_.end()) return;
  const ControlPointer control = found->control;
  top_.erase(found);
  resumeNext([&] { control->Delete(); });
}

// ---- the code window's menu

void WindowMenus::Put_List_My_Callers_Into_IDE(bool& group) {
  if (services_.settings.flag(entryKey(kCodeMenuPrefix, "SLMCs147")))
    addEntry(kCodeWindowMenuIndex, kListMyCallersEntry, group, std::string(kListMyCallersEntry.caption));
}

void WindowMenus::Put_Enhanced_Clipboard_Into_IDE(bool& group) {
  if (!services_.settings.flag(entryKey(kCodeMenuPrefix, "reYrgUdfg67JKAEWFdfadef"))) return;
  const auto isThere = [this](const MenuEntry& entry) { return has(entry.handler); };
  if (std::none_of(kEnhancedClipboardPopup.begin(), kEnhancedClipboardPopup.end(), isThere)) return;
  const ControlPointer popup =
      addTop(kCodeWindowMenuIndex, ControlKind::kPopup, kEnhancedClipboardCaption, group);
  if (!popup) return;
  for (const MenuEntry& entry : kEnhancedClipboardPopup) {
    if (!isThere(entry)) continue;
    const ControlPointer button = addBelow(*popup, ControlKind::kButton, entry.caption);
    giveFace(*button, entry.pictureKey);
    onHandler(button, entry.handler);
  }
}

void WindowMenus::Put_Current_Procedure_Recoder_Into_IDE(bool& group) {
  if (services_.settings.flag(entryKey(kCodeMenuPrefix, "SCPR75"))) AddProcRecoderToCodeMenu(group);
}

std::vector<std::string> WindowMenus::customErrors() const {
  return bindings_.customErrors ? bindings_.customErrors() : std::vector<std::string>();
}

bool WindowMenus::isThere(std::size_t index) const {
  const PopupItem& item = kProcRecoderPopup[index];
  if (item.kind == PopupKind::kButton) return has(item.target);
  if (item.kind == PopupKind::kCustomErrors) return true;
  for (std::size_t i = index + 1; i < kProcRecoderPopup.size() && kProcRecoderPopup[i].level > item.level;
       ++i)
    if (isThere(i)) return true;
  return false;
}

// An item by its setting, on where nothing is stored; without one a button always, and a popup when any of its items is on.
bool WindowMenus::isShown(std::size_t index, bool hasCustomErrors) const {
  const PopupItem& item = kProcRecoderPopup[index];
  if (item.kind == PopupKind::kCustomErrors && !hasCustomErrors) return false;
  if (!isThere(index)) return false;
  if (!item.option.empty()) return services_.settings.flag(item.option, kItemWithoutSetting);
  if (item.kind != PopupKind::kPopup) return true;
  for (std::size_t i = index + 1; i < kProcRecoderPopup.size() && kProcRecoderPopup[i].level > item.level;
       ++i)
    if (kProcRecoderPopup[i].level == item.level + 1 && isShown(i, hasCustomErrors)) return true;
  return false;
}

void WindowMenus::AddProcRecoderToCodeMenu(bool& group) {
  const std::vector<std::string> errors = customErrors();
  if (!isShown(0, !errors.empty())) return;
  const ControlPointer popup =
      addTop(kCodeWindowMenuIndex, ControlKind::kPopup, kProcRecoderPopup[0].caption, group);
  if (!popup) return;
  // The popups that stand open, by their level.
  std::vector<ControlPointer> popups{popup};
  for (std::size_t i = 1; i < kProcRecoderPopup.size(); ++i) {
    if (!isThere(i)) continue;
    const PopupItem& item = kProcRecoderPopup[i];
    popups.resize(static_cast<std::size_t>(item.level));
    CommandBarControl& parent = *popups.back();
    if (item.kind == PopupKind::kCustomErrors) {
      if (!errors.empty()) addCustomErrors(parent, item, errors);
      continue;
    }
    const bool isPopup = item.kind == PopupKind::kPopup;
    const ControlPointer control =
        addBelow(parent, isPopup ? ControlKind::kPopup : ControlKind::kButton, item.caption);
    giveFace(*control, item.pictureKey);
    control->setVisible(isShown(i, !errors.empty()));
    if (isPopup)
      popups.push_back(control);
    else
      onClick(control, item.target, [this, &item] { clickItem(item); });
  }
}

void WindowMenus::addCustomErrors(CommandBarControl& parent, const PopupItem& item,
                                  const std::vector<std::string>& names) {
  const ControlPointer popup = addBelow(parent, ControlKind::kPopup, item.caption);
  popup->setVisible(services_.settings.flag(item.option, kItemWithoutSetting));
  const std::size_t count = std::min<std::size_t>(names.size(), kMaxCustomErrors);
  for (std::size_t i = 0; i < count; ++i) {
    const ControlPointer button = addBelow(*popup, ControlKind::kButton, names[i]);
    giveFace(*button, item.pictureKey);
    onClick(button, kCustomErrorAction,
            [this, name = names[i], handler = customErrorHandlerName(static_cast<int>(i) + 1)] {
              if (!bindings_.createCustomError) return;
              forms::showErrors(services_.desk, "Connect", handler,
                                [&] { bindings_.createCustomError(name); });
            });
  }
}

// The standard error handlers ask first whether the procedure has one already.
void WindowMenus::clickItem(const PopupItem& item) {
  if (!bindings_.dispatch) return;
  forms::showErrors(services_.desk, "Connect", item.handler, [&] {
    const bool isErrorHandler = item.handler.ends_with("ErrorCode_Click");
    const auto pane = services_.vbe.ActiveCodePane();
    if (isErrorHandler && bindings_.handlerExists && pane &&
        bindings_.handlerExists(*pane->CodeModule(), pane->GetSelection().startLine))
      return;
    bindings_.dispatch(item.target);
  });
}

std::string_view WindowMenus::actionOf(const CommandBarControl& control) const {
  for (const Top& top : top_)
    for (const auto& [each, action] : top.actions)
      if (each == &control) return action;
  return {};
}

void WindowMenus::remove() {
  for (Top& top : top_) {
    top.clicks.clear();
    resumeNext([&] { top.control->Delete(); });
  }
  top_.clear();
}

}  // namespace kolvane::frame
