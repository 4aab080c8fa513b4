#include "workbench/help_viewer.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QShortcut>
#include <QStyle>
#include <QTextDocument>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>
#include <QWindow>

namespace kolvane::workbench {
namespace {

const QString kContents = QStringLiteral("index.html");

QString htmlOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace

HelpViewer::HelpViewer(const std::string& home)
    : folder_(home.empty() ? QString() : QString::fromStdString(home) + "/Help"),
      page_(new QTextBrowser(this)),
      searched_(new QLineEdit(this)),
      result_(new QLabel(this)) {
  setAttribute(Qt::WA_QuitOnClose, false);
  setWindowTitle("KolvaneLite Help");
  resize(860, 700);
  page_->setOpenExternalLinks(true);
  page_->document()->setDocumentMargin(16);
  const QFontMetricsF letters(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  page_->setTabStopDistance(4 * letters.horizontalAdvance(' '));
  searched_->setPlaceholderText("Search the help pages");
  searched_->setClearButtonEnabled(true);
  searched_->setMaximumWidth(280);

  auto* bar = new QToolBar(this);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  const auto add = [&](QStyle::StandardPixmap icon, const QString& text, const QList<QKeySequence>& keys) {
    QAction* const action = bar->addAction(style()->standardIcon(icon), text);
    action->setShortcuts(keys);
    if (!keys.isEmpty()) action->setToolTip(text + " (" + keys.front().toString() + ")");
    return action;
  };
  QAction* const back =
      add(QStyle::SP_ArrowBack, "Back", {QKeySequence("Alt+Left"), QKeySequence(Qt::Key_Back)});
  QAction* const forward =
      add(QStyle::SP_ArrowForward, "Forward", {QKeySequence("Alt+Right"), QKeySequence(Qt::Key_Forward)});
  QAction* const contents = add(QStyle::SP_DirHomeIcon, "Contents", {QKeySequence("Alt+Home")});
  auto* space = new QWidget(bar);
  space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  bar->addWidget(space);
  bar->addWidget(result_);
  bar->addWidget(searched_);
  QAction* const previous = add(QStyle::SP_ArrowUp, "Previous", {QKeySequence("Shift+F3")});
  QAction* const next = add(QStyle::SP_ArrowDown, "Next", {QKeySequence("F3")});
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(bar);
  column->addWidget(page_);

  back->setEnabled(false);
  forward->setEnabled(false);
  connect(page_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(page_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
  connect(back, &QAction::triggered, page_, &QTextBrowser::backward);
  connect(forward, &QAction::triggered, page_, &QTextBrowser::forward);
  connect(contents, &QAction::triggered, this, [this] { open(""); });
  connect(next, &QAction::triggered, this, [this] { findNext(); });
  connect(previous, &QAction::triggered, this, [this] { findPrevious(); });
  connect(searched_, &QLineEdit::returnPressed, this, [this] { findNext(); });
  connect(searched_, &QLineEdit::textChanged, this, [this] {
    result_->clear();
    markMatches();
  });
  connect(page_, &QTextBrowser::sourceChanged, this, [this] {
    const QString title = page_->documentTitle();
    setWindowTitle(title.isEmpty() ? "KolvaneLite Help" : title + " - KolvaneLite Help");
    markMatches();
  });
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
    searched_->setFocus();
    searched_->selectAll();
  });
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
  page_->setFocus();
}

void HelpViewer::open(std::string_view topic) {
  const QString wanted = QString::fromUtf8(topic.data(), static_cast<qsizetype>(topic.size()));
  const QString name = wanted.section('#', 0, 0);
  const QString file = fileOf(name.isEmpty() ? kContents : name);
  if (!file.isEmpty())
    showPage(file, wanted.section('#', 1));
  else if (fileOf(kContents).isEmpty())
    say("The help pages are missing. They belong into the folder " +
        (folder_.isEmpty() ? QString("share/kolvane/Help beside the program.") : folder_ + "."));
  else
    say("There is no help page \"" + name + "\".");
  comeToFront();
}

// The pages' names are compared as the forms were written: without case.
QString HelpViewer::fileOf(const QString& name) const {
  if (folder_.isEmpty()) return {};
  for (const QString& file : QDir(folder_).entryList({"*.html", "*.Html"}, QDir::Files))
    if (file.compare(name, Qt::CaseInsensitive) == 0) return file;
  return {};
}

void HelpViewer::showPage(const QString& file, const QString& place) {
  QUrl url = QUrl::fromLocalFile(folder_ + "/" + file);
  if (!place.isEmpty()) url.setFragment(place);
  page_->setSource(url);
}

// In place of a page.
void HelpViewer::say(const QString& text) {
  const QString contents = QUrl::fromLocalFile(folder_ + "/" + kContents).toString().toHtmlEscaped();
  page_->setHtml(
      "<p>" + text.toHtmlEscaped() + "</p>" +
      (fileOf(kContents).isEmpty() ? QString() : "<p><a href=\"" + contents + "\">Contents</a></p>"));
  setWindowTitle("KolvaneLite Help");
}

// Over a modal window it belongs to that one, which would keep it from its user otherwise.
void HelpViewer::comeToFront() {
  QWidget* const modal = QApplication::activeModalWidget();
  winId();
  QWindow* const owner = modal != nullptr ? modal->window()->windowHandle() : nullptr;
  if (windowHandle()->transientParent() != owner) {
    hide();
    windowHandle()->setTransientParent(owner);
  }
  if (isMinimized()) showNormal();
  show();
  raise();
  activateWindow();
}

bool HelpViewer::findNext() { return find(true); }
bool HelpViewer::findPrevious() { return find(false); }

bool HelpViewer::find(bool forward) {
  result_->clear();
  if (searched_->text().isEmpty()) return false;
  const auto direction = forward ? QTextDocument::FindFlags() : QTextDocument::FindBackward;
  if (page_->find(searched_->text(), direction)) return true;
  const QStringList files = QDir(folder_).entryList({"*.html", "*.Html"}, QDir::Files);
  const qsizetype count = files.size();
  const qsizetype here = files.indexOf(page_->source().fileName());
  // This page once more, last, from its other end.
  for (qsizetype i = 1; i <= count; ++i) {
    const qsizetype next = ((here < 0 ? (forward ? -1 : 0) : here) + (forward ? i : count - i)) % count;
    if (!has(files[next])) continue;
    if (next != here) showPage(files[next]);
    if (findFromEdge(forward)) return true;
  }
  result_->setText("Not found  ");
  return false;
}

bool HelpViewer::findFromEdge(bool forward) {
  page_->moveCursor(forward ? QTextCursor::Start : QTextCursor::End);
  return page_->find(searched_->text(), forward ? QTextDocument::FindFlags() : QTextDocument::FindBackward);
}

bool HelpViewer::has(const QString& file) const {
  QTextDocument document;
  document.setHtml(htmlOf(folder_ + "/" + file));
  return !document.find(searched_->text()).isNull();
}

void HelpViewer::markMatches() {
  QList<QTextEdit::ExtraSelection> marks;
  const QString text = searched_->text();
  QTextCursor match(page_->document());
  while (text.size() > 1 && !(match = page_->document()->find(text, match)).isNull()) {
    QTextEdit::ExtraSelection mark;
    mark.cursor = match;
    mark.format.setBackground(QColor(255, 224, 102));
    mark.format.setForeground(Qt::black);
    marks.append(mark);
  }
  page_->setExtraSelections(marks);
}

// Pages take their colours from the palette while they are read.
void HelpViewer::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || page_->source().isEmpty()) return;
  const int place = page_->verticalScrollBar()->value();
  page_->reload();
  page_->verticalScrollBar()->setValue(place);
}

}  // namespace kolvane::workbench
