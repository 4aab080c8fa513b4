// host/…: projects, components and their files.
#include "automation/json_rpc.h"
#include "automation/methods.h"
#include "automation/session.h"
#include "automation/text_of.h"
#include "base/error.h"
#include "base/text.h"

namespace kolvane::automation::methods {
namespace {

Json componentJson(Session& session, frame::VBComponent& component) {
  Json files = Json::array();
  for (int i = 1; i <= component.FileCount(); ++i)
    if (const std::string name = component.FileNames(i); !name.empty())
      files.push_back(textOf(session, name));
  const auto module = component.CodeModule();
  const auto designer = component.Designer();
  return {{"name", textOf(session, component.Name())},
          {"type", static_cast<int>(component.Type())},
          {"files", files},
          {"lines", module ? module->CountOfLines() : 0},
          {"controls", designer ? designer->VBControls()->Count() : 0}};
}

Json projectsJson(Session& session, const std::vector<std::shared_ptr<frame::VBProject>>& projects) {
  Json list = Json::array();
  for (const auto& project : projects) {
    Json components = Json::array();
    for (const auto& component : project->VBComponents()->items())
      components.push_back(componentJson(session, *component));
    list.push_back({{"name", textOf(session, project->Name())},
                    {"fileName", textOf(session, project->FileName())},
                    {"type", static_cast<int>(project->Type())},
                    {"components", components}});
  }
  return list;
}

// Problems of reading or writing, a text each, in the host's words.
std::vector<std::string> sentences(const std::vector<workspace::Problem>& problems) {
  std::vector<std::string> texts;
  for (const workspace::Problem& problem : problems) texts.push_back(problem.text());
  return texts;
}

workspace::SaveOptions saveOptions(const Arguments& arguments) {
  workspace::SaveOptions options;
  options.force = options.breakLinks = arguments.truth("force");
  options.howToBreakLinks = "\"force\" writes it all the same";
  return options;
}

}  // namespace

Json hostOpen(Session& session, const Arguments& arguments) {
  workspace::Workspace& host = session.host();
  host.clearProblems();
  const auto opened = host.open(session.path(arguments.text("path")));
  Json result{{"projects", projectsJson(session, opened)}};
  if (!host.problems().empty()) result["problems"] = sentences(host.problems());
  return result;
}

Json hostProjects(Session& session, const Arguments&) {
  return {{"projects", projectsJson(session, session.host().VBProjects()->items())}};
}

Json hostNewProject(Session& session, const Arguments& arguments) {
  session.host().newProject(static_cast<frame::ProjectType>(arguments.whole("type")), arguments.text("name"));
  return done();
}

Json hostAddComponent(Session& session, const Arguments& arguments) {
  session.host().addComponent(session.project(arguments.optionalText("project")),
                              static_cast<frame::ComponentType>(arguments.whole("type")),
                              arguments.text("name"), arguments.optionalText("code"));
  return done();
}

Json hostAddFile(Session& session, const Arguments& arguments) {
  session.host().addFile(session.project(arguments.optionalText("project")),
                         session.path(arguments.text("path")), arguments.truth("related"));
  return done();
}

Json hostRemoveComponent(Session& session, const Arguments& arguments) {
  session.host().removeComponent(session.component(arguments.text("component")));
  return done();
}

Json hostSaveProject(Session& session, const Arguments& arguments) {
  const auto project = session.project(arguments.optionalText("project"));
  if (arguments.has("path")) {
    session.host().saveProjectAs(project, session.path(arguments.text("path")), saveOptions(arguments));
    return done();
  }
  const workspace::SaveReport report = session.host().saveProject(project, saveOptions(arguments));
  if (!report.problems.empty())
    throw base::Error(base::errors::kDeviceIo, base::join(sentences(report.problems), base::kCrLf));
  return done();
}

Json hostSaveComponent(Session& session, const Arguments& arguments) {
  const auto component = session.component(arguments.text("component"));
  if (arguments.has("path"))
    session.host().saveAs(component, session.path(arguments.text("path")), saveOptions(arguments));
  else
    session.host().save(component, saveOptions(arguments));
  return done();
}

Json hostReload(Session& session, const Arguments& arguments) {
  session.host().reload(session.component(arguments.text("component")));
  return done();
}

Json hostCloseProject(Session& session, const Arguments& arguments) {
  session.host().closeProject(session.project(arguments.optionalText("project")));
  return done();
}

Json hostActivate(Session& session, const Arguments& arguments) {
  if (!arguments.has("project") && !arguments.has("component"))
    throw RequestError(ErrorCode::kBadParameters, "host/activate needs \"project\", \"component\" or both.");
  const auto projectName = arguments.optionalText("project");
  std::shared_ptr<frame::VBComponent> component;
  if (arguments.has("component")) component = session.component(arguments.text("component"), projectName);
  session.host().setActiveVBProject(component ? component->VBProject() : session.project(projectName));
  session.host().select(component);
  return done();
}

Json hostReadOnly(Session& session, const Arguments& arguments) {
  session.host().setReadOnly(session.component(arguments.text("component")), arguments.truth("value"));
  return done();
}

Json hostFileText(Session& session, const Arguments& arguments) {
  workspace::Workspace& host = session.host();
  const auto file = host.files().read(host.paths().toSystem(session.path(arguments.text("path"))));
  return {{"text", textOf(session, file.content->bytes())}};
}

}  // namespace kolvane::automation::methods
