#pragma once

#include <exception>
#include <string>

namespace kt7::cli {

/// An error's text and, where a command of kt7hr helps, which one.
std::string textWithAdvice(const std::exception& error);

}  // namespace kt7::cli
