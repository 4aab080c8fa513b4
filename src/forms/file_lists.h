// Lists of drives, folders and files, over a port.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/lists.h"

namespace kolvane::forms {

// What there is on the drives. Paths are written with "\" and without a last one, but for a root ("C:\").
class FolderSource {
 public:
  virtual ~FolderSource() = default;
  virtual std::vector<std::string> drives() = 0;  // "c:", "d: [DATA]"
  // Names within a folder, in the order to show them in. A path that isn't there raises 76.
  virtual std::vector<std::string> folders(const std::string& path) = 0;
  virtual std::vector<std::string> files(const std::string& path) = 0;
};

class DriveList final : public ListControl {
 public:
  DriveList(Form& form, std::string_view name, FolderSource& source);

  std::string drive() const;
  // By its first letter, without regard to case; a drive that isn't there raises 68. Change when it differs.
  void setDrive(std::string_view drive);

 protected:
  void describe(ControlState& state) const override;
  void indexChanged() override { raise(onChange); }
};

// The folders within a folder, with ".." in front where there is a parent.
class FolderList final : public ListControl {
 public:
  FolderList(Form& form, std::string_view name, FolderSource& source);

  const std::string& path() const { return path_; }  // empty until it is set
  // Reads the folder; one that isn't there raises 76 and changes nothing. Change when it differs.
  void setPath(std::string_view path);

 protected:
  void describe(ControlState& state) const override;
  Deed takeText(std::string_view text) override;
  Deed takeDoubleClick(const Spot& spot) override;  // goes into the folder
  bool takeKey(int key, int shift) override;
  void indexChanged() override { raise(onClick); }

 private:
  void enter(int index);

  FolderSource& source_;
  std::string path_;
};

class FileList final : public ListControl {
 public:
  FileList(Form& form, std::string_view name, FolderSource& source);

  const std::string& path() const { return path_; }
  void setPath(std::string_view path);
  // "*.bas;*.cls"; "*" and "?" as usual, without regard to case.
  const std::string& pattern() const { return pattern_; }
  void setPattern(std::string_view pattern);
  // The selected file's name, empty without one.
  std::string fileName() const { return listIndex() < 0 ? std::string() : list(listIndex()); }

 protected:
  void describe(ControlState& state) const override;

 private:
  void refill(const std::vector<std::string>& files);

  FolderSource& source_;
  std::string path_;
  std::string pattern_ = "*.*";
};

}  // namespace kolvane::forms
