// The add-in class as the IDE and COM know it: class id, ProgID, and the
// name and description shown in the IDE's Add-In Manager, which names the
// version installed.
#pragma once

#include "tavrin_version.h"
#include "win/win_support.h"

namespace tavrin::win {

// {87008D36-1E11-48C1-BC0F-3D57A81DB56A}; never changes, or the IDE loses
// the add-in.
inline constexpr CLSID kConnectClsid = {
    0x87008d36, 0x1e11, 0x48c1, {0xbc, 0x0f, 0x3d, 0x57, 0xa8, 0x1d, 0xb5, 0x6a}};
inline constexpr wchar_t kConnectClsidText[] = L"{87008D36-1E11-48C1-BC0F-3D57A81DB56A}";
inline constexpr wchar_t kConnectProgId[] = L"Tavrin.Connect";
inline constexpr wchar_t kConnectClassName[] = L"Tavrin Connect";
inline constexpr wchar_t kAddinFriendlyName[] = L"Tavrin";
inline constexpr wchar_t kAddinDescription[] =
    L"Tavrin " TAVRIN_VERSION L": " TAVRIN_ADDIN_DESCRIPTION;

}  // namespace tavrin::win
