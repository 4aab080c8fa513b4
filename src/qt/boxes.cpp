#include "qt/boxes.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

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
  const int chosen = box.exec();
  for (const forms::Answer answer : answers)
    if (static_cast<int>(buttonOf(answer)) == chosen) return answer;
  return cautious;
}

std::optional<std::string> askText(QWidget* owner, const base::CodePage& codePage, std::string_view prompt,
                                   std::string_view title, std::string_view proposal) {
  constexpr int kWidth = 360;
  QDialog dialog(owner);
  dialog.setWindowTitle(toQt(codePage, title));
  auto* const label = new QLabel(linesToQt(codePage, prompt));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  auto* const edit = new QLineEdit(toQt(codePage, proposal));
  edit->setMinimumWidth(kWidth);
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
