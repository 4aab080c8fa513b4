#include "maintenance/project_walk.h"

#include "base/error.h"
#include "base/text.h"
#include "source/paths.h"

namespace kolvane::maintenance {
namespace {

bool hasCodeExtension(std::string_view path) {
  const std::size_t point = path.rfind('.');
  return point != std::string_view::npos && source::IsSourceFileExtension(path.substr(point));
}

}  // namespace

DecidingFile decidingFile(frame::VBComponent& component) {
  const int count = component.FileCount();
  DecidingFile file{DecidingFile::Kind::kFile, component.FileNames(1)};
  if (count > 1) {
    for (int index = 2; index <= count && hasCodeExtension(file.path); ++index)
      file.path = component.FileNames(index);
  } else if (base::trim(file.path).empty()) {
    file.kind = DecidingFile::Kind::kNone;
  } else if (!hasCodeExtension(file.path)) {
    file.kind = DecidingFile::Kind::kNotCode;
  }
  return file;
}

bool isReadOnly(const frame::Services& services, const DecidingFile& file) {
  return file.kind != DecidingFile::Kind::kNone && source::IsFileReadOnly(services, file.path);
}

bool ComponentHasCodeModule(const std::shared_ptr<frame::VBComponent>& component) {
  try {
    const auto module = component ? component->CodeModule() : nullptr;
    return module && module->CountOfLines() >= 0;
  } catch (const base::Error&) {
    return false;
  }
}

bool DoesCodeModuleHaveCode(frame::CodeModule& module) {
  const int count = module.CountOfLines();
  for (int line = 1; line <= count; ++line)
    if (!module.Lines(line, 1).empty()) return true;
  return false;
}

bool walkProject(const frame::Services& services, frame::VBProject& project, const ProjectWalk& walk,
                 WalkProgress* progress) {
  const bool shows = progress != nullptr && !walk.activity.empty();
  for (const auto& component : project.VBComponents()->items()) {
    const DecidingFile file = decidingFile(*component);
    if (file.kind == DecidingFile::Kind::kNotCode) return true;
    if (!ComponentHasCodeModule(component)) continue;
    const auto module = component->CodeModule();
    if (walk.wants && !walk.wants(*component, *module)) continue;
    if (walk.readOnly && isReadOnly(services, file)) {
      const WalkStep step = walk.readOnly(*component);
      if (step == WalkStep::kStop) return false;
      if (step == WalkStep::kSkip) continue;
    }
    if (shows) {
      progress->setModuleCaption(component->Name().append(walk.activity));
      services.desk.doEvents();
    }
    if (!walk.treat(*component, *module)) return false;
    if (shows) progress->advance();
    services.desk.doEvents();
  }
  return true;
}

}  // namespace kolvane::maintenance
