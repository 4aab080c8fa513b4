#include "adapters/sqlite/sqlite_connection.h"

#include <array>
#include <filesystem>
#include <system_error>

#include "base/error.h"
#include "platform/tree_store.h"

namespace kolvane::adapters {
namespace {

namespace fs = std::filesystem;
namespace errors = base::errors;

constexpr int kBusyMilliseconds = 10'000;
constexpr std::string_view kMemory = ":memory:";
constexpr std::string_view kMagic{"SQLite format 3\0", 16};

// A file name as SQLite takes it to open a file that nobody changes: without locks and without files beside
// it.
std::string immutableName(std::string_view path) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string result = "file:";
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '%' || c == '?' || c == '#' || byte < 0x20 || byte >= 0x7F) {
      result.push_back('%');
      result.push_back(kHex[byte >> 4]);
      result.push_back(kHex[byte & 15]);
    } else {
      result.push_back(c);
    }
  }
  return result + "?immutable=1";
}

// The fields of a file's first page that say whose it is.
struct Header {
  bool empty = false;
  bool isSqlite = false;
  std::uint32_t applicationId = 0;
};

std::uint32_t bigEndian(std::string_view bytes) {
  std::uint32_t value = 0;
  for (const char c : bytes) value = (value << 8) | static_cast<unsigned char>(c);
  return value;
}

// Read through SQLite's own file object: a second file descriptor of ours, once closed, would take away the
// locks that this process may hold on the same file.
Header readHeader(sqlite3* handle) {
  sqlite3_file* file = nullptr;
  Header header;
  sqlite3_int64 size = 0;
  sqlite3_file_control(handle, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  if (!file || !file->pMethods || file->pMethods->xFileSize(file, &size) != SQLITE_OK) return header;
  header.empty = size == 0;
  std::array<char, 100> page{};
  if (size < static_cast<sqlite3_int64>(page.size()) ||
      file->pMethods->xRead(file, page.data(), static_cast<int>(page.size()), 0) != SQLITE_OK)
    return header;
  const std::string_view bytes(page.data(), page.size());
  header.isSqlite = bytes.starts_with(kMagic);
  header.applicationId = bigEndian(bytes.substr(68, 4));
  return header;
}

struct Meaning {
  long number;
  std::string_view text;  // SQLite's own where empty
};

// SQLite does not say it well: where it may not make the file, it tries to read it and finds none.
Meaning whyNotOpened(const std::string& path) {
  std::error_code ignored;
  const fs::path folder = fs::absolute(path, ignored).parent_path();
  if (path.empty() || !fs::is_directory(folder, ignored))
    return {errors::kPathNotFound, "its folder does not exist"};
  return {errors::kPermissionDenied, "it cannot be opened for want of permission"};
}

Meaning meaningOf(int code, const std::string& path) {
  switch (code & 0xFF) {
    case SQLITE_READONLY:
      return {errors::kPermissionDenied, "it, or its folder, cannot be written to"};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {errors::kPermissionDenied, "another program is writing to it"};
    case SQLITE_FULL:
      return {errors::kDiskFull, "the disk is full"};
    case SQLITE_IOERR:
      return {errors::kDeviceIo, {}};
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return {errors::kPermissionDenied, {}};
    case SQLITE_CANTOPEN:
      return whyNotOpened(path);
    case SQLITE_TOOBIG:
      return {errors::kInvalidCall, "the text is too long"};
    default:
      return {errors::kInternal, {}};
  }
}

// Whether a process has, or had when it was killed, the file open for writing.
bool someoneWrites(const std::string& path) {
  std::error_code ignored;
  return fs::exists(path + "-wal", ignored) && fs::exists(path + "-shm", ignored);
}

}  // namespace

SqliteConnection::SqliteConnection(const std::string& path, const SqliteFormat& format) : path_(path) {
  if (path == kMemory) {
    if (const int code = openHandle(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE); code != SQLITE_OK)
      fail(code);
    execute("PRAGMA foreign_keys = ON");
    createSchema(format);
    return;
  }
  if (path.empty()) fail(SQLITE_CANTOPEN);
  std::error_code ignored;
  const fs::file_status status = fs::status(path, ignored);
  if (fs::exists(status) && !fs::is_regular_file(status))
    refuse(errors::kPathAccess, "it is no regular file");
  open(format, fs::exists(status));
}

