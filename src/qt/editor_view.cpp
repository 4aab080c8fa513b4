#include "qt/editor_view.h"

#include <algorithm>

#include "forms/user.h"
#include "qt/text_convert.h"

namespace kolvane::qt {

namespace {

// Where two texts differ.
struct Difference {
  int at = 0;
  int removed = 0;
  int inserted = 0;
};

Difference difference(const QString& before, const QString& after) {
  const auto common = static_cast<int>(std::min(before.size(), after.size()));
  int front = 0;
  while (front < common && before[front] == after[front]) ++front;
  int back = 0;
  while (back < common - front && before[before.size() - 1 - back] == after[after.size() - 1 - back]) ++back;
  return {front, static_cast<int>(before.size()) - front - back,
          static_cast<int>(after.size()) - front - back};
}

}  // namespace

bool EditorView::takesKey(int key, int shift) const {
  return !isFormKey(key, shift) && key != forms::keys::kEnter;
}

bool EditorView::takeCharacter(QChar character, bool) {
  if (locked()) return true;
  typing_ = true;
  insert(QString(character));
  typing_ = false;
  return true;
}

QString EditorView::model() const { return window().lines(bytes()); }

void EditorView::showText() {
  const QString now = shown();
  const QString wanted = model();
  if (now == wanted) return;
  const Difference differs = difference(now, wanted);
  replacePart(differs.at, differs.removed, wanted.mid(differs.at, differs.inserted));
}

bool EditorView::passKeyPress(QString& inserted) {
  QString kept;
  for (const QChar character : std::as_const(inserted)) {
    const bool lineEnd = character == QLatin1Char('\n');
    const std::string byte = fromQt(window().codePage(), QString(character));
    const int code = lineEnd ? forms::keys::kEnter : static_cast<unsigned char>(byte.at(0));
    int given = code;
    if (!act([&] { given = forms::user::keyPress(control(), code); })) return false;
    const char givenByte = static_cast<char>(given);
    if (given == forms::keys::kEnter)
      kept += QLatin1Char('\n');
    else if (given != 0)
      kept += text(std::string_view(&givenByte, 1));
  }
  inserted = kept;
  return true;
}

void EditorView::edited() {
  if (refreshing() || !window().alive()) return;
  const QString before = model();
  const QString now = shown();
  if (before == now) return;
  const Difference differs = difference(before, now);
  QString inserted = now.mid(differs.at, differs.inserted);
  QString why;
  if (!tryFromQt(window().codePage(), inserted, &why)) {
    showText();
    return window().refuse(*focusWidget(), why);
  }
  if (!typing_ && !passKeyPress(inserted)) return;
  const QString head = now.left(differs.at);
  const QString tail = now.mid(differs.at + differs.inserted);
  const auto whole = [&] { return fromQt(window().codePage(), withCrLf(head + inserted + tail)); };
  std::string result = whole();
  while (maxLength() > 0 && static_cast<int>(result.size()) > maxLength() && !inserted.isEmpty()) {
    inserted.chop(1);
    result = whole();
  }
  const bool asTyped = inserted.size() == differs.inserted;
  const int position = asTyped ? caret() : differs.at + static_cast<int>(inserted.size());
  const int at = positionInBytes(result, position);
  act([&] { forms::user::edited(control(), result, at); });
}

}  // namespace kolvane::qt
