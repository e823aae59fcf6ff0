// The frame that every automation object shares: reference count, aggregation, interfaces, IDispatch and
// the engine object.
#pragma once

#include <atomic>
#include <memory>
#include <utility>

#include "automation/activation_context.h"
#include "automation/call_report.h"
#include "automation/conversions.h"
#include "automation/guarded.h"
#include "automation/module_lock.h"
#include "automation/type_info.h"
#include "engine/dpi_scope.h"

namespace automation {

// For an automation object that stands for nothing in the host.
struct NoEngine {};

// Object is the final class, Interface its dual interface, Engine the kind of its engine object, Bases the
// interfaces that Interface derives from (IDispatch and IUnknown go without saying).
//
// The object starts with a reference count of 0 and destroys itself with the last reference. An object of
// its own delegates to itself, an aggregated one to its outer object. It holds one lock on the module.
template <class Object, class Interface, class Engine, class... Bases>
class AutomationObject : public Interface, public ISupportErrorInfo {
public:
    using EngineObject = Engine;

    explicit AutomationObject(IUnknown* outer) noexcept : m_outer(outer != nullptr ? outer : &m_inner) {}
    virtual ~AutomationObject() = default;
    AutomationObject(const AutomationObject&) = delete;
    AutomationObject& operator=(const AutomationObject&) = delete;

    // The object's own IUnknown, which an outer object holds and which counts the references.
    IUnknown& Inner() noexcept { return m_inner; }

