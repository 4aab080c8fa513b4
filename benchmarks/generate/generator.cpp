#include "generate/generator.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "generate/code_writer.h"
#include "generate/designer_writer.h"
#include "generate/outline.h"
#include "generate/text.h"

namespace kolvane::generate {

namespace {

constexpr std::size_t kBytesPerLine = 52;

constexpr std::string_view kReferences[] = {
    "*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#..\\..\\WINDOWS\\system32\\stdole2.tlb#OLE Automation",
    "*\\G{00000206-0000-0010-8000-00AA006D2EA4}#2.6#0#..\\..\\Program Files\\Common "
    "Files\\System\\ado\\msado26.tlb#Microsoft "
    "ActiveX Data Objects 2.6 Library",
};

// What follows the components, in the IDE's order.
constexpr std::string_view kProjectTail =
    "HelpContextID=\"0\"\n"
    "CompatibleMode=\"0\"\n"
    "MajorVer=2\n"
    "MinorVer=4\n"
    "RevisionVer=118\n"
    "AutoIncrementVer=1\n"
    "ServerSupportFiles=0\n"
    "VersionCompanyName=\"Holm & Brandt\"\n"
    "CondComp=\"DEBUG_BUILD = 0 : TRIAL_VERSION = 0 : USE_ADO = -1\"\n"
    "CompilationType=0\n"
    "OptimizationType=0\n"
    "FavorPentiumPro(tm)=0\n"
    "CodeViewDebugInfo=0\n"
    "NoAliasing=0\n"
    "BoundsCheck=0\n"
    "OverflowCheck=0\n"
    "FlPointCheck=0\n"
    "FDIVCheck=0\n"
    "UnroundedFP=0\n"
    "StartMode=0\n"
    "Unattended=0\n"
    "Retained=0\n"
    "ThreadPerObject=0\n"
    "MaxNumberOfThreads=1\n"
    "\n"
    "[MS Transaction Server]\n"
    "AutoRefresh=1";

// As project files write it; some were typed on a system that doesn't mind the case.
std::string windowsPath(Random& random, std::string path) {
  std::replace(path.begin(), path.end(), '/', '\\');
  if (random.chance(30)) std::transform(path.begin(), path.end(), path.begin(), lowerAscii);
  return path;
}

void writeComponentLine(Random& random, const Module& module, Text& out) {
  const std::string path = windowsPath(random, module.path);
  switch (module.kind) {
    case ModuleKind::kStandard:
      return out.line("Module=", module.name, "; ", path);
    case ModuleKind::kClass:
      return out.line("Class=", module.name, "; ", path);
    case ModuleKind::kForm:
      return out.line("Form=", path);
    case ModuleKind::kControl:
      return out.line("UserControl=", path);
  }
}

GeneratedFile projectFile(Random& random, const Project& project) {
  Text out("\r\n", 4096);
  out.line("Type=Exe");
  for (const std::string_view reference : kReferences) out.line("Reference=", reference);
  for (const ControlLibrary& library : kControlLibraries)
    out.line("Object=", library.guid, "; ", library.file);
  bool standard = false;
  for (const Module& module : project.modules) {
    writeComponentLine(random, module, out);
    standard = standard || module.kind == ModuleKind::kStandard;
  }
  if (standard) {
    out.line("Startup=\"Sub Main\"");
  } else {
    out.line(
        "Startup=\"",
        project.forms.empty() ? "(None)" : project.modules[static_cast<std::size_t>(project.forms[0])].name,
        '"');
  }
  out.line("Title=\"", project.name, '"');
  out.line("ExeName32=\"", project.name, ".exe\"");
  out.line("Command32=\"\"");
  out.line("Name=\"", project.name, '"');
  out.block(kProjectTail);
  return {project.name + ".vbp", out.take()};
}

// The file's bytes; the lines that it took past its planned ones are added to `excess`.
std::string componentBytes(Random& random, const Project& project, const Module& module, int& excess) {
  Text out(module.style.lineEnd, static_cast<std::size_t>(module.lines) * kBytesPerLine);
  writeHeader(random, module, out);
  CodeWriter code(random, project, module, out);
  code.writeDeclarations();
  code.writeProcedures();
  excess += out.lines() - module.lines;
  return out.take();
}

}  // namespace

std::vector<GeneratedFile> generate(const Options& options) {
  Project project = makeOutline(options);
  // A small file can need more lines than planned; the next ones make up for it.
  int excess = 0;
  std::vector<GeneratedFile> files;
  files.reserve(project.modules.size() + project.modules.size() / 3 + 1);
  Random projectRandom(options.seed, 3 * project.modules.size() + 1);
  files.push_back(projectFile(projectRandom, project));
  for (std::size_t m = 0; m < project.modules.size(); ++m) {
    Module& module = project.modules[m];
    const int less = std::min(excess, module.lines / 4);
    module.lines -= less;
    excess -= less;
    Random random(options.seed, 3 * m + 3);
    files.push_back({module.path, componentBytes(random, project, module, excess)});
    if (module.hasCompanion) files.push_back({companionPath(module), companionBytes(random)});
  }
  return files;
}

}  // namespace kolvane::generate
