#include "tests/win/host/host_object.h"

#include <atomic>
#include <cwchar>

#include "ide/object_model.h"

namespace tavrin::test_host {
namespace {

std::atomic<long> g_live{0};
std::map<std::wstring, long>* g_calls = nullptr;

// Far from the ids of either IDE.
constexpr DISPID kFirstId = 0x4000;

// Asked for by HostIdentity only: the object is one of the host's.
constexpr IID kHostObjectIid = {
    0x6f1d2c40, 0x53a1, 0x4b7e, {0x9a, 0x11, 0x0c, 0x5e, 0x2b, 0x7d, 0x41, 0x90}};

[[noreturn]] void Fail(HRESULT result) { throw HostFailure{result}; }

class HostObject final : public IDispatch {
 public:
  HostObject(std::vector<HostMember> members, std::shared_ptr<void> identity)
      : members_(std::move(members)), identity_(std::move(identity)) {
    ++g_live;
  }
  const std::shared_ptr<void>& Identity() const { return identity_; }
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == kHostObjectIid) {
      *object = static_cast<IDispatch*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override {
    if (info) *info = nullptr;
    return DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) noexcept override {
    if (!names || !ids || count == 0) return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    for (std::size_t i = 0; i < members_.size(); ++i) {
      if (::_wcsicmp(names[0], members_[i].name.c_str()) == 0) {
        ids[0] = kFirstId + static_cast<DISPID>(i);
      }
    }
    return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception,
                                   UINT*) noexcept override {
    if (!params) return E_INVALIDARG;
    if (result) ::VariantInit(result);
    const auto index = static_cast<std::size_t>(id - kFirstId);
    if (id < kFirstId || index >= members_.size()) return DISP_E_MEMBERNOTFOUND;
    const HostMember& member = members_[index];
    if (g_calls) ++(*g_calls)[member.name];
    try {
      const bool is_put = !member.is_method && (flags & DISPATCH_PROPERTYPUT) &&
                          !(flags & DISPATCH_PROPERTYGET);
      CheckShape(member, flags, *params, is_put);
      HostCall call(*params, is_put);
      CheckArguments(member, call);
      if (is_put) {
        member.put(call, call.PutValue());
      } else {
        Variant value = member.get(call);
        if (result) ::VariantCopy(result, value.get());
      }
      return S_OK;
    } catch (const HostFailure& failure) {
      return failure.result;
    } catch (const ide::Error& error) {
      if (exception) {
        *exception = EXCEPINFO{};
        exception->scode = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, error.number());
        exception->bstrSource = win::Bstr(std::string_view("VBIDE")).Detach();
        exception->bstrDescription = win::Bstr(std::string_view(error.what())).Detach();
      }
      return DISP_E_EXCEPTION;
    } catch (...) {
      return E_UNEXPECTED;
    }
  }

 private:
  ~HostObject() { --g_live; }

  // The flags and named arguments a typelib-driven Invoke accepts.
  static void CheckShape(const HostMember& member, WORD flags, const DISPPARAMS& params,
                         bool is_put) {
    if (member.is_method) {
      if (!(flags & DISPATCH_METHOD)) Fail(DISP_E_MEMBERNOTFOUND);
    } else if (is_put) {
      if (!member.put) Fail(DISP_E_MEMBERNOTFOUND);
      if (params.cNamedArgs != 1 || params.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT ||
          params.cArgs < 1) {
        Fail(DISP_E_PARAMNOTOPTIONAL);
      }
      return;
    } else if (!(flags & DISPATCH_PROPERTYGET)) {
      Fail(DISP_E_MEMBERNOTFOUND);
    }
    if (params.cNamedArgs != 0) Fail(DISP_E_NONAMEDARGS);
  }

  static void CheckArguments(const HostMember& member, const HostCall& call) {
    if (call.Count() < member.required || call.Count() > member.allowed) {
      Fail(DISP_E_BADPARAMCOUNT);
    }
    for (std::size_t i = 0; i < member.required; ++i) {
      if (call.Missing(i)) Fail(DISP_E_PARAMNOTOPTIONAL);
    }
  }

  std::atomic<ULONG> references_{1};
  std::vector<HostMember> members_;
  std::shared_ptr<void> identity_;
};

}  // namespace

