#include "automation/type_info.h"

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "automation/activation_context.h"
#include "automation/guarded.h"
#include "automation/member_table.h"
#include "hostlink/module_instance.h"

namespace automation {

namespace {

struct Releaser {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};
template <class Interface>
using Owned = std::unique_ptr<Interface, Releaser>;

struct GuidOrder {
    bool operator()(const GUID& left, const GUID& right) const noexcept {
        return memcmp(&left, &right, sizeof left) < 0;
    }
};

constexpr WORD kMajorVersion = 1;
constexpr WORD kMinorVersion = 0;
constexpr LCID kLibraryLocale = 0x409; // the library is registered under this locale alone

HRESULT LoadLibraryOfTypes(ITypeLib** library) {
    const HRESULT registered =
        LoadRegTypeLib(LIBID_GhosthandLib, kMajorVersion, kMinorVersion, kLibraryLocale, library);
    if (SUCCEEDED(registered)) {
        return registered;
    }
    const std::wstring path = hostlink::ModulePath(hostlink::ModuleInstance());
    return LoadTypeLibEx(path.c_str(), REGKIND_NONE, library);
}

struct Description {
    Owned<ITypeInfo> information;
    MemberTable members;
};

class DescriptionCache {
public:
    HRESULT Find(REFIID interfaceId, std::shared_ptr<const Description>& description) {
        const std::lock_guard lock(m_mutex);
        std::shared_ptr<const Description>& known = m_known[interfaceId];
        if (known == nullptr) {
            auto loaded = std::make_shared<Description>();
            if (const HRESULT result = Load(interfaceId, *loaded); FAILED(result)) {
                return result;
            }
            known = std::move(loaded);
        }
        description = known;
        return S_OK;
    }

    void Clear() {
        const std::lock_guard lock(m_mutex);
        m_known.clear();
        m_library.reset();
    }

private:
    HRESULT Load(REFIID interfaceId, Description& description) {
        if (m_library == nullptr) {
            ITypeLib* library = nullptr;
            if (const HRESULT result = LoadLibraryOfTypes(&library); FAILED(result)) {
                return result;
            }
            m_library.reset(library);
        }
        ITypeInfo* information = nullptr;
        if (const HRESULT result = m_library->GetTypeInfoOfGuid(interfaceId, &information); FAILED(result)) {
            return result;
        }
        description.information.reset(information);
        return description.members.Read(*information);
    }

    std::mutex m_mutex;
    Owned<ITypeLib> m_library;
    std::map<GUID, std::shared_ptr<const Description>, GuidOrder> m_known;
};

// Its destructor never runs: at the end of a process the descriptions' own module may be gone already.
union ImmortalCache {
    ImmortalCache() : cache() {}
    ~ImmortalCache() {}
    DescriptionCache cache;
};

DescriptionCache& Cache() {
    static ImmortalCache immortal;
    return immortal.cache;
}

// The caller's share keeps the description while a call lets others in, which may empty the cache.
HRESULT Describe(REFIID interfaceId, std::shared_ptr<const Description>& description) noexcept {
    return Guarded([&] { return Cache().Find(interfaceId, description); });
}

} // namespace

void ReleaseTypeInformation() noexcept {
    Guarded([] { Cache().Clear(); });
}

HRESULT DispatchTypeInfo(REFIID interfaceId, UINT index, ITypeInfo** information) noexcept {
    const ActivationScope scope;
    if (information == nullptr) {
        return E_POINTER;
    }
    *information = nullptr;
    if (index != 0) {
        return DISP_E_BADINDEX;
    }
    std::shared_ptr<const Description> description;
    if (const HRESULT result = Describe(interfaceId, description); FAILED(result)) {
        return result;
    }
    description->information->AddRef();
    *information = description->information.get();
    return S_OK;
}

HRESULT DispatchIdsOfNames(REFIID interfaceId, REFIID reserved, LPOLESTR* names, UINT count,
                           DISPID* ids) noexcept {
    const ActivationScope scope;
    if (reserved != IID_NULL) {
        return DISP_E_UNKNOWNINTERFACE;
    }
    if (names == nullptr || ids == nullptr || count == 0 ||
        std::find(names, names + count, nullptr) != names + count) {
        return E_INVALIDARG;
    }
    std::shared_ptr<const Description> description;
    if (const HRESULT result = Describe(interfaceId, description); FAILED(result)) {
        return result;
    }
    return description->information->GetIDsOfNames(names, count, ids);
}

HRESULT DispatchInvoke(REFIID interfaceId, void* object, DISPID id, REFIID reserved, WORD flags,
                       DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                       UINT* badArgument) noexcept {
    const ActivationScope scope;
    if (reserved != IID_NULL) {
        return DISP_E_UNKNOWNINTERFACE;
    }
    std::shared_ptr<const Description> description;
    if (const HRESULT loaded = Describe(interfaceId, description); FAILED(loaded)) {
        return loaded;
    }
    if (const HRESULT refused = description->members.Check(id, flags, parameters, badArgument);
        FAILED(refused)) {
        return refused;
    }
    const HRESULT invoked =
        description->information->Invoke(object, id, flags, parameters, result, exception, badArgument);
    // Scripts know a Long, not the type of the members that return an "int".
    if (SUCCEEDED(invoked) && result != nullptr && V_VT(result) == VT_INT) {
        V_VT(result) = VT_I4;
    }
    return invoked;
}

} // namespace automation
