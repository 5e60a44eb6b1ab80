#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace kt7::schema {

/// SHA-256 of texts that come one after another.
class Sha256 {
 public:
  /// A collaborator error where the hashing library cannot be used.
  Sha256();
  ~Sha256();
  Sha256(const Sha256&) = delete;
  Sha256& operator=(const Sha256&) = delete;

  void add(std::string_view text);
  /// The sum of all that was added; nothing can be added after it.
  std::string hexadecimal();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace kt7::schema
