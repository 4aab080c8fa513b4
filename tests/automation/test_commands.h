// Commands and forms for transcripts: what tools do with modal forms, boxes and long work, without the tools.
#pragma once

#include <memory>

#include "frame/services.h"

namespace kolvane::test {

// Puts a command bar "Test" into the host:
//   "Ask"       shows frmName modally and puts the name that was entered on the clipboard
//   "Ask Twice" the same two times, one behind the other
//   "Ask and Fail"  the same, and fails behind it
//   "Search"    shows frmFinder modally, whose search takes ten steps and can be cancelled
//   "Sample"    shows frmSample, with one control of each kind, beside the others
//   "Boxes"     shows one box of each kind and puts what they gave on the clipboard
//   "Fail"      raises an error with a description in the code page
//   "Stray"     raises something that is no error of the run time
class TestCommands {
 public:
  explicit TestCommands(frame::Services& services);
  ~TestCommands();
  TestCommands(const TestCommands&) = delete;
  TestCommands& operator=(const TestCommands&) = delete;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace kolvane::test
