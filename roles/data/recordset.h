#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <kt7/contract/data_access.h>
#include "roles/data/sessions.h"
#include "roles/data/snapshot.h"

namespace kt7::data {

/// The contract's recordset: a snapshot, and where it was opened optimistic a row buffer that
/// Update writes back.
class Recordset final : public ado::Recordset {
 public:
  explicit Recordset(Sessions& sessions) : sessions_(sessions), fields_(*this) {}

  void Open(const std::string& source, const ado::ActiveConnection& activeConnection,
            int cursorType, int lockType, int options) override;
  bool Eof() const override;
  void MoveNext() override;
  ado::Fields& Fields() override;
  void AddNew() override;
  void Update() override;
  void Close() override;

 private:
  class RowField final : public ado::Field {
   public:
    RowField(Recordset& rows, std::size_t column) : rows_(rows), column_(column) {}
    kt7::Value Value() const override { return rows_.read(column_); }
    void Value(const kt7::Value& value) override { rows_.assign(column_, value); }

   private:
    Recordset& rows_;
    std::size_t column_;
  };

  class RowFields final : public ado::Fields {
   public:
    explicit RowFields(Recordset& rows) : rows_(rows) {}
    ado::Field& Item(std::string_view name) override;

   private:
    friend class Recordset;
    Recordset& rows_;
    std::vector<RowField> fields_;
  };

  void openOn(const std::shared_ptr<Session>& session, const std::string& source);
  void release();
  void requireOpen() const;
  void requireColumn(std::size_t column) const;
  void requireWritable() const;
  void requireRow() const;
  kt7::Value read(std::size_t column);
  void assign(std::size_t column, const kt7::Value& value);
  void discard();
  std::shared_ptr<Session> session() const;
  const std::string& table();
  int keyColumn();
  const std::string& insertText(std::span<const std::size_t> columns);
  void insertRow(Session& session, std::span<const std::size_t> columns,
                 std::span<const Stored> values);
  void updateRow(Session& session, std::span<const std::size_t> columns,
                 std::vector<Stored> values);
  const std::string& columnName(std::size_t column) const { return (*rows_.shape())[column].name; }

  Sessions& sessions_;
  Snapshot rows_;
  RowFields fields_;
  std::size_t position_ = 0;
  bool adding_ = false;
  struct Assigned {
    std::size_t column;
    kt7::Value value;
  };
  std::vector<Assigned>::iterator placeOf(std::size_t column);
  std::vector<Assigned> assigned_;  // the fields of the row that were, by column

  // Only where the recordset was opened optimistic.
  bool writable_ = false;
  std::string source_;
  std::string table_;
  std::optional<int> keyColumn_;
  // The last one, for the next row with the same fields.
  std::string insertText_;
  std::vector<std::size_t> insertColumns_;
  std::weak_ptr<Session> session_;
  std::shared_ptr<Session> ownSession_;
};

}  // namespace kt7::data
