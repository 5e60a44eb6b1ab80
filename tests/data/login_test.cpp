// What a password is given to, and what not.
#include <cstdlib>

#include "fake_server.h"
#include "host/data/session/loopback.h"
#include "test_database.h"

namespace kt7::data::test {

namespace {

using Peer = FakeServer::Peer;
using namespace std::string_literals;

constexpr const char* kSecret = "s3cret-word";
/// An address that only means this machine and is no loopback address: it may be anywhere.
constexpr const char* kAnywhere = "0.0.0.0";

struct Attempt {
  std::string refusal;  // "" where it opened
  std::string heard;    // by the fake server
};

Attempt attempt(const std::string& driver, const char* host, const std::string& options,
                const std::function<void(const Peer&)>& script) {
  Attempt made;
  {
    FakeServer server(script);
    try {
      createConnection()->Open("Driver=" + driver + ";Server=" + host + ";Port=" + server.port() +
                               ";Database=kt7;Uid=kt7;Pwd=" + kSecret + ";" + options);
    } catch (const Error& error) {
      made.refusal = error.what();
    }
    made.heard = server.heard();
  }
  return made;
}

bool builtIn(const char* driver) { return builtInDrivers().find(driver) != std::string::npos; }

std::string mysqlPacket(int number, const std::string& body) {
  return std::string{static_cast<char>(body.size()), '\0', '\0', static_cast<char>(number)} + body;
}

/// Offers no TLS, and after the login asks again by that plugin.
void askByMysqlPlugin(const Peer& peer, const std::string& first, const std::string& plugin) {
  const std::string scramble(20, 'x');
  peer.say(mysqlPacket(0,
                       "\x0a"
                       "5.5.5-10.11.6-MariaDB\0"s +
                           "\1\0\0\0"s + scramble.substr(0, 8) + "\0"s +
                           "\x08\xa2\x21\2\0\x08\x00\x15"s + std::string(10, '\0') +
                           scramble.substr(8) + "\0"s + first + "\0"s));
  if (peer.hear().empty()) return;
  if (first != plugin) {
    peer.say(mysqlPacket(
        2, "\xfe" + plugin + "\0"s + (plugin == "dialog" ? "\4Password: "s : scramble + "\0"s)));
    if (peer.hear().empty()) return;
  }
  peer.say(mysqlPacket(4, "\xff\x15\x04#28000no"));
}

TEST(LoginTest, MysqlGivesNoServerThatMayBeAnywhereAPasswordToRead) {
  if (!builtIn("MySQL")) GTEST_SKIP() << "not built in";
  const char* const plugins[] = {"mysql_clear_password", "dialog", "sha256_password",
                                 "caching_sha2_password", "mysql_old_password"};
  for (const char* plugin : plugins) {
    for (const char* first : {"mysql_native_password", plugin}) {
      const auto script = [&](const Peer& peer) { askByMysqlPlugin(peer, first, plugin); };
      for (const char* options : {"", "SslMode=disable", "sslmode=DISABLE"}) {
        const Attempt made = attempt("MySQL", kAnywhere, options, script);
        EXPECT_NE(made.refusal.find("SslMode=verify-full"), std::string::npos) << made.refusal;
        EXPECT_EQ(made.heard.find(kSecret), std::string::npos) << plugin << " " << options;
      }
      for (const char* options : {"SslMode=require", "SslMode=verify", "SslMode=verify-full",
                                  "SslCert=/none.pem", "sslmode=Require;SslKey=/none.pem"}) {
        const Attempt made = attempt("MySQL", kAnywhere, options, script);
        EXPECT_NE(made.refusal.find("SSL is required"), std::string::npos) << made.refusal;
        EXPECT_EQ(made.heard, "") << plugin << " " << options;  // not even who wants to log in
      }
    }
  }
  // The same server on this machine gets it: the fake asks as a real one would.
  for (const char* plugin : {"mysql_clear_password", "dialog"}) {
    const Attempt here = attempt("MySQL", "127.0.0.1", "", [&](const Peer& peer) {
      askByMysqlPlugin(peer, "mysql_native_password", plugin);
    });
    EXPECT_NE(here.heard.find(kSecret), std::string::npos) << plugin << ": " << here.refusal;
  }
}

const std::string kAsText = "R\0\0\0\x08\0\0\0\3"s;
const std::string kScram = "R\0\0\0\x17\0\0\0\x0aSCRAM-SHA-256\0\0"s;

TEST(LoginTest, PostgresqlGivesNoServerThatMayBeAnywhereAPasswordToRead) {
  if (!builtIn("PostgreSQL")) GTEST_SKIP() << "not built in";
  struct Case {
    std::string negotiation;        // the answer to every wish to encrypt
    std::vector<std::string> says;  // after each thing that it hears
  };
  const Case cases[] = {
      {"N", {kAsText}},
      {"N" + kAsText, {}},
      {"N", {kScram + kAsText}},
      {"N", {kScram, kAsText}},
      {"N", {kAsText.substr(0, 3), kAsText.substr(3)}},
      {kAsText, {}},
  };
  for (const Case& c : cases) {
    const auto script = [&c](const Peer& peer) {
      std::string heard = peer.hear();
      while (heard.size() == 8) {  // a wish to encrypt
        peer.say(c.negotiation);
        heard = peer.hear();
      }
      for (const std::string& words : c.says) {
        peer.say(words);
        if (words.size() < 5) {
          std::this_thread::sleep_for(std::chrono::milliseconds(20));
        } else if (peer.hear().empty()) {
          return;
        }
      }
    };
    for (const char* options :
         {"", "SslMode=disable", "SslMode=allow", "SslMode=prefer", "SslMode=require",
          "SslMode=verify-ca", "SslMode=verify-full", "ChannelBinding=require", "SslMode=DISABLE",
          "TargetSessionAttrs=read-write"}) {
      const Attempt made = attempt("PostgreSQL", kAnywhere, options, script);
      EXPECT_NE(made.refusal, "");
      EXPECT_EQ(made.heard.find(kSecret), std::string::npos) << &c - cases << " " << options;
    }
    if (&c != cases) continue;
    const Attempt told = attempt("PostgreSQL", kAnywhere, "", script);
    EXPECT_NE(told.refusal.find("SslMode=verify-full"), std::string::npos) << told.refusal;
    const Attempt here = attempt("PostgreSQL", "127.0.0.1", "", script);
    EXPECT_NE(here.heard.find(kSecret), std::string::npos) << here.refusal;
  }
}

TEST(LoginTest, OnlyLoopbackStaysOnThisMachine) {
  for (const char* host :
       {"127.0.0.1", "127.255.3.4", "::1", "localhost", "LocalHost", "::ffff:127.0.0.1"}) {
    EXPECT_TRUE(isLoopback(host)) << host;
  }
  for (const char* host :
       {"", "0.0.0.0", "128.0.0.1", "127.0.0.1.example.org", "127.0.0", "127.0.0.256", "127.1",
        "localhost.example.org", "db", "::", "::2", "127.0.0.1 "}) {
    EXPECT_FALSE(isLoopback(host)) << host;
  }
}

/// On a real server whose certificate, signed by itself, is for 127.0.0.1 only.
class TlsTest : public DataTest {
 protected:
  void SetUp() override {
    const char* const folder = std::getenv("KT7_TEST_CERTIFICATES");
    if (folder == nullptr || engine().files || engine().odbc) GTEST_SKIP() << "no server with TLS";
    certificates_ = folder;
  }
  static bool postgresql() { return engine().kind == "POSTGRESQL"; }
  /// "opened", or why not.
  std::string opened(const std::string& host, const std::string& options) const {
    std::string where = connectionString();
    where.replace(where.find("127.0.0.1"), 9, host);
    try {
      const auto connection = createConnection();
      connection->Open(options + ";" + where);  // the first of a keyword counts
      encrypted_ = !askOne(*connection,
                           postgresql() ? "SELECT CASE WHEN ssl THEN 'x' END FROM pg_stat_ssl "
                                          "WHERE pid = pg_backend_pid()"
                                        : "SELECT NULLIF(VARIABLE_VALUE,'') FROM "
                                          "information_schema.session_status WHERE "
                                          "VARIABLE_NAME='SSL_CIPHER'",
                           {})
                        .isNull();
    } catch (const Error& error) {
      return error.what();
    }
    return "opened";
  }

