#include "automation/session.h"

#include <cassert>
#include <utility>

#include "base/error.h"
#include "platform/clipboard.h"
#include "workspace/host_files.h"

namespace kolvane::automation {
namespace {

namespace errors = base::errors;

// The environment's user, with what the session says otherwise.
class SessionUser final : public platform::UserInfo {
 public:
  SessionUser(const platform::UserInfo& user, std::optional<std::string> name,
              std::optional<std::string> separator)
      : user_(user), name_(std::move(name)), separator_(std::move(separator)) {}

  std::string userName() const override { return name_ ? *name_ : user_.userName(); }
  std::string decimalSeparator() const override {
    return separator_ ? *separator_ : user_.decimalSeparator();
  }

 private:
  const platform::UserInfo& user_;
  std::optional<std::string> name_;
  std::optional<std::string> separator_;
};

std::string inQuotes(std::string_view name) { return "\"" + std::string(name) + "\""; }

// The item of a name; when there is none, 9 with the sentence.
template <class Collection>
auto itemOf(Collection& collection, std::string_view name, const std::string& sentence) {
  try {
    return collection.Item(name);
  } catch (const base::Error& error) {
    if (error.number() != errors::kSubscript) throw;
    throw base::Error(errors::kSubscript, sentence);
  }
}

}  // namespace

struct Session::Parts {
  Parts(Environment& environment, forms::ScriptedDesk& desk, const Options& options)
      : settingsPath(options.settings),
        codePage(*options.codePage),
        opened(frame::openSettings(environment.openSettings, options.settings)),
        user(environment.user, options.user, options.decimalSeparator),
        random(options.seed ? platform::Random(static_cast<std::uint32_t>(*options.seed))
                            : platform::Random()),
        fixedClock(options.now ? std::make_unique<platform::FixedClock>(*options.now) : nullptr),
        workspace(workspace::Workspace::create(environment.files, clipboard, codePage)),
        files(workspace->paths()),
        suite({*workspace, *opened.store, desk, fixedClock ? *fixedClock : environment.clock, user, random,
               clipboard, keystrokes, files, pages, codePage, options.home.value_or(environment.home),
               frame::Care::when(options.careful)}) {}

  std::string settingsPath;
  const base::CodePage& codePage;
  frame::OpenedSettings opened;
  SessionUser user;
  platform::Random random;
  std::unique_ptr<platform::Clock> fixedClock;
  platform::MemoryClipboard clipboard;
  platform::RecordedKeystrokes keystrokes;
  std::shared_ptr<workspace::Workspace> workspace;
  workspace::HostFiles files;
  platform::NoWebPages pages;
  suite::Suite suite;
};

Session::Session(Environment& environment, forms::ScriptedDesk& desk)
    : environment_(environment), desk_(desk) {}
Session::~Session() = default;

void Session::start(const Options& options) {
  assert(!started());
  auto parts = std::make_unique<Parts>(environment_, desk_, options);
  if (environment_.started) environment_.started(parts->suite.services());
  parts_ = std::move(parts);
}

Session::Parts& Session::parts() const {
  assert(parts_);
  return *parts_;
}

workspace::Workspace& Session::host() { return *parts().workspace; }
suite::Suite& Session::suite() { return parts().suite; }
platform::Clipboard& Session::clipboard() { return parts().clipboard; }
platform::RecordedKeystrokes& Session::keystrokes() { return parts().keystrokes; }
const base::CodePage& Session::codePage() const { return parts().codePage; }
const std::string& Session::settingsProblem() const { return parts().opened.problem; }
const std::string& Session::settingsPath() const { return parts().settingsPath; }

std::shared_ptr<frame::VBProject> Session::project(const std::optional<std::string>& name) {
  if (name) return itemOf(*host().VBProjects(), *name, "There is no project " + inQuotes(*name) + ".");
  if (auto active = host().ActiveVBProject()) return active;
  throw base::Error(errors::kObjectNotSet, "No project is open.");
}

std::shared_ptr<frame::VBComponent> Session::component(std::string_view name,
                                                       const std::optional<std::string>& projectName) {
  const std::size_t slash = name.find('/');
  const bool isWhole = slash != std::string_view::npos && !projectName;
  const auto owner = project(isWhole ? std::optional(std::string(name.substr(0, slash))) : projectName);
  const std::string_view own = isWhole ? name.substr(slash + 1) : name;
  return itemOf(
      *owner->VBComponents(), own,
      "There is no component " + inQuotes(own) + " in the project " + inQuotes(owner->Name()) + ".");
}

std::shared_ptr<frame::CodeModule> Session::code(std::string_view name) {
  if (auto module = component(name)->CodeModule()) return module;
  throw base::Error(errors::kObjectNotSet, inQuotes(name) + " has no code.");
}

std::shared_ptr<frame::CodePane> Session::pane(const std::optional<std::string>& name) {
  if (name) return code(*name)->CodePane();
  if (auto active = host().ActiveCodePane()) return active;
  throw base::Error(errors::kObjectNotSet, "No code window is open.");
}

std::shared_ptr<frame::VBForm> Session::designer(std::string_view name) {
  if (auto form = component(name)->Designer()) return form;
  throw base::Error(errors::kObjectNotSet, inQuotes(name) + " has no designer.");
}

std::shared_ptr<frame::VBControl> Session::control(std::string_view componentName, std::string_view name) {
  return itemOf(*designer(componentName)->VBControls(), name,
                "There is no control " + inQuotes(name) + " on " + inQuotes(componentName) + ".");
}

std::string Session::path(const std::string& utf8) {
  const bool isHostPath = utf8.find('\\') != std::string::npos && utf8.find('/') == std::string::npos;
  return isHostPath ? codePage().fromUtf8(utf8) : host().paths().toHost(environment_.files.absolute(utf8));
}

}  // namespace kolvane::automation
