#include "ghinspect/object_members.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <set>
#include <string_view>

#include "explain/system_text.h"
#include "explain/utf8.h"
#include "ghinspect/com_values.h"
#include "shared/ghosthand_module.h"

namespace inspector {

namespace {

// Methods without parameters that read.
constexpr std::wstring_view kReaders[] = {L"GetItemCount"};
// How the names of members begin that do something on the way to an object.
constexpr std::string_view kActingSteps[] = {"Click", "ContextMenu", "Expand", "SelectItem"};
// Parameters with the time that a search may take; the inspector looks once.
constexpr const wchar_t* kTimeouts[] = {L"a_timeout", L"timeout"};
constexpr UINT kMostParameters = 16;

struct Outcome {
    HRESULT result = S_OK;
    Variant value;
    std::wstring error; // of a failure
};

std::wstring Hexadecimal(HRESULT result) {
    std::array<wchar_t, 16> text = {};
    std::swprintf(text.data(), text.size(), L"0x%08X", static_cast<unsigned>(result));
    return text.data();
}

Variant ToVariant(const explain::Argument& argument) {
    if (const auto* const text = std::get_if<std::string>(&argument)) {
        return Variant(explain::ToUtf16(*text));
    }
    if (const auto* const flags = std::get_if<explain::Flags>(&argument)) {
        return Variant(static_cast<LONG>(flags->value));
    }
    const std::int64_t number = std::get<std::int64_t>(argument);
    const auto small = static_cast<LONG>(number);
    return small == number ? Variant(small) : Variant(static_cast<double>(number)); // as a script passes it
}

Outcome Invoke(IDispatch& object, DISPID member, WORD kind, DISPPARAMS& parameters) {
    Outcome outcome;
    EXCEPINFO exception{};
    outcome.result =
        object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                      kind == DISPATCH_PROPERTYPUT ? nullptr : &outcome.value, &exception, nullptr);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
    std::wstring description = TakeText(exception.bstrDescription);
    if (outcome.result == DISP_E_EXCEPTION) {
        outcome.result = exception.scode != 0 ? exception.scode : E_FAIL;
    }
    if (FAILED(outcome.result)) {
        if (description.empty()) {
            description = explain::ToUtf16(explain::SystemText(static_cast<DWORD>(outcome.result)));
        }
        outcome.error =
            L"Error " + Hexadecimal(outcome.result) + (description.empty() ? L"" : L": ") + description;
    }
    return outcome;
}

Outcome CallByName(IDispatch& object, std::wstring name, WORD kind,
                   const std::vector<explain::Argument>& arguments) {
    LPOLESTR pointer = name.data();
    DISPID member = DISPID_UNKNOWN;
    if (const HRESULT result = object.GetIDsOfNames(IID_NULL, &pointer, 1, LOCALE_USER_DEFAULT, &member);
        FAILED(result)) {
        return {result, {}, L"There is no member " + name};
    }
    std::vector<Variant> owned;
    std::vector<DISPID> named;
    // Backwards, and what has a name first.
    if (kind == DISPATCH_PROPERTYPUT) {
        named.push_back(DISPID_PROPERTYPUT);
    } else {
        for (const std::wstring timeout : kTimeouts) {
            std::wstring parameter = timeout;
            LPOLESTR names[] = {name.data(), parameter.data()};
            DISPID ids[2] = {};
            const bool hasIt =
                SUCCEEDED(object.GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids)) &&
                ids[1] >= static_cast<DISPID>(arguments.size());
            if (hasIt) {
                named.push_back(ids[1]);
                owned.emplace_back(LONG{0});
                break;
            }
        }
    }
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
        owned.push_back(ToVariant(*argument));
    }
    std::vector<VARIANT> values;
    for (const Variant& value : owned) {
        values.push_back(value.Get());
    }
    DISPPARAMS parameters = {values.data(), named.data(), static_cast<UINT>(values.size()),
                             static_cast<UINT>(named.size())};
    return Invoke(object, member, kind, parameters);
}

constexpr WORD kCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET; // as scripts ask

struct Reached {
    ComPointer<IDispatch> object; // the last one on the way
    Outcome last;
    bool isWhole = false; // the last step was made
};

Reached Run(const explain::Call& call) {
    Reached reached;
    reached.object.reset(apps::CreateEntryObject().release());
    for (const explain::Step& step : call) {
        reached.isWhole = &step == &call.back();
        reached.last = CallByName(*reached.object, explain::ToUtf16(step.member), kCall, step.arguments);
        if (FAILED(reached.last.result) || (reached.last.value.IsObject() && !reached.last.value.Object())) {
            return reached;
        }
        if (!reached.last.value.IsObject()) {
            return reached;
        }
        IDispatch* const next = reached.last.value.Object();
        next->AddRef();
        reached.object.reset(next);
    }
    return reached;
}

bool FoundSomething(const Reached& reached) {
    return reached.isWhole && SUCCEEDED(reached.last.result) &&
           (!reached.last.value.IsObject() || reached.last.value.Object() != nullptr);
}

