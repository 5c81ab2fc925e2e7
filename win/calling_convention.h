// Compile-time checks that a COM method, callback or window procedure has
// the calling convention of what it implements. On 64-bit Windows there is
// one convention, so a wrong one works there; on 32-bit Windows the caller
// (the IDE, the system) pops the wrong stack and crashes. These checks fail
// the 32-bit build instead (on 64-bit they always hold).
//
// One line per method, next to its class:
//   static_assert(kImplements<&IDispatch::Invoke, &Connect::Invoke>);
//   static_assert(kIsWindowProcedure<&MessageTimer::WindowProc>);
#pragma once

#include <type_traits>

#include "win/win_support.h"

#include <unknwn.h>

namespace tavrin::win {

namespace calling_convention_detail {

template <class Member>
struct ClassOf;
template <class Function, class Class>
struct ClassOf<Function Class::*> {
  using type = Class;
};

// The same member function type (with its convention) in another class.
template <class Member, class Class>
struct Rebind;
template <class Function, class Base, class Class>
struct Rebind<Function Base::*, Class> {
  using type = Function Class::*;
};

}  // namespace calling_convention_detail

// Whether Method can stand for the interface's BaseMethod: the same
// parameters, result and calling convention (Method may add noexcept).
template <auto BaseMethod, auto Method>
inline constexpr bool kImplements = std::is_convertible_v<
    decltype(Method),
    typename calling_convention_detail::Rebind<
        decltype(BaseMethod),
        typename calling_convention_detail::ClassOf<decltype(Method)>::type>::type>;

// IUnknown::QueryInterface without the overload template mingw-w64 adds.
inline constexpr auto kQueryInterface =
    static_cast<HRESULT (STDMETHODCALLTYPE IUnknown::*)(REFIID, void**)>(&IUnknown::QueryInterface);

template <auto Procedure>
inline constexpr bool kIsWindowProcedure = std::is_convertible_v<decltype(Procedure), WNDPROC>;

template <auto Procedure>
inline constexpr bool kIsDialogProcedure = std::is_convertible_v<decltype(Procedure), DLGPROC>;

}  // namespace tavrin::win
