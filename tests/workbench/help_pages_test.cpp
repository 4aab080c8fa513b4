// The help pages: well-formed, linked, complete, and true. Their examples run: a <pre class="before"> names the
// command that turns it into the <pre class="after"> behind it, or into the rows of a report, <pre class="report">.
#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QHash>
#include <QSet>
#include <QXmlStreamReader>
#include <optional>
#include <set>
#include <string>

#include "forms/drive.h"
#include "forms/grid.h"
#include "forms/list_view.h"
#include "forms/snapshot.h"
#include "forms/user.h"
#include "suite/suite_fixture.h"
#include "writers/custom_handlers.h"

namespace kolvane::workbench {
namespace {

struct Example {
  QHash<QString, QString> how;  // "command", "set", …
  QString before;               // a cursor and a selection are marked
  QString after;
  bool report = false;
};

constexpr QChar kCursor(0x1);
constexpr QChar kSelectionStart(0x2);
constexpr QChar kSelectionEnd(0x3);

struct Page {
  QString title;
  QString error;  // of the XML
  QStringList links, files;
  QSet<QString> places, captions;
  QHash<QString, QString> handlers;
  std::vector<Example> examples;
};

class PageReader {
 public:
  explicit PageReader(const QByteArray& bytes) : xml_(bytes) {}

  Page read() {
    while (!xml_.atEnd()) {
      xml_.readNext();
      if (xml_.isStartElement()) start();
      if (xml_.isCharacters()) text(xml_.text().toString());
      if (xml_.isEndElement()) end();
    }
    if (xml_.hasError()) page_.error = QString("line %1: %2").arg(xml_.lineNumber()).arg(xml_.errorString());
    return std::move(page_);
  }

 private:
  void start() {
    const auto attributes = xml_.attributes();
    const QString name = xml_.name().toString();
    const QString kind = attributes.value("class").toString();
    for (const char* each : {"href", "src"})
      if (attributes.hasAttribute(each))
        (name == "a" ? page_.links : page_.files).append(attributes.value(each).toString());
    if (attributes.hasAttribute("id")) page_.places.insert(attributes.value("id").toString());
    if (name == "b") caption_.emplace();
    if (name == "pre") {
      pre_ = QString();
      preKind_ = kind;
      preId_ = attributes.value("id").toString();
      if (kind == "before") page_.examples.emplace_back();
      for (const auto& each : attributes)
        if (each.name().startsWith(u"data-"))
          page_.examples.back().how[each.name().mid(5).toString()] = each.value().toString();
    }
    if (name == "span" && kind == "selected") text(kSelectionStart);
    if (name == "span" && kind == "cursor") marker_ = true;
    opened_.append(kind);
    title_ = name == "title";
  }

  void text(const QString& text) {
    if (title_) page_.title += text;
    if (caption_) *caption_ += text;
    if (pre_) *pre_ += marker_ ? QString(kCursor) : text;
  }

  void end() {
    const QString name = xml_.name().toString();
    const QString kind = opened_.takeLast();
    title_ = false;
    if (name == "b" && caption_) {
      page_.captions.insert(caption_->simplified());
      caption_.reset();
    }
    if (kind == "selected") text(kSelectionEnd);
    if (kind == "cursor") marker_ = false;
    if (name != "pre") return;
    if (preKind_ == "before") page_.examples.back().before = *pre_;
    if (preKind_ == "handler") page_.handlers[preId_] = *pre_;
    if (preKind_ == "after" || preKind_ == "report") {
      page_.examples.back().after = *pre_;
      page_.examples.back().report = preKind_ == "report";
    }
    pre_.reset();
  }

