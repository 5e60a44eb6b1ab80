#pragma once

#include <functional>

#include <kt7/contract/platform.h>

namespace kt7 {

/// Runs the work on a connection of its own, in one transaction. A failure rolls back, closes the
/// connection and is shown as the modal message; the caller learns nothing of it. A roll-back or
/// close that fails then too, as on a lost connection, is dropped, and so is a close that fails
/// after the commit. Intended 25: where the transaction could not begin, the roll-back fails and
/// that error does reach the caller.
void inOwnTransaction(Platform& platform, DataObj& dataObj,
                      const std::function<void(ado::Connection&)>& work);

}  // namespace kt7
