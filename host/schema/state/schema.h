#pragma once

#include <string>
#include <vector>

#include <kt7/contract/data_access.h>
#include <kt7/error.h>
#include <kt7/export.h>
#include "host/schema/engine/ddl.h"
#include "host/schema/state/versions.h"

namespace kt7::schema {

/// What a database holds of this system.
struct SchemaState {
  enum class Kind {
    Absent,         // none of our tables and views
    Current,        // all of them, of this version
    Older,          // all that its version had; upgradeSchema adds the rest
    Newer,          // made by a later release
    Partial,        // something that its version had is missing
    UnfinishedCopy  // a copy was begun and never ended
  };
  Kind kind = Kind::Absent;
  int version = 0;
  std::vector<std::string> missing;  // tables, views, columns ("KT7TUser.TUsrName") and indexes
};

SchemaState schemaState(ado::Connection& connection, Engine engine);

/// A database error: the database does not hold a company of this version.
class KT7_API UnfitDatabase : public Error {
 public:
  explicit UnfitDatabase(SchemaState state);

  const SchemaState& state() const { return state_; }
  /// What stands there, without what to do about it.
  const std::string& finding() const { return finding_; }

 private:
  SchemaState state_;
  std::string finding_;
};

/// UnfitDatabase unless the database holds a company of this version.
void requireCurrentSchema(ado::Connection& connection, Engine engine);

/// Whose databases requireCompany accepts.
enum class SchemaOwner { Own, Any };

/// The same by a single question where the version is right, for whoever opens a company to work on
/// it. SchemaOwner::Any lets through what has no KT7TSchema: another program keeps it, or nothing
/// is there.
void requireCompany(ado::Connection& connection, SchemaOwner owner = SchemaOwner::Own);

/// True where the database already holds a table or view of this system, whole schema or not.
bool hasSchema(ado::Connection& connection, Engine engine);

/// The version kept in KT7TSchema; 0 where none is, a database error where there is no such table.
int schemaVersion(ado::Connection& connection);
/// Writes the version there; kCopyMark while a copy is under way.
void writeSchemaVersion(ado::Connection& connection, int version);
inline constexpr int kCopyMark = -1;

enum class Content { Empty, Sample };

/// Where making the tables was broken off on an engine that keeps every step at once: takes away
/// what there is, and answers true. Tables that hold a row stay, and so do those that were made
/// elsewhere.
bool removeUnfinished(ado::Connection& connection, Engine engine);

/// Makes every table, index and view, and the sample company where it is wanted: all or nothing.
/// A database error where the database already holds tables of this system, or keeps texts in a
/// way that does not compare them byte for byte.
void createSchema(ado::Connection& connection, Engine engine, Content content = Content::Empty);

/// Makes the tables, indexes and views that are not there yet, and leaves the version alone.
void completeSchema(ado::Connection& connection, Engine engine);

/// Fills the sample company into freshly made tables, in one transaction.
void loadSample(ado::Connection& connection);
/// The same inside the caller's transaction.
void loadSampleTR(ado::Connection& connection);

}  // namespace kt7::schema
