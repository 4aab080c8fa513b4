// Controls: how many, which, and how they lie inside each other.
#include <algorithm>
#include <cstddef>
#include <utility>

#include "generate/module_outline.h"
#include "generate/words.h"

namespace kolvane::generate {

namespace {

constexpr int kDeepest = 5;
constexpr int kRootLines = 24;

const ControlClass& chooseClass(Random& random) {
  static constexpr int total = [] {
    int sum = 0;
    for (const ControlClass& type : kControlClasses) sum += type.weight;
    return sum;
  }();
  int at = random.below(total);
  for (const ControlClass& type : kControlClasses)
    if ((at -= type.weight) < 0) return type;
  return kControlClasses[0];
}

class ControlPlacer {
 public:
  ControlPlacer(Random& random, Module& module, Names& names)
      : random_(random), module_(module), names_(names) {}

  void place() {
    const int menuLines =
        module_.kind == ModuleKind::kForm && module_.designerLines > 250 && random_.chance(300) ? 90 : 0;
    int left = module_.designerLines - kRootLines - menuLines;
    while (left > usualLines(kControlClasses[0])) left -= addFamily(chooseClass(random_));
    numberTabs();
    // The designer puts the newest control on top, which is first in the file.
    if (random_.chance(500)) reverseOrder();
    if (menuLines > 0) addMenus(menuLines);
  }

 private:
  // A control, or the elements of a control array; the lines that they take.
  int addFamily(const ControlClass& type) {
    const int parent = chooseParent();
    const bool array = type.array && random_.chance(120);
    const int count = array ? 1 + random_.few(7) : 1;
    std::string name = controlName(type);
    for (int i = 0; i < count; ++i) add(type, name, array ? i : -1, parent);
    return count * usualLines(type);
  }

  std::string controlName(const ControlClass& type) {
    // Captions nobody refers to keep the name that the designer gave them.
    if (&type == &kControlClasses[0] && random_.chance(600)) return "Label" + std::to_string(++labels_);
    return names_.claim(std::string(type.prefix) + nounName(random_));
  }

  // -1 is the form itself.
  int chooseParent() {
    if (containers_.empty() || random_.chance(240)) return -1;
    return containers_[static_cast<std::size_t>(random_.below(static_cast<int>(containers_.size())))];
  }

  void add(const ControlClass& type, const std::string& name, int index, int parent) {
    std::vector<int>& siblings =
        parent < 0 ? module_.topControls : module_.controls[static_cast<std::size_t>(parent)].children;
    const int nth = static_cast<int>(siblings.size());
    Control control;
    control.type = &type;
    control.name = name;
    control.index = index;
    control.caption = captionOf(type, name);
    control.left = 120 + nth % 3 * 2040 + random_.below(4) * 15;
    control.top = 240 + nth / 3 * 420;
    control.width = type.width + random_.below(30) * 15;
    control.height = type.height;
    const int self = static_cast<int>(module_.controls.size());
    siblings.push_back(self);
    module_.controls.push_back(std::move(control));
    levels_.push_back(parent < 0 ? 1 : levels_[static_cast<std::size_t>(parent)] + 1);
    if (type.container && levels_.back() < kDeepest) containers_.push_back(self);
  }

  std::string captionOf(const ControlClass& type, const std::string& name) {
    if (module_.style.accented && random_.chance(150))
      return std::string(random_.pick(words::kAccentedNames));
    std::string caption = random_.chance(300) ? "&" : "";
    if (random_.chance(500)) {
      caption += random_.pick(words::kNouns);
    } else {
      caption += name.substr(std::min(name.size(), type.prefix.size()));
    }
    return caption + (type.prefix == "lbl" ? ":" : "");
  }

  void numberTabs() {
    int next = 0;
    for (Control& control : module_.controls)
      if (hasTabIndex(*control.type)) control.tabIndex = next++;
  }

  void reverseOrder() {
    std::reverse(module_.topControls.begin(), module_.topControls.end());
    for (Control& control : module_.controls) std::reverse(control.children.begin(), control.children.end());
  }

  void addMenus(int lines) {
    while (lines > 0) {
      const int top = addMenu(-1, std::string(random_.pick(words::kNouns)));
      lines -= 4;
      for (int i = random_.between(2, 7); i > 0; --i) {
        const bool separator = random_.chance(150);
        const int item = addMenu(top, separator ? "-" : nounName(random_));
        lines -= 4;
        if (!separator && random_.chance(60)) {
          addMenu(item, nounName(random_));
          addMenu(item, nounName(random_));
          lines -= 8;
        }
      }
    }
  }

  int addMenu(int parent, const std::string& caption) {
    Control control;
    control.type = &kMenuClass;
    control.name = names_.claim("mnu" + (caption == "-" ? std::string("Sep") : caption));
    control.caption = caption == "-" ? caption : "&" + caption + (random_.chance(300) ? "..." : "");
    const int self = static_cast<int>(module_.controls.size());
    (parent < 0 ? module_.topControls : module_.controls[static_cast<std::size_t>(parent)].children)
        .push_back(self);
    module_.controls.push_back(std::move(control));
    return self;
  }

  Random& random_;
  Module& module_;
  Names& names_;
  std::vector<int> containers_;
  std::vector<int> levels_;
  int labels_ = 0;
};

}  // namespace

void placeControls(Random& random, Module& module, Names& names) {
  ControlPlacer(random, module, names).place();
}

}  // namespace kolvane::generate
