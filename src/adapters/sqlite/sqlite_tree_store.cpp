#include "adapters/sqlite/sqlite_tree_store.h"

#include <utility>

#include "adapters/sqlite/sqlite_connection.h"
#include "base/error.h"
#include "platform/tree_path.h"

namespace kolvane::adapters {
namespace {

using platform::StoredValue;
using platform::ValueType;

// A key's id grows with every creation, and so does a value's sequence within its key: both give the order
// back.
constexpr SqliteFormat kFormat{0x4B564C54, 1, R"(
  CREATE TABLE key (
    id INTEGER PRIMARY KEY,
    parent INTEGER REFERENCES key (id) ON DELETE CASCADE,
    path TEXT NOT NULL COLLATE NOCASE UNIQUE
  );
  CREATE INDEX key_parent ON key (parent);
  CREATE TABLE value (
    key INTEGER NOT NULL REFERENCES key (id) ON DELETE CASCADE,
    sequence INTEGER NOT NULL,
    name TEXT NOT NULL COLLATE NOCASE,
    type INTEGER NOT NULL,
    text TEXT NOT NULL,
    PRIMARY KEY (key, sequence),
    UNIQUE (key, name)
  ) WITHOUT ROWID;
  INSERT INTO key (id, parent, path) VALUES (1, NULL, '');
)"};
constexpr std::int64_t kRoot = 1;

}  // namespace

class SqliteTreeStore::Database {
 public:
  explicit Database(const std::string& path) : connection(path, kFormat) {}

  // Before every read outside update(): SQLite's own locks would cost more than the read. So reads share one
  // snapshot for as long as nobody commits.
  void freshen();
  void endSnapshot();

  std::optional<std::int64_t> findKey(std::string_view path);
  std::int64_t ensureKey(std::string_view path);

  template <typename Work>
  void transaction(const Work& work);
  // Work on several rows outside update().
  template <typename Work>
  void write(const Work& work);

  SqliteConnection connection;
  int depth = 0;
  std::optional<SqliteCommitMark> snapshot;

