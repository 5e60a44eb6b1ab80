#pragma once

#include <string>

#include <kt7/error.h>

namespace kt7::test {

/// The kind of the error that the call raises, "none" where it raises none.
template <typename Call>
std::string raised(Call call) {
  try {
    call();
  } catch (const Error& error) {
    return std::string(kindName(error.kind()));
  }
  return "none";
}

}  // namespace kt7::test
