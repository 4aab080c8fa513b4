// kolvane new property: what the Property Builder writes, without its dialog.
#include "base/text.h"
#include "commandline/new_command.h"
#include "writers/property_defaults.h"
#include "writers/property_text.h"

namespace kolvane::commandline {
namespace {

using writers::PropertyValues;

struct NewPropertyOptions {
  NewCode code;
  std::string type;
  writers::PropertyMethods methods;
  bool handler = false;
  bool noHandler = false;
};

PropertyValues wantedProperty(Session& session, const NewPropertyOptions& options,
                              const std::string& project) {
  const base::CodePage& page = session.codePage();
  const writers::BuilderDefaults defaults(session.suite().settings(), writers::kPropertyBuilder);
  PropertyValues property = writers::propertyDefaults(defaults.inForce(project)).property;
  property.name = page.fromUtf8(options.code.name);
  property.description = page.fromUtf8(options.code.description);
  if (!options.type.empty()) property.type = page.fromUtf8(options.type);
  if (!options.code.scope.empty()) property.isPublic = base::equalNoCase(options.code.scope, "public");
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

// Returns "Property Get/Let Total".
std::optional<std::string> writeProperty(Session& session, const NewPropertyOptions& options,
                                         frame::CodeModule& module) {
  frame::Services& services = session.suite().services();
  const PropertyValues property = wantedProperty(session, options, module.Parent()->VBProject()->Name());
  if (const auto fault = writers::faultOf(services, module, property))
    throw WrongUse{faultText(session, *fault, property)};
  if (!writers::Create_Property(services, module, property)) return std::nullopt;
  return "Property " + writers::methodNames(property.methods) + " " +
         session.utf8(writers::propertyName(services, property.name));
}

}  // namespace

void addNewProperty(CLI::App& group, Invocation& invocation) {
  auto options = std::make_shared<NewPropertyOptions>();
  CLI::App* command = group.add_subcommand(
      "property",
      "A property behind the module's code, with the variable that holds its value. What is left out comes "
      "from the project's defaults of the Property Builder");
  addNewCodeOptions(*command, options->code);
  command->add_option("--type", options->type, "The type of its value");
  command->add_flag("--get", options->methods.get, "Write a Property Get");
  command->add_flag("--let", options->methods.let, "Write a Property Let");
  command->add_flag("--set", options->methods.set,
                    "Write a Property Set. Without any of the three the type decides");
  const auto handler = command->add_flag("--handler", options->handler, "With an error handler in each");
  command->add_flag("--no-handler", options->noHandler, "Without one, whatever the defaults say")
      ->excludes(handler);
  command->callback([options, &invocation] {
    invocation.exit =
        writeNewCode(invocation, options->code, [&](Session& session, frame::CodeModule& module) {
          return writeProperty(session, *options, module);
        });
  });
}

}  // namespace kolvane::commandline
