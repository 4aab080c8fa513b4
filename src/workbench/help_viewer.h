// The window that shows the help pages: a folder of HTML files with "index.html" as their contents.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QString>
#include <QStringList>
#include <QTextBrowser>
#include <QWidget>
#include <string>
#include <string_view>

namespace kolvane::workbench {

class HelpViewer final : public QWidget {
 public:
  // `home` is the folder that holds "Help", in UTF-8. Needs a QApplication; it does not keep that running.
  explicit HelpViewer(const std::string& home);

  // Shows the page of a topic and comes to the front, over a modal window too. A topic is a page's file name, case
  // ignored, and may name a place on it: "GeneralOptions.Html#Tab3". The empty one is the contents. Where there is no
  // such page, the window says so.
  void open(std::string_view topic);

  // Goes to the next match behind the cursor, or in front of it: on this page, then on those that follow, round the
  // end. Case is ignored. False, and a line that says so, when no page has the text.
  bool findNext();
  bool findPrevious();

  QTextBrowser& page() { return *page_; }
  QLineEdit& searched() { return *searched_; }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QString fileOf(const QString& name) const;
  void showPage(const QString& file, const QString& place = {});
  void say(const QString& text);
  bool find(bool forward);
  bool findFromEdge(bool forward);
  bool has(const QString& file) const;
  void markMatches();
  void comeToFront();

  QString folder_;
  QTextBrowser* page_;
  QLineEdit* searched_;
  QLabel* result_;
};

}  // namespace kolvane::workbench
