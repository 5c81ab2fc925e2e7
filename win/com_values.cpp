#include "win/com_values.h"

#include "ide/object_model.h"

namespace tavrin::win {
namespace {

[[noreturn]] void ThrowTypeMismatch() { throw ide::Error(13, "Type mismatch"); }

// The value converted to `type` the way Visual Basic converts (the user's
// locale for numbers as text).
Variant Converted(const VARIANT& value, VARTYPE type) {
  Variant result;
  if (FAILED(::VariantChangeType(result.get(), const_cast<VARIANT*>(&value), 0, type))) {
    ThrowTypeMismatch();
  }
  return result;
}

}  // namespace

std::string BstrToUtf8(BSTR text) {
  if (!text) return {};
  return WideToUtf8(std::wstring_view(text, ::SysStringLen(text)));
}

Bstr::Bstr(std::string_view utf8) : Bstr(std::wstring_view(Utf8ToWide(utf8))) {}

Bstr::Bstr(std::wstring_view text) {
  text_ = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  if (!text_) throw std::bad_alloc();
}

Bstr& Bstr::operator=(Bstr&& other) noexcept {
  if (this != &other) {
    reset();
    text_ = std::exchange(other.text_, nullptr);
  }
  return *this;
}

void Bstr::reset() {
  if (text_) ::SysFreeString(std::exchange(text_, nullptr));
}

Variant::Variant(const Variant& other) {
  ::VariantInit(&value_);
  if (FAILED(::VariantCopy(&value_, const_cast<VARIANT*>(&other.value_)))) {
    throw std::bad_alloc();
  }
}

Variant::Variant(Variant&& other) noexcept : value_(other.value_) {
  ::VariantInit(&other.value_);
}

Variant Variant::Long(long value) {
  Variant result;
  result.value_.vt = VT_I4;
  result.value_.lVal = value;
  return result;
}

Variant Variant::Bool(bool value) {
  Variant result;
  result.value_.vt = VT_BOOL;
  result.value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  return result;
}

Variant Variant::String(std::string_view utf8) {
  Variant result;
  result.value_.bstrVal = Bstr(utf8).Detach();
  result.value_.vt = VT_BSTR;
  return result;
}

Variant Variant::Object(IDispatch* object) {
  Variant result;
  result.value_.vt = VT_DISPATCH;
  result.value_.pdispVal = object;
  if (object) object->AddRef();
  return result;
}

Variant Variant::Missing() {
  Variant result;
  result.value_.vt = VT_ERROR;
  result.value_.scode = DISP_E_PARAMNOTFOUND;
  return result;
}

Variant Variant::LongRef(long* value) {
  Variant result;
  result.value_.vt = VT_I4 | VT_BYREF;
  result.value_.plVal = value;
  return result;
}

Variant Variant::BoolRef(VARIANT_BOOL* value) {
  Variant result;
  result.value_.vt = VT_BOOL | VT_BYREF;
  result.value_.pboolVal = value;
  return result;
}

Variant Variant::ObjectRef(IDispatch** value) {
  Variant result;
  result.value_.vt = VT_DISPATCH | VT_BYREF;
  result.value_.ppdispVal = value;
  return result;
}

bool Variant::IsEmptyOrNothing() const {
  return value_.vt == VT_EMPTY ||
         (value_.vt == VT_DISPATCH && !value_.pdispVal) ||
         (value_.vt == VT_UNKNOWN && !value_.punkVal);
}

long VariantToLong(const VARIANT& value) { return Converted(value, VT_I4).get()->lVal; }

bool VariantToBool(const VARIANT& value) {
  return Converted(value, VT_BOOL).get()->boolVal != VARIANT_FALSE;
}

std::string VariantToString(const VARIANT& value) {
  if (value.vt == VT_BSTR) return BstrToUtf8(value.bstrVal);
  if (value.vt == VT_EMPTY) return {};
  return BstrToUtf8(Converted(value, VT_BSTR).get()->bstrVal);
}

ComPtr<IDispatch> VariantToObject(const VARIANT& value) {
  const VARIANT* plain = &value;
  if (value.vt == (VT_VARIANT | VT_BYREF)) plain = value.pvarVal;
  switch (plain->vt) {
    case VT_EMPTY:
      return {};
    case VT_DISPATCH:
      return ComPtr<IDispatch>(plain->pdispVal);
    case VT_UNKNOWN: {
      if (!plain->punkVal) return {};
      ComPtr<IDispatch> object;
      if (FAILED(plain->punkVal->QueryInterface(IID_IDispatch, object.put_void()))) {
        ThrowTypeMismatch();
      }
      return object;
    }
    default:
      ThrowTypeMismatch();
  }
}

SafeArray SafeArray::EmptyVariants() {
  SafeArray array(::SafeArrayCreateVector(VT_VARIANT, 0, 0));
  if (!array.get()) throw std::bad_alloc();
  return array;
}

SAFEARRAY** SafeArray::put() {
  if (array_) ::SafeArrayDestroy(std::exchange(array_, nullptr));
  return &array_;
}

}  // namespace tavrin::win
