#pragma once

#include <postgresql/libpq-fe.h>

#include <map>

#include "roles/data/session.h"
#include "roles/sql/lru_cache.h"
#include "roles/sql/statement_text.h"

namespace kt7::data {

struct ClosePostgresql {
  void operator()(PGconn* connection) const { PQfinish(connection); }
  void operator()(PGresult* result) const { PQclear(result); }
};
using PostgresqlHandle = std::unique_ptr<PGconn, ClosePostgresql>;
using PostgresqlResult = std::unique_ptr<PGresult, ClosePostgresql>;

/// "" where the result carries none.
std::string_view sqlStateOf(const PGresult* result);

/// A connection to one server. Quoted values are lifted out of the texts and bound, and the last
/// statements are kept prepared by what is left.
class PostgresqlSession final : public Session {
 public:
  explicit PostgresqlSession(PostgresqlHandle connection);

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
  bool usable() override;
  bool lost() const override { return lost_; }

 private:
  struct Shape {
    std::shared_ptr<const ResultShape> columns;
    std::vector<int> decimals;  // of a decimal column; -1 for any other
  };
  /// A text is prepared when it comes for the second time.
  struct Kept {
    std::shared_ptr<const std::string> name;
    bool refused = false;  // with its values lifted: it goes as it is
  };

  struct Fixed {
    std::string text;
    std::size_t parameters = 0;
  };

  /// Runs a text with its values inlined; one that answers no rows is refused where they are
  /// wanted.
  PostgresqlResult run(const std::string& sql, bool wantsRows);
  /// Runs a fixed text with its "?" bound.
  PostgresqlResult runFixed(const std::string& sql, std::span<const Stored> values);
  PostgresqlResult runKept(const std::string& text, std::span<const char* const> values,
                           const std::string& unlifted,
                           std::span<const char* const> unliftedValues);
  Kept* preparedFor(const std::string& text);
  void forgetPrepared();
  void noteStart(bool writes);
  PostgresqlResult send(const std::string& text, std::span<const char* const> values);
  bool prepare(const std::string& text, Kept& kept);
  void closeDropped();
  PostgresqlResult checked(PostgresqlResult result, const std::string& sql);
  [[noreturn]] void fail(const PGresult* result, const std::string& sql);
  const Shape& shapeOf(const PGresult& result);
  void readRows(const PGresult& result, Snapshot& rows, const std::string& sql);
  void requireConnection(const char* statement) const;
  PostgresqlResult control(const std::string& statement);

  PostgresqlHandle connection_;
  bool lost_ = false;
  bool begun_ = false;
  bool unknownIfLost_ = false;
  std::string firstCause_;  // of the transaction that failed
  bool refused_ = false;    // to commit it: the caller may still roll it back
  StatementText text_;
  std::vector<std::string> dropped_;  // names of statements to close
  LruCache<Kept> statements_;
  LruCache<Fixed> fixed_;
  LruCache<Shape> shapes_;
  std::string shapeKey_;
  std::uint64_t made_ = 0;
  std::map<std::string, std::string> primaryKeys_;
};

}  // namespace kt7::data
