#pragma once

#include <typeindex>
#include <vector>

namespace kt7::hrlib {

/// The variables that one call is given by reference. One that is passed for two parameters of a
/// type is one variable to the callee too: what it writes to one of them it reads from the other.
class Variables {
 public:
  /// The value that stands for the variable at an address: that of the first who asked. `own`, the
  /// value of the one who asks, where it is the first or there is no variable.
  template <typename T>
  T* valueOf(const void* address, T* own) {
    if (address == nullptr) return own;
    for (const Row& row : rows_) {
      if (row.address == address && row.type == typeid(T)) return static_cast<T*>(row.value);
    }
    rows_.push_back({address, typeid(T), own});
    return own;
  }

 private:
  struct Row {
    const void* address;
    std::type_index type;
    void* value;
  };
  std::vector<Row> rows_;
};

}  // namespace kt7::hrlib
