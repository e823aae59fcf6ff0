#include "automation/type_info.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "automation/activation_context.h"
#include "automation/guarded.h"
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

class TypeInformationCache {
public:
    HRESULT Find(REFIID interfaceId, ITypeInfo** information) {
        const std::lock_guard lock(m_mutex);
        Owned<ITypeInfo>& known = m_known[interfaceId];
        if (known == nullptr) {
            ITypeInfo* loaded = nullptr;
            if (const HRESULT result = Load(interfaceId, &loaded); FAILED(result)) {
                return result;
            }
            known.reset(loaded);
        }
        known->AddRef();
        *information = known.get();
        return S_OK;
    }

    void Clear() {
        const std::lock_guard lock(m_mutex);
        m_known.clear();
        m_library.reset();
    }

private:
    HRESULT Load(REFIID interfaceId, ITypeInfo** information) {
        if (m_library == nullptr) {
            ITypeLib* library = nullptr;
            if (const HRESULT result = LoadLibraryOfTypes(&library); FAILED(result)) {
                return result;
            }
            m_library.reset(library);
        }
        return m_library->GetTypeInfoOfGuid(interfaceId, information);
    }

    std::mutex m_mutex;
    Owned<ITypeLib> m_library;
    std::map<GUID, Owned<ITypeInfo>, GuidOrder> m_known;
};

// Never destroyed: at the end of a process the type information's own module may be gone already.
TypeInformationCache& Cache() {
    static TypeInformationCache& cache = *std::make_unique<TypeInformationCache>().release();
    return cache;
}

} // namespace

HRESULT TypeInformation(REFIID interfaceId, ITypeInfo** information) noexcept {
    *information = nullptr;
    return Guarded([&] { return Cache().Find(interfaceId, information); });
}

void ReleaseTypeInformation() noexcept {
    Guarded([] { Cache().Clear(); });
}

HRESULT DispatchTypeInfo(REFIID interfaceId, UINT index, ITypeInfo** information) noexcept {
    const ActivationScope scope;
    if (information == nullptr) {
        return E_POINTER;
    }
    *information = nullptr;
    return index == 0 ? TypeInformation(interfaceId, information) : DISP_E_BADINDEX;
}

HRESULT DispatchIdsOfNames(REFIID interfaceId, LPOLESTR* names, UINT count, DISPID* ids) noexcept {
    const ActivationScope scope;
    ITypeInfo* found = nullptr;
    if (const HRESULT result = TypeInformation(interfaceId, &found); FAILED(result)) {
        return result;
    }
    const Owned<ITypeInfo> information(found);
    return information->GetIDsOfNames(names, count, ids);
}

HRESULT DispatchInvoke(REFIID interfaceId, void* object, DISPID id, WORD flags, DISPPARAMS* parameters,
                       VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept {
    const ActivationScope scope;
    ITypeInfo* found = nullptr;
    if (const HRESULT loaded = TypeInformation(interfaceId, &found); FAILED(loaded)) {
        return loaded;
    }
    const Owned<ITypeInfo> information(found);
    const HRESULT invoked =
        information->Invoke(object, id, flags, parameters, result, exception, badArgument);
    // Scripts know a Long, not the type of the members that return an "int".
    if (SUCCEEDED(invoked) && result != nullptr && V_VT(result) == VT_INT) {
        V_VT(result) = VT_I4;
    }
    return invoked;
}

} // namespace automation
