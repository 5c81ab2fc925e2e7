// Owner of one COM interface pointer: it only calls AddRef and Release, so
// every reference the add-in takes is given back exactly once.
#pragma once

#include <cstddef>
#include <utility>

#include "win/win_support.h"

#include <unknwn.h>

namespace tavrin::win {

template <class T>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(std::nullptr_t) {}
  // Shares `pointer`: takes a reference of its own.
  explicit ComPtr(T* pointer) : pointer_(pointer) {
    if (pointer_) pointer_->AddRef();
  }
  // Takes over a reference the caller already owns.
  static ComPtr Attach(T* pointer) {
    ComPtr owner;
    owner.pointer_ = pointer;
    return owner;
  }

  ComPtr(const ComPtr& other) : ComPtr(other.pointer_) {}
  ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  ComPtr& operator=(const ComPtr& other) {
    if (this != &other) ComPtr(other).swap(*this);
    return *this;
  }
  ComPtr& operator=(ComPtr&& other) noexcept {
    if (this != &other) ComPtr(std::move(other)).swap(*this);
    return *this;
  }
  ~ComPtr() { reset(); }

  T* get() const { return pointer_; }
  T* operator->() const { return pointer_; }
  explicit operator bool() const { return pointer_ != nullptr; }

  void reset() {
    if (T* old = std::exchange(pointer_, nullptr)) old->Release();
  }
  // Hands the reference to the caller.
  T* Detach() { return std::exchange(pointer_, nullptr); }
  // The slot for an out-parameter; the pointer held so far is released
  // first, so reusing an owner cannot leak.
  T** put() {
    reset();
    return &pointer_;
  }
  void** put_void() { return reinterpret_cast<void**>(put()); }
  void swap(ComPtr& other) noexcept { std::swap(pointer_, other.pointer_); }

  // Another interface of the same object; empty when it has none.
  template <class U>
  ComPtr<U> As() const {
    ComPtr<U> other;
    if (pointer_) pointer_->QueryInterface(__uuidof(U), other.put_void());
    return other;
  }

  // Hands out a new reference through an out-parameter (COM's own rule).
  HRESULT CopyTo(T** out) const {
    if (!out) return E_POINTER;
    *out = pointer_;
    if (pointer_) pointer_->AddRef();
    return S_OK;
  }

 private:
  T* pointer_ = nullptr;
};

}  // namespace tavrin::win
