#pragma once

#include <windows.h>

#include <array>

/// The type library inside this DLL, and the identities in it.
namespace kt7::hrlib {

#include "identities.inc"
#include "profile_ids.inc"

/// The description of a dual interface, counted for the caller.
HRESULT typeInformation(REFIID interfaceId, ITypeInfo** information) noexcept;

/// Lets go of what typeInformation keeps; the DLL is about to be unloaded.
void forgetTypeInformation() noexcept;

}  // namespace kt7::hrlib