HostCall::HostCall(const DISPPARAMS& params, bool is_put)
    : params_(params), first_(is_put ? 1 : 0), count_(params.cArgs - first_) {}

const VARIANT& HostCall::At(std::size_t index) const {
  if (index >= count_) Fail(DISP_E_PARAMNOTFOUND);
  // Last to first, after the put value.
  return params_.rgvarg[params_.cArgs - 1 - index];
}

bool HostCall::Missing(std::size_t index) const {
  if (index >= count_) return true;
  const VARIANT& value = At(index);
  return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

long HostCall::Long(std::size_t index) const {
  try {
    return win::VariantToLong(At(index));
  } catch (const ide::Error&) {
    Fail(DISP_E_TYPEMISMATCH);
  }
}

bool HostCall::Bool(std::size_t index, bool if_missing) const {
  if (Missing(index)) return if_missing;
  try {
    return win::VariantToBool(At(index));
  } catch (const ide::Error&) {
    Fail(DISP_E_TYPEMISMATCH);
  }
}

std::string HostCall::String(std::size_t index) const {
  try {
    return win::VariantToString(At(index));
  } catch (const ide::Error&) {
    Fail(DISP_E_TYPEMISMATCH);
  }
}

bool HostCall::IsString(std::size_t index) const {
  const VARIANT& value = At(index);
  return value.vt == VT_BSTR || value.vt == (VT_BSTR | VT_BYREF);
}

ComPtr<IDispatch> HostCall::Object(std::size_t index) const {
  if (Missing(index)) return {};
  try {
    return win::VariantToObject(At(index));
  } catch (const ide::Error&) {
    Fail(DISP_E_TYPEMISMATCH);
  }
}

long& HostCall::LongRef(std::size_t index) const {
  const VARIANT& value = At(index);
  if (value.vt != (VT_I4 | VT_BYREF) || !value.plVal) Fail(DISP_E_TYPEMISMATCH);
  return *value.plVal;
}

VARIANT_BOOL& HostCall::BoolRef(std::size_t index) const {
  const VARIANT& value = At(index);
  if (value.vt != (VT_BOOL | VT_BYREF) || !value.pboolVal) Fail(DISP_E_TYPEMISMATCH);
  return *value.pboolVal;
}

IDispatch*& HostCall::ObjectRef(std::size_t index) const {
  const VARIANT& value = At(index);
  if (value.vt != (VT_DISPATCH | VT_BYREF) || !value.ppdispVal) Fail(DISP_E_TYPEMISMATCH);
  return *value.ppdispVal;
}

HostMember Property(std::wstring name, std::function<Variant()> get) {
  HostMember member;
  member.name = std::move(name);
  member.get = [get = std::move(get)](HostCall&) { return get(); };
  return member;
}

HostMember Property(std::wstring name, std::function<Variant()> get,
                    std::function<void(const VARIANT&)> put) {
  HostMember member = Property(std::move(name), std::move(get));
  member.put = [put = std::move(put)](HostCall&, const VARIANT& value) { put(value); };
  return member;
}

HostMember Method(std::wstring name, std::size_t required, std::size_t allowed,
                  std::function<Variant(HostCall&)> run) {
  HostMember member{std::move(name), required, allowed, true, std::move(run), {}};
  return member;
}

HostMember PropertyWithArgs(std::wstring name, std::size_t required, std::size_t allowed,
                            std::function<Variant(HostCall&)> get) {
  HostMember member{std::move(name), required, allowed, false, std::move(get), {}};
  return member;
}

ComPtr<IDispatch> MakeHostObject(std::vector<HostMember> members,
                                 std::shared_ptr<void> identity) {
  return ComPtr<IDispatch>::Attach(new HostObject(std::move(members), std::move(identity)));
}

std::shared_ptr<void> HostIdentity(IDispatch* object) {
  ComPtr<IDispatch> host;
  if (!object || FAILED(object->QueryInterface(kHostObjectIid, host.put_void()))) return {};
  return static_cast<HostObject*>(host.get())->Identity();
}

long LiveHostObjects() { return g_live.load(); }
void CountHostObject(long change) { g_live += change; }
void CountHostCalls(std::map<std::wstring, long>* calls) { g_calls = calls; }

}  // namespace tavrin::test_host
