#pragma once

#include "fronts/com/automation/variant.h"

/// Arguments by reference, into whose variables the results of a call come back.
namespace kt7::automation {

/// The value as the variable behind a by-reference argument holds it: overflow where it is too
/// large, type mismatch where the variable takes no such value. As it is for an argument passed by
/// value.
Variant convertedFor(const VARIANT& argument, Variant value);
/// The address of the variable behind a by-reference argument; null for one passed by value.
const void* variableOf(const VARIANT& argument);
/// Stores what convertedFor answered; an argument passed by value stays as it is.
void storeByReference(const VARIANT& argument, Variant converted) noexcept;

}  // namespace kt7::automation
