#include "com/type_library_listing.h"

#include <cstdio>

#include "com/com_pointer.h"

namespace support {
namespace {

std::string Format(const char* format, auto... values) {
    char text[64];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

std::string Guid(const GUID& guid) {
    wchar_t text[40];
    const int length = StringFromGUID2(guid, text, 40);
    return std::string(text, text + length - 1);
}

// What ITypeInfo gives out and takes back.
template <class Description>
class Borrowed {
public:
    using Getter = HRESULT (STDMETHODCALLTYPE ITypeInfo::*)(UINT, Description**);
    using Release = void (STDMETHODCALLTYPE ITypeInfo::*)(Description*);

    Borrowed(ITypeInfo& owner, UINT index, Getter getter, Release release)
        : m_owner(owner), m_release(release) {
        Require((owner.*getter)(index, &m_description), "reading a member");
    }
    ~Borrowed() { (m_owner.*m_release)(m_description); }
    Borrowed(const Borrowed&) = delete;
    Borrowed& operator=(const Borrowed&) = delete;
    const Description* operator->() const { return m_description; }
    const Description& operator*() const { return *m_description; }

private:
    ITypeInfo& m_owner;
    Release m_release;
    Description* m_description = nullptr;
};

TYPEATTR Attributes(ITypeInfo& type) {
    TYPEATTR* attributes = nullptr;
    Require(type.GetTypeAttr(&attributes), "GetTypeAttr");
    const TYPEATTR copy = *attributes;
    type.ReleaseTypeAttr(attributes);
    return copy;
}

std::string Name(ITypeInfo& type, MEMBERID member = MEMBERID_NIL) {
    BSTR name = nullptr;
    Require(type.GetDocumentation(member, &name, nullptr, nullptr, nullptr), "reading a name");
    return TakeText(name);
}

ComPointer<ITypeInfo> Referenced(ITypeInfo& type, HREFTYPE reference) {
    ComPointer<ITypeInfo> referenced;
    Require(type.GetRefTypeInfo(reference, referenced.Receive()), "GetRefTypeInfo");
    return referenced;
}

ComPointer<ITypeInfo> Implemented(ITypeInfo& type, UINT index) {
    HREFTYPE reference = 0;
    Require(type.GetRefTypeOfImplType(index, &reference), "GetRefTypeOfImplType");
    return Referenced(type, reference);
}

std::string TypeName(ITypeInfo& type, const TYPEDESC& description) {
    switch (description.vt) {
    case VT_BSTR:
        return "BSTR";
    case VT_I4:
        return "long";
    case VT_INT:
        return "int";
    case VT_I8:
        return "hyper";
    case VT_BOOL:
        return "VARIANT_BOOL";
    case VT_DISPATCH:
        return "IDispatch";
    case VT_USERDEFINED:
        return Name(*Referenced(type, description.hreftype));
    case VT_PTR:
        return TypeName(type, *description.lptdesc) + "*";
    default:
        return Format("(type %d)", description.vt);
    }
}

std::string Default(const VARIANT& value) {
    switch (V_VT(&value)) {
    case VT_BSTR:
        return '"' + TakeText(SysAllocString(V_BSTR(&value))) + '"';
    case VT_I4:
        return Format("%ld", V_I4(&value));
    case VT_INT:
        return Format("%d", V_INT(&value));
    case VT_I8:
        return Format("%lld", static_cast<long long>(V_I8(&value)));
    case VT_BOOL:
        return Format("%d", V_BOOL(&value));
    default:
        return Format("(value of type %d)", V_VT(&value));
    }
}

std::string InParameter(ITypeInfo& type, const ELEMDESC& parameter, const std::string& name) {
    const PARAMDESC& extra = parameter.paramdesc;
    std::string text = TypeName(type, parameter.tdesc);
    if (!name.empty())
        text += " " + name;
    if (extra.wParamFlags == PARAMFLAG_FIN)
        return text;
    if (extra.wParamFlags != (PARAMFLAG_FIN | PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT))
        return text + Format(" (flags 0x%x)", extra.wParamFlags);
    const VARIANT& value = extra.pparamdescex->varDefaultValue;
    return text + "=" + Default(value) + (V_VT(&value) == parameter.tdesc.vt ? "" : " (of another type)");
}

// The result that a script sees: without the pointer to it, and an object without its own pointer.
std::string Result(ITypeInfo& type, const ELEMDESC& parameter) {
    std::string text = TypeName(type, parameter.tdesc);
    if (text.ends_with("**"))
        text.erase(text.size() - 2);
    else if (text.ends_with("*"))
        text.erase(text.size() - 1);
    return text;
}

std::string Kind(INVOKEKIND kind) {
    switch (kind) {
    case INVOKE_FUNC:
        return "method";
    case INVOKE_PROPERTYGET:
        return "get";
    case INVOKE_PROPERTYPUT:
        return "put";
    default:
        return Format("(kind %d)", kind);
    }
}

// The names of a function and its parameters. The value of a put has no name of its own, and the names that
// COM finds by the member id are those of the get.
std::vector<std::string> Names(ITypeInfo& type, const FUNCDESC& function) {
    BSTR names[16] = {};
    UINT count = 0;
    Require(type.GetNames(function.memid, names, 16, &count), "GetNames");
    std::vector<std::string> texts;
    for (UINT index = 0; index < count; ++index)
        texts.push_back(TakeText(names[index]));
    if (function.invkind == INVOKE_PROPERTYPUT)
        texts.resize(1);
    texts.resize(static_cast<std::size_t>(function.cParams) + 1);
    return texts;
}

std::string Help(ITypeInfo& type, MEMBERID member) {
    BSTR help = nullptr;
    Require(type.GetDocumentation(member, nullptr, &help, nullptr, nullptr), "reading a help string");
    return " \"" + TakeText(help) + '"';
}

// offset: where the function belongs in the vtable, in bytes.
std::string Function(ITypeInfo& type, UINT index, UINT offset) {
    const Borrowed<FUNCDESC> function(type, index, &ITypeInfo::GetFuncDesc, &ITypeInfo::ReleaseFuncDesc);
    const std::vector<std::string> names = Names(type, *function);
    std::string parameters;
    std::string result = "-";
    for (int place = 0; place < function->cParams; ++place) {
        const ELEMDESC& element = function->lprgelemdescParam[place];
        if (element.paramdesc.wParamFlags == (PARAMFLAG_FOUT | PARAMFLAG_FRETVAL))
            result = Result(type, element);
        else
            parameters += (parameters.empty() ? "" : ", ") +
                          InParameter(type, element, names[static_cast<std::size_t>(place) + 1]);
    }
    std::string line = Format("  0x%08lx ", function->memid) + Kind(function->invkind) + " " + names[0] +
                       "(" + parameters + ") -> " + result;
    if (function->invkind != INVOKE_PROPERTYPUT)
        line += Help(type, function->memid);
    if (function->funckind != FUNC_PUREVIRTUAL || function->callconv != CC_STDCALL ||
        function->elemdescFunc.tdesc.vt != VT_HRESULT || function->wFuncFlags != 0)
        line += " (not a plain COM function)";
    if (function->oVft != static_cast<SHORT>(offset))
        line += Format(" (at %d of the vtable)", function->oVft);
    return line + "\n";
}

std::string Flags(WORD flags) {
    std::string text;
    for (const auto& [flag, name] : {std::pair{TYPEFLAG_FDUAL, "dual"},
                                     {TYPEFLAG_FNONEXTENSIBLE, "nonextensible"},
                                     {TYPEFLAG_FOLEAUTOMATION, "oleautomation"},
                                     {TYPEFLAG_FDISPATCHABLE, "dispatchable"},
                                     {TYPEFLAG_FCANCREATE, "cancreate"}})
        if (flags & flag) {
            text += std::string(" ") + name;
            flags = static_cast<WORD>(flags & ~flag);
        }
    return flags == 0 ? text : text + Format(" (other flags 0x%x)", flags);
}

std::string Enumeration(ITypeInfo& type, const TYPEATTR& attributes) {
    std::string text = "enum " + Name(type) + " " + Guid(attributes.guid) + "\n";
    for (UINT index = 0; index < attributes.cVars; ++index) {
        const Borrowed<VARDESC> constant(type, index, &ITypeInfo::GetVarDesc, &ITypeInfo::ReleaseVarDesc);
        text += "  " + Name(type, constant->memid) + " = " + Default(*constant->lpvarValue) + "\n";
    }
    return text;
}

// The view of the compiled clients, given that of the scripts.
ComPointer<ITypeInfo> VtableView(ITypeInfo& dispatch) {
    return Implemented(dispatch, static_cast<UINT>(-1));
}

// The functions of an interface with those that it inherits. The sizes that the library records for its
// vtables count slots of four bytes, whatever process reads them.
UINT FunctionCount(ITypeInfo& type) {
    const TYPEATTR attributes = Attributes(type);
    if (attributes.typekind == TKIND_DISPATCH)
        return FunctionCount(*VtableView(type));
    return attributes.cFuncs + (attributes.cImplTypes == 0 ? 0 : FunctionCount(*Implemented(type, 0)));
}

std::string Interface(ITypeInfo& dispatch) {
    const ComPointer<ITypeInfo> type = VtableView(dispatch);
    const TYPEATTR attributes = Attributes(*type);
    const ComPointer<ITypeInfo> base = Implemented(*type, 0);
    std::string text = "interface " + Name(*type) + " " + Guid(attributes.guid) + " : " + Name(*base) +
                       Flags(attributes.wTypeFlags) + Help(*type, MEMBERID_NIL) + "\n";
    const UINT inherited = FunctionCount(*base);
    for (UINT index = 0; index < attributes.cFuncs; ++index)
        text += Function(*type, index, (inherited + index) * static_cast<UINT>(sizeof(void*)));
    return text;
}

std::string Coclass(ITypeInfo& type, const TYPEATTR& attributes) {
    std::string text = "coclass " + Name(type) + " " + Guid(attributes.guid) + " : ";
    for (UINT index = 0; index < attributes.cImplTypes; ++index) {
        INT flags = 0;
        Require(type.GetImplTypeFlags(index, &flags), "GetImplTypeFlags");
        text += (index == 0 ? "" : ", ") + Name(*Implemented(type, index)) +
                (flags == IMPLTYPEFLAG_FDEFAULT ? "" : " (not the default)");
    }
    return text + Flags(attributes.wTypeFlags) + Help(type, MEMBERID_NIL) + "\n";
}

std::string Library(ITypeLib& library) {
    TLIBATTR* attributes = nullptr;
    Require(library.GetLibAttr(&attributes), "GetLibAttr");
    std::string text =
        Guid(attributes->guid) + Format(" %d.%d", attributes->wMajorVerNum, attributes->wMinorVerNum) +
        Format(" locale 0x%lx ", attributes->lcid) +
        (attributes->syskind == SYS_WIN32 ? "win32" : Format("(system %d)", attributes->syskind));
    library.ReleaseTLibAttr(attributes);
    BSTR name = nullptr;
    BSTR help = nullptr;
    BSTR helpFile = nullptr;
    Require(library.GetDocumentation(-1, &name, &help, nullptr, &helpFile), "reading the library's name");
    text = "library " + TakeText(name) + " " + text + " \"" + TakeText(help) + '"';
    const std::string file = TakeText(helpFile);
    return text + (file.empty() ? "" : " (help file " + file + ")") + "\n";
}

std::string Type(ITypeInfo& type) {
    const TYPEATTR attributes = Attributes(type);
    switch (attributes.typekind) {
    case TKIND_ENUM:
        return Enumeration(type, attributes);
    case TKIND_DISPATCH:
        return Interface(type);
    case TKIND_COCLASS:
        return Coclass(type, attributes);
    default:
        return Format("(type of kind %d)", attributes.typekind) + Name(type) + "\n";
    }
}

} // namespace

std::vector<std::string> TypeLibraryListing(ITypeLib& library) {
    std::vector<std::string> listing = {Library(library)};
    for (UINT index = 0; index < library.GetTypeInfoCount(); ++index) {
        ComPointer<ITypeInfo> type;
        Require(library.GetTypeInfo(index, type.Receive()), "GetTypeInfo");
        listing.push_back(Type(*type));
    }
    return listing;
}

} // namespace support
