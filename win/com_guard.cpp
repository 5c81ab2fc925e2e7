#include "win/com_guard.h"

#include "win/com_ptr.h"
#include "win/com_values.h"

namespace tavrin::win {

void SetComErrorInfo(std::string_view description) noexcept {
  try {
    ComPtr<ICreateErrorInfo> create;
    if (FAILED(::CreateErrorInfo(create.put()))) return;
    const std::wstring source = L"Tavrin";
    const std::wstring text = Utf8ToWide(description);
    create->SetSource(const_cast<wchar_t*>(source.c_str()));
    create->SetDescription(const_cast<wchar_t*>(text.c_str()));
    if (auto info = create.As<IErrorInfo>()) ::SetErrorInfo(0, info.get());
  } catch (...) {
    // No memory for the text: the HRESULT alone still tells the caller.
  }
}

}  // namespace tavrin::win
