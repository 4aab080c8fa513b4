// The program's standard input, output and error as a careful program has them.
#pragma once

#include <array>
#include <streambuf>
#include <string>

namespace kolvane::adapters {

// The first thing in main(). A write that the system refuses, because the reader has gone (SIGPIPE) or a file would grow
// beyond its limit (SIGXFSZ), fails like any other instead of ending the program; and a standard descriptor that was
// closed is filled, so that no file that is opened later takes its number and what is printed with it.
void prepareStandardStreams();

// Writes to a descriptor, in pieces, until a write fails; from then on everything does. The descriptor is not closed.
class DescriptorOutput final : public std::streambuf {
 public:
  explicit DescriptorOutput(int descriptor);
  DescriptorOutput(const DescriptorOutput&) = delete;
  DescriptorOutput& operator=(const DescriptorOutput&) = delete;
  ~DescriptorOutput() override { writeOut(); }

  // The system's words for the first failure; empty without one.
  std::string failure() const;

 protected:
  int_type overflow(int_type c) override;
  int sync() override { return writeOut() ? 0 : -1; }

 private:
  bool writeOut();

  std::array<char, 1 << 16> buffer_;
  int descriptor_;
  int error_ = 0;
};

}  // namespace kolvane::adapters
