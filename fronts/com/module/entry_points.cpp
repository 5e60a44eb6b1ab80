// The entry points that every automation DLL exports.

#include "fronts/com/module/entry_points.h"

#include <windows.h>

#include "fronts/com/automation/module.h"

namespace automation = kt7::automation;
using automation::RegistrationScope;
using automation::thisModule;

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  return automation::classObject(thisModule().classes, classId, id, object);
}

STDAPI DllCanUnloadNow() {
  if (automation::livingObjects() > 0) return S_FALSE;
  if (const auto unloading = thisModule().unloading) unloading();
  return S_OK;
}

STDAPI DllRegisterServer() {
  return automation::registerModule(thisModule().registered(), RegistrationScope::Machine);
}

STDAPI DllUnregisterServer() {
  return automation::unregisterModule(thisModule().registered(), RegistrationScope::Machine);
}

STDAPI DllInstall(BOOL install, const wchar_t* scope) {
  return automation::installModule(thisModule().registered(), install != FALSE, scope);
}
