// The one guard of every COM entry point: nothing thrown inside reaches the
// caller; the failure becomes an HRESULT and, where it has a text, the
// thread's error information (what Visual Basic shows as Err.Description).
#pragma once

#include <exception>
#include <new>
#include <string_view>

#include "ide/object_model.h"
#include "win/win_support.h"

namespace tavrin::win {

// Sets the thread's error information for the caller to read.
void SetComErrorInfo(std::string_view description) noexcept;

// A run-time error number as Visual Basic's HRESULT; an automation error
// already is one.
inline HRESULT HresultOf(const ide::Error& error) {
  if (error.number() < 0) return static_cast<HRESULT>(error.number());
  if (error.number() > 0 && error.number() < 0x10000) {
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, error.number());
  }
  return E_FAIL;
}

template <class Body>
HRESULT GuardCom(Body&& body) noexcept {
  try {
    return body();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const ide::Error& error) {
    SetComErrorInfo(error.what());
    return HresultOf(error);
  } catch (const std::exception& error) {
    SetComErrorInfo(error.what());
    return E_FAIL;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace tavrin::win
