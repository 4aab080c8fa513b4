#include "platform/files.h"

#include <utility>

namespace kolvane::platform {
namespace {

class DeferredBatch final : public ReplacementBatch {
 public:
  explicit DeferredBatch(Files& files) : files_(files) {}
  void add(const std::string& path, std::string_view bytes) override { pending_.emplace_back(path, bytes); }
  std::vector<Outcome> finish() override {
    std::vector<Outcome> outcomes;
    for (const auto& [path, bytes] : std::exchange(pending_, {})) outcomes.push_back(outcomeOf(path, bytes));
    return outcomes;
  }

 private:
  Outcome outcomeOf(const std::string& path, const std::string& bytes) {
    try {
      return files_.replace(path, bytes);
    } catch (const base::Error& error) {
      return error;
    }
  }

  Files& files_;
  std::vector<std::pair<std::string, std::string>> pending_;
};

}  // namespace

std::unique_ptr<ReplacementBatch> Files::startBatch() { return std::make_unique<DeferredBatch>(*this); }

}  // namespace kolvane::platform
