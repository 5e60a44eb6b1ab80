#pragma once

#include <array>
#include <cstdint>
#include <string>

#include <kt7/contract/data_access.h>
#include <kt7/export.h>

namespace kt7 {

/// What a picker shows: comma-separated lists in column order; the source is a table or view with
/// its WHERE and ORDER BY, to which the picker adds the SELECT.
struct PickerRequest {
  std::string title;
  std::string key;
  std::string columns;
  std::string headers;
  std::string widths;
  std::string kinds;
  std::string source;
  std::array<bool, 4> options{false, false, false, true};
};

/// Single-field lookups and queries, the SQL dialect, and the record pickers of the host.
///
/// A lookup answers the result column of the row whose key column equals the key value; where the
/// table text carries a WHERE and an ORDER BY the key condition joins them and the first row
/// answers. Without a row, or for a null, it answers the default: "", 0, the zero date.
class KT7_API DataTool {
 public:
  virtual ~DataTool() = default;

  virtual std::string LookupText(const std::string& defaultText, std::int16_t reserved1,
                                 std::int16_t reserved2, const std::string& keyColumn,
                                 const std::string& keyValue, const std::string& resultColumn,
                                 const std::string& table, const ado::ActiveConnection& on) = 0;
  virtual double LookupDouble(const std::string& defaultText, std::int16_t reserved1,
                              std::int16_t reserved2, const std::string& keyColumn,
                              const std::string& keyValue, const std::string& resultColumn,
                              const std::string& table, const ado::ActiveConnection& on) = 0;
  virtual double LookupNumber(const std::string& defaultText, std::int16_t reserved1,
                              std::int16_t reserved2, const std::string& keyColumn,
                              const std::string& keyValue, const std::string& resultColumn,
                              const std::string& table, const ado::ActiveConnection& on) = 0;
  virtual std::string LookupFieldText(const std::string& defaultText, std::int16_t reserved1,
                                      std::int16_t reserved2, const std::string& keyColumn,
                                      const std::string& keyValue, const std::string& resultColumn,
                                      const std::string& table,
                                      const ado::ActiveConnection& on) = 0;
  virtual Date LookupDate(const std::string& defaultText, std::int16_t reserved1,
                          std::int16_t reserved2, const std::string& keyColumn,
                          const std::string& keyValue, const std::string& resultColumn,
                          const std::string& table, const ado::ActiveConnection& on) = 0;
  virtual bool RecordExists(const std::string& keyColumn, std::int16_t reserved,
                            const std::string& keyValue, const std::string& table,
                            const ado::ActiveConnection& on, const std::string& resultColumn,
                            const std::string& defaultText, bool flag) = 0;

  /// The named field of the first row of the query; the default without a row or for a null.
  virtual double QueryNumber(const std::string& field, const std::string& sql,
                             const ado::ActiveConnection& on) = 0;
  virtual double QueryDouble(const std::string& field, const std::string& sql,
                             const ado::ActiveConnection& on) = 0;
  virtual double QueryValue(const std::string& field, const std::string& sql,
                            const ado::ActiveConnection& on) = 0;
  virtual std::string QueryText(const std::string& field, const std::string& sql,
                                const ado::ActiveConnection& on) = 0;
  virtual Date QueryDate(const std::string& field, const std::string& sql,
                         const ado::ActiveConnection& on) = 0;

  /// The text for the database in use: "#$...#$" becomes its literal of that date.
  virtual std::string PrepareSql(const std::string& sql, const std::string& databaseType) = 0;

  /// The key values of the chosen rows joined by ","; "" when nothing is chosen.
  virtual std::string ShowPicker(const PickerRequest& request,
                                 const std::string& connectionString) = 0;
  virtual std::string ShowMultiPicker(const PickerRequest& request,
                                      const std::string& connectionString, bool multiSelect) = 0;
};

}  // namespace kt7
