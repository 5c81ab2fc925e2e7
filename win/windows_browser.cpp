#include "win/windows_browser.h"

#include "win/dispatch.h"

namespace tavrin::win {
namespace {

constexpr long kReadyStateComplete = 4;
constexpr ULONGLONG kPatienceMilliseconds = 5000;

// Closes the browser however the reading ends.
struct QuitOnExit {
  const Dispatch& browser;
  ~QuitOnExit() {
    try {
      browser.Call("Quit");
    } catch (...) {
      // Gone already: nothing to close.
    }
  }
};

std::string ReadDefaultCharset(const Dispatch& browser) {
  QuitOnExit quit{browser};
  std::vector<Variant> args;
  args.push_back(Variant::String("about:blank"));
  browser.Call("Navigate", std::move(args));
  const ULONGLONG end = ::GetTickCount64() + kPatienceMilliseconds;
  while (VariantToLong(*browser.Get("ReadyState").get()) != kReadyStateComplete) {
    if (::GetTickCount64() > end) return {};
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageW(&message);
    ::Sleep(10);
  }
  const Dispatch document = browser.Wrap(browser.GetObject("Document"), "Document");
  return VariantToString(*document.Get("defaultCharset").get());
}

}  // namespace

std::string WindowsBrowser::DefaultCharset() {
  try {
    CLSID clsid{};
    ComPtr<IDispatch> object;
    if (FAILED(::CLSIDFromProgID(prog_id_.c_str(), &clsid)) ||
        FAILED(::CoCreateInstance(clsid, nullptr, CLSCTX_LOCAL_SERVER | CLSCTX_INPROC_SERVER,
                                  IID_IDispatch, object.put_void()))) {
      return kFallbackCharset;
    }
    const Dispatch browser(std::move(object), std::make_shared<DispIdCache>(), "Browser");
    const std::string charset = ReadDefaultCharset(browser);
    return charset.empty() ? kFallbackCharset : charset;
  } catch (...) {
    return kFallbackCharset;
  }
}

}  // namespace tavrin::win