  std::string certificates_;
  mutable bool encrypted_ = false;
};

TEST_F(TlsTest, ACertificateIsAskedForAsMuchAsTheModeSays) {
  const std::string right = "SslCa=" + certificates_ + "/server.pem";
  const std::string stranger = "SslCa=" + certificates_ + "/stranger.pem";
  struct Case {
    const char* host;
    std::string options;
    bool opens;
  };
  std::vector<Case> cases = {
      {"127.0.0.1", "SslMode=require", true},
      {"127.0.0.2", "SslMode=require", true},
      {"127.0.0.1", "SslMode=verify-full;" + right, true},
      {"127.0.0.2", "SslMode=verify-full;" + right, false},  // a certificate for another name
      {"127.0.0.1", "SslMode=verify-full;" + stranger, false},
      {"127.0.0.1", "SslMode=verify-full", false},  // nobody this machine trusts signed it
  };
  if (postgresql()) {
    cases.push_back({"127.0.0.2", "SslMode=verify-ca;" + right, true});
    cases.push_back({"127.0.0.1", "SslMode=verify-ca;" + stranger, false});
    cases.push_back({"127.0.0.1", "SslMode=require;ChannelBinding=require", true});
  } else {
    cases.push_back({"127.0.0.1", right, true});
    cases.push_back({"127.0.0.2", right, false});
    cases.push_back({"127.0.0.1", "SslMode=verify;" + stranger, false});
  }
  for (const Case& c : cases) {
    const std::string told = opened(c.host, c.options);
    EXPECT_EQ(told == "opened", c.opens) << c.host << " " << c.options << ": " << told;
    if (c.opens) EXPECT_TRUE(encrypted_) << c.options;
  }
}

TEST_F(TlsTest, WithoutADemandAScrambledPasswordIsGivenAndATextIsNot) {
  const auto expectOpens = [this](const std::string& host, const std::string& options,
                                  bool encrypts) {
    EXPECT_EQ(opened(host, options), "opened") << host << " " << options;
    EXPECT_EQ(encrypted_, encrypts) << host << " " << options;
  };
  expectOpens(kAnywhere, "", postgresql());
  expectOpens(kAnywhere, "SslMode=disable", false);
  EXPECT_NE(opened(kAnywhere, "Pwd=wrong"), "opened");
  if (!postgresql()) return;
  expectOpens(kAnywhere, "SslMode=allow", false);
  expectOpens("192.0.2.255,0.0.0.0", "SslMode=prefer", true);
  connection_->Execute("CREATE ROLE kt7_text LOGIN SUPERUSER PASSWORD 'word'");
  const std::string asText = "Uid=kt7_text;Pwd=word;";
  for (const char* mode : {"", "SslMode=prefer", "SslMode=disable", "SslMode=allow"}) {
    const std::string told = opened(kAnywhere, asText + mode);
    EXPECT_NE(told.find("as text"), std::string::npos) << mode << ": " << told;
  }
  EXPECT_EQ(opened(kAnywhere, asText + "SslMode=require"), "opened");
  EXPECT_EQ(opened("127.0.0.1", asText + "SslMode=disable"), "opened");
  connection_->Execute("DROP ROLE kt7_text");
}

}  // namespace

}  // namespace kt7::data::test
