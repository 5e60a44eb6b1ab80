#include "host/data/odbc/driver.h"

#include <map>
#include <mutex>
#include <set>

#include <kt7/error.h>
#include <kt7/host/drivers.h>
#include "base/text.h"
#include "host/data/odbc/session.h"
#include "host/data/session/driver.h"
#include "host/data/session/pool.h"

namespace kt7::data {

namespace {

std::unique_ptr<OdbcSession> openSessionOn(const std::string& text) {
  return std::make_unique<OdbcSession>(std::make_unique<OdbcHandle>(text));
}

std::string braced(std::string_view value) {
  return "{" + replaceAll(std::string(value), "}", "}}") + "}";
}

/// Without this option the driver counts only rows that an UPDATE changed, not those it found.
constexpr std::string_view kFoundRows = ";OPTION=2";

/// The connection strings that are known to need it.
class NeedFoundRows {
 public:
  bool has(const std::string& text) {
    const std::lock_guard lock(mutex_);
    return texts_.contains(text);
  }
  void add(const std::string& text) {
    const std::lock_guard lock(mutex_);
    texts_.insert(text);
  }

 private:
  std::mutex mutex_;
  std::set<std::string> texts_;
};

}  // namespace

std::unique_ptr<Session> openOdbc(const ConnectionString& where, std::string_view user,
                                  std::string_view password) {
  static NeedFoundRows needFoundRows;
  std::string text = where.textWithout("Driver", "ODBC");
  if (!user.empty()) text.append(";UID=").append(braced(user));
  if (!password.empty()) text.append(";PWD=").append(braced(password));
  const std::string counting = text + std::string(kFoundRows);
  if (needFoundRows.has(text)) return openSessionOn(counting);
  std::unique_ptr<OdbcSession> session = openSessionOn(text);
  if (session->engine() != Engine::MySql || !where.value("OPTION").empty()) return session;
  needFoundRows.add(text);
  return openSessionOn(counting);
}

std::string odbcDatabaseType(const std::string& connectionString) {
  static std::mutex mutex;
  static std::map<std::string, std::string> known;
  {
    const std::lock_guard lock(mutex);
    if (const auto at = known.find(connectionString); at != known.end()) return at->second;
  }
  const Lease lease = takeSession(connectionString);
  const auto* const session = dynamic_cast<const OdbcSession*>(&lease.session());
  if (session == nullptr) raiseConnectionFailed("the connection is not one by ODBC");
  const std::lock_guard lock(mutex);
  return known[connectionString] = session->databaseKind();
}

}  // namespace kt7::data

void kt7::host::useOdbc() {
  static constexpr data::Driver kDriver{.open = data::openOdbc, .askKind = data::odbcDatabaseType};
  data::addDriver("ODBC", kDriver);
}
