#include "qt/boxes.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>

#include "adapters/clipboard/qt_clipboard.h"
#include "forms/message_box.h"
#include "frame/pictures.h"
#include "on_screen.h"
#include "qt/key_codes.h"
#include "qt/picture_icons.h"
#include "qt/text_convert.h"

namespace kolvane::test {
namespace {

using forms::Answer;
namespace box = forms::box;

class Boxes : public OnScreen {
 protected:
  // Presses a key in the box that the call shows; what it gives, as a number.
  int answered(int flags, Qt::Key key) {
    whenAsked([key](QWidget* dialog) { QTest::keyClick(dialog, key); });
    return static_cast<int>(desk.msgBox("Save the file?", flags, "Title"));
  }
};

TEST_F(Boxes, MessageBoxHasTheIconTheButtonsAndTheTitle) {
  struct Row {
    int flags;
    QMessageBox::Icon icon;
  };
  constexpr Row kRows[] = {{box::kOkOnly, QMessageBox::NoIcon},
                           {box::kYesNo + box::kQuestion, QMessageBox::Question},
                           {box::kNotice, QMessageBox::Warning},
                           {box::kYesNoCancel + box::kCritical, QMessageBox::Critical},
                           {box::kAbortRetryIgnore + box::kInformation, QMessageBox::Information}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.flags);
    whenAsked([&](QWidget* dialog) {
      auto* const message = qobject_cast<QMessageBox*>(dialog);
      ASSERT_TRUE(message);
      EXPECT_EQ(message->text(), QString::fromUtf8("<b>é</b>"));
      EXPECT_EQ(message->textFormat(), Qt::PlainText);
      EXPECT_EQ(message->icon(), row.icon);
      std::vector<std::string> names;
      for (const Answer answer : forms::buttonsOf(row.flags)) names.emplace_back(forms::answerName(answer));
      std::vector<std::string> shown;
      for (const auto* button : message->buttons()) {
        QString text = button->text();
        shown.push_back(text.remove(QLatin1Char('&')).toStdString());
      }
      EXPECT_THAT(shown, testing::UnorderedElementsAreArray(names));
      message->reject();
    });
    EXPECT_EQ(desk.msgBox("<b>\xE9</b>", row.flags, "Title"), forms::cautiousAnswer(row.flags));
  }
}

TEST_F(Boxes, MessageBoxAnswersByKeys) {
  constexpr int kSecond = 256;
  EXPECT_EQ(answered(box::kOkOnly, Qt::Key_Escape), static_cast<int>(Answer::kOk));
  EXPECT_EQ(answered(box::kYesNo, Qt::Key_Return), static_cast<int>(Answer::kYes));
  EXPECT_EQ(answered(box::kYesNo + kSecond, Qt::Key_Return), static_cast<int>(Answer::kNo));
  EXPECT_EQ(answered(box::kYesNo, Qt::Key_Escape), static_cast<int>(Answer::kNo));
  EXPECT_EQ(answered(box::kRetryCancel, Qt::Key_Escape), static_cast<int>(Answer::kCancel));
}

TEST_F(Boxes, InputBoxRefusesWhatTheCodePageLacks) {
  whenAsked([](QWidget* dialog) {
    auto* const edit = dialog->findChild<QLineEdit*>();
    QPushButton* const ok = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    EXPECT_EQ(edit->text(), "Ann");
    edit->setText(QString::fromUtf8("Ω"));
    EXPECT_FALSE(ok->isEnabled());
    edit->setText(QString::fromUtf8("Zoë"));
    EXPECT_TRUE(ok->isEnabled());
    ok->click();
  });
  EXPECT_EQ(desk.inputBox("Who?", "Name", "Ann"), "Zo\xEB");
  whenAsked([](QWidget* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
  EXPECT_EQ(desk.inputBox("Who?", "Name", "Ann"), std::nullopt);
}

TEST_F(Boxes, InputBoxAsksBeforeItDropsWhatWasTyped) {
  std::vector<std::string> asked;
  // Esc, then Enter on the question, Esc again, then Y: the text goes only by the last.
  const Qt::Key answers[] = {Qt::Key_Return, Qt::Key_Y};
  whenAsked([&](QWidget* dialog) {
    auto* const edit = dialog->findChild<QLineEdit*>();
    QTest::keyClicks(edit, "x");
    for (const Qt::Key answer : answers) {
      whenAsked(
          [&asked, answer](QWidget* box) {
            auto* const message = qobject_cast<QMessageBox*>(box);
            asked.push_back(message ? message->text().toStdString() : "nothing");
            QTest::keyClick(box, answer);
          },
          dialog);
      QTest::keyClick(edit, Qt::Key_Escape);
      EXPECT_EQ(dialog->isVisible(), answer == Qt::Key_Return);
      EXPECT_EQ(edit->text(), "x");
    }
  });
  EXPECT_EQ(desk.inputBox("Who?", "Name", "Ann"), std::nullopt);
  EXPECT_EQ(asked, (std::vector<std::string>{"Drop what you have typed?", "Drop what you have typed?"}));
}

TEST_F(Boxes, ATextThatIsLargerThanTheScreenScrolls) {
  std::string list;
  for (int i = 1; i <= 300; ++i) list += "\nFile" + std::to_string(i) + ".bas";
  const std::string path = "/" + std::string(2000, 'x');
  for (const std::string& text :
       {"These files:\n" + list + "\n\nWrite over them?", "Only this:\n\n" + path, path}) {
    whenAsked([](QWidget* dialog) {
      const QSize screen = dialog->screen()->availableGeometry().size();
      EXPECT_LE(dialog->frameGeometry().width(), screen.width());
      EXPECT_LE(dialog->frameGeometry().height(), screen.height());
      EXPECT_TRUE(dialog->findChild<QPlainTextEdit*>());
      QTest::keyClick(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(desk.msgBox(text, box::kYesNo + box::kDefaultSecond, "Title"), Answer::kNo);
  }
}

TEST_F(Boxes, FileDialogMapsPaths) {
  const QTemporaryDir folder;
  const std::string root = folder.path().toStdString();
  qt::QtDesk mapping{
      {.codePage = base::CodePage::get(1252),
       .toSuitePath = [&](const std::string& path) { return "C:\\" + path.substr(root.size() + 1); },
       .toSystemPath = [&](const std::string& path) { return root + "/" + path.substr(3); }}};
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  whenAsked([](QWidget* widget) {
    auto* const dialog = qobject_cast<QFileDialog*>(widget);
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->nameFilters(), (QStringList{"Pictures (*.bmp *.gif)", "All files (*)"}));
    dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
  });
  EXPECT_EQ(mapping.fileDialog({forms::FileDialog::Kind::kSave, "Save as",
                                "Pictures (*.bmp;*.gif)|*.bmp;*.gif|All files (*.*)|*.*", "C:\\a.bmp"}),
            "C:\\a.bmp");
}

TEST_F(Boxes, BusyPointerRestsWhileSomethingIsAsked) {
  desk.setBusy(true);
  desk.setBusy(true);
  ASSERT_TRUE(QGuiApplication::overrideCursor());
  whenAsked([](QWidget* dialog) {
    EXPECT_FALSE(QGuiApplication::overrideCursor());
    QTest::keyClick(dialog, Qt::Key_Return);
  });
  desk.msgBox("?", box::kOkOnly, "");
  EXPECT_TRUE(QGuiApplication::overrideCursor());
  desk.setBusy(false);
  EXPECT_FALSE(QGuiApplication::overrideCursor());
}

TEST(PictureIcons, EveryPictureOfTheSuiteIsDrawn) {
  const qt::PictureIcons icons(KOLVANE_SOURCE_DIR "/data");
  for (const auto variant : {frame::PictureVariant::k2000, frame::PictureVariant::k95}) {
    for (const auto key : frame::pictureKeys()) {
      const std::string name = frame::pictureName(key, variant);
      const QImage image = icons.icon(name).pixmap(QSize(32, 32)).toImage();
      ASSERT_EQ(image.size(), QSize(32, 32)) << name;
      bool drawn = false;
      for (int y = 0; y < 32 && !drawn; ++y)
        for (int x = 0; x < 32 && !drawn; ++x) drawn = qAlpha(image.pixel(x, y)) > 0;
      EXPECT_TRUE(drawn) << name;
    }
  }
  EXPECT_TRUE(icons.icon("No Such Picture").isNull());
  EXPECT_TRUE(qt::PictureIcons("").icon("Search").isNull());
}

TEST(PictureIcons, HighContrastIsToldByThePalette) {
  QPalette palette(Qt::white);
  palette.setColor(QPalette::Window, Qt::black);
  palette.setColor(QPalette::WindowText, Qt::white);
  EXPECT_TRUE(qt::isHighContrast(palette));
  palette.setColor(QPalette::Window, QColor(48, 48, 48));
  EXPECT_FALSE(qt::isHighContrast(palette));
}

TEST(KeyCodes, KeysHaveTheLanguagesNumbersBothWays) {
  const struct {
    Qt::Key key;
    int code;
  } rows[] = {{Qt::Key_A, 'A'},   {Qt::Key_7, '7'},     {Qt::Key_F12, 123},   {Qt::Key_Delete, 46},
              {Qt::Key_Left, 37}, {Qt::Key_Return, 13}, {Qt::Key_Minus, 189}, {Qt::Key_Semicolon, 186}};
  for (const auto& row : rows) {
    EXPECT_EQ(qt::keyCode(row.key), row.code);
    EXPECT_EQ(qt::qtKey(row.code), row.key);
  }
  EXPECT_EQ(qt::keyCode(Qt::Key_Ampersand), '7');  // with Shift
  EXPECT_EQ(qt::keyCode(Qt::Key_7, true), 103);    // of the pad
  EXPECT_EQ(qt::keyCode(Qt::Key_Odiaeresis), 0);
}

TEST(TextConvert, PositionsInLines) {
  const std::string bytes = "ab\r\nc\r\n";
  EXPECT_EQ(qt::linesToQt(base::CodePage::get(1252), bytes), "ab\nc\n");
  for (const auto& [at, line] : {std::pair{0, 0}, {2, 2}, {4, 3}, {5, 4}, {7, 5}}) {
    EXPECT_EQ(qt::positionInLines(bytes, at), line);
    EXPECT_EQ(qt::positionInBytes(bytes, line), at);
  }
  QString why;
  EXPECT_EQ(qt::tryFromQt(base::CodePage::get(1251), QString::fromUtf8("Жé"), &why), std::nullopt);
  EXPECT_THAT(why.toStdString(), testing::HasSubstr("1251"));
}

TEST(QtClipboard, HoldsTextAndPicture) {
  adapters::QtClipboard clipboard;
  clipboard.clear();
  EXPECT_EQ(clipboard.text(), std::nullopt);
  clipboard.setText("Zoë");
  clipboard.setPicture("Search");
  EXPECT_EQ(clipboard.text(), "Zoë");
  EXPECT_EQ(clipboard.picture(), "Search");
  clipboard.clear();
  EXPECT_EQ(clipboard.picture(), std::nullopt);
}

}  // namespace
}  // namespace kolvane::test
