#pragma once

#include <mariadb/mysql.h>

#include <map>
#include <vector>

#include "roles/data/session.h"
#include "roles/data/statement_templates.h"
#include "roles/sql/statement_text.h"

namespace kt7::data {

struct CloseMysql {
  void operator()(MYSQL* connection) const { mysql_close(connection); }
};
using MysqlHandle = std::unique_ptr<MYSQL, CloseMysql>;

/// A connection to one server. Statements keep their values in their text: preparing them gains
/// nothing here.
class MysqlSession final : public Session {
 public:
  /// `syncWait`: what of its reads wait for the other nodes of a cluster, as the server takes it.
  explicit MysqlSession(MysqlHandle connection, int syncWait = 0);

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
  bool inTransaction() const override;
  void catchUp() override;
  bool usable() override;
  bool lost() const override;

 private:
  struct Shape {
    std::size_t digest = 0;
    std::shared_ptr<const ResultShape> columns;
    std::vector<enum_field_types> types;
    std::vector<unsigned> decimals;
    /// Whether a result with those fields has it.
    bool fits(std::span<const MYSQL_FIELD> fields) const;
    bool isDecimal(std::size_t column) const;
  };

  unsigned serverStatus() const;
  void noteAborted(const std::string& cause);
  void refuseToCommitFirst(const std::string& sql) const;
  void requireStillOpen(const std::string& sql) const;
  bool nextResult(const std::string& sql);
  void dropResults(const std::string& sql);
  void send(std::string_view text, const std::string& sql);
  /// Sends the text; `sql` is what errors show. Refused once the server rolled the transaction
  /// back.
  void run(std::string_view text, const std::string& sql);
  [[noreturn]] void fail(const std::string& sql);
  /// The rows of the statement that ran; further results are read and dropped.
  void readRows(const std::string& sql, Snapshot& rows);
  void readFirst(const std::string& sql, Snapshot& rows);
  void readRow(MYSQL_RES& result, MYSQL_ROW row, const Shape& shape, Snapshot& rows) const;
  const Shape& shapeOf(MYSQL_RES& result);
  void control(const std::string& statement);

  MysqlHandle connection_;
  int syncWait_;
  bool begun_ = false;
  bool lost_ = false;
  bool writes_ = false;
  bool wasOpen_ = false;    // a transaction at the server, before the statement was sent
  std::string firstCause_;  // of a transaction that the server rolled back
  bool refused_ = false;    // to commit it: the caller may still roll it back
  StatementText text_;
  StatementTemplates templates_;
  std::vector<std::unique_ptr<const Shape>> shapes_;  // of results that were read, often used first
  std::map<std::string, std::string> primaryKeys_;
};

}  // namespace kt7::data