ComPointer<ITypeInfo> TypeOf(IDispatch& object) {
    ITypeInfo* type = nullptr;
    return SUCCEEDED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, &type)) ? ComPointer<ITypeInfo>(type)
                                                                        : nullptr;
}

std::wstring NameOf(ITypeInfo& type) {
    BSTR name = nullptr;
    type.GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
    return TakeText(name);
}

std::wstring Quoted(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

// None for what is no text and cannot become one.
std::optional<std::wstring> AsText(const VARIANT& value) {
    Variant text;
    // It reads the value only.
    if (FAILED(VariantChangeType(&text, const_cast<VARIANT*>(&value), 0, VT_BSTR))) {
        return std::nullopt;
    }
    return std::wstring(text.Get().bstrVal, SysStringLen(text.Get().bstrVal));
}

// As a script would print it; texts in quotes.
std::wstring InWords(const Variant& value) {
    const VARIANT& variant = value.Get();
    switch (variant.vt) {
    case VT_EMPTY:
        return L"done";
    case VT_BOOL:
        return variant.boolVal != VARIANT_FALSE ? L"True" : L"False";
    case VT_BSTR:
        return Quoted(std::wstring(variant.bstrVal, SysStringLen(variant.bstrVal)));
    case VT_DISPATCH: {
        if (variant.pdispVal == nullptr) {
            return L"Nothing";
        }
        const auto type = TypeOf(*variant.pdispVal);
        return L"an object" + (type == nullptr ? L"" : L" " + NameOf(*type));
    }
    default:
        return AsText(variant).value_or(L"a value of type " + std::to_wstring(variant.vt));
    }
}

std::wstring InWords(const Outcome& outcome) {
    return FAILED(outcome.result) ? outcome.error : InWords(outcome.value);
}

// A pointer's target.
const TYPEDESC& Pointed(const TYPEDESC& type) {
    return type.vt == VT_PTR ? *type.lptdesc : type;
}

bool IsObjectType(ITypeInfo& owner, const TYPEDESC& type) {
    const TYPEDESC& plain = Pointed(Pointed(type));
    if (plain.vt == VT_DISPATCH || plain.vt == VT_UNKNOWN) {
        return true;
    }
    ITypeInfo* referenced = nullptr;
    if (plain.vt != VT_USERDEFINED || FAILED(owner.GetRefTypeInfo(plain.hreftype, &referenced))) {
        return false;
    }
    const ComPointer<ITypeInfo> reference(referenced);
    TYPEATTR* attributes = nullptr;
    if (FAILED(reference->GetTypeAttr(&attributes))) {
        return false;
    }
    const TYPEKIND kind = attributes->typekind;
    reference->ReleaseTypeAttr(attributes);
    return kind == TKIND_DISPATCH || kind == TKIND_INTERFACE || kind == TKIND_COCLASS;
}

std::wstring FirstArgument(const ELEMDESC& parameter) {
    const PARAMDESC& description = parameter.paramdesc;
    const bool hasDefault = (description.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0;
    const VARIANT* const value = hasDefault ? &description.pparamdescex->varDefaultValue : nullptr;
    switch (parameter.tdesc.vt) {
    case VT_BSTR:
        return Quoted(hasDefault && value->vt == VT_BSTR && value->bstrVal != nullptr ? value->bstrVal : L"");
    case VT_BOOL:
        return hasDefault && value->vt == VT_BOOL && value->boolVal == VARIANT_FALSE ? L"False" : L"True";
    default:
        return hasDefault ? AsText(*value).value_or(L"0") : L"0";
    }
}

class TypeReader {
public:
    explicit TypeReader(std::vector<Member>& members) : m_members(members) {}

    // The functions of the interface, then those of the interfaces that it derives from: a name that comes
    // again is hidden from scripts.
    void Read(ITypeInfo& type) {
        TYPEATTR* attributes = nullptr;
        if (FAILED(type.GetTypeAttr(&attributes))) {
            return;
        }
        const UINT functions = attributes->cFuncs;
        const UINT bases = attributes->cImplTypes;
        type.ReleaseTypeAttr(attributes);
        for (UINT index = 0; index < functions; ++index) {
            FUNCDESC* function = nullptr;
            if (SUCCEEDED(type.GetFuncDesc(index, &function))) {
                Add(type, *function);
                type.ReleaseFuncDesc(function);
            }
        }
        for (UINT index = 0; index < bases; ++index) {
            HREFTYPE reference = 0;
            ITypeInfo* base = nullptr;
            if (SUCCEEDED(type.GetRefTypeOfImplType(index, &reference)) &&
                SUCCEEDED(type.GetRefTypeInfo(reference, &base))) {
                Read(*ComPointer<ITypeInfo>(base));
            }
        }
    }

private:
    void Add(ITypeInfo& type, const FUNCDESC& function) {
        // IUnknown's and IDispatch's own.
        if ((function.wFuncFlags & FUNCFLAG_FRESTRICTED) != 0 ||
            (function.memid >= 0x60000000 && function.memid <= 0x6001FFFF)) {
            return;
        }
        BSTR names[kMostParameters + 1] = {};
        UINT count = 0;
        type.GetNames(function.memid, names, kMostParameters + 1, &count);
        std::vector<std::wstring> texts;
        for (UINT index = 0; index < count; ++index) {
            texts.push_back(TakeText(names[index]));
        }
        if (texts.empty() || !m_known.insert({texts.front(), function.invkind}).second) {
            return;
        }
        Member member;
        member.name = texts.front();
        UINT taken = 0;
        for (SHORT index = 0; index < function.cParams; ++index) {
            const ELEMDESC& parameter = function.lprgelemdescParam[index];
            if ((parameter.paramdesc.wParamFlags & (PARAMFLAG_FOUT | PARAMFLAG_FRETVAL)) != 0) {
                continue;
            }
            ++taken;
            const bool hasName = taken < texts.size() && function.invkind != INVOKE_PROPERTYPUT;
            member.parameters += (taken > 1 ? L", " : L"") + (hasName ? texts[taken] : L"value");
            member.arguments += (taken > 1 ? L", " : L"") + FirstArgument(parameter);
        }
        BSTR help = nullptr;
        type.GetDocumentation(function.memid, nullptr, &help, nullptr, nullptr);
        member.help = TakeText(help);
        member.kind = KindOf(type, function, member.name, taken);
        m_members.push_back(std::move(member));
    }

    static Member::Kind KindOf(ITypeInfo& type, const FUNCDESC& function, const std::wstring& name,
                               UINT parameters) {
        if (function.invkind == INVOKE_PROPERTYPUT) {
            return Member::Kind::Put;
        }
        // A dispatch interface has the result in its place, a vtable interface as its last parameter.
        const bool hasResultParameter = static_cast<UINT>(function.cParams) > parameters;
        const TYPEDESC& result = hasResultParameter ? function.lprgelemdescParam[function.cParams - 1].tdesc
                                                    : function.elemdescFunc.tdesc;
        if (IsObjectType(type, result)) {
            return Member::Kind::Finder;
        }
        const bool reads =
            function.invkind == INVOKE_PROPERTYGET || std::ranges::find(kReaders, name) != std::end(kReaders);
        return reads && parameters == 0 ? Member::Kind::Value : Member::Kind::Action;
    }

    std::vector<Member>& m_members;
    std::set<std::pair<std::wstring, INVOKEKIND>> m_known;
};

} // namespace

ObjectReport ReadObject(const explain::Call& call) {
    ObjectReport report;
    const Reached reached = Run(call);
    if (!FoundSomething(reached)) {
        report.obstacle = FAILED(reached.last.result) ? reached.last.error : L"The call finds nothing now.";
        return report;
    }
    if (!reached.last.value.IsObject()) {
        report.answer = InWords(reached.last.value);
    }
    const auto type = TypeOf(*reached.object);
    if (type == nullptr) {
        report.obstacle = L"The object does not describe its members.";
        return report;
    }
    report.interfaceName = NameOf(*type);
    TypeReader(report.members).Read(*type);
    std::ranges::stable_sort(report.members, {}, [](const Member& member) {
        const int group = member.kind == Member::Kind::Value    ? 0
                          : member.kind == Member::Kind::Finder ? 2
                                                                : 1;
        return std::pair(group, member.name);
    });
    for (Member& member : report.members) {
        if (member.kind == Member::Kind::Value) {
            member.value = InWords(CallByName(*reached.object, member.name, kCall, {}));
        }
    }
    return report;
}

std::wstring Perform(const explain::Call& call, const Member& member,
                     const std::vector<explain::Argument>& arguments) {
    const Reached reached = Run(call);
    if (!FoundSomething(reached)) {
        return FAILED(reached.last.result) ? reached.last.error : L"The call finds nothing now.";
    }
    const WORD kind = member.kind == Member::Kind::Put ? DISPATCH_PROPERTYPUT : kCall;
    return InWords(CallByName(*reached.object, member.name, kind, arguments));
}

explain::Call LookingPart(const explain::Call& call) {
    const auto acts = [](const explain::Step& step) {
        return std::ranges::any_of(kActingSteps, [&](std::string_view beginning) {
            return std::string_view(step.member).starts_with(beginning);
        });
    };
    return {call.begin(), std::ranges::find_if(call, acts)};
}

double Time(const explain::Call& call) {
    // What is done once for each program and once for each thread does not count.
    apps::CreateEntryObject();
    LARGE_INTEGER frequency;
    LARGE_INTEGER begin;
    LARGE_INTEGER end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&begin);
    const bool isFound = FoundSomething(Run(call));
    QueryPerformanceCounter(&end);
    return isFound ? static_cast<double>(end.QuadPart - begin.QuadPart) * 1000 /
                         static_cast<double>(frequency.QuadPart)
                   : -1;
}

} // namespace inspector
