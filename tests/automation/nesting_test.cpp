// Forms upon forms as deep as they go, and all the way back.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "transcript.h"

namespace kolvane::test {
namespace {

TEST(Nesting, EndsInAnErrorAndUnwinds) {
  constexpr int kMostForms = 200;
  Transcript session;
  session.lines = {
      "> session/start", "> host/open {\"path\": \"/examples/Shop/Shop.vbp\"}", "> suite/connect",
      "> settings/set {\"section\": \"Options\", \"key\": \"dvdfg348sdfgsdg\", \"text\": \"True\"}"};
  // Each one fails for want of a .vbw file and shows the error.
  session.lines.insert(session.lines.end(), kMostForms + 1, "> suite/beginShutdown");
  session.lines.insert(session.lines.end(), kMostForms, "> forms/close {\"form\": \"frmVBError\"}");
  session.lines.emplace_back("> forms/list");
  const auto happened = play(session);
  const auto count = [&](const std::string& line) {
    return std::count(happened.begin(), happened.end(), line);
  };
  EXPECT_EQ(count("< {\"blocked\":{\"form\":\"frmVBError\"}}"), kMostForms);
  EXPECT_EQ(count("< ! -32000 Too many forms wait upon each other. (5)"), 1);
  EXPECT_EQ(happened.back(), "< {\"forms\":[]}");
}

}  // namespace
}  // namespace kolvane::test
