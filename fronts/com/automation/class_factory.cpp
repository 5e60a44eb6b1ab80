#include "fronts/com/automation/class_factory.h"

#include <atomic>
#include <new>

#include "fronts/com/automation/module.h"
#include "fronts/com/automation/status.h"

namespace kt7::automation {

namespace {

class ClassFactory : public IClassFactory {
 public:
  explicit ClassFactory(const CreatableClass& creatable) : class_(creatable) {}
  virtual ~ClassFactory() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IClassFactory)) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    HRESULT made = E_FAIL;
    const HRESULT status =
        guarded(class_.source, id, [&] { made = class_.create(outer, id, object); });
    return FAILED(status) ? status : made;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    lockModule(lock != FALSE);
    return S_OK;
  }

 private:
  LivingObject living_;
  const CreatableClass& class_;
  std::atomic<ULONG> references_{1};
};

}  // namespace

HRESULT classObject(std::span<const CreatableClass> classes, REFCLSID classId, REFIID id,
                    void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  for (const CreatableClass& creatable : classes) {
    if (!IsEqualCLSID(creatable.id, classId)) continue;
    auto* factory = new (std::nothrow) ClassFactory(creatable);
    if (factory == nullptr) return E_OUTOFMEMORY;
    const HRESULT status = factory->QueryInterface(id, object);
    factory->Release();
    return status;
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace kt7::automation
