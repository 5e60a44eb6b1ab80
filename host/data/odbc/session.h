#pragma once

#include <map>

#include <kt7/engine.h>
#include "host/data/odbc/handle.h"
#include "roles/data/session.h"
#include "roles/data/statement_templates.h"
#include "roles/sql/statement_text.h"

namespace kt7::data {

/// A connection through the driver manager, to any engine. Texts cross as UTF-8 and decimals as
/// exact texts; rows are written back by statements with their values in the text.
class OdbcSession final : public Session {
 public:
  explicit OdbcSession(std::unique_ptr<OdbcHandle> connection);

  const std::string& databaseKind() const { return kind_; }
  Engine engine() const { return engine_; }

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
  bool inTransaction() const override { return begun_; }
  bool usable() override;
  bool lost() const override { return lost_ || used_; }

 private:
  class Statement;

  /// SQLite, whose values have types of their own.
  bool isEmbedded() const { return engine_ == Engine::Sqlite; }

  void applySettings(bool mariadb);
  ColumnKind kindOfColumn(Statement& statement, SQLUSMALLINT number, SQLSMALLINT type,
                          int decimals) const;
  void run(Statement& statement, std::string_view text, const std::string& sql);
  void dropResults(Statement& statement, const std::string& sql);
  void readRows(Statement& statement, Snapshot& rows, const std::string& sql);
  void readCell(Statement& statement, std::size_t column, Snapshot& rows, Cell& cell,
                const std::string& sql);
  void setCell(Snapshot& rows, Cell& cell, std::size_t column, std::string_view text) const;
  const std::string& inlined(const std::string& sql, std::span<const Stored> values);
  void endTransaction(SQLSMALLINT how, const char* shown);
  std::int64_t askWhole(const std::string& sql, std::span<const Stored> values);
  void autocommit(bool on);
  [[noreturn]] void fail(SQLSMALLINT type, SQLHANDLE handle, const std::string& sql);

  std::unique_ptr<OdbcHandle> connection_;
  std::string kind_;
  Engine engine_ = Engine::Other;
  Dialect dialect_;
  bool begun_ = false;
  bool lost_ = false;
  bool writes_ = false;
  bool used_ = false;       // changed by a text: it is not given to the next user
  std::string firstCause_;  // of a transaction that the engine rolled back
  bool refused_ = false;    // to commit it: the caller may still roll it back
  StatementText text_;
  StatementTemplates templates_;
  std::string buffer_;
  std::vector<ColumnKind> kinds_;
  std::vector<int> decimals_;
  std::map<std::string, std::string> primaryKeys_;
};

}  // namespace kt7::data
