// Class objects of the built module, its locks and its unloading.
#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "automation/interfaces.h"
#include "com/built_module.h"
#include "com/com_pointer.h"
#include "server/CGhosthandModule.h"

namespace {

using support::BuiltModule;
using support::ComPointer;

// An object that aggregates another one and has no interface of its own.
class Outer final : public IUnknown {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown)
            return m_inner ? m_inner->QueryInterface(iid, object) : E_NOINTERFACE;
        *object = static_cast<IUnknown*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override { return --m_references; }

    ComPointer<IUnknown> m_inner;
    ULONG m_references = 1;
};

class ClassObjects : public testing::Test {
protected:
    ClassObjects() { EXPECT_EQ(m_module.CanUnloadNow(), S_OK); }
    // Whatever a test did, nothing of it keeps the module loaded.
    ~ClassObjects() override { EXPECT_EQ(m_module.CanUnloadNow(), S_OK); }

    ComPointer<IClassFactory> Factory(const CLSID& classId) {
        ComPointer<IClassFactory> factory;
        EXPECT_EQ(m_module.GetClassObject(classId, IID_IClassFactory, factory.ReceiveVoid()), S_OK);
        return factory;
    }

    BuiltModule m_module{BuiltModule::DefaultPath()};
};

TEST_F(ClassObjects, RefusesWhatIsNotThere) {
    EXPECT_EQ(m_module.GetClassObject(CLSID_Ghosthand, IID_IClassFactory, nullptr), E_POINTER);
    int something = 0;
    void* object = &something;
    EXPECT_EQ(m_module.GetClassObject(IID_IGhosthand, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
    object = &something;
    EXPECT_EQ(m_module.GetClassObject(CLSID_Ghosthand, IID_IDispatch, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
}

TEST_F(ClassObjects, WithoutInitialisationThereAreNone) {
    CGhosthandModule module;
    int something = 0;
    void* object = &something;
    EXPECT_EQ(module.GetClassObject(CLSID_Ghosthand, IID_IClassFactory, &object), E_UNEXPECTED);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(module.GetClassObject(CLSID_Ghosthand, IID_IClassFactory, nullptr), E_POINTER);
}

TEST_F(ClassObjects, EveryClassMakesObjectsOfItsDefaultInterface) {
    const struct {
        const CLSID& classId;
        const IID& iid;
    } kClasses[] = {
        {CLSID_Ghosthand, IID_IGhosthand},
        {CLSID_BaseWindow, IID_IBaseWindow},
        {CLSID_CheckBox, IID_ICheckBox},
        {CLSID_TreeItem, IID_ITreeItem},
        {CLSID_TreeControl, IID_ITreeControl},
        {CLSID_CADTreeItem, IID_ICADTreeItem},
        {CLSID_CADTreeControl, IID_ITreeControl},
        {CLSID_ComboBox, IID_IComboBox},
        {CLSID_GroupCombo, IID_IGroupCombo},
        {CLSID_ListBox, IID_IListBox},
        {CLSID_ListView, IID_IListView},
        {CLSID_TabControl, IID_ITabControl},
        {CLSID_TrackBar, IID_ITrackBar},
        {CLSID_ControlBar, IID_IControlBar},
        {CLSID_ControlBarItem, IID_IControlBarItem},
        {CLSID_OptionTree, IID_IOptionTree},
        {CLSID_OptionTreeItem, IID_IOptionTreeItem},
        {CLSID_GXGrid, IID_IGXGrid},
        {CLSID_CADView, IID_ICADView},
        {CLSID_OpenSaveDialog, IID_IOpenSaveDialog},
        {CLSID_RibCustomisationWidget, IID_IRibCustomisationWidget},
    };
    int number = 0;
    for (const auto& [classId, iid] : kClasses) {
        SCOPED_TRACE(testing::Message() << "class " << ++number);
        const ComPointer<IClassFactory> factory = Factory(classId);
        const ComPointer<IClassFactory> again = Factory(classId);
        EXPECT_EQ(factory.Get(), again.Get());
        ComPointer<IUnknown> object;
        EXPECT_EQ(factory->CreateInstance(nullptr, iid, object.ReceiveVoid()), S_OK);
        ComPointer<IDispatch> dispatch;
        EXPECT_EQ(object->QueryInterface(IID_IDispatch, dispatch.ReceiveVoid()), S_OK);
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, object.ReceiveVoid()), E_NOINTERFACE);
        EXPECT_EQ(object.Get(), nullptr);
        EXPECT_EQ(factory->CreateInstance(nullptr, iid, nullptr), E_POINTER);
    }
}

TEST_F(ClassObjects, FactoriesObjectsAndLocksKeepTheModule) {
    ComPointer<IClassFactory> factory = Factory(CLSID_Ghosthand);
    EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE);
    ComPointer<IUnknown> object;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, object.ReceiveVoid()), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    IClassFactory* const kept = factory.Get(); // the module keeps it until it is unloaded
    factory.Reset();
    EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE);
    EXPECT_EQ(kept->LockServer(FALSE), S_OK);
    EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE);
    object.Reset();
    EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
    EXPECT_EQ(Factory(CLSID_Ghosthand).Get(), kept);
}

TEST_F(ClassObjects, AnAggregatedObjectSpeaksForItsOuterOne) {
    const ComPointer<IClassFactory> factory = Factory(CLSID_BaseWindow);
    Outer outer;
    void* refused = &outer;
    EXPECT_EQ(factory->CreateInstance(&outer, IID_IDispatch, &refused), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(refused, nullptr);
    ASSERT_EQ(factory->CreateInstance(&outer, IID_IUnknown, outer.m_inner.ReceiveVoid()), S_OK);
    EXPECT_NE(outer.m_inner.Get(), &outer);
    EXPECT_EQ(outer.m_references, 1u);
    {
        ComPointer<IBaseWindow> window;
        ASSERT_EQ(outer.QueryInterface(IID_IBaseWindow, window.ReceiveVoid()), S_OK);
        EXPECT_EQ(outer.m_references, 2u);
        ComPointer<IUnknown> identity;
        ASSERT_EQ(window->QueryInterface(IID_IUnknown, identity.ReceiveVoid()), S_OK);
        EXPECT_EQ(identity.Get(), &outer);
    }
    EXPECT_EQ(outer.m_references, 1u);
    outer.m_inner.Reset();
}

// Loads the module anew, as only the first request makes a factory.
TEST(ClassObjectsOfThreads, AllThreadsGetTheSameFactory) {
    for (int round = 0; round < 20; ++round) {
        const BuiltModule module(BuiltModule::DefaultPath());
        constexpr int kThreads = 4;
        std::atomic<int> ready = 0;
        IClassFactory* factories[kThreads] = {};
        std::vector<std::thread> threads;
        for (IClassFactory*& factory : factories)
            threads.emplace_back([&] {
                ++ready;
                while (ready != kThreads)
                    std::this_thread::yield();
                module.GetClassObject(CLSID_ListView, IID_IClassFactory, reinterpret_cast<void**>(&factory));
            });
        for (std::thread& thread : threads)
            thread.join();
        for (IClassFactory* factory : factories) {
            ASSERT_NE(factory, nullptr);
            EXPECT_EQ(factory, factories[0]);
            factory->Release();
        }
        EXPECT_EQ(module.CanUnloadNow(), S_OK);
    }
}

} // namespace
