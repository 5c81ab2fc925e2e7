#include "win/dispatch.h"

#include <algorithm>

#include "ide/object_model.h"

namespace tavrin::win {
namespace {

// Visual Basic's run-time errors for the automation failures it maps.
struct KnownFailure {
  HRESULT result;
  int number;
  const char* text;
};
constexpr KnownFailure kKnownFailures[] = {
    {DISP_E_MEMBERNOTFOUND, 438, "Object doesn't support this property or method"},
    {DISP_E_UNKNOWNNAME, 438, "Object doesn't support this property or method"},
    {DISP_E_TYPEMISMATCH, 13, "Type mismatch"},
    {DISP_E_BADPARAMCOUNT, 450, "Wrong number of arguments or invalid property assignment"},
    {DISP_E_PARAMNOTOPTIONAL, 449, "Argument not optional"},
    {DISP_E_BADINDEX, 9, "Subscript out of range"},
    {DISP_E_OVERFLOW, 6, "Overflow"},
    {E_INVALIDARG, 5, "Invalid procedure call or argument"},
    {E_OUTOFMEMORY, 7, "Out of memory"},
};

// An HRESULT of the Visual Basic runtime carries its error number.
bool IsRuntimeError(HRESULT result) {
  return HRESULT_FACILITY(result) == FACILITY_CONTROL;
}

}  // namespace

bool DispIdCache::Find(IDispatch& object, std::string_view kind, std::string_view name,
                       DISPID& id) {
  auto key = std::make_pair(std::string(kind), std::string(name));
  if (const auto found = ids_.find(key); found != ids_.end()) {
    id = found->second;
    return true;
  }
  std::wstring wide = Utf8ToWide(name);
  LPOLESTR names[] = {wide.data()};
  if (FAILED(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id))) {
    return false;
  }
  ids_.emplace(std::move(key), id);
  return true;
}

ide::Error ErrorFromInvoke(HRESULT result, const EXCEPINFO* exception,
                           std::string_view member) {
  if (result == DISP_E_EXCEPTION && exception) {
    EXCEPINFO filled = *exception;
    if (filled.pfnDeferredFillIn) filled.pfnDeferredFillIn(&filled);
    const std::string text = BstrToUtf8(filled.bstrDescription);
    int number = filled.wCode;
    if (number == 0) {
      number = IsRuntimeError(filled.scode) ? HRESULT_CODE(filled.scode)
                                            : static_cast<int>(filled.scode);
    }
    return ide::Error(number, text.empty() ? "Automation error" : text);
  }
  for (const auto& known : kKnownFailures) {
    if (known.result == result) return ide::Error(known.number, known.text);
  }
  if (IsRuntimeError(result)) {
    return ide::Error(HRESULT_CODE(result), "Application-defined or object-defined error");
  }
  return ide::Error(static_cast<int>(result),
                    "Automation error in " + std::string(member) + ": " +
                        ErrorText(static_cast<DWORD>(result)));
}

Variant Dispatch::Invoke(std::string_view name, WORD flags, std::vector<Variant>& args,
                         bool is_put) const {
  if (!object_) throw ide::Error(91, "Object variable or With block variable not set");
  DISPID id = DISPID_UNKNOWN;
  if (!cache_->Find(*object_.get(), kind_, name, id)) {
    throw ErrorFromInvoke(DISP_E_UNKNOWNNAME, nullptr, name);
  }
  // DISPPARAMS holds the arguments last to first.
  std::vector<VARIANTARG> reversed;
  reversed.reserve(args.size());
  for (auto it = args.rbegin(); it != args.rend(); ++it) reversed.push_back(*it->get());
  DISPID put_id = DISPID_PROPERTYPUT;
  DISPPARAMS params{reversed.data(), is_put ? &put_id : nullptr,
                    static_cast<UINT>(reversed.size()), is_put ? 1u : 0u};
  Variant result;
  EXCEPINFO exception{};
  UINT bad_argument = 0;
  const HRESULT hr = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params,
                                     is_put ? nullptr : result.put(), &exception,
                                     &bad_argument);
  // The copies in `reversed` share the arguments' contents; only the owners
  // in `args` free them. The exception's strings are ours.
  struct ExceptionStrings {
    EXCEPINFO& info;
    ~ExceptionStrings() {
      Bstr::Attach(info.bstrSource);
      Bstr::Attach(info.bstrDescription);
      Bstr::Attach(info.bstrHelpFile);
    }
  } owner{exception};
  if (FAILED(hr)) throw ErrorFromInvoke(hr, &exception, name);
  return result;
}

Variant Dispatch::Get(std::string_view name, std::vector<Variant> args) const {
  return Invoke(name, DISPATCH_PROPERTYGET, args, false);
}

Variant Dispatch::Call(std::string_view name, std::vector<Variant> args) const {
  return Invoke(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, args, false);
}

void Dispatch::Put(std::string_view name, Variant value) const {
  std::vector<Variant> args;
  args.push_back(std::move(value));
  Invoke(name, DISPATCH_PROPERTYPUT, args, true);
}

ComPtr<IDispatch> Dispatch::GetObject(std::string_view name, std::vector<Variant> args) const {
  return VariantToObject(*Get(name, std::move(args)).get());
}

ComPtr<IDispatch> Dispatch::CallObject(std::string_view name, std::vector<Variant> args) const {
  return VariantToObject(*Call(name, std::move(args)).get());
}

bool Dispatch::Has(std::string_view name) const {
  DISPID id = DISPID_UNKNOWN;
  return object_ && cache_->Find(*object_.get(), kind_, name, id);
}

}  // namespace tavrin::win
