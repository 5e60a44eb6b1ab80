#include "fronts/com/automation/arguments.h"

#include <string>

#include <kt7/error.h>

namespace kt7::automation {

namespace {

// The platform's own numbers of calls that do not fit.
constexpr std::int32_t kNamedArgumentNotFound = 448;
constexpr std::int32_t kArgumentNotOptional = 449;
constexpr std::int32_t kWrongNumberOfArguments = 450;

}  // namespace

Arguments::Arguments(const DISPPARAMS& given, std::size_t most) : slots_(most, nullptr) {
  // Named ones come first; the others follow from the last to the first.
  const std::size_t inOrder = given.cArgs - given.cNamedArgs;
  if (inOrder > most) {
    raiseCollaborator(kWrongNumberOfArguments, "Wrong number of arguments: at most " +
                                                   std::to_string(most) + ", given " +
                                                   std::to_string(inOrder));
  }
  for (std::size_t i = 0; i < inOrder; ++i) slots_[i] = &given.rgvarg[given.cArgs - 1 - i];
  for (std::size_t i = 0; i < given.cNamedArgs; ++i) {
    const DISPID position = given.rgdispidNamedArgs[i];
    if (position < 0 || static_cast<std::size_t>(position) >= most) {
      raiseCollaborator(kNamedArgumentNotFound, "Named argument not found");
    }
    slots_[static_cast<std::size_t>(position)] = &given.rgvarg[i];
  }
}

void Arguments::raiseMissing(std::size_t position) {
  raiseCollaborator(kArgumentNotOptional,
                    "Argument " + std::to_string(position + 1) + " is not optional");
}

VARIANT* putValue(const DISPPARAMS& given) {
  const bool carriesOne =
      given.cArgs > 0 && given.cNamedArgs > 0 && given.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
  return carriesOne ? &given.rgvarg[0] : nullptr;
}

}  // namespace kt7::automation
