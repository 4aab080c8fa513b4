#include "generate/outline.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>
#include <utility>

#include "generate/module_outline.h"
#include "generate/words.h"

namespace kolvane::generate {

namespace {

// One file of a kind, among a thousand; what its name begins with, and where it lies.
struct KindRow {
  ModuleKind kind;
  int perMille;
  int leastLines;
  std::span<const std::string_view> roles;
  std::array<std::string_view, 2> prefixes;
  std::string_view folder;
  std::string_view extension;
};
constexpr std::array<KindRow, 4> kKinds{{
    {ModuleKind::kStandard, 190, 30, words::kModuleRoles, {"mod", "bas"}, "Modules", ".bas"},
    {ModuleKind::kClass, 470, 30, words::kClassRoles, {"cls", "C"}, "Classes", ".cls"},
    {ModuleKind::kForm, 315, 60, words::kFormRoles, {"frm", "frm"}, "Forms", ".frm"},
    {ModuleKind::kControl, 25, 60, words::kControlRoles, {"ctl", "uc"}, "Controls", ".ctl"},
}};

bool hasDesigner(const Module& module) {
  return module.kind == ModuleKind::kForm || module.kind == ModuleKind::kControl;
}

// File sizes beside each other: half of the files are well below the average, a few far above.
constexpr std::array kSizes{12, 20, 28, 36, 45, 55, 65, 78, 92, 110, 130, 160, 200, 270, 400, 750};

// Designer lines are this share of all lines; class and attribute headers are counted among them.
constexpr int kDesignerPerMille = 290;
constexpr int kHeaderLines = 12;

Style makeStyle(Random& random) {
  static constexpr std::array kIndents{4, 4, 4, 4, 4, 3, 2};
  static constexpr std::array kMemberPrefixes{"m_", "m", "m_", "mv"};
  static constexpr std::array kBlankHabits{0, 300, 800, 950, 1000, 1000};
  Style style;
  style.indent = random.pick(kIndents);
  style.hungarian = random.chance(750);
  style.memberPrefix = style.hungarian ? random.pick(kMemberPrefixes) : "m_";
  style.alignedAs = random.chance(170);
  style.callKeyword = random.chance(250);
  style.caseIndented = random.chance(650);
  style.lineNumbers = random.chance(8);
  style.accented = random.chance(350);
  style.blankLinesWithBlanks = random.pick(kBlankHabits);
  style.banner = random.chance(600) ? random.below(1000) : -1;
  style.errorLabel = random.pick(words::kErrorLabels);
  style.exitLabel = random.pick(words::kExitLabels);
  style.lineEnd = random.chance(100) ? "\n" : "\r\n";
  return style;
}

// Kinds take turns so that each has its share in any stretch of the list.
std::vector<const KindRow*> chooseKinds(int files) {
  std::vector<const KindRow*> chosen;
  std::array<int, kKinds.size()> counts{};
  for (int i = 1; i <= files; ++i) {
    std::size_t best = 0;
    int most = -1'000'000;
    for (std::size_t k = 0; k < kKinds.size(); ++k) {
      const int owed = static_cast<int>(static_cast<long long>(kKinds[k].perMille) * i - 1000LL * counts[k]);
      if (owed > most) {
        most = owed;
        best = k;
      }
    }
    ++counts[best];
    chosen.push_back(&kKinds[best]);
  }
  return chosen;
}

// A file is usually named as its component, but not always.
std::string fileName(Random& random, const KindRow& kind, const std::string& name, Names& files) {
  std::string base = name;
  if (random.chance(280))
    base = name.substr(kind.prefixes[name.starts_with(kind.prefixes[0]) ? 0 : 1].size());
  if (random.chance(100)) std::transform(base.begin(), base.end(), base.begin(), lowerAscii);
  const std::string folder = random.chance(500) ? std::string(kind.folder) + "/" : std::string();
  return folder + files.claim(std::move(base)) + std::string(kind.extension);
}

void nameModules(Random& random, const std::vector<const KindRow*>& kinds, Project& project) {
  Names names;
  Names files;
  project.modules.reserve(kinds.size());
  for (const KindRow* kind : kinds) {
    Module module;
    module.kind = kind->kind;
    module.style = makeStyle(random);
    const std::string_view prefix = random.chance(800) ? kind->prefixes[0] : kind->prefixes[1];
    std::string name(prefix);
    name += nounName(random);
    name += random.pick(kind->roles);
    module.name = names.claim(std::move(name));
    module.path = fileName(random, *kind, module.name, files);
    module.hasCompanion = hasDesigner(module) && random.chance(250);
    const int index = static_cast<int>(project.modules.size());
    if (module.kind == ModuleKind::kClass) project.classes.push_back(index);
    if (module.kind == ModuleKind::kForm) project.forms.push_back(index);
    project.modules.push_back(std::move(module));
  }
}

int jitter(Random& random, int size) { return size * random.between(80, 120) / 10; }

void sizeModules(Random& random, int lines, const std::vector<const KindRow*>& kinds, Project& project) {
  std::vector<int> weights;
  std::vector<int> least;
  for (const KindRow* kind : kinds) {
    weights.push_back(jitter(random, random.pick(kSizes)));
    least.push_back(kind->leastLines);
  }
  const std::vector<int> sizes = shares(lines, weights, least);
  long long designerTotal = 0;
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    Module& module = project.modules[i];
    module.lines = sizes[i];
    if (hasDesigner(module)) designerTotal += module.lines;
  }
  if (designerTotal == 0) return;
  const long long wanted = static_cast<long long>(lines) * kDesignerPerMille / 1000 -
                           static_cast<long long>(kinds.size()) * kHeaderLines;
  const long long perMille = std::clamp(wanted * 1000 / designerTotal, 150LL, 800LL);
  for (Module& module : project.modules) {
    if (!hasDesigner(module)) continue;
    const auto usual = static_cast<int>(module.lines * perMille / 1000);
    module.designerLines = std::min(usual * random.between(80, 110) / 100, module.lines - kHeaderLines - 12);
  }
}

void indexMembers(Module& module) {
  for (std::size_t p = 0; p < module.procedures.size(); ++p) {
    const Procedure& procedure = module.procedures[p];
    if (procedure.scope != Scope::kPublic) continue;
    const int index = static_cast<int>(p);
    if (procedure.kind == ProcedureKind::kSub) module.publicSubs.push_back(index);
    if (procedure.kind == ProcedureKind::kLet) module.publicLets.push_back(index);
    if (procedure.kind == ProcedureKind::kGet && procedure.result == Type::kString)
      module.publicTexts.push_back(index);
  }
}

void indexFunctions(Project& project, std::size_t moduleIndex) {
  const Module& module = project.modules[moduleIndex];
  for (std::size_t p = 0; p < module.procedures.size(); ++p) {
    const Procedure& procedure = module.procedures[p];
    if (procedure.scope == Scope::kPrivate || procedure.name == "Main") continue;
    const Project::Place place{static_cast<int>(moduleIndex), static_cast<int>(p)};
    if (procedure.kind == ProcedureKind::kSub) project.publicSubs.push_back(place);
    if (procedure.kind == ProcedureKind::kFunction)
      project.publicFunctions[static_cast<std::size_t>(row(procedure.result).group)].push_back(place);
  }
}

void indexProcedures(Project& project) {
  for (std::size_t m = 0; m < project.modules.size(); ++m) {
    if (project.modules[m].kind == ModuleKind::kClass) indexMembers(project.modules[m]);
    if (project.modules[m].kind == ModuleKind::kStandard) indexFunctions(project, m);
  }
}

void check(const Options& options) {
  if (options.files < 1 || options.lines < 1)
    throw std::invalid_argument("files and lines must be at least 1");
  if (options.moduleLines < 0 || options.procedures < 0)
    throw std::invalid_argument("module lines and procedures must not be below 0");
}

}  // namespace

