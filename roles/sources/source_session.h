#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>

#include <kt7/roles/data_source.h>
#include "roles/data/session.h"
#include "roles/data/statement_templates.h"
#include "roles/sql/statement_text.h"

namespace kt7::roles {

/// A session on a host's data source: one statement a call, in the engine's words, values as
/// literals.
class SourceSession final : public data::Session {
 public:
  explicit SourceSession(std::unique_ptr<DataSource> source);
  /// Gives up a transaction that is still open.
  ~SourceSession() override;
  SourceSession(const SourceSession&) = delete;
  SourceSession& operator=(const SourceSession&) = delete;

  void execute(const std::string& sql) override;
  void query(const std::string& sql, data::Snapshot& rows) override;
  Value askOne(const std::string& sql, std::span<const std::string> parameters) override;
  data::Stored stored(const Value& value, data::ColumnKind kind) const override;
  std::int64_t change(const std::string& sql, std::span<const data::Stored> values) override;
  std::int64_t insert(const std::string& sql, std::span<const data::Stored> values,
                      const std::string& key) override;
  std::string primaryKey(const std::string& table) override;

  void begin() override;
  void commit() override;
  void rollback() override;
  bool inTransaction() const override { return begun_; }

  bool usable() override { return !lost_; }
  bool lost() const override { return lost_; }

 private:
  void noteFailure(const char* text);
  template <class Call>
  auto guarded(const std::string& sql, Call call);
  std::string inItsWords(const std::string& sql);
  void requireTransaction(const char* statement) const;
  bool ask(const std::string& sql, data::Snapshot& rows);
  std::int64_t madeKey(const std::string& sql);

  std::unique_ptr<DataSource> source_;
  Engine engine_;
  data::StatementText text_;
  data::StatementTemplates templates_;
  std::map<std::string, std::string> primaryKeys_;
  bool begun_ = false;
  bool lost_ = false;
  std::string firstCause_;  // by which PostgreSQL gave the open transaction up
  bool refused_ = false;    // the last commit, which rolled back
};

}  // namespace kt7::roles
