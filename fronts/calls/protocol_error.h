#pragma once

#include <stdexcept>
#include <string>

namespace kt7::cli {

/// A request that the protocol refuses before any operation runs.
class ProtocolError : public std::runtime_error {
 public:
  static constexpr int kParseError = -32700;
  static constexpr int kInvalidRequest = -32600;
  static constexpr int kMethodNotFound = -32601;
  static constexpr int kInvalidParams = -32602;
  static constexpr int kInternalError = -32603;

  ProtocolError(int code, const std::string& message) : std::runtime_error(message), code_(code) {}
  int code() const { return code_; }

 private:
  int code_;
};

}  // namespace kt7::cli
