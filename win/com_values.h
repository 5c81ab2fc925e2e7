// Owners of the automation values: BSTR, VARIANT and SAFEARRAY, with the
// conversion between the core's UTF-8 and the BSTR's UTF-16 at this edge.
// SysFreeString, VariantClear and SafeArrayDestroy appear only here.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "win/com_ptr.h"
#include "win/win_support.h"

#include <oleauto.h>

namespace tavrin::win {

// UTF-16 text of a BSTR that is not ours to free (an argument).
std::string BstrToUtf8(BSTR text);

class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(std::string_view utf8);
  explicit Bstr(std::wstring_view text);
  static Bstr Attach(BSTR text) {
    Bstr owner;
    owner.text_ = text;
    return owner;
  }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept;
  ~Bstr() { reset(); }

  BSTR get() const { return text_; }
  BSTR* put() {
    reset();
    return &text_;
  }
  BSTR Detach() { return std::exchange(text_, nullptr); }
  void reset();
  std::string ToUtf8() const { return BstrToUtf8(text_); }

 private:
  BSTR text_ = nullptr;
};

class Variant {
 public:
  Variant() { ::VariantInit(&value_); }
  Variant(const Variant& other);
  Variant(Variant&& other) noexcept;
  Variant& operator=(Variant other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Variant() { ::VariantClear(&value_); }

  static Variant Long(long value);
  static Variant Bool(bool value);
  static Variant String(std::string_view utf8);
  // Nothing when `object` is null.
  static Variant Object(IDispatch* object);
  // An optional argument left out in the middle of an argument list.
  static Variant Missing();
  // By-reference arguments point at the caller's variable, which must
  // outlive the call.
  static Variant LongRef(long* value);
  static Variant BoolRef(VARIANT_BOOL* value);
  static Variant ObjectRef(IDispatch** value);

  VARIANT* get() { return &value_; }
  const VARIANT* get() const { return &value_; }
  VARIANT* put() {
    ::VariantClear(&value_);
    return &value_;
  }
  VARTYPE type() const { return value_.vt; }
  bool IsEmptyOrNothing() const;

 private:
  VARIANT value_;
};

// Conversions of a result, as Visual Basic converts on assignment. They
// raise ide::Error (13, "Type mismatch") when the value does not convert.
long VariantToLong(const VARIANT& value);
bool VariantToBool(const VARIANT& value);
std::string VariantToString(const VARIANT& value);
// Nothing (or Empty) gives an empty pointer; an IUnknown is asked for
// IDispatch.
ComPtr<IDispatch> VariantToObject(const VARIANT& value);

class SafeArray {
 public:
  SafeArray() = default;
  explicit SafeArray(SAFEARRAY* array) : array_(array) {}
  // A one-dimensional array of VARIANTs with no element, as hosts pass in
  // the `custom` argument of the add-in events.
  static SafeArray EmptyVariants();
  SafeArray(const SafeArray&) = delete;
  SafeArray& operator=(const SafeArray&) = delete;
  SafeArray(SafeArray&& other) noexcept : array_(std::exchange(other.array_, nullptr)) {}
  ~SafeArray() {
    if (array_) ::SafeArrayDestroy(array_);
  }
  SAFEARRAY* get() const { return array_; }
  SAFEARRAY** put();

 private:
  SAFEARRAY* array_ = nullptr;
};

}  // namespace tavrin::win
