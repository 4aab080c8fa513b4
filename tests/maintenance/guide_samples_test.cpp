// The samples of docs/guide/maintenance.md are what the operations really write: each "before" block is put into a
// module, the operation is run through the dialog, and the result must be the block that follows it.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "maintenance_host.h"

namespace kolvane::maintenance {
namespace {

struct Sample {
  std::string operation;  // its short name
  std::string before;
  std::string after;  // the module, or the rows of a report
};

// Blocks fenced as "```vb before sort" and "```vb after sort" or "```text after variables".
std::vector<Sample> samplesOf(std::istream& guide) {
  std::vector<Sample> samples;
  std::string* block = nullptr;
  for (std::string line; std::getline(guide, line);) {
    if (line.starts_with("```")) {
      std::istringstream words(line);
      std::string language, part, operation;
      words >> language >> part >> operation;
      if (part == "before") samples.push_back({operation, {}, {}});
      block = part == "before" ? &samples.back().before : part == "after" ? &samples.back().after : nullptr;
    } else if (block != nullptr) {
      block->append(line).append("\n");
    }
  }
  return samples;
}

// The blank lines at a block's end do not show.
std::string_view withoutLastLines(std::string_view text) {
  while (text.ends_with('\n')) text.remove_suffix(1);
  return text;
}

TEST(Guide, SamplesAreWhatTheOperationsWrite) {
  std::ifstream guide(std::string(KOLVANE_SOURCE_DIR) + "/docs/guide/maintenance.md");
  ASSERT_TRUE(guide) << "the guide is not there";
  OperationSet shown;
  for (const Sample& sample : samplesOf(guide)) {
    SCOPED_TRACE(sample.operation);
    const auto operation = operationNamed(sample.operation);
    ASSERT_TRUE(operation);
    shown.add(*operation);
    test::MaintenanceHost host;
    host.services().settings.saveOption("sfdgsfdg624fdzgdfg", "0");
    host.put("Module1.bas", sample.before);
    host.open();
    host.select("Module1");
    host.run(Target::kModule, {*operation});
    const std::string text = rowOf(*operation).writes ? host.text("Module1") : host.reportText();
    EXPECT_EQ(withoutLastLines(text), withoutLastLines(sample.after));
    EXPECT_TRUE(host.boxes().empty());
  }
  EXPECT_EQ(shown.count(), static_cast<int>(kOperations.size())) << "an operation has no sample";
}

}  // namespace
}  // namespace kolvane::maintenance