std::optional<SqliteCommitMark> SqliteConnection::commitMark() const {
  // The head of the index that all processes share holds, twice, the number and the checksum of the last
  // commit.
  constexpr int kIndexPage = 32768;
  constexpr std::uint32_t kIndexFormat = 3007000;
  if (!writeAhead_) return std::nullopt;
  sqlite3_file* file = nullptr;
  sqlite3_file_control(handle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
  volatile void* page = nullptr;
  if (!file || !file->pMethods || file->pMethods->iVersion < 2 ||
      file->pMethods->xShmMap(file, 0, kIndexPage, 0, &page) != SQLITE_OK || !page)
    return std::nullopt;
  SqliteCommitMark mark{};
  const auto* words = static_cast<volatile const std::uint32_t*>(page);
  for (std::size_t i = 0; i < mark.size(); ++i) mark[i] = words[i];
  if (mark[0] != kIndexFormat) return std::nullopt;
  return mark;
}

bool SqliteConnection::readOnly() const { return sqlite3_db_readonly(handle(), "main") != 0; }

int SqliteConnection::openHandle(const std::string& name, int flags) {
  sqlite3* raw = nullptr;
  const int code = sqlite3_open_v2(name.c_str(), &raw, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  handle_.reset(raw);
  if (raw) {
    sqlite3_extended_result_codes(raw, 1);
    sqlite3_busy_timeout(raw, kBusyMilliseconds);
  }
  return code;
}

void SqliteConnection::open(const SqliteFormat& format, bool exists) {
  if (exists) inspect(format);
  int code = openHandle(path_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  if (code != SQLITE_OK) fail(code);
  std::error_code ignored;
  if (!exists) fs::permissions(path_, fs::perms::owner_read | fs::perms::owner_write, ignored);

  int version = 0;
  code = readOnly() && !someoneWrites(path_) ? SQLITE_READONLY : readVersion(version);
  if (exists && ((code & 0xFF) == SQLITE_CANTOPEN || (code & 0xFF) == SQLITE_READONLY)) {
    // Write-ahead mode needs files beside it. Where we cannot make them, or would make them without the
    // permissions that a writer needs, the file is read as it stands.
    code = openHandle(immutableName(path_), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
    if (code == SQLITE_OK) code = readVersion(version);
  }
  if (code != SQLITE_OK) fail(code);
  if (version == 0) {
    // New, or its maker was killed. The tables come before write-ahead mode, so that the first page, once
    // there, says whose it is.
    createSchema(format);
    version = format.version;
  }
  if (version > format.version)
    refuse(errors::kInvalidFormat, "a newer version of the program has written it (format " +
                                       std::to_string(version) + ", this program knows " +
                                       std::to_string(format.version) + ")");
  requireWhole();
  execute("PRAGMA foreign_keys = ON");
  if (readOnly()) return;
  execute("PRAGMA synchronous = NORMAL");
  startWriteAhead();
}

// Damage in a place that is not read yet is found now, so that nobody works with half of what was there.
void SqliteConnection::requireWhole() const {
  sqlite3_stmt* statement = nullptr;
  int code = sqlite3_prepare_v2(handle(), "PRAGMA integrity_check(1)", -1, &statement, nullptr);
  if (code == SQLITE_OK) code = sqlite3_step(statement);
  const bool whole = code == SQLITE_ROW && std::string_view("ok") == reinterpret_cast<const char*>(
                                                                         sqlite3_column_text(statement, 0));
  sqlite3_finalize(statement);
  if (code == SQLITE_ROW && !whole) damaged("it is damaged");
  if (code != SQLITE_ROW) fail(code);
}

// Fails while another process has just made the file; it works without, and the next one tries again.
void SqliteConnection::startWriteAhead() {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(handle(), "PRAGMA journal_mode = WAL", -1, &statement, nullptr) == SQLITE_OK &&
      sqlite3_step(statement) == SQLITE_ROW)
    writeAhead_ = std::string_view("wal") == reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
  sqlite3_finalize(statement);
}

// A look at the first page, which leaves no trace, before SQLite may do anything to the file.
void SqliteConnection::inspect(const SqliteFormat& format) {
  if (const int code = openHandle(immutableName(path_), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
      code != SQLITE_OK)
    fail(code);
  const Header header = readHeader(handle());
  if (header.empty) return;
  if (!header.isSqlite) damaged("it is no SQLite file");
  if (header.applicationId != format.applicationId)
    refuse(errors::kInvalidFormat, "it belongs to another program");
}

void SqliteConnection::createSchema(const SqliteFormat& format) const {
  execute("BEGIN IMMEDIATE");
  try {
    // Another process may have been faster.
    int version = 0;
    if (const int code = readVersion(version); code != SQLITE_OK) fail(code);
    if (version == 0) {
      execute(format.schema);
      execute(("PRAGMA application_id = " + std::to_string(format.applicationId)).c_str());
      execute(("PRAGMA user_version = " + std::to_string(format.version)).c_str());
    }
    execute("COMMIT");
  } catch (...) {
    executeQuietly("ROLLBACK");
    throw;
  }
}

int SqliteConnection::readVersion(int& version) const {
  sqlite3_stmt* statement = nullptr;
  int code = sqlite3_prepare_v2(handle(), "PRAGMA user_version", -1, &statement, nullptr);
  if (code == SQLITE_OK) code = sqlite3_step(statement);
  if (code == SQLITE_ROW) version = sqlite3_column_int(statement, 0);
  sqlite3_finalize(statement);
  return code == SQLITE_ROW ? SQLITE_OK : code;
}

void SqliteConnection::execute(const char* sql) const {
  if (const int code = sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr); code != SQLITE_OK) fail(code);
}

void SqliteConnection::executeQuietly(const char* sql) const noexcept {
  sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr);
}

void SqliteConnection::fail(int code) const {
  switch (code & 0xFF) {
    case SQLITE_NOTADB:
      damaged("it is no SQLite file, or it is damaged");
    case SQLITE_CORRUPT:
    case SQLITE_ERROR:  // our statements are right, so the tables are not
      damaged("it is damaged");
    default:
      break;
  }
  const Meaning meaning = meaningOf(code, path_);
  if (!meaning.text.empty()) refuse(meaning.number, meaning.text);
  refuse(meaning.number, handle() ? sqlite3_errmsg(handle()) : sqlite3_errstr(code));
}

void SqliteConnection::refuse(long number, std::string_view reason) const {
  throw base::Error(number, sentence(reason));
}

void SqliteConnection::damaged(std::string_view reason) const {
  throw platform::StoreDamaged(sentence(reason));
}

std::string SqliteConnection::sentence(std::string_view reason) const {
  return "Settings file \"" + path_ + "\": " + std::string(reason) + ".";
}

SqliteStatement::SqliteStatement(const SqliteConnection& connection, const char* sql)
    : connection_(connection) {
  sqlite3_stmt* raw = nullptr;
  const int code = sqlite3_prepare_v3(connection.handle(), sql, -1, SQLITE_PREPARE_PERSISTENT, &raw, nullptr);
  statement_.reset(raw);
  if (code != SQLITE_OK) connection.fail(code);
}

SqliteQuery& SqliteQuery::bind(int position, std::string_view text) {
  // A null pointer would bind NULL.
  const char* data = text.data() ? text.data() : "";
  check(sqlite3_bind_text64(statement_, position, data, text.size(), SQLITE_STATIC, SQLITE_UTF8));
  return *this;
}

SqliteQuery& SqliteQuery::bind(int position, std::int64_t number) {
  check(sqlite3_bind_int64(statement_, position, number));
  return *this;
}

bool SqliteQuery::next() {
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) connection_.fail(code);
  return false;
}

std::string SqliteQuery::text(int column) const {
  const auto* data = static_cast<const char*>(sqlite3_column_blob(statement_, column));
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
  return data ? std::string(data, size) : std::string();
}

void SqliteQuery::check(int code) const {
  if (code != SQLITE_OK) connection_.fail(code);
}

}  // namespace kolvane::adapters