  SqliteStatement begin{connection, "BEGIN"};
  SqliteStatement commit{connection, "COMMIT"};
  SqliteStatement readValue{connection,
                            "SELECT v.name, v.type, v.text FROM key k JOIN value v ON v.key = k.id "
                            "WHERE k.path = ?1 AND v.name = ?2"};
  SqliteStatement listValues{connection,
                             "SELECT name, type, text FROM value WHERE key = ?1 ORDER BY sequence"};
  SqliteStatement listKeys{connection, "SELECT path FROM key WHERE parent = ?1 ORDER BY id"};
  SqliteStatement selectKey{connection, "SELECT id FROM key WHERE path = ?1"};
  SqliteStatement insertKey{connection, "INSERT INTO key (parent, path) VALUES (?1, ?2) RETURNING id"};
  SqliteStatement upsertValue{
      connection,
      "INSERT INTO value (key, sequence, name, type, text) "
      "VALUES (?1, (SELECT coalesce(max(sequence), 0) + 1 FROM value WHERE key = ?1), ?2, ?3, ?4) "
      "ON CONFLICT (key, name) DO UPDATE SET type = excluded.type, text = excluded.text"};
  SqliteStatement deleteKey{connection, "DELETE FROM key WHERE id = ?1"};
  SqliteStatement deleteKeysBelow{connection, "DELETE FROM key WHERE parent = ?1"};
  SqliteStatement deleteValues{connection, "DELETE FROM value WHERE key = ?1"};
  SqliteStatement deleteValue{connection, "DELETE FROM value WHERE key = ?1 AND name = ?2 RETURNING key"};
};

void SqliteTreeStore::Database::freshen() {
  if (depth > 0) return;
  const auto now = connection.commitMark();
  if (now && now == snapshot) return;
  endSnapshot();
  if (!now) return;
  SqliteQuery(begin).run();
  snapshot = now;
}

void SqliteTreeStore::Database::endSnapshot() {
  if (!std::exchange(snapshot, std::nullopt)) return;
  if (connection.inTransaction()) SqliteQuery(commit).run();
}

std::optional<std::int64_t> SqliteTreeStore::Database::findKey(std::string_view path) {
  SqliteQuery query(selectKey);
  query.bind(1, path);
  if (!query.next()) return std::nullopt;
  return query.number(0);
}

std::int64_t SqliteTreeStore::Database::ensureKey(std::string_view path) {
  if (const auto found = findKey(path)) return *found;
  const std::int64_t parent = ensureKey(platform::parentPath(path));
  SqliteQuery query(insertKey);
  query.bind(1, parent).bind(2, path).next();
  return query.number(0);
}

template <typename Work>
void SqliteTreeStore::Database::transaction(const Work& work) {
  const bool outermost = depth == 0;
  endSnapshot();
  // A writer takes its turn at once, so that nothing it has read is out of date when it writes.
  connection.execute(!outermost ? "SAVEPOINT nested" : connection.readOnly() ? "BEGIN" : "BEGIN IMMEDIATE");
  ++depth;
  try {
    work();
    connection.execute(outermost ? "COMMIT" : "RELEASE nested");
    --depth;
  } catch (...) {
    --depth;
    if (connection.inTransaction())
      connection.executeQuietly(outermost ? "ROLLBACK" : "ROLLBACK TO nested; RELEASE nested");
    throw;
  }
}

template <typename Work>
void SqliteTreeStore::Database::write(const Work& work) {
  if (depth == 0) return transaction(work);
  // SQLite itself undoes all of a transaction when the disk is full or fails; what follows must not stand
  // alone.
  if (!connection.inTransaction())
    throw base::Error(base::errors::kDeviceIo, "The changes to the settings have already been undone.");
  work();
}

SqliteTreeStore::SqliteTreeStore(const std::string& path) : database_(std::make_unique<Database>(path)) {}
SqliteTreeStore::~SqliteTreeStore() = default;

bool SqliteTreeStore::readOnly() const { return database_->connection.readOnly(); }

std::optional<StoredValue> SqliteTreeStore::read(const std::string& path, const std::string& name) {
  platform::checkValueName(name);
  const std::string key = platform::normalizedPath(path);
  database_->freshen();
  SqliteQuery query(database_->readValue);
  query.bind(1, key).bind(2, name);
  if (!query.next()) return std::nullopt;
  return StoredValue{query.text(0), static_cast<ValueType>(query.number(1)), query.text(2)};
}

void SqliteTreeStore::write(const std::string& path, const StoredValue& value) {
  const auto present = read(path, value.name);
  if (present && present->type == value.type && present->text == value.text) return;
  const std::string key = platform::normalizedPath(path);
  database_->write([&] {
    SqliteQuery query(database_->upsertValue);
    const std::int64_t id = database_->ensureKey(key);
    query.bind(1, id).bind(2, value.name).bind(3, static_cast<std::int64_t>(value.type)).bind(4, value.text);
    query.run();
  });
}

std::vector<StoredValue> SqliteTreeStore::values(const std::string& path) {
  std::vector<StoredValue> result;
  database_->freshen();
  const auto key = database_->findKey(platform::normalizedPath(path));
  if (!key) return result;
  SqliteQuery query(database_->listValues);
  query.bind(1, *key);
  while (query.next())
    result.push_back({query.text(0), static_cast<ValueType>(query.number(1)), query.text(2)});
  return result;
}

std::vector<std::string> SqliteTreeStore::keys(const std::string& path) {
  std::vector<std::string> result;
  database_->freshen();
  const auto key = database_->findKey(platform::normalizedPath(path));
  if (!key) return result;
  SqliteQuery query(database_->listKeys);
  query.bind(1, *key);
  while (query.next()) result.emplace_back(platform::leafName(query.text(0)));
  return result;
}

bool SqliteTreeStore::keyExists(const std::string& path) {
  database_->freshen();
  return database_->findKey(platform::normalizedPath(path)).has_value();
}

bool SqliteTreeStore::removeKey(const std::string& path) {
  const std::string key = platform::normalizedPath(path);
  if (!keyExists(key)) return false;
  bool removed = false;
  database_->write([&] {
    const auto id = database_->findKey(key);
    if (!id) return;
    removed = true;
    if (*id == kRoot) {
      SqliteQuery(database_->deleteKeysBelow).bind(1, kRoot).run();
      SqliteQuery(database_->deleteValues).bind(1, kRoot).run();
    } else {
      SqliteQuery(database_->deleteKey).bind(1, *id).run();
    }
  });
  return removed;
}

bool SqliteTreeStore::removeValue(const std::string& path, const std::string& name) {
  if (!read(path, name)) return false;
  const std::string key = platform::normalizedPath(path);
  bool removed = false;
  database_->write([&] {
    const auto id = database_->findKey(key);
    if (!id) return;
    SqliteQuery query(database_->deleteValue);
    removed = query.bind(1, *id).bind(2, name).next();
    while (query.next()) {
    }
  });
  return removed;
}

void SqliteTreeStore::update(const std::function<void()>& work) { database_->transaction(work); }

}  // namespace kolvane::adapters
