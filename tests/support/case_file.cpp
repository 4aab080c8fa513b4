#include "support/case_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <stdexcept>

#include "base/code_page.h"
#include "base/error.h"
#include "base/text.h"
#include "support/test_host.h"

namespace kolvane::test {
namespace {

constexpr std::string_view kTrailingBlank = "\\s";
constexpr std::string_view kSelectionStart = "[[";
constexpr std::string_view kSelectionEnd = "]]";

// Commands that leave their own result alone.
constexpr auto kStableCommands = std::to_array<std::string_view>({
    "CPRProHe80",
    "CPRShErHaCo76",
    "CPRRaErHaC77",
    "CPRBlaErrHaCo79",
    "sdfgsdfgsdfg431sgsdf",
    "rdfyilf567cdrtrtf",
    "CPRUCTx85",
    "CPRLCet86",
    "sdfgsdfg355eafgesfg",
    "indent",
    "sort",
});

const base::CodePage& codePage() { return base::CodePage::get(base::CodePage::kDefault); }

// ---- reading

class Reader {
 public:
  explicit Reader(std::string path) : path_(std::move(path)) {
    std::ifstream file(path_, std::ios::binary);
    if (!file) fail("cannot be read");
    for (std::string line; std::getline(file, line);) lines_.push_back(line);
  }

  std::vector<Case> cases() {
    while (at_ < lines_.size() && !startsCase()) ++at_;
    std::vector<Case> all;
    while (at_ < lines_.size()) all.push_back(readCase());
    return all;
  }

 private:
  [[noreturn]] void fail(std::string_view reason) const {
    throw std::runtime_error(path_ + ":" + std::to_string(at_ + 1) + ": " + std::string(reason));
  }

  bool startsCase() const { return lines_[at_].starts_with("=== "); }
  bool startsBlock() const { return lines_[at_].starts_with("--- "); }

  Case readCase() {
    Case result;
    result.line = static_cast<int>(at_) + 1;
    result.name = lines_[at_++].substr(4);
    for (; at_ < lines_.size() && !startsCase() && !startsBlock(); ++at_) readSetup(result);
    while (at_ < lines_.size() && startsBlock()) readBlock(result);
    if (result.components.empty() || result.steps.empty()) fail("the case above lacks code or steps");
    return result;
  }

  void readSetup(Case& result) const {
    const std::string& line = lines_[at_];
    if (line.empty()) return;
    if (line == "careful") {
      result.careful = true;
    } else if (line == "unstable") {
      result.unstable = true;
    } else if (line.starts_with("callers ")) {
      result.callers = codePage().fromUtf8(line.substr(8));
    } else if (const std::size_t equals = line.find(" = ");
               line.starts_with("option ") && equals != std::string::npos) {
      const std::string value = codePage().fromUtf8(line.substr(equals + 3));
      result.options.emplace_back(line.substr(7, equals - 7), base::replaceAll(value, "\\r\\n", base::kCrLf));
    } else {
      fail("unknown setup line");
    }
  }

  void readBlock(Case& result) {
    using Kind = CaseStep::Kind;
    const std::string head = lines_[at_++].substr(4);
    const std::size_t blank = std::min(head.find(' '), head.size());
    const std::string word = head.substr(0, blank);
    const std::string rest = head.substr(std::min(blank + 1, head.size()));
    if (word == "run") {
      result.steps.push_back({Kind::kRun, rest, {}});
    } else if (word == "message") {
      result.steps.push_back({Kind::kMessage, rest, {}});
    } else if (word == "error") {
      result.steps.push_back({Kind::kError, rest, {}});
    } else if (word == "expect") {
      result.steps.push_back({Kind::kExpect, rest, readCode()});
    } else if (word == "readonly" && !result.components.empty()) {
      result.components.back().readOnly = true;
    } else if (word.find('.') != std::string::npos) {
      result.components.push_back({word, readCode()});
    } else {
      fail("unknown block above");
    }
    if (at_ < lines_.size() && !startsBlock() && !startsCase()) {
      if (!lines_[at_].empty()) fail("text that belongs to no block");
      ++at_;
    }
  }

