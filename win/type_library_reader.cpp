#include "win/type_library_reader.h"

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "win/com_ptr.h"
#include "win/com_values.h"
#include "win/win_support.h"

#include <oaidl.h>

namespace tavrin::win {
namespace {

using scan::DeclKind;
using scan::Declaration;

// Owners of what ITypeInfo lends: each descriptor goes back to its type
// information when the owner goes.
class TypeAttr {
 public:
  explicit TypeAttr(ITypeInfo& info) : info_(info) {
    if (FAILED(info.GetTypeAttr(&attr_))) attr_ = nullptr;
  }
  TypeAttr(const TypeAttr&) = delete;
  TypeAttr& operator=(const TypeAttr&) = delete;
  ~TypeAttr() {
    if (attr_) info_.ReleaseTypeAttr(attr_);
  }
  const TYPEATTR* get() const { return attr_; }

 private:
  ITypeInfo& info_;
  TYPEATTR* attr_ = nullptr;
};

class FuncDesc {
 public:
  FuncDesc(ITypeInfo& info, UINT index) : info_(info) {
    if (FAILED(info.GetFuncDesc(index, &desc_))) desc_ = nullptr;
  }
  FuncDesc(const FuncDesc&) = delete;
  FuncDesc& operator=(const FuncDesc&) = delete;
  ~FuncDesc() {
    if (desc_) info_.ReleaseFuncDesc(desc_);
  }
  const FUNCDESC* get() const { return desc_; }

 private:
  ITypeInfo& info_;
  FUNCDESC* desc_ = nullptr;
};

class VarDesc {
 public:
  VarDesc(ITypeInfo& info, UINT index) : info_(info) {
    if (FAILED(info.GetVarDesc(index, &desc_))) desc_ = nullptr;
  }
  VarDesc(const VarDesc&) = delete;
  VarDesc& operator=(const VarDesc&) = delete;
  ~VarDesc() {
    if (desc_) info_.ReleaseVarDesc(desc_);
  }
  const VARDESC* get() const { return desc_; }

