#include "frame/default_settings.h"

#include <algorithm>
#include <array>
#include <span>

#include "base/error.h"
#include "base/text.h"
#include "frame/catalogue.h"
#include "frame/context_menus.h"
#include "frame/option_tables.h"
#include "frame/version.h"

namespace kolvane::frame {
namespace {

constexpr std::string_view kOldMenuCopier = "Show Menu Copier";
constexpr std::string_view kMenuCopier = "rtgertg399rsfgjnbdfg";
constexpr std::string_view kOldMsgBoxBuilder = "Show MsgBox Builder";
constexpr std::string_view kMsgBoxBuilder = "sdfgsdf450gsdfg";
constexpr std::string_view kProjectBackup = "sardfijgnbs451sidjfgn";

struct PrefixedKey {
  std::string_view prefix;
  std::string_view key;
};

// Switched on at every connection.
constexpr std::array<PrefixedKey, 8> kForced{{
    {kControlMenuPrefix, "fd345sfdghjsga"},
    {kControlMenuPrefix, "sd324srtgseg"},
    {kInMenuPrefix, "SS66"},
    {kOnToolbarPrefix, "328srgksjerg"},
    {kInMenuPrefix, "dsgsdfg567sdfg"},
    {kOnToolbarPrefix, "xdfgh456dhgfhdhhdfghgfh"},
    {kOnToolbarPrefix, "dhmstr456hdfgjdghj"},
    {kControlMenuPrefix, "SSTO152"},
}};

struct StepVersion {
  Step step;
  double version;
};
constexpr std::array<StepVersion, 6> kSteps{{
    {Step::k1_2, 1.2},
    {Step::k2_1, 2.1},
    {Step::k2_2, 2.2},
    {Step::k2_3, 2.3},
    {Step::k2_4, 2.4},
    {Step::k3_0, 3.0},
}};

double programVersion() {
  return base::val(std::to_string(kVersionMajor) + '.' + std::to_string(kVersionMinor));
}

// A stored version may have been written under another decimal separator; the second character is one,
// whatever it is.
double versionFromText(std::string_view text) {
  if (base::trim(text).empty()) return 0;
  const std::string_view decimals = text.size() > 2 ? text.substr(2) : std::string_view();
  return base::val(std::string(text.substr(0, 1)).append(".").append(decimals));
}

class DefaultWriter {
 public:
  DefaultWriter(Settings& settings, const platform::UserInfo& user) : settings_(settings), user_(user) {}

  void run() {
    const double stored = versionFromText(settings_.option(kStoredVersionKey));
    for (const auto& [step, version] : kSteps) {
      if (version > stored) runStep(step);
      if (step == Step::k2_2 && stored >= 2.1 && stored <= 2.3) carryMenuCopierOver();
      if (step == Step::k2_3 && stored == 2.3) rewriteToolsOf2_3();
    }
    for (const auto& [prefix, key] : kForced) save(prefix, key, true);
  }

 private:
  void runStep(Step step) {
    settings_.saveOption(kStoredVersionKey,
                         base::replaceAll(base::numberText(programVersion()), ".", user_.decimalSeparator()));
    writeGeneralOptions(step);
    for (const CatalogueRow& row : kCatalogue)
      if (row.since == step) writeRow(row);
    if (kDirtyIndicator.since == step) writeRow(kDirtyIndicator);
    for (const ContextEntry& entry : kContextEntries)
      if (entry.since == step) writeEntry(entry);
    if (step == Step::k1_2) writePlacements();
    for (const ToolOption& option : kToolOptions)
      if (option.since == step) settings_.saveOption(option.key, option.defaultText);
    writeSections(step);
  }

  void writeGeneralOptions(Step step) {
    for (const GeneralOption& option : kGeneralOptions)
      if (option.since == step) settings_.saveOption(option.key, option.defaultText);
    if (step == Step::k1_2)
      for (const auto& [key, text] : kBarPlaces) settings_.saveOption(key, text);
    for (const TickOption& option : kHeaderFields)
      if (option.since == step) settings_.saveOption(option.key, option.defaultText);
    for (const TickOption& option : kProcRecoderItems)
      if (option.since == step) settings_.saveOption(option.key, option.defaultText);
    for (const ComponentPrefix& prefix : kComponentPrefixes)
      if (prefix.since == step) settings_.saveOption(prefix.key, prefix.defaultText);
  }

  void writeRow(const CatalogueRow& row) {
    save({}, row.key, true);
    if (row.number > 0) save(kInMenuPrefix, row.key, row.inMenu);
    save(kOnToolbarPrefix, row.key, row.onToolbar);
  }

