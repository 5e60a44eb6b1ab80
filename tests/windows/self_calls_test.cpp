#include "checks.h"
#include "client.h"
#include "fronts/com/automation/text.h"

namespace kt7::client {

namespace {

/// A host's wrapper: it aggregates an HRObject, answers GETDAYRATE itself and hands GETHOURRATE on.
class Wrapper : public ::_HRObject {
 public:
  Wrapper() {
    CoCreateInstance(__uuidof(HRObject), static_cast<IUnknown*>(this), CLSCTX_INPROC_SERVER,
                     IID_IUnknown, reinterpret_cast<void**>(inner_.GetAddressOf()));
  }
  virtual ~Wrapper() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) ||
        IsEqualIID(id, __uuidof(::_HRObject))) {
      *object = static_cast<::_HRObject*>(this);
      AddRef();
      return S_OK;
    }
    return inner_->QueryInterface(id, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return E_NOTIMPL;
  }

#include "operation_slots.inc"

  bool aggregated() const { return inner_ != nullptr; }
  ULONG references() const { return references_; }
  HRESULT failure = S_OK;

 private:
  template <std::size_t Row, typename Out, typename... Given>
  HRESULT operation(Out result, Given... given) {
    if constexpr (Row == 0) {
      *result = 800;
      return failure;
    } else if constexpr (Row == 1) {
      return innerHRObject()->GETHOURRATE(given..., result);
    } else {
      return E_NOTIMPL;
    }
  }

  /// The inner object's own slots; its references are counted here.
  ::_HRObject* innerHRObject() {
    void* slots = nullptr;
    inner_->QueryInterface(__uuidof(::_HRObject), &slots);
    Release();
    return static_cast<::_HRObject*>(slots);
  }

  ComPtr<IUnknown> inner_;
  ULONG references_ = 1;
};

}  // namespace

void testSelfCalls() {
  Wrapper wrapper;
  check(wrapper.aggregated(), "HRObject may be aggregated");
  const automation::BstrText employee("E0001");
  IDispatch* none = nullptr;
  double rate = 0;
  checkStatus(wrapper.GETHOURRATE(employee, &none, &rate), S_OK, "through the wrapper");
  check(rate == 100, "an operation that is defined by another asks the wrapper's");
  wrapper.failure = static_cast<HRESULT>(0x800A0006);
  checkStatus(wrapper.GETHOURRATE(employee, &none, &rate), wrapper.failure,
              "a failure of the wrapper's operation travels on");
  check(wrapper.references() == 1, "no reference to the wrapper is kept");
}

}  // namespace kt7::client
