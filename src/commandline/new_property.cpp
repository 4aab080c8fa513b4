// kolvane new property: what the Property Builder writes, without its dialog.
#include "base/text.h"
#include "commandline/new_command.h"
#include "commandline/project_command.h"
#include "writers/property_defaults.h"
#include "writers/property_text.h"

namespace kolvane::commandline {
namespace {

using writers::PropertyValues;

struct NewPropertyOptions {
  ProjectOptions project;
  std::string path;
  std::string module;
  std::string name;
  std::string description;
  std::string scope;
  std::string type;
  writers::PropertyMethods methods;
  bool handler = false;
  bool noHandler = false;
};

PropertyValues wantedProperty(Session& session, const NewPropertyOptions& options,
                              const ComponentPointer& component) {
  const base::CodePage& page = session.codePage();
  const writers::BuilderDefaults defaults(session.suite().settings(), writers::kPropertyBuilder);
  PropertyValues property =
      writers::propertyDefaults(defaults.inForce(component->VBProject()->Name())).property;
  property.name = page.fromUtf8(options.name);
  property.description = page.fromUtf8(options.description);
  if (!options.type.empty()) property.type = page.fromUtf8(options.type);
  if (!options.scope.empty()) property.isPublic = base::equalNoCase(options.scope, "public");
  property.useHandler = (property.useHandler || options.handler) && !options.noHandler;
  property.methods = options.methods;
  if (property.methods.none())
    property.methods = writers::methodsOfType(session.suite().services(), property.type)
                           .value_or(writers::PropertyMethods());
  return property;
}

std::string faultText(Session& session, const writers::PropertyFault& fault, const PropertyValues& property) {
  if (fault.field != writers::PropertyField::kMethods) return session.utf8(fault.message);
  return "which methods suit " + session.utf8(property.type) +
         " is not known: say by --get, --let and --set what to write";
}

// "Property Get/Let Total in Class1".
std::string summaryOf(Session& session, const PropertyValues& property, frame::VBComponent& component) {
  return "Property " + writers::methodNames(property.methods) + " " +
         session.utf8(writers::propertyName(session.suite().services(), property.name)) + " in " +
         session.utf8(component.Name());
}

std::string writeProperty(Session& session, const NewPropertyOptions& options, bool& refused) {
  const ComponentPointer component = findModule(session, options.module);
  frame::Services& services = session.suite().services();
  services.vbe.setActiveVBProject(component->VBProject());
  const PropertyValues property = wantedProperty(session, options, component);
  const auto module = component->CodeModule();
  if (const auto fault = writers::faultOf(services, *module, property))
    throw WrongUse{faultText(session, *fault, property)};
  refused = !requireEditable(session, component) || !writers::Create_Property(services, *module, property);
  return refused ? std::string() : summaryOf(session, property, *component);
}

}  // namespace

void addNewProperty(CLI::App& group, Invocation& invocation) {
  auto options = std::make_shared<NewPropertyOptions>();
  CLI::App* command = group.add_subcommand(
      "property",
      "A property behind the module's code, with the variable that holds its value. What is left out comes "
      "from the project's defaults of the Property Builder");
  command->add_option("PROJECT", options->path, "Project (.vbp), group (.vbg) or single module")->required();
  command->add_option("MODULE", options->module, "The module that gets it")->required();
  command->add_option("--name", options->name, "Its name")->required();
  command->add_option("--type", options->type, "The type of its value");
  command->add_option("--scope", options->scope, "private or public")
      ->check(CLI::IsMember({"private", "public"}, CLI::ignore_case));
  command->add_flag("--get", options->methods.get, "Write a Property Get");
  command->add_flag("--let", options->methods.let, "Write a Property Let");
  command->add_flag("--set", options->methods.set,
                    "Write a Property Set. Without any of the three the type decides");
  const auto handler = command->add_flag("--handler", options->handler, "With an error handler in each");
  command->add_flag("--no-handler", options->noHandler, "Without one, whatever the defaults say")
      ->excludes(handler);
  command->add_option("--description", options->description, "For the headers");
  addOutputOptions(*command, options->project);
  command->callback([options, &invocation] {
    options->project.paths = {options->path};
    bool refused = false;
    const Exit exit =
        runOnProjects(invocation.environment, invocation.global, options->project,
                      [&](Session& session) { return writeProperty(session, *options, refused); });
    invocation.exit = refused ? Exit::kFailed : exit;
  });
}

}  // namespace kolvane::commandline