    // Hands an engine object over, in place of the one that is there.
    void Adopt(std::unique_ptr<Engine> object) noexcept {
        m_window = std::move(object);
        m_awareness = engine::DpiAwarenessOf(m_window == nullptr ? nullptr : m_window->Window());
    }
    // Null until one is handed over.
    Engine* EngineOrNull() const noexcept { return m_window.get(); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        return m_outer->QueryInterface(iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return m_outer->AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return m_outer->Release(); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        const ActivationScope scope;
        if (count == nullptr) {
            return E_POINTER;
        }
        *count = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** information) override {
        return DispatchTypeInfo(__uuidof(Interface), index, information);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override {
        return DispatchIdsOfNames(__uuidof(Interface), reserved, names, count, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override {
        const KeptAlive kept(*this); // the system asks a failing object for ISupportErrorInfo afterwards
        return DispatchInvoke(__uuidof(Interface), static_cast<Interface*>(this), id, reserved, flags,
                              parameters, result, exception, badArgument);
    }

    // Each member leaves a text, or none, whenever it fails. Invoke's callers have it in their EXCEPINFO.
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
        return Implements(iid) ? S_OK : S_FALSE;
    }

protected:
    // Runs a member's body with the engine object: E_UNEXPECTED if there is none, as in an object that a
    // client created itself. The body may wait and so let calls re-enter: the object is kept alive for it.
    // Coordinates are the driven program's own pixels, whatever the client is.
    // A member with arguments names them, and the place for a result that is an object: whoever listens is
    // told.
    template <class Body>
    HRESULT Run(Arguments arguments, Body body, const char* member = __builtin_FUNCTION()) noexcept {
        return RunFor(Argument(), arguments, body, member);
    }
    template <class Body>
    HRESULT Run(Body body, const char* member = __builtin_FUNCTION()) noexcept {
        return RunFor(Argument(), {}, body, member);
    }

    // Run with the place for the result apart from the arguments.
    template <class Body>
    HRESULT RunFor(Argument result, Arguments arguments, Body body, const char* member) noexcept {
        return RunBody(result, arguments, member, &Call<Body>, &body);
    }

    // Run for a member that needs no engine object.
    template <class Body>
    HRESULT RunWithoutEngine(Arguments arguments, Body body,
                             const char* member = __builtin_FUNCTION()) noexcept {
        const KeptAlive kept(*this);
        CallReport report(Target(member), nullptr, arguments);
        return report.Ended(Guarded(body));
    }

    // Run for a member with a result, which is cleared first. It is written unchecked: only the
    // members that say so test their out pointer.
    template <class Result, class Body>
    HRESULT Get(Result* result, Arguments arguments, Body body,
                const char* member = __builtin_FUNCTION()) noexcept {
        *result = {};
        return RunFor(
            result, arguments, [&](Engine& engine) { Assign(result, body(engine)); }, member);
    }
    template <class Result, class Body>
    HRESULT Get(Result* result, Body body, const char* member = __builtin_FUNCTION()) noexcept {
        return Get(result, {}, body, member);
    }

    // A member that this class deliberately does not have, though its interface does.
    HRESULT NotImplemented(const char* member = __builtin_FUNCTION()) noexcept {
        return Run([](const Engine&) -> HRESULT { return E_NOTIMPL; }, member);
    }
    template <class Result>
    HRESULT NotImplemented(Result* result, const char* member = __builtin_FUNCTION()) noexcept {
        *result = {};
        return NotImplemented(member);
    }

private:
    template <class Body>
    static HRESULT Call(void* body, Engine& engine) {
        Body& member = *static_cast<Body*>(body);
        if constexpr (std::is_void_v<decltype(member(engine))>) {
            member(engine);
            return S_OK;
        } else {
            return member(engine);
        }
    }

    // What is around every member's body stands once for each class, not once for each member: every driven
    // program maps it.
    HRESULT RunBody(Argument result, Arguments arguments, const char* member, HRESULT (*call)(void*, Engine&),
                    void* body) noexcept {
        const KeptAlive kept(*this);
        const engine::DpiScope dpi(m_awareness);
        CallReport report(Target(member), m_window == nullptr ? nullptr : m_window->Window(), arguments,
                          result);
        return report.Ended(
            Guarded([&] { return m_window == nullptr ? E_UNEXPECTED : call(body, *m_window); }));
    }

    CallTarget Target(const char* member) const noexcept {
        return {static_cast<const Interface*>(this), typeid(Object), __uuidof(Interface), member};
    }

    class InnerUnknown final : public IUnknown {
    public:
        explicit InnerUnknown(AutomationObject& owner) noexcept : m_owner(owner) {}

        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
            if (object == nullptr) {
                return E_POINTER;
            }
            *object = m_owner.Find(iid);
            if (*object == nullptr) {
                return E_NOINTERFACE;
            }
            static_cast<IUnknown*>(*object)->AddRef();
            return S_OK;
        }
        ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
        ULONG STDMETHODCALLTYPE Release() override {
            const ULONG left = --m_references;
            if (left == 0) {
                m_references = 1; // a destructor that hands the object out must not destroy it twice
                delete static_cast<Object*>(&m_owner);
            }
            return left;
        }

    private:
        AutomationObject& m_owner;
        std::atomic<ULONG> m_references = 0;
    };

    class KeptAlive {
    public:
        explicit KeptAlive(AutomationObject& object) noexcept : m_object(object) { m_object.AddRef(); }
        ~KeptAlive() { m_object.Release(); }
        KeptAlive(const KeptAlive&) = delete;
        KeptAlive& operator=(const KeptAlive&) = delete;

    private:
        AutomationObject& m_object;
    };

    // The interface of that id, which begins with IUnknown, without a reference; null if there is none.
    void* Find(REFIID iid) noexcept {
        if (iid == IID_IUnknown) {
            return static_cast<IUnknown*>(&m_inner);
        }
        if (iid == IID_ISupportErrorInfo) {
            return static_cast<ISupportErrorInfo*>(this);
        }
        return iid == IID_IDispatch || Implements(iid) ? static_cast<Interface*>(this) : nullptr;
    }

    static bool Implements(REFIID iid) noexcept {
        return iid == __uuidof(Interface) || (... || (iid == __uuidof(Bases)));
    }

    ModuleLock m_moduleLock;
    InnerUnknown m_inner{*this};
    IUnknown* m_outer;
    std::unique_ptr<Engine> m_window;
    DPI_AWARENESS_CONTEXT m_awareness = nullptr; // that of the engine object's window
};

} // namespace automation