bool Names::taken(std::string_view name) const {
  std::string key(name);
  std::transform(key.begin(), key.end(), key.begin(), lowerAscii);
  return lower_.contains(key);
}

std::string Names::claim(std::string name) {
  std::string key = name;
  std::transform(key.begin(), key.end(), key.begin(), lowerAscii);
  if (lower_.emplace(key, 1).second) return name;
  int number = lower_[key];
  do {
    ++number;
  } while (!lower_.emplace(key + std::to_string(number), 1).second);
  lower_[key] = number;
  return name + std::to_string(number);
}

std::vector<int> shares(int total, const std::vector<int>& weights, const std::vector<int>& least) {
  const long long sum = std::accumulate(weights.begin(), weights.end(), 0LL);
  const long long free = std::max(0LL, total - std::accumulate(least.begin(), least.end(), 0LL));
  std::vector<int> parts;
  parts.reserve(weights.size());
  long long before = 0;
  for (std::size_t i = 0; i < weights.size(); ++i) {
    const long long after = before + weights[i];
    parts.push_back(least[i] + static_cast<int>(after * free / sum - before * free / sum));
    before = after;
  }
  return parts;
}

std::string nounName(Random& random) {
  std::string name;
  if (random.chance(350)) name += random.pick(words::kQualifiers);
  const std::string_view first = random.pick(words::kNouns);
  name += first;
  const std::string_view second = random.pick(words::kNouns);
  if (random.chance(700) && second != first) name += second;
  return name;
}

std::string variableName(Random& random, const Style& style, Type type) {
  std::string name = nounName(random);
  if (style.hungarian || type == Type::kCollection || type == Type::kRecordset || type == Type::kObject)
    return std::string(row(type).prefix) + name;
  // A lone noun could be a word of the language.
  if (std::find(std::begin(words::kNouns), std::end(words::kNouns), name) != std::end(words::kNouns))
    name = std::string(random.pick(words::kQualifiers)) + name;
  name[0] = lowerAscii(name[0]);
  return name;
}

Project makeOutline(const Options& options) {
  check(options);
  Random random(options.seed, 0);
  Project project;
  project.name = std::string(random.pick(words::kNouns)) + "Manager";
  if (options.moduleLines > 0) {
    const std::vector<const KindRow*> kinds{&kKinds[0]};
    nameModules(random, kinds, project);
    project.modules[0].lines = options.moduleLines + 1;
  } else {
    const std::vector<const KindRow*> kinds = chooseKinds(options.files);
    nameModules(random, kinds, project);
    sizeModules(random, options.lines, kinds, project);
  }
  // Events first: a module can listen to any class.
  for (std::size_t m = 0; m < project.modules.size(); ++m) {
    Random own(options.seed, 3 * m + 1);
    declareEvents(own, project.modules[m]);
  }
  for (std::size_t m = 0; m < project.modules.size(); ++m) {
    Random own(options.seed, 3 * m + 2);
    outlineModule(own, project, static_cast<int>(m), options.procedures);
  }
  indexProcedures(project);
  return project;
}

}  // namespace kolvane::generate
