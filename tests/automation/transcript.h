// Sessions as text: what goes to the server, and what it answers, in the order in which it happens.
//
//   === a name
//   # remarks, if any
//   > host/edit {"component": "Module1", "op": "delete", "line": 1}
//   < {"done":true}
//   > host/text {"component": "Module9"}
//   < ! -32000 There is no component "Module9" … (9)
//   >| {"jsonrpc":"2.0"}
//   <| {"jsonrpc":"2.0","id":null,"error":…}
//
// ">" sends a request with the next number as its id, ">>" one that has arrived before the one in front of it
// is done,
// ">-" a notification, ">|" the line as it stands. "<" shows a result, or "!" with an error's code, message
// and number; a
// "#3" in front tells the id when it is not that of the request read last. Once a line was sent raw, answers
// are raw. In expected lines "…" stands for anything.
#pragma once

#include <string>
#include <vector>

namespace kolvane::test {

struct Transcript {
  std::string name;
  std::vector<std::string> remarks;
  std::vector<std::string> lines;
  int line = 0;  // in its file
};

// Raises std::runtime_error for a file that cannot be read or holds something else.
std::vector<Transcript> readTranscripts(const std::string& path);

// Plays it on a server of its own, over the example projects and "/broken/Broken.vbp", which lists a file
// that is missing, in memory, the fixed moment 2026-11-22 10:20:30, the user
// "ann" and the commands of test_commands.h. Returns the lines as they happened; one that an expected line
// with "…" stands for is given as that.
std::vector<std::string> play(const Transcript& transcript);

}  // namespace kolvane::test
