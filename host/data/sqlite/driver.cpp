#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <filesystem>
#include <mutex>

#include <kt7/error.h>
#include "host/data/session/missing_database.h"
#include "host/data/sqlite/session.h"

namespace kt7::data {

namespace {

constexpr int kBusyMilliseconds = 5000;

std::string databaseFile(const ConnectionString& where) {
  const std::string_view file = where.database();
  if (file.empty()) {
    raiseConnectionFailed("the connection string names no file; write Database=company.db");
  }
  if (file == ":memory:") {
    raiseConnectionFailed(
        "a database in memory cannot be shared between connections; name a file, such as "
        "Database=company.db");
  }
  return std::string(file);
}

[[noreturn]] void raiseCannotOpen(sqlite3* database, int code, const std::string& file) {
  const std::string reason = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(code);
  const int native = database != nullptr ? sqlite3_extended_errcode(database) : code;
  // A reader writes too: the files beside the database that keep readers and writers apart.
  constexpr int kKindOfCode = 0xFF;
  const int kind = native & kKindOfCode;
  const bool refused = kind == SQLITE_READONLY || kind == SQLITE_CANTOPEN || kind == SQLITE_PERM;
  raiseConnectionFailed("cannot open the database '" + file + "': " + reason +
                            (refused ? "; its folder must exist, and both must be writable" : ""),
                        {{}, native, {}});
}

/// year(x): the year of a date text, null for a null and for anything that is no date.
void yearOfText(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) != SQLITE_TEXT) return;
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
  const auto length = static_cast<std::size_t>(sqlite3_value_bytes(arguments[0]));
  Date date;
  if (bytes != nullptr && Date::tryFromIsoText({bytes, length}, date)) {
    sqlite3_result_int(context, date.year());
  }
}

/// The engine takes UTF-8 everywhere; a narrow path would be in the code page of the machine.
std::filesystem::path pathOf(const std::string& file) {
  return std::u8string(file.begin(), file.end());
}

/// One name for the file, however it was written.
std::string identityOf(const std::string& file) {
  std::error_code failed;
  const std::u8string whole = std::filesystem::weakly_canonical(pathOf(file), failed).u8string();
  return failed ? file : std::string(whole.begin(), whole.end());
}

/// What the engine takes for the file of that name and nothing else: it may be built to read a name
/// that begins with "file:" as a URI.
std::string plainName(const std::string& file) {
  return file.starts_with("file:") ? "./" + file : file;
}

/// Makes the empty file for its owner alone, whatever the umask; the engine gives the files beside
/// it the same rights. An error is left for the engine to tell.
void makeOwnFile(const std::string& file) {
#ifdef _WIN32
  static_cast<void>(file);
#else
  // Closing a file gives up every lock of this process on it, so only one that is not there yet is
  // opened, and only by one thread.
  static std::mutex making;
  const std::lock_guard lock(making);
  std::error_code failed;
  if (std::filesystem::exists(pathOf(file), failed)) return;
  constexpr mode_t kOwnerAlone = 0600;
  const int made = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kOwnerAlone);
  if (made < 0) return;
  ::fchmod(made, kOwnerAlone);  // a umask may take even the owner's rights
  ::close(made);
#endif
}

SqliteHandle openFile(const std::string& file, int flags) {
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(plainName(file).c_str(), &opened,
                                   flags | SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  SqliteHandle database(opened);
  if (code != SQLITE_OK) raiseCannotOpen(opened, code, file);
  sqlite3_busy_timeout(opened, kBusyMilliseconds);
  for (const char* const pragma : {"PRAGMA journal_mode=WAL", "PRAGMA synchronous=FULL"}) {
    const int answer = sqlite3_exec(opened, pragma, nullptr, nullptr, nullptr);
    if (answer != SQLITE_OK) raiseCannotOpen(opened, answer, file);
  }
  return database;
}

}  // namespace

std::unique_ptr<Session> openSqlite(const ConnectionString& where, std::string_view,
                                    std::string_view) {
  const std::string file = databaseFile(where);
  std::error_code failed;
  if (!std::filesystem::exists(pathOf(file), failed)) {
    throw MissingDatabase("there is no database '" + file + "'", {{}, SQLITE_CANTOPEN, {}},
                          where.shown());
  }
  SqliteHandle database = openFile(file, 0);
  const int code = sqlite3_create_function_v2(database.get(), "year", 1,
                                              SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                                              nullptr, yearOfText, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) raiseCannotOpen(database.get(), code, file);
  return std::make_unique<SqliteSession>(std::move(database), WriteLock::of(identityOf(file)));
}

void createSqlite(const ConnectionString& where) {
  const std::string file = databaseFile(where);
  makeOwnFile(file);
#ifdef _WIN32
  openFile(file, SQLITE_OPEN_CREATE);
#else
  openFile(file, 0);
#endif
}

}  // namespace kt7::data
