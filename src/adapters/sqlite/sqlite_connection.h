// One connection to a SQLite file of ours: opening with care for what is already there, statements, errors.
#pragma once

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kolvane::adapters {

// What tells a file of ours from others, and the tables of a new one.
struct SqliteFormat {
  std::uint32_t applicationId;
  int version;
  const char* schema;
};

// Two equal marks of one connection: nobody has committed anything in between.
using SqliteCommitMark = std::array<std::uint32_t, 24>;

class SqliteConnection {
 public:
  // Opens or creates; see SqliteTreeStore for what is refused and how.
  SqliteConnection(const std::string& path, const SqliteFormat& format);

  sqlite3* handle() const { return handle_.get(); }
  bool readOnly() const;
  bool inTransaction() const { return sqlite3_get_autocommit(handle()) == 0; }

  // Costs no system call, unlike asking SQLite. Nothing outside write-ahead mode.
  std::optional<SqliteCommitMark> commitMark() const;

  void execute(const char* sql) const;
  // For work that must not fail, such as undoing.
  void executeQuietly(const char* sql) const noexcept;

  // Raises the error that a result code of SQLite stands for.
  [[noreturn]] void fail(int code) const;

 private:
  struct Close {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
  };
  using Handle = std::unique_ptr<sqlite3, Close>;

  int openHandle(const std::string& name, int flags);
  void open(const SqliteFormat& format, bool exists);
  void inspect(const SqliteFormat& format);
  void createSchema(const SqliteFormat& format) const;
  int readVersion(int& version) const;
  void requireWhole() const;
  void startWriteAhead();
  [[noreturn]] void refuse(long number, std::string_view reason) const;
  [[noreturn]] void damaged(std::string_view reason) const;
  std::string sentence(std::string_view reason) const;

  std::string path_;
  Handle handle_;
  bool writeAhead_ = false;
};

// A prepared statement, kept for the life of the connection.
class SqliteStatement {
 public:
  SqliteStatement(const SqliteConnection& connection, const char* sql);

 private:
  friend class SqliteQuery;
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  const SqliteConnection& connection_;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

// One run of a statement; gives it back at the end of the scope. Bound texts must live as long.
class SqliteQuery {
 public:
  explicit SqliteQuery(SqliteStatement& statement)
      : connection_(statement.connection_), statement_(statement.statement_.get()) {}
  SqliteQuery(const SqliteQuery&) = delete;
  SqliteQuery& operator=(const SqliteQuery&) = delete;
  ~SqliteQuery() { sqlite3_reset(statement_); }

  SqliteQuery& bind(int position, std::string_view text);
  SqliteQuery& bind(int position, std::int64_t number);
  // True while there is a row.
  bool next();
  void run() {
    while (next()) {
    }
  }

  std::string text(int column) const;
  std::int64_t number(int column) const { return sqlite3_column_int64(statement_, column); }

 private:
  void check(int code) const;

  const SqliteConnection& connection_;
  sqlite3_stmt* statement_;
};

}  // namespace kolvane::adapters
