#include "support/own_transaction.h"

#include <exception>
#include <typeinfo>

#include <kt7/error.h>
#include "support/unseen_message.h"

namespace kt7 {

namespace {

constexpr const char* kCannotSaveNow =
    "ไม่สามารถบันทึกข้อมูลได้ในขณะนี้ โปรดจดจำ หรือบันทึกข้อความต่อไปนี้ หรือ Print Screen "
    "เพื่อแจ้งให้กับผู้ดูแลระบบ - ";

/// Rolls back. If that fails, its error is raised with the text of the first error added.
/// An error class of the host's own may carry more than these fields: it is passed on as it is.
void rollBackWhatNeverBegan(ado::Connection& connection, const std::string& cause) {
  try {
    connection.RollbackTrans();
  } catch (const Error& error) {
    if (typeid(error) != typeid(Error)) throw;
    throw Error(error.kind(), error.number(), std::string(error.what()) + " (" + cause + ")",
                error.cause());
  }
}

/// Rolls back or closes a connection that may be lost. Errors are dropped: they change nothing, the
/// engine has rolled the transaction back or committed it.
template <typename Act>
void ignoringFailure(Act act) noexcept {
  try {
    act();
  } catch (...) {  // NOLINT(bugprone-empty-catch): see above
  }
}

/// A message that the host cannot show is no error of the call.
void show(Platform& platform, const std::string& text) {
  try {
    platform.showMessage(text);
  } catch (...) {
    writeUnseenMessage(text);
  }
}

}  // namespace

void inOwnTransaction(Platform& platform, DataObj& dataObj,
                      const std::function<void(ado::Connection&)>& work) {
  const std::unique_ptr<ado::Connection> connection = platform.createConnection();
  bool begun = false;
  try {
    connection->CursorLocation(ado::kClientSide);
    connection->Open(dataObj.ConnectionString(), "", "", ado::kUnspecified);
    connection->BeginTrans();
    begun = true;
    work(*connection);
    connection->CommitTrans();
  } catch (const std::exception& error) {
    if (begun) {
      ignoringFailure([&] { connection->RollbackTrans(); });
    } else {
      rollBackWhatNeverBegan(*connection, error.what());
    }
    ignoringFailure([&] { connection->Close(); });
    show(platform, kCannotSaveNow + std::string(error.what()));
    return;
  }
  ignoringFailure([&] { connection->Close(); });
}

}  // namespace kt7
