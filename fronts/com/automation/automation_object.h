#pragma once

#include <windows.h>

#include <atomic>

#include "fronts/com/automation/module.h"

namespace kt7::automation {

/// Counting and interfaces of an automation object: IUnknown, IDispatch, the dual interface (which
/// may be IDispatch itself) and ISupportErrorInfo. It may be aggregated: then the outer object
/// answers for its interfaces and counts, and only own() is this object's own.
template <typename Dual>
class AutomationObject : public Dual, public ISupportErrorInfo {
 public:
  explicit AutomationObject(IUnknown* outer = nullptr)
      : controlling_(outer != nullptr ? outer : &own_) {}
  AutomationObject(const AutomationObject&) = delete;
  AutomationObject& operator=(const AutomationObject&) = delete;
  virtual ~AutomationObject() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    return controlling_->QueryInterface(id, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return controlling_->AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return controlling_->Release(); }
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override {
    return IsEqualIID(id, __uuidof(Dual)) || IsEqualIID(id, IID_IDispatch) ? S_OK : S_FALSE;
  }

  /// The object's own IUnknown, born with one reference, which the maker gives away or releases.
  IUnknown* own() { return &own_; }

 protected:
  IUnknown* controlling() const { return controlling_; }

 private:
  class Own : public IUnknown {
   public:
    explicit Own(AutomationObject& object) : object_(object) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
      if (out == nullptr) return E_POINTER;
      *out = object_.interfaceOf(id);
      if (*out == nullptr) return E_NOINTERFACE;
      static_cast<IUnknown*>(*out)->AddRef();
      return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
      const ULONG left = --references_;
      if (left == 0) delete &object_;
      return left;
    }

   private:
    AutomationObject& object_;
    std::atomic<ULONG> references_{1};
  };

  void* interfaceOf(REFIID id) {
    if (IsEqualIID(id, IID_IUnknown)) return static_cast<IUnknown*>(&own_);
    if (IsEqualIID(id, __uuidof(Dual)) || IsEqualIID(id, IID_IDispatch)) {
      return static_cast<Dual*>(this);
    }
    if (IsEqualIID(id, IID_ISupportErrorInfo)) return static_cast<ISupportErrorInfo*>(this);
    return nullptr;
  }

  LivingObject living_;
  Own own_{*this};
  IUnknown* controlling_;
};

}  // namespace kt7::automation
