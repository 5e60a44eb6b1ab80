#pragma once

#include <string>

#include <kt7/currency.h>

/// Amounts as people and files read them: whole satang, half of one away from zero.
namespace kt7::cli {

/// "-1234.50"
std::string satangText(Currency amount);
/// "-1,234.50"
std::string groupedText(Currency amount);

}  // namespace kt7::cli
