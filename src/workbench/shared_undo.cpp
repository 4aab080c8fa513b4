#include "workbench/shared_undo.h"

#include <QScopedValueRollback>
#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "workspace/module.h"

namespace kolvane::workbench {
namespace {

std::string textOf(workspace::Component& component) {
  const workspace::CodeText& code = component.code();
  return code.lines(1, code.countOfLines());
}

std::vector<std::string_view> linesOf(std::string_view text) {
  return text.empty() ? std::vector<std::string_view>() : base::splitLines(text);
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) text.append(i > 0 ? base::kCrLf : "").append(lines[i]);
  return text;
}

}  // namespace

// ---- making a step

void SharedUndo::begin() {
  pending_.clear();
  ++steps_;
}

void SharedUndo::willChange(const ComponentPtr& component) {
  pending_.push_back({component, textOf(*component), component->codeVersion()});
}

void SharedUndo::end() {
  for (const Pending& pending : pending_)
    if (!pending.component->isRemoved() && pending.component->codeVersion() != pending.version)
      record(pending);
  if (!pending_.empty()) {
    latest_ = steps_;
    latestIsUndone_ = false;
  }
  pending_.clear();
}

void SharedUndo::record(const Pending& pending) {
  workspace::Component& component = *pending.component;
  Track& track = tracks_[&component];
  const CodeEditor* editor = editorOf_(component);
  // Something else changed the module since, or another one had its place in memory.
  const bool isOther = track.component.lock() != pending.component;
  if (isOther || (editor == nullptr && track.version != pending.version)) track.parts.clear();
  std::erase_if(track.parts, [](const Part& part) { return part.undone; });
  track.component = pending.component;
  track.version = component.codeVersion();
  track.parts.push_back({steps_, difference(pending.text, textOf(component)), false,
                         editor != nullptr ? editor->undoDepth() : 0});
}

SharedUndo::Region SharedUndo::difference(std::string_view before, std::string_view after) {
  const auto old = linesOf(before), now = linesOf(after);
  const auto common = std::min(old.size(), now.size());
  std::size_t front = 0, back = 0;
  while (front < common && old[front] == now[front]) ++front;
  while (back < common - front && old[old.size() - 1 - back] == now[now.size() - 1 - back]) ++back;
  const auto cut = [&](const std::vector<std::string_view>& lines) {
    return std::vector<std::string>(lines.begin() + static_cast<std::ptrdiff_t>(front),
                                    lines.end() - static_cast<std::ptrdiff_t>(back));
  };
  return {static_cast<int>(front) + 1, cut(old), cut(now)};
}

std::string SharedUndo::replaced(const std::string& text, const Region& region, bool redo) {
  const auto& gone = redo ? region.before : region.after;
  const auto& come = redo ? region.after : region.before;
  const auto all = linesOf(text);
  const auto front = all.begin() + (region.first - 1);
  std::vector<std::string> lines(all.begin(), front);
  lines.insert(lines.end(), come.begin(), come.end());
  lines.insert(lines.end(), front + static_cast<std::ptrdiff_t>(gone.size()), all.end());
  return joined(lines);
}

// ---- undoing and redoing it

SharedUndo::Track* SharedUndo::trackOf(const workspace::Component& component) {
  const auto found = tracks_.find(&component);
  return found != tracks_.end() && found->second.component.lock().get() == &component ? &found->second
                                                                                      : nullptr;
}

void SharedUndo::move(int step, bool redo) {
  if (moving_) return;
  const QScopedValueRollback busy(moving_, true);
  std::vector<std::string> left;
  std::erase_if(tracks_, [](const auto& each) {
    const auto component = each.second.component.lock();
    return component == nullptr || component->isRemoved();
  });
  for (auto& [key, track] : tracks_)
    for (Part& part : track.parts)
      if (part.step == step && part.undone == redo && !movePart(track, part, redo))
        left.push_back(track.component.lock()->name());
  latest_ = step;
  latestIsUndone_ = !redo;
  if (!left.empty() && onLeft) onLeft(left, redo);
}

