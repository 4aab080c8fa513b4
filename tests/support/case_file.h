// Text in, text out: files that hold cases of code before and after a command. Each case becomes a test of
// its own.
//
//   === a parameter comment survives a rewrite       the case's name
//   option CoNu11 = 40                               a setting of section "Options"; \r\n stands for a line break
//   callers Main, Form1.Form_Load                    what the callers search answers
//   careful                                          under care, not to the letter
//   unstable                                         a second run changes the text again
//   --- Module1.bas                                  a component; its extension tells the type
//   …code with | for the cursor or [[ and ]] around the selection…
//   --- readonly                                     the component above cannot be edited
//   --- run CPRProHe80                               a command, by its key
//   --- message Either the file …                    a message box that it shows
//   --- error 445                                    the error that it ends with
//   --- expect                                       the code of the component with the cursor, then
//   --- expect Class1.cls                            or of another one
//   …code; a cursor or selection in it is compared too…
//
// Runs and expectations may follow each other several times. Files are UTF-8, the code is in Windows-1252.
// "\s" at a line's end is a blank, "\|" is a bar. A blank line in front of "===" belongs to neither case, nor
// does what stands above the first case.
//
// A command that is meant to be stable is run once more at the end and must leave the text as it is; in a
// case that says `unstable` it must not.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/host.h"
#include "source/dispatcher.h"
#include "writers/context.h"

namespace kolvane::test {

// Code as a case writes it.
struct MarkedCode {
  std::vector<std::string> lines;             // bytes of the code page, without marks
  std::optional<frame::TextRange> selection;  // start and end equal for a cursor
};

struct CaseComponent {
  std::string fileName;
  MarkedCode code;
  bool readOnly = false;
};

struct CaseStep {
  enum class Kind { kRun, kMessage, kError, kExpect };
  Kind kind = Kind::kRun;
  std::string argument;  // the key, text, number or component
  MarkedCode code;
};

struct Case {
  std::string name;
  int line = 0;  // of the file
  bool careful = false;
  bool unstable = false;
  std::vector<std::pair<std::string, std::string>> options;
  std::string callers;
  std::vector<CaseComponent> components;
  std::vector<CaseStep> steps;
};

// Raises std::runtime_error "file:line: reason" for a file that is not in the format above.
std::vector<Case> readCases(const std::string& path);

// What a case's commands reach: the code window's by the dispatcher, others by their key.
struct CaseCommands {
  source::CodeWindowCommands codeWindow;
  std::map<std::string, std::function<void()>, std::less<>> others;
};
using BindCommands = std::function<void(CaseCommands&, const writers::Context&)>;

// Registers every case of tests/cases/`fileName` as a test of `suite`. Call before the tests run, from a
// namespace-scope initialiser. A file that cannot be read becomes a test that fails.
bool registerCases(const std::string& suite, const std::string& fileName, BindCommands bind);

}  // namespace kolvane::test
