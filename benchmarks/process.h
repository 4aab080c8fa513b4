// Programs run as children, timed from their start to their end.
#pragma once

#include <string>
#include <vector>

namespace kolvane::benchmarks {

struct Finished {
  int status = 0;  // exit status; 128 + signal when it was killed
  std::string output;
  double seconds = 0;
};

// Runs the program `arguments[0]`, found on the PATH, with an empty standard input, in the C locale. Its
// standard output is read through a pipe: some tools skip their work when they see that nobody reads it.
// Standard error goes where ours goes. A program that cannot be started raises std::runtime_error.
Finished run(const std::vector<std::string>& arguments);

// Resident memory of this process in bytes: now, and the most that it ever was.
std::size_t residentBytes();
std::size_t peakResidentBytes();

// A new folder that goes with the object, with all that is in it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace kolvane::benchmarks