  QXmlStreamReader xml_;
  Page page_;
  QStringList opened_;
  std::optional<QString> caption_, pre_;
  QString preKind_, preId_;
  bool title_ = false, marker_ = false;
};

const QString kFolder = KOLVANE_SOURCE_DIR "/data/Help";

QByteArray bytesOf(const QString& file) {
  QFile page(kFolder + "/" + file);
  return page.open(QIODevice::ReadOnly) ? page.readAll() : QByteArray();
}

const QMap<QString, Page>& pages() {
  static const QMap<QString, Page> all = [] {
    QMap<QString, Page> read;
    for (const QString& file : QDir(kFolder).entryList({"*.html", "*.Html"}, QDir::Files))
      read[file] = PageReader(bytesOf(file)).read();
    return read;
  }();
  return all;
}

// As it stands on the screen: without access key, colon and dots.
QString shownCaption(std::string_view caption) {
  QString text = QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size()));
  text.replace("&&", "\x1").remove('&').replace('\x1', '&');
  while (text.endsWith('.') || text.endsWith(':')) text.chop(1);
  return text;
}

std::string withoutEndBlanks(const QString& text) {
  QStringList lines = text.split('\n');
  for (QString& line : lines)
    while (line.endsWith(' ') || line.endsWith('\t')) line.chop(1);
  while (!lines.isEmpty() && lines.back().isEmpty()) lines.removeLast();
  return lines.join('\n').toStdString();
}

TEST(HelpPages, areWellFormedAndEachHasATitleOfItsOwn) {
  ASSERT_FALSE(pages().isEmpty());
  QSet<QString> titles;
  for (auto page = pages().begin(); page != pages().end(); ++page) {
    EXPECT_EQ(page->error.toStdString(), "") << page.key().toStdString();
    EXPECT_FALSE(page->title.isEmpty() || titles.contains(page->title)) << page.key().toStdString();
    titles.insert(page->title);
    EXPECT_EQ(QDir(kFolder).entryList({page.key()}).size(), 1) << "pages are found without case";
  }
}

TEST(HelpPages, everyLinkLeadsToAPlaceThatIsThere) {
  for (auto page = pages().begin(); page != pages().end(); ++page) {
    for (const QString& link : page->links) {
      const QString file = link.startsWith('#') ? page.key() : link.section('#', 0, 0);
      const QString place = link.section('#', 1);
      EXPECT_TRUE(pages().contains(file) && (place.isEmpty() || pages()[file].places.contains(place)))
          << page.key().toStdString() << ": " << link.toStdString();
    }
    for (const QString& file : page->files)
      EXPECT_TRUE(QFile::exists(kFolder + "/" + file))
          << page.key().toStdString() << ": " << file.toStdString();
  }
}

TEST(HelpPages, everyPageIsReachedFromTheContents) {
  QSet<QString> reached{"index.html"};
  QStringList open{"index.html"};
  while (!open.isEmpty())
    for (const QString& link : pages()[open.takeLast()].links)
      if (const QString file = link.section('#', 0, 0); !file.isEmpty() && !reached.contains(file)) {
        reached.insert(file);
        open.append(file);
      }
  for (const QString& file : pages().keys()) EXPECT_TRUE(reached.contains(file)) << file.toStdString();
}

class HelpOfSuiteTest : public suite::SuiteTest {
 protected:
  HelpOfSuiteTest() {
    desk_.runModal = [this](forms::Form& form) {
      look(form);
      form.unload();
    };
  }

