#include "qt/boxes.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <memory>

#include "forms/message_box.h"
#include "qt/text_convert.h"

namespace kolvane::qt {

namespace {

constexpr int kIconMask = 0x70;
constexpr int kDefaultMask = 0x300;
constexpr int kDefaultStep = 0x100;

struct IconRow {
  int flags;
  QMessageBox::Icon icon;
};
constexpr std::array<IconRow, 4> kIcons{{{forms::box::kCritical, QMessageBox::Critical},
                                         {forms::box::kQuestion, QMessageBox::Question},
                                         {forms::box::kExclamation, QMessageBox::Warning},
                                         {forms::box::kInformation, QMessageBox::Information}}};

// By the number of the answer, from 1.
constexpr std::array<QMessageBox::StandardButton, 7> kButtons{
    QMessageBox::Ok,     QMessageBox::Cancel, QMessageBox::Abort, QMessageBox::Retry,
    QMessageBox::Ignore, QMessageBox::Yes,    QMessageBox::No};

QMessageBox::StandardButton buttonOf(forms::Answer answer) {
  return kButtons[static_cast<std::size_t>(answer) - 1];
}

// ---- texts that are larger than the screen

// What a box may give its text, the rest being for buttons, icon and frame.
QSize roomForText(const QWidget& box) {
  constexpr int kBeside = 160;
  constexpr int kWidest = 640;
  const QSize screen = box.screen()->availableGeometry().size();
  return {std::clamp(screen.width() - kBeside, kBeside, kWidest), screen.height() / 2};
}

QSize sizeOf(const QWidget& box, const QString& text, int width) {
  const QRect room(0, 0, width, QWIDGETSIZE_MAX);
  return box.fontMetrics().boundingRect(room, Qt::TextWordWrap | Qt::TextExpandTabs, text).size();
}

bool fits(QSize size, QSize room) { return size.width() <= room.width() && size.height() <= room.height(); }

QWidget* paragraphs(const QStringList& texts) {
  auto* const label = new QLabel(texts.join("\n\n"));
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setWordWrap(true);
  return label;
}

// The text in three parts: the longest paragraph, as a rule a list of files, scrolls; what stands around it, as a rule
// the question, stays in sight.
QWidget* scrollingText(const QWidget& box, const QString& text, QSize room) {
  const QStringList all = text.split("\n\n");
  const auto longest = std::max_element(all.begin(), all.end(), [&](const QString& a, const QString& b) {
    return sizeOf(box, a, room.width()).height() < sizeOf(box, b, room.width()).height();
  });
  QStringList before(all.begin(), longest), behind(longest + 1, all.end());
  QString list = *longest;
  int around = sizeOf(box, (before + behind).join("\n\n"), room.width()).height();
  if (around > room.height() / 2) {
    before.clear();
    behind.clear();
    list = text;
    around = 0;
  }
  auto* const body = new QWidget;
  auto* const column = new QVBoxLayout(body);
  column->setContentsMargins({});
  if (!before.empty()) column->addWidget(paragraphs(before));
  auto* const lines = new QPlainTextEdit(list);
  lines->setReadOnly(true);
  lines->setTabChangesFocus(true);
  lines->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  lines->setAccessibleName(before.join(' '));
  lines->setFixedSize(room.width(), room.height() - around);
  column->addWidget(lines);
  if (!behind.empty()) column->addWidget(paragraphs(behind));
  return body;
}

// Puts the text where the box's own label is, which cannot scroll. Behind all other settings of the box.
void scrollText(QMessageBox& box) {
  auto* const label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  auto* const grid = qobject_cast<QGridLayout*>(box.layout());
  if (!label || !grid) return;
  const std::unique_ptr<QLayoutItem> replaced(
      grid->replaceWidget(label, scrollingText(box, box.text(), roomForText(box))));
  label->hide();
  if (box.defaultButton()) box.defaultButton()->setFocus();
}

// ---- a line of text

// Asks before it drops what was typed into it.
class TextBox final : public QDialog {
 public:
  using QDialog::QDialog;
  QLineEdit* edit = nullptr;
  QString proposal;