bool SharedUndo::movePart(Track& track, Part& part, bool redo) {
  CodeEditor* editor = editorOf_(*track.component.lock());
  return editor != nullptr ? moveInEditor(*editor, part, redo) : moveInModule(track, part, redo);
}

bool SharedUndo::moveInEditor(CodeEditor& editor, Part& part, bool redo) {
  if (editor.isReadOnly() || editor.undoDepth() != part.depth - (redo ? 1 : 0)) return false;
  redo ? editor.redo() : editor.undo();
  part.undone = !redo;
  return true;
}

bool SharedUndo::moveInModule(Track& track, Part& part, bool redo) {
  const auto component = track.component.lock();
  const bool isNext = std::none_of(track.parts.begin(), track.parts.end(), [&](const Part& other) {
    return redo ? &other < &part && other.undone : &other > &part && !other.undone;
  });
  if (!isNext || component->codeVersion() != track.version) return false;
  const auto& gone = redo ? part.region.before : part.region.after;
  const auto& come = redo ? part.region.after : part.region.before;
  const int count = static_cast<int>(gone.size());
  try {
    const auto module = component->CodeModule();
    if (count == 0)
      module->InsertLines(part.region.first, joined(come));
    else if (come.empty())
      module->DeleteLines(part.region.first, count);
    else
      module->ReplaceLines(part.region.first, count, joined(come));
  } catch (const base::Error&) {
    return false;  // it may no longer be edited
  }
  component->settleUndone();
  track.version = component->codeVersion();
  part.undone = !redo;
  return true;
}

// ---- editors

void SharedUndo::opened(CodeEditor& editor) {
  const auto& component = editor.component();
  Track* track = trackOf(*component);
  if (track == nullptr) return;
  if (track->version != component->codeVersion()) return track->parts.clear();
  const auto firstUndone =
      std::find_if(track->parts.begin(), track->parts.end(), [](const Part& part) { return part.undone; });
  const auto current = static_cast<std::size_t>(firstUndone - track->parts.begin());
  std::vector<std::string> texts(track->parts.size() + 1);
  texts[current] = textOf(*component);
  for (std::size_t i = current; i-- > 0;) texts[i] = replaced(texts[i + 1], track->parts[i].region, false);
  for (std::size_t i = current; i < track->parts.size(); ++i)
    texts[i + 1] = replaced(texts[i], track->parts[i].region, true);
  editor.rebuildHistory(texts, current);
  int depth = 0;
  for (Part& part : track->parts) part.depth = ++depth;
}

void SharedUndo::stepped(CodeEditor& editor, CodeEditor::Step step) {
  if (moving_) return;
  latest_ = 0;
  Track* track = trackOf(*editor.component());
  if (track == nullptr) return;
  const int depth = editor.undoDepth();
  if (step == CodeEditor::Step::kNew) {
    std::erase_if(track->parts, [&](const Part& part) { return part.depth >= depth; });
    return;
  }
  const bool redo = step == CodeEditor::Step::kRedone;
  const auto found = std::find_if(track->parts.begin(), track->parts.end(), [&](const Part& part) {
    return part.undone == redo && part.depth == depth + (redo ? 0 : 1);
  });
  if (found == track->parts.end()) return;
  found->undone = !redo;
  move(found->step, redo);
}

// Only what stands at the top of the history can be told from the text alone.
void SharedUndo::closing(CodeEditor& editor) {
  Track* track = trackOf(*editor.component());
  if (track == nullptr) return;
  std::vector<Part>& parts = track->parts;
  std::erase_if(parts, [](const Part& part) { return part.undone; });
  int depth = editor.undoDepth();
  auto kept = parts.end();
  for (; kept != parts.begin() && std::prev(kept)->depth == depth; --depth) --kept;
  parts.erase(parts.begin(), kept);
  for (Part& part : parts) part.depth = 0;
  track->version = editor.component()->codeVersion();
}

}  // namespace kolvane::workbench