  MarkedCode readCode() {
    MarkedCode code;
    std::optional<std::pair<int, int>> open;
    const std::size_t first = at_;
    for (; at_ < lines_.size() && !startsBlock() && !startsCase(); ++at_) {
      const int number = static_cast<int>(at_ - first) + 1;
      code.lines.push_back(codePage().fromUtf8(unmarked(lines_[at_], number, code, open)));
    }
    // The blank line that parts two cases.
    const bool caseEnds = at_ == lines_.size() || startsCase();
    if (caseEnds && !code.lines.empty() && code.lines.back().empty()) code.lines.pop_back();
    return code;
  }

  // The text of a line without its marks; what they mark goes into `code`. Columns count characters.
  static std::string unmarked(std::string_view line, int number, MarkedCode& code,
                              std::optional<std::pair<int, int>>& open) {
    std::string text;
    const auto column = [&text] { return static_cast<int>(codePage().fromUtf8(text).size()) + 1; };
    const bool trailingBlank = line.ends_with(kTrailingBlank);
    if (trailingBlank) line.remove_suffix(kTrailingBlank.size());
    for (std::size_t i = 0; i < line.size(); ++i) {
      const std::string_view rest = line.substr(i);
      if (rest.starts_with("\\|")) {
        text.push_back(line[++i]);
      } else if (line[i] == '|') {
        code.selection = {number, column(), number, column()};
      } else if (rest.starts_with(kSelectionStart)) {
        open = {number, column()};
        ++i;
      } else if (open && rest.starts_with(kSelectionEnd)) {
        code.selection = {open->first, open->second, number, column()};
        ++i;
      } else {
        text.push_back(line[i]);
      }
    }
    return trailingBlank ? text + " " : text;
  }

  std::string path_;
  std::vector<std::string> lines_;
  std::size_t at_ = 0;
};

// ---- running

// Code as a case would write it, with the selection marked.
std::string shown(const MarkedCode& code) {
  std::string result;
  for (std::size_t i = 0; i < code.lines.size(); ++i) {
    const int number = static_cast<int>(i) + 1;
    const auto piece = [&](int from, int to) {
      const std::string_view line = code.lines[i];
      return base::replaceAll(base::mid(line, from, to - from), "|", "\\|");
    };
    const int end = static_cast<int>(code.lines[i].size()) + 1;
    std::string line;
    int from = 1;
    const auto mark = [&](int column, std::string_view text) {
      line.append(piece(from, column)).append(text);
      from = column;
    };
    if (const auto& s = code.selection) {
      const bool cursor = s->startLine == s->endLine && s->startColumn == s->endColumn;
      if (s->startLine == number) mark(s->startColumn, cursor ? "|" : kSelectionStart);
      if (s->endLine == number && !cursor) mark(s->endColumn, kSelectionEnd);
    }
    line.append(piece(from, end));
    if (line.ends_with(' ')) line.replace(line.size() - 1, 1, kTrailingBlank);
    result.append(codePage().toUtf8(line)).append("\n");
  }
  return result;
}

class CaseTest : public testing::Test {
 public:
  CaseTest(Case theCase, BindCommands bind) : case_(std::move(theCase)), bind_(std::move(bind)) {}

  void TestBody() override {
    setUp();
    const CaseStep* lastRun = nullptr;
    for (const CaseStep& step : case_.steps) {
      if (step.kind == CaseStep::Kind::kRun) {
        ASSERT_NO_FATAL_FAILURE(checkNothingLeft());
        run(step.argument);
        lastRun = &step;
      } else {
        ASSERT_NO_FATAL_FAILURE(check(step));
      }
    }
    ASSERT_NO_FATAL_FAILURE(checkNothingLeft());
    if (lastRun) runAgain(lastRun->argument);
  }

 private:
  void setUp() {
    host_.services().care = frame::Care::when(case_.careful);
    for (const auto& [key, value] : case_.options)
      host_.services().settings.SaveSetting(frame::kOptions, key, value);
    if (!case_.callers.empty()) context_.findCallers = [this](frame::CodeModule&) { return case_.callers; };
    bind_(commands_, context_);
    for (const CaseComponent& component : case_.components) {
      host_.addComponent(component.fileName, component.code.lines);
      if (component.code.selection || active_.empty()) active_ = component.fileName;
    }
    for (const CaseComponent& component : case_.components) {
      if (component.fileName == active_)
        host_.activate(active_, component.code.selection.value_or(frame::TextRange{}));
      host_.setReadOnly(component.fileName, component.readOnly);
    }
  }

