#include <kt7/roles/source_host.h>

#include <kt7/error.h>
#include "base/text.h"
#include "roles/data/sessions.h"
#include "roles/sources/source_session.h"

namespace kt7::roles {

namespace {

/// Every session is a source of its own.
class SourceSessions final : public data::Sessions {
 public:
  explicit SourceSessions(OpenSource open) : open_(std::move(open)) {}

  std::shared_ptr<data::Session> take(std::string_view connectionString, std::string_view user,
                                      std::string_view password) override {
    if (!user.empty() || !password.empty()) {
      raiseConnectionFailed("user and password belong into the connection string");
    }
    return std::make_shared<SourceSession>(opened(std::string(connectionString)));
  }

 private:
  std::unique_ptr<DataSource> opened(const std::string& connectionString) const {
    std::unique_ptr<DataSource> source;
    try {
      source = open_(connectionString);
    } catch (const Error&) {
      throw;
    } catch (const std::exception& failure) {
      raiseConnectionFailed(failure.what());
    }
    if (!source) raiseConnectionFailed("the host opened no data source");
    return source;
  }

  OpenSource open_;
};

std::string databaseType(Engine engine, const std::string& connectionString) {
  if (engine == Engine::MySql && lowerCase(connectionString).find("mysql") == std::string::npos) {
    raiseConnectionFailed(
        "the connection string of a MySQL database must contain 'MYSQL', as in "
        "\"Driver=MySQL;...\"");
  }
  return std::string(databaseTypeOf(engine));
}

}  // namespace

SourcePlatform::SourcePlatform(OpenSource open)
    : StandardPlatform(std::make_shared<SourceSessions>(std::move(open))) {}

SourceDataObj::SourceDataObj(const SourcePlatform& platform, const std::string& connectionString,
                             Engine engine)
    : StandardDataObj(platform.sessions(), connectionString,
                      databaseType(engine, connectionString)) {}

}  // namespace kt7::roles