  // The project Shop with one module, its text in the active code window.
  void open(const QString& fileName, const QString& marked) {
    QString text = marked;
    const bool isClass = fileName.endsWith(".cls");
    const std::string name = fileName.section('.', 0, 0).toStdString();
    std::string bytes = isClass ? "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n" : "";
    bytes += "Attribute VB_Name = \"" + name + "\"\r\n";
    for (const QChar mark : {kCursor, kSelectionStart, kSelectionEnd}) text.remove(mark);
    files_.replace("/p/" + fileName.toStdString(), bytes + text.replace('\n', "\r\n").toStdString() + "\r\n");
    files_.replace("/p/Shop.vbp", "Type=Exe\r\n" + std::string(isClass ? "Class=" : "Module=") + name + "; " +
                                      fileName.toStdString() + "\r\nName=\"Shop\"\r\n");
    const auto component = workspace_->open("/p/Shop.vbp").front()->VBComponents()->Item(name);
    component->Activate();
    workspace_->openCode(component);
    module_ = component->CodeModule();
    const auto place = [&](QChar mark, int& line, int& column) {
      if (!marked.contains(mark)) return;
      QString before = marked.left(marked.indexOf(mark));
      before.remove(kSelectionStart);
      line = static_cast<int>(before.count('\n')) + 1;
      column = static_cast<int>(before.size() - before.lastIndexOf('\n'));
    };
    frame::TextRange range{1, 1, 1, 1};
    place(kCursor, range.startLine, range.startColumn);
    place(kCursor, range.endLine, range.endColumn);
    place(kSelectionStart, range.startLine, range.startColumn);
    place(kSelectionEnd, range.endLine, range.endColumn);
    workspace_->ActiveCodePane()->SetSelection(range);
  }

  // A command of the catalogue, or of the code window's popup.
  void run(const QString& command) {
    if (const auto* row = frame::findCatalogueRowByName(command.toStdString())) return suite_.click(*row);
    connect();
    workspace_->click(workspace_->CommandBars()
                          ->Item(frame::kCodeWindowMenuIndex)
                          ->Controls()
                          ->Item(command.toStdString()));
  }

  // "txtName=rates; chkGet=1": texts, items, marks of boxes, and the only rows of a list that are ticked.
  static void fill(forms::Form& form, const QString& settings) {
    for (const QString& each : settings.split("; ", Qt::SkipEmptyParts)) {
      forms::Control& control = form.control(each.section('=', 0, 0).toStdString());
      const std::string value = each.section('=', 1).toStdString();
      if (auto* list = dynamic_cast<forms::ListView*>(&control)) {
        for (int row = 1; row <= list->count(); ++row)
          forms::user::check(control, {row}, list->item(row).text() == value);
      } else if (control.kind() == forms::Kind::kCheckBox) {
        if (control.enabled()) forms::user::setValue(control, std::stod(value));
      } else if (control.kind() == forms::Kind::kComboBox) {
        forms::user::selectItem(control, value);
      } else {
        forms::user::setText(control, value);
      }
    }
  }

  std::string codeOfModule() {
    return withoutEndBlanks(QString::fromStdString(module_->Lines(1, module_->CountOfLines())).remove('\r'));
  }

  std::string rowsOfReport() {
    std::string text;
    for (const auto& open : desk_.openForms().all())
      if (const auto* grid = open.form->name() == "frmReport"
                                 ? dynamic_cast<const forms::Grid*>(&open.form->control("grdResults"))
                                 : nullptr)
        for (int row = 0; row < grid->rows(); ++row) {
          for (int column = 0; column < grid->columns(); ++column)
            text += (column == 0 ? "" : " | ") + grid->cell(row, column);
          text += "\n";
        }
    return withoutEndBlanks(QString::fromStdString(text));
  }

  std::string outcome(const Page& page, const Example& example) {
    for (auto each = page.handlers.begin(); each != page.handlers.end(); ++each)
      writers::writeCustomHandler(settings_, each.key().toStdString(),
                                  QString(each.value()).replace('\n', "\r\n").toStdString());
    open(example.how.value("module", "Rates.bas"), example.before);
    for (const QString& option : example.how["options"].split("; ", Qt::SkipEmptyParts))
      set(option.section('=', 0, 0).toStdString(), option.section('=', 1).toStdString());
    run(example.how["command"]);
    if (example.how.contains("press")) {
      forms::Form& form = *desk_.openForms().active();
      fill(form, example.how["set"]);
      forms::user::click(form.control(example.how["press"].toStdString()));
    }
    lookAtAll();
    for (const forms::BoxRecord& box : desk_.takeLog())
      if (box.kind == "message" && box.text.find("not in this version") == std::string::npos)
        ADD_FAILURE() << example.how["command"].toStdString() << ": " << box.text;
    return example.report ? rowsOfReport() : codeOfModule();
  }

