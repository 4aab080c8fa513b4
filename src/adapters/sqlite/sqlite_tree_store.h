// The settings tree in one SQLite file.
//
// The file is in write-ahead mode: readers never wait, writers wait for one another up to ten seconds. What a
// call or an update() has written survives the end of the process at any moment; only the end of the machine
// can take the last transactions, never the file.
//
// A file that is damaged or no SQLite file is left as it stands; the constructor, which looks at every page, or the call
// that met damage done since raises StoreDamaged. One that belongs to another program or that a newer version of this
// program has written is left alone, too; the constructor raises 321. Errors name the file and the reason: 321 as above, 61 disk full, 57 read or write failed, 70 no
// permission or in use by another program, 75 no regular file, 76 the folder does not exist.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/tree_store.h"

namespace kolvane::adapters {

class SqliteTreeStore final : public platform::TreeStore {
 public:
  // Creates the file, which only its user can read, when there is none; its folder must exist. ":memory:"
  // leaves nothing behind. A file or folder without write permission can be read; writing to it raises 70,
  // save what would change nothing.
  explicit SqliteTreeStore(const std::string& path);
  ~SqliteTreeStore() override;
  SqliteTreeStore(const SqliteTreeStore&) = delete;
  SqliteTreeStore& operator=(const SqliteTreeStore&) = delete;

  bool readOnly() const;

  std::optional<platform::StoredValue> read(const std::string& path, const std::string& name) override;
  void write(const std::string& path, const platform::StoredValue& value) override;
  std::vector<platform::StoredValue> values(const std::string& path) override;
  std::vector<std::string> keys(const std::string& path) override;
  bool keyExists(const std::string& path) override;
  bool removeKey(const std::string& path) override;
  bool removeValue(const std::string& path, const std::string& name) override;
  void update(const std::function<void()>& work) override;

 private:
  class Database;
  std::unique_ptr<Database> database_;
};

}  // namespace kolvane::adapters
