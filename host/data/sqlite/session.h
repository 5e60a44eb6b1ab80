#pragma once

#include <sqlite3.h>

#include <map>

#include "host/data/session/connection_string.h"
#include "host/data/sqlite/statement.h"
#include "host/data/sqlite/write_lock.h"
#include "roles/data/session.h"
#include "roles/sql/lru_cache.h"
#include "roles/sql/statement_text.h"

namespace kt7::data {

struct CloseSqlite {
  void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
using SqliteHandle = std::unique_ptr<sqlite3, CloseSqlite>;

/// A connection to one SQLite file.
class SqliteSession final : public Session {
 public:
  SqliteSession(SqliteHandle database, std::shared_ptr<WriteLock> lock);
  ~SqliteSession() override;

  void execute(const std::string& sql) override;
  void query(const std::string& sql, Snapshot& rows) override;
  Value askOne(const std::string& sql, std::span<const std::string> parameters) override;
  Stored stored(const Value& value, ColumnKind kind) const override;
  std::int64_t change(const std::string& sql, std::span<const Stored> values) override;
  std::int64_t insert(const std::string& sql, std::span<const Stored> values,
                      const std::string& key) override;
  std::string primaryKey(const std::string& table) override;
  void begin() override;
  void commit() override;
  void rollback() override;
  bool inTransaction() const override { return !firstCause_.empty() || !commitsByItself(); }
  /// Short: a company's file may be replaced under a running host.
  std::chrono::seconds trustedIdleness() const override { return std::chrono::seconds(1); }
  bool usable() override;
  bool lost() const override { return moved_; }

 private:
  using Shared = std::shared_ptr<SqliteStatement>;
  struct Asked {
    Shared statement;
    std::vector<std::string> literals;
  };

  class Watched;

  /// The statement for a text with its values inlined, ready to run.
  SqliteStatement& prepared(const std::string& sql);
  Shared lifted(const std::string& sql);
  /// The statement for a text that is the same every time, nothing bound.
  SqliteStatement& fixed(const std::string& sql);
  bool commitsByItself() const { return sqlite3_get_autocommit(database_.get()) != 0; }
  void run(SqliteStatement& statement, const std::string& sql);
  /// What `work` answers, refused once SQLite has rolled the transaction back.
  template <class Work>
  auto standing(const std::string& sql, Work work);
  void noteTransaction();
  void requireInPlace(const std::string& sql);
  void leaveMovedFile() noexcept;
  void control(const char* statement);

  SqliteHandle database_;
  std::shared_ptr<WriteLock> lock_;
  bool holdsLock_ = false;
  bool moved_ = false;  // the file is no longer where it was opened
  bool begun_ = false;
  std::string firstCause_;  // of a transaction that SQLite rolled back
  bool refused_ = false;    // to commit it: the caller may still roll it back
  StatementText text_;
  LruCache<Shared> statements_;
  LruCache<Asked> asked_;
  LruCache<Shared> fixed_;
  std::map<std::string, std::string> primaryKeys_;
};

std::unique_ptr<Session> openSqlite(const ConnectionString& where, std::string_view user,
                                    std::string_view password);
/// Makes the file; one that exists is left as it is.
void createSqlite(const ConnectionString& where);

}  // namespace kt7::data