  void run(const std::string& key) {
    try {
      if (const auto other = commands_.others.find(key); other != commands_.others.end())
        other->second();
      else
        source::Get_Name_Of_Current_Procedure(host_.services(), commands_.codeWindow, key);
    } catch (const base::Error& error) {
      error_ = error;
    }
    for (const forms::BoxRecord& box : host_.desk().takeLog())
      messages_.push_back(codePage().toUtf8(box.text));
  }

  void check(const CaseStep& step) {
    switch (step.kind) {
      case CaseStep::Kind::kMessage:
        ASSERT_FALSE(messages_.empty()) << "no message box was shown";
        EXPECT_EQ(step.argument, messages_.front());
        messages_.erase(messages_.begin());
        break;
      case CaseStep::Kind::kError:
        ASSERT_TRUE(error_) << "no error came up";
        EXPECT_EQ(step.argument, std::to_string(error_->number())) << error_->description();
        error_.reset();
        break;
      default:
        checkCode(step);
    }
  }

  void checkCode(const CaseStep& step) {
    const std::string& name = step.argument.empty() ? active_ : step.argument;
    MarkedCode actual = codeOf(name);
    if (!step.code.selection) actual.selection.reset();
    EXPECT_EQ(shown(step.code), shown(actual)) << name;
  }

  void checkNothingLeft() {
    if (error_) FAIL() << error_->number() << ": " << error_->description() << " in " << error_->source();
    ASSERT_EQ(std::vector<std::string>(), messages_);
  }

  void runAgain(const std::string& key) {
    if (std::find(kStableCommands.begin(), kStableCommands.end(), key) == kStableCommands.end()) {
      ASSERT_FALSE(case_.unstable) << "only stable commands can be said to be unstable";
      return;
    }
    const auto before = allCode();
    run(key);
    if (case_.unstable)
      EXPECT_NE(before, allCode()) << "the second run changes nothing; the case says that it does";
    else
      EXPECT_EQ(before, allCode()) << "the second run changes the text";
  }

  MarkedCode codeOf(const std::string& name) { return {host_.lines(name), host_.selection(name)}; }

  std::string allCode() {
    std::string all;
    for (const CaseComponent& component : case_.components)
      all += shown({host_.lines(component.fileName), std::nullopt});
    return all;
  }

  Case case_;
  BindCommands bind_;
  TestHost host_;
  writers::Context context_{host_.services()};
  CaseCommands commands_;
  std::string active_;
  std::optional<base::Error> error_;
  std::vector<std::string> messages_;
};

class BrokenFile : public testing::Test {
 public:
  explicit BrokenFile(std::string reason) : reason_(std::move(reason)) {}
  void TestBody() override { FAIL() << reason_; }

 private:
  std::string reason_;
};

// A name that CTest and the test filter take as it is.
std::string testName(std::string_view name) {
  std::string result(name);
  std::replace_if(
      result.begin(), result.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return result;
}

}  // namespace

std::vector<Case> readCases(const std::string& path) { return Reader(path).cases(); }

bool registerCases(const std::string& suite, const std::string& fileName, BindCommands bind) {
  const std::string path = std::string(KOLVANE_SOURCE_DIR "/tests/cases/") + fileName;
  try {
    for (Case& each : readCases(path)) {
      const std::string name = testName(each.name);
      const int line = each.line;
      testing::RegisterTest(
          suite.c_str(), name.c_str(), nullptr, nullptr, path.c_str(), line,
          [each = std::move(each), bind]() -> testing::Test* { return new CaseTest(each, bind); });
    }
  } catch (const std::exception& error) {
    testing::RegisterTest(
        suite.c_str(), "reads_its_file", nullptr, nullptr, path.c_str(), 1,
        [reason = std::string(error.what())]() -> testing::Test* { return new BrokenFile(reason); });
  }
  return true;
}

}  // namespace kolvane::test