  void lookAtAll() {
    std::vector<forms::Form*> shown;
    for (const auto& open : desk_.openForms().all()) shown.push_back(open.form);
    for (forms::Form* form : shown) look(*form);
  }

  // The form's page has all that people see on it; so do the pages of what its menus open.
  void look(forms::Form& form) {
    const QString topic = QString::fromStdString(form.helpTopic());
    const forms::FormState state = forms::snapshot(form);
    if (!seen_.insert(state.name + " " + form.helpTopic()).second) return;
    ASSERT_TRUE(pages().contains(topic)) << state.name << ": " << topic.toStdString();
    for (const forms::ControlState& control : state.controls)
      if (control.visible && control.kind != forms::Kind::kLabel &&
          !form.place(form.control(control.name)).unplaced)
        expectCaption(topic, state.name, control.caption);
    for (const forms::MenuState& menu : state.menus) look(form, topic, menu);
    lookAtAll();
  }

  void look(forms::Form& form, const QString& topic, const forms::MenuState& menu) {
    if (!menu.visible) return;
    expectCaption(topic, form.name(), menu.caption);
    for (const forms::MenuState& item : menu.items) look(form, topic, item);
    if (menu.items.empty() && shownCaption(menu.caption) != "Exit") forms::drive::click(form, menu.name);
  }

  static void expectCaption(const QString& topic, const std::string& form, const std::string& caption) {
    const QString shown = shownCaption(caption);
    EXPECT_TRUE(shown.isEmpty() || pages()[topic].captions.contains(shown))
        << form << ": " << topic.toStdString() << " does not mention \"" << shown.toStdString() << "\"";
  }

  std::shared_ptr<frame::CodeModule> module_;
  std::set<std::string> seen_;
};

TEST_F(HelpOfSuiteTest, theContentsNameEveryCommandThatIsHere) {
  const QString contents = QString::fromUtf8(bytesOf("index.html"));
  for (const frame::CatalogueRow& row : frame::kCatalogue) {
    if (!suite_.available(row)) continue;
    EXPECT_TRUE(contents.contains(">" + shownCaption(row.listName) + "</a>") ||
                contents.contains(">" + shownCaption(row.menuCaption) + "</a>"))
        << row.listName;
  }
}

TEST_F(HelpOfSuiteTest, everyFormHasAPageWithAllItsCaptions) {
  open("Rates.bas", "Public Sub Load()\nEnd Sub");
  for (const frame::CatalogueRow& row : frame::kCatalogue)
    if (suite_.available(row) && row.target.starts_with("frm")) {
      suite_.click(row);
      lookAtAll();
    }
  EXPECT_GT(seen_.size(), 10u);
}

class HelpExampleTest : public HelpOfSuiteTest,
                        public testing::WithParamInterface<std::pair<std::string, int>> {};

TEST_P(HelpExampleTest, isWhatTheToolWrites) {
  const auto& [file, number] = GetParam();
  const Page& page = *pages().find(QString::fromStdString(file));
  const Example& example = page.examples[static_cast<std::size_t>(number)];
  EXPECT_EQ(outcome(page, example), withoutEndBlanks(example.after));
}

std::vector<std::pair<std::string, int>> allExamples() {
  std::vector<std::pair<std::string, int>> all;
  for (auto page = pages().begin(); page != pages().end(); ++page)
    for (int i = 0; i < static_cast<int>(page->examples.size()); ++i)
      all.emplace_back(page.key().toStdString(), i);
  return all;
}

INSTANTIATE_TEST_SUITE_P(Help, HelpExampleTest, testing::ValuesIn(allExamples()), [](const auto& each) {
  return QString::fromStdString(each.param.first).section('.', 0, 0).remove('_').toStdString() + "_" +
         std::to_string(each.param.second);
});

}  // namespace
}  // namespace kolvane::workbench