 private:
  ITypeInfo& info_;
  VARDESC* desc_ = nullptr;
};

std::string MemberName(ITypeInfo& info, MEMBERID id) {
  Bstr name;
  if (FAILED(info.GetDocumentation(id, name.put(), nullptr, nullptr, nullptr))) return {};
  return name.ToUtf8();
}

// The type as Visual Basic names it in an As clause.
std::string TypeName(ITypeInfo& info, const TYPEDESC& type) {
  switch (type.vt) {
    case VT_I2: return "Integer";
    case VT_I4: case VT_INT: case VT_HRESULT: return "Long";
    case VT_R4: return "Single";
    case VT_R8: return "Double";
    case VT_CY: return "Currency";
    case VT_DATE: return "Date";
    case VT_BSTR: case VT_LPSTR: case VT_LPWSTR: return "String";
    case VT_DISPATCH: return "Object";
    case VT_BOOL: return "Boolean";
    case VT_VARIANT: return "Variant";
    case VT_UI1: return "Byte";
    case VT_UNKNOWN: return "IUnknown";
    case VT_PTR: return type.lptdesc ? TypeName(info, *type.lptdesc) : "Long";
    case VT_SAFEARRAY: return type.lptdesc ? TypeName(info, *type.lptdesc) + "()" : "Variant";
    case VT_USERDEFINED: {
      ComPtr<ITypeInfo> referenced;
      if (FAILED(info.GetRefTypeInfo(type.hreftype, referenced.put())) || !referenced)
        return "Variant";
      return MemberName(*referenced.get(), MEMBERID_NIL);
    }
    default: return "Variant";
  }
}

// A constant's value as Visual Basic writes its literal.
std::string ValueText(const VARIANT& value) {
  if (value.vt == VT_BSTR) {
    std::string text = "\"";
    for (char c : BstrToUtf8(value.bstrVal)) text += c == '"' ? std::string("\"\"") : std::string(1, c);
    return text + "\"";
  }
  Variant converted;
  // The source is only read; the declaration lacks its const.
  if (FAILED(::VariantChangeTypeEx(converted.get(), const_cast<VARIANT*>(&value),
                                   LOCALE_INVARIANT, 0, VT_BSTR)))
    return {};
  return BstrToUtf8(converted.get()->bstrVal);
}

Declaration Member(DeclKind kind, std::string name, std::string parent) {
  Declaration member;
  member.kind = kind;
  member.scope = scan::DeclScope::kGlobal;
  member.name = std::move(name);
  member.parent = std::move(parent);
  return member;
}

// The fields of an enum, a record or a module.
void ReadVariables(ITypeInfo& info, const TYPEATTR& attr, DeclKind kind, const std::string& parent,
                   std::vector<Declaration>& members) {
  for (UINT i = 0; i < attr.cVars; ++i) {
    const VarDesc var(info, i);
    if (!var.get() || (var.get()->wVarFlags & (VARFLAG_FHIDDEN | VARFLAG_FRESTRICTED))) continue;
    Declaration member = Member(kind, MemberName(info, var.get()->memid), parent);
    if (var.get()->varkind == VAR_CONST && var.get()->lpvarValue)
      member.value = ValueText(*var.get()->lpvarValue);
    member.type = kind == DeclKind::kEnumMember ? parent
                                                : TypeName(info, var.get()->elemdescVar.tdesc);
    members.push_back(std::move(member));
  }
}

// A procedure's arguments as Visual Basic declares them, for callers that
// name them: "ByVal Number As Long, Optional Base". The retval and LCID
// arguments are no arguments to a caller; a vararg function's last one is
// a ParamArray.
std::string ArgumentsText(ITypeInfo& info, const FUNCDESC& func) {
  std::vector<Bstr> names(static_cast<std::size_t>(func.cParams) + 1);
  std::vector<BSTR> raw(names.size(), nullptr);
  UINT count = 0;
  if (FAILED(info.GetNames(func.memid, raw.data(), static_cast<UINT>(raw.size()), &count)))
    count = 0;
  for (UINT n = 0; n < count; ++n) *names[n].put() = raw[n];  // owned from here
  std::string text;
  for (SHORT p = 0; p < func.cParams; ++p) {
    const ELEMDESC& param = func.lprgelemdescParam[p];
    const USHORT flags = param.paramdesc.wParamFlags;
    if (flags & (PARAMFLAG_FRETVAL | PARAMFLAG_FLCID)) continue;
    const auto at = static_cast<UINT>(p) + 1;
    std::string name = at < count ? names[at].ToUtf8() : "";
    if (name.empty()) name = "Arg" + std::to_string(p + 1);
    if (!text.empty()) text += ", ";
    if (func.cParamsOpt == -1 && p + 1 == func.cParams) {
      text += "ParamArray " + name + "()";
      continue;
    }
    if (flags & PARAMFLAG_FOPT) text += "Optional ";
    if (param.tdesc.vt != VT_PTR) text += "ByVal ";
    text += name + " As " + TypeName(info, param.tdesc);
  }
  return text;
}

// The procedures of a module; a function returning HRESULT returns its
// retval argument.
void ReadProcedures(ITypeInfo& info, const TYPEATTR& attr, const std::string& module,
                    std::vector<Declaration>& members) {
  for (UINT i = 0; i < attr.cFuncs; ++i) {
    const FuncDesc func(info, i);
    if (!func.get() || (func.get()->wFuncFlags & (FUNCFLAG_FHIDDEN | FUNCFLAG_FRESTRICTED)))
      continue;
    Declaration member = Member(DeclKind::kProcedure, MemberName(info, func.get()->memid), module);
    const TYPEDESC* returns = &func.get()->elemdescFunc.tdesc;
    for (SHORT p = 0; p < func.get()->cParams; ++p) {
      const ELEMDESC& param = func.get()->lprgelemdescParam[p];
      if (param.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) returns = &param.tdesc;
    }
    if (returns->vt != VT_VOID && returns->vt != VT_HRESULT) member.type = TypeName(info, *returns);
    member.arguments = ArgumentsText(info, *func.get());
    members.push_back(std::move(member));
  }
}

void ReadType(ITypeInfo& info, std::vector<Declaration>& members) {
  const TypeAttr attr(info);
  if (!attr.get()) return;
  if (attr.get()->wTypeFlags & (TYPEFLAG_FHIDDEN | TYPEFLAG_FRESTRICTED)) return;
  const std::string name = MemberName(info, MEMBERID_NIL);
  if (name.empty()) return;
  switch (attr.get()->typekind) {
    case TKIND_COCLASS:
    case TKIND_DISPATCH:
    case TKIND_INTERFACE: {
      Declaration member = Member(DeclKind::kClass, name, "");
      member.type = name;
      members.push_back(std::move(member));
      break;
    }
    case TKIND_ENUM:
      members.push_back(Member(DeclKind::kEnum, name, ""));
      ReadVariables(info, *attr.get(), DeclKind::kEnumMember, name, members);
      break;
    case TKIND_RECORD:
      members.push_back(Member(DeclKind::kType, name, ""));
      ReadVariables(info, *attr.get(), DeclKind::kTypeMember, name, members);
      break;
    case TKIND_MODULE:
      ReadVariables(info, *attr.get(), DeclKind::kConstant, name, members);
      ReadProcedures(info, *attr.get(), name, members);
      break;
    default:
      break;  // aliases and unions declare nothing a builder offers
  }
}

std::string HexCode(HRESULT result) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(result));
  return text;
}

ComPtr<ITypeLib> Load(const scan::LibraryReference& reference, HRESULT& result) {
  ComPtr<ITypeLib> library;
  result = E_FAIL;
  GUID guid{};
  if (!reference.guid.empty() &&
      SUCCEEDED(::CLSIDFromString(Utf8ToWide(reference.guid).c_str(), &guid))) {
    result = ::LoadRegTypeLib(guid, static_cast<WORD>(reference.major),
                              static_cast<WORD>(reference.minor), 0, library.put());
    if (SUCCEEDED(result) && library) return library;
  }
  if (!reference.path.empty()) {
    result = ::LoadTypeLibEx(Utf8ToWide(reference.path).c_str(), REGKIND_NONE, library.put());
    if (SUCCEEDED(result) && library) return library;
  }
  return {};
}

}  // namespace

Result<scan::TypeLibrary> WindowsTypeLibraryReader::Read(const scan::LibraryReference& reference) {
  HRESULT result = E_FAIL;
  const ComPtr<ITypeLib> library = Load(reference, result);
  if (!library) {
    return Error{"The type library " + reference.Label() + " could not be loaded (" +
                 "error " + HexCode(result) + "). Its classes and enums are not offered."};
  }
  scan::TypeLibrary read;
  Bstr name;
  Bstr description;
  if (SUCCEEDED(library->GetDocumentation(-1, name.put(), description.put(), nullptr, nullptr))) {
    read.name = name.ToUtf8();
    read.description = description.ToUtf8();
  }
  const UINT count = library->GetTypeInfoCount();
  for (UINT i = 0; i < count; ++i) {
    ComPtr<ITypeInfo> info;
    if (SUCCEEDED(library->GetTypeInfo(i, info.put())) && info) ReadType(*info.get(), read.members);
  }
  return read;
}

}  // namespace tavrin::win
