#include "support/test_host.h"

#include "base/error.h"
#include "base/text.h"
#include "support/memory_services.h"

namespace kolvane::test {
namespace {

frame::ComponentType typeOf(std::string_view fileName) {
  const auto type = workspace::typeOfExtension(workspace::extension(fileName));
  if (!type) throw base::Error(base::errors::kInvalidCall, "no component type for " + std::string(fileName));
  return *type;
}

}  // namespace

struct TestHost::Parts : MemoryServices {
  std::shared_ptr<frame::VBProject> project = host->newProject();

  std::shared_ptr<frame::VBComponent> component(std::string_view fileName) {
    return project->VBComponents()->Item(workspace::baseName(fileName));
  }
};

TestHost::TestHost() : parts_(std::make_unique<Parts>()) {
  for (const auto& component : parts_->project->VBComponents()->items())
    parts_->host->removeComponent(component);
}

TestHost::~TestHost() = default;

frame::Services& TestHost::services() { return parts_->services; }

void TestHost::addComponent(std::string_view fileName, const std::vector<std::string>& lines) {
  std::string code = base::join(lines, base::kCrLf);
  if (!lines.empty()) code.append(base::kCrLf);
  parts_->host->addComponent(parts_->project, typeOf(fileName), workspace::baseName(fileName), code);
}

frame::CodeModule& TestHost::addModule(std::string_view code) {
  constexpr std::string_view kName = "Module1.bas";
  const auto lines = base::splitLines(code);
  addComponent(kName, {lines.begin(), lines.end()});
  activate(kName, {1, 1, 1, 1});
  return module(kName);
}

void TestHost::activate(std::string_view fileName, const frame::TextRange& selection) {
  parts_->host->openCode(parts_->component(fileName))->SetSelection(selection);
}

void TestHost::setReadOnly(std::string_view fileName, bool readOnly) {
  parts_->host->setReadOnly(parts_->component(fileName), readOnly);
}

void TestHost::deactivate() {
  for (const auto& window : parts_->host->Windows()->items())
    if (window->Type() == frame::WindowType::kCodeWindow) window->Close();
  parts_->host->select(nullptr);
}

frame::CodeModule& TestHost::module(std::string_view fileName) {
  return *parts_->component(fileName)->CodeModule();
}

frame::VBComponent& TestHost::component(std::string_view fileName) { return *parts_->component(fileName); }

std::vector<std::string> TestHost::lines(std::string_view fileName) {
  frame::CodeModule& code = module(fileName);
  std::vector<std::string> result;
  for (int line = 1; line <= code.CountOfLines(); ++line) result.push_back(code.Lines(line, 1));
  return result;
}

frame::TextRange TestHost::selection(std::string_view fileName) {
  return module(fileName).CodePane()->GetSelection();
}

forms::ScriptedDesk& TestHost::desk() { return parts_->desk; }

}  // namespace kolvane::test