  void reject() override {
    const bool typed = edit->text() != proposal && !edit->text().trimmed().isEmpty();
    const int flags = forms::box::kAsk + forms::box::kDefaultSecond;
    if (!typed || showMessage(this, QStringLiteral("Drop what you have typed?"), flags, windowTitle()) ==
                      forms::Answer::kYes)
      QDialog::reject();
  }
};

}  // namespace

forms::Answer showMessage(QWidget* owner, const QString& text, int flags, const QString& title) {
  QMessageBox box(owner);
  box.setWindowTitle(title);
  box.setTextFormat(Qt::PlainText);
  box.setText(text);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse);
  for (const auto& row : kIcons)
    if (row.flags == (flags & kIconMask)) box.setIcon(row.icon);
  if ((flags & forms::box::kSystemModal) != 0) box.setWindowFlag(Qt::WindowStaysOnTopHint);
  const auto answers = forms::buttonsOf(flags);
  for (const forms::Answer answer : answers) box.addButton(buttonOf(answer));
  const auto preferred = static_cast<std::size_t>((flags & kDefaultMask) / kDefaultStep);
  box.setDefaultButton(buttonOf(answers[preferred < answers.size() ? preferred : 0]));
  const forms::Answer cautious = forms::cautiousAnswer(flags);
  box.setEscapeButton(buttonOf(cautious));
  const QSize room = roomForText(box);
  if (!fits(sizeOf(box, text, room.width()), room)) scrollText(box);
  const int chosen = box.exec();
  for (const forms::Answer answer : answers)
    if (static_cast<int>(buttonOf(answer)) == chosen) return answer;
  return cautious;
}

std::optional<std::string> askText(QWidget* owner, const base::CodePage& codePage, std::string_view prompt,
                                   std::string_view title, std::string_view proposal) {
  constexpr int kWidth = 360;
  TextBox dialog(owner);
  dialog.setWindowTitle(toQt(codePage, title));
  auto* const label = new QLabel(linesToQt(codePage, prompt));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  auto* const edit = new QLineEdit(toQt(codePage, proposal));
  edit->setMinimumWidth(kWidth);
  dialog.edit = edit;
  dialog.proposal = edit->text();
  edit->setAccessibleName(label->text());
  edit->selectAll();
  auto* const fault = new QLabel;
  fault->setTextFormat(Qt::PlainText);
  fault->setWordWrap(true);
  fault->hide();
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* const column = new QVBoxLayout(&dialog);
  column->addWidget(label);
  column->addWidget(edit);
  column->addWidget(fault);
  column->addStretch(1);
  column->addWidget(buttons);
  std::optional<std::string> entered;
  const auto look = [&] {
    QString why;
    entered = tryFromQt(codePage, edit->text(), &why);
    fault->setText(why);
    fault->setVisible(!entered);
    buttons->button(QDialogButtonBox::Ok)->setEnabled(entered.has_value());
  };
  QObject::connect(edit, &QLineEdit::textChanged, &dialog, look);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  look();
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return entered;
}

QString fileFilter(const QString& filter) {
  const QStringList parts = filter.split(QLatin1Char('|'));
  QStringList rows;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString name = parts[i];
    const qsizetype bracket = name.indexOf(QLatin1String(" ("));
    if (bracket >= 0) name.truncate(bracket);
    QString patterns = parts[i + 1];
    patterns.replace(QLatin1Char(';'), QLatin1Char(' ')).replace(QLatin1String("*.*"), QLatin1String("*"));
    rows << name + QLatin1String(" (") + patterns.simplified() + QLatin1Char(')');
  }
  return rows.join(QLatin1String(";;"));
}

QString askFile(QWidget* owner, forms::FileDialog::Kind kind, const QString& title, const QString& filter,
                const QString& proposed) {
  QFileDialog dialog(owner, title);
  dialog.setNameFilter(fileFilter(filter));
  switch (kind) {
    case forms::FileDialog::Kind::kOpen:
      dialog.setFileMode(QFileDialog::ExistingFile);
      break;
    case forms::FileDialog::Kind::kSave:
      dialog.setAcceptMode(QFileDialog::AcceptSave);
      dialog.setFileMode(QFileDialog::AnyFile);
      break;
    case forms::FileDialog::Kind::kFolder:
      dialog.setFileMode(QFileDialog::Directory);
      dialog.setOption(QFileDialog::ShowDirsOnly);
      break;
  }
  if (!proposed.isEmpty()) {
    const QFileInfo info(proposed);
    if (info.isDir())
      dialog.setDirectory(proposed);
    else
      dialog.selectFile(proposed);
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return dialog.selectedFiles().constFirst();
}

}  // namespace kolvane::qt