  void writeEntry(const ContextEntry& entry) {
    save({}, entry.key, true);
    save(entry.prefix, entry.key, true);
  }

  void writePlacements() {
    for (const PlacementRow& row : kPlacements) {
      settings_.saveOption(row.keys.left, std::to_string(kDefaultLeft));
      settings_.saveOption(row.keys.top, std::to_string(kDefaultTop));
      settings_.saveOption(row.keys.width, std::to_string(row.defaultWidth));
      settings_.saveOption(row.keys.height, std::to_string(row.defaultHeight));
    }
  }

  void writeSections(Step step) {
    if (step == Step::k1_2) {
      CreateDefaultsWordComplete(settings_);
      CreateDefaultVariablePrefixes(settings_);
    }
    if (step == Step::k2_4) CreateDefaultMenusToolbarOrder(settings_);
    if (step == Step::k3_0) {
      appendToOrder(step);
      CreateDefaultHotKeys(settings_);
    }
  }

  // The user's own order stays; the new rows take the catalogue's numbers behind it.
  void appendToOrder(Step step) {
    for (const CatalogueRow& row : kCatalogue) {
      if (row.since != step) continue;
      settings_.SaveSetting(kMenuOrderSection, std::to_string(row.number), joined(kInMenuPrefix, row.key));
      settings_.SaveSetting(kToolbarOrderSection, std::to_string(row.toolbarNumber),
                            joined(kOnToolbarPrefix, row.key));
    }
  }

  void carryMenuCopierOver() {
    if (!exists(kOldMenuCopier)) return;
    save({}, kMenuCopier, true);
    for (const std::string_view prefix : {kInMenuPrefix, kOnToolbarPrefix}) {
      const std::string old = joined(prefix, kOldMenuCopier);
      if (exists(old)) settings_.saveOption(joined(prefix, kMenuCopier), settings_.option(old));
      settings_.deleteIfPresent(kOptions, old);
    }
    settings_.deleteIfPresent(kOptions, kOldMenuCopier);
  }

  void rewriteToolsOf2_3() {
    if (!exists(kOldMsgBoxBuilder)) return;
    for (const std::string_view key : {kMsgBoxBuilder, kProjectBackup}) writeRow(*findCatalogueRow(key));
  }

  bool exists(std::string_view key) const {
    return settings_.ReadRegistryValue(RegistryRoot::kCurrentUser, sectionPath(kOptions), key) != kNotFound;
  }
  void save(std::string_view prefix, std::string_view key, bool value) {
    settings_.saveOption(joined(prefix, key), base::boolText(value));
  }
  static std::string joined(std::string_view prefix, std::string_view key) {
    return std::string(prefix).append(key);
  }

  Settings& settings_;
  const platform::UserInfo& user_;
};

void writeOver(Settings& settings, std::string_view section, std::span<const DefaultRow> rows) {
  settings.store().update([&] {
    for (const auto& [key, text] : rows) settings.SaveSetting(section, key, text);
  });
}

}  // namespace

void ApplyDefaultSettings(Settings& settings, const platform::UserInfo& user) {
  const base::ErrorScope scope{"modGeneral", "ApplyDefaultSettings"};
  settings.store().update([&] { DefaultWriter(settings, user).run(); });
}

void CreateDefaultVariablePrefixes(Settings& settings) {
  const base::ErrorScope scope{"modGeneral", "CreateDefaultVariablePrefixes"};
  settings.store().update([&] {
    settings.deleteIfPresent(kVariablePrefixSection);
    writeOver(settings, kVariablePrefixSection, kVariablePrefixes);
  });
}

void CreateDefaultsWordComplete(Settings& settings) {
  const base::ErrorScope scope{"modWordComplete", "CreateDefaultsWordComplete"};
  writeOver(settings, kWordSection, kWords);
}

void CreateDefaultHotKeys(Settings& settings) {
  const base::ErrorScope scope{"frmHotKey", "CreateDefaultHotKeys"};
  writeOver(settings, kHotKeySection, kHotKeys);
}

std::string currentUser(const Settings& settings, const platform::UserInfo& user) {
  constexpr std::string_view kUseName = "dfgdfgdf34jhg";
  constexpr std::string_view kName = "dsfgs56djfhgysdjig";
  if (settings.flag(kUseName)) return settings.option(kName);
  return settings.codePage().fromUtf8(user.userName());
}

}  // namespace kolvane::frame
