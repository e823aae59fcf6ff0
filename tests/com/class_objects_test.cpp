// Class objects of the built module, its locks and its unloading.
#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

#include "automation/interfaces.h"
#include "com/built_module.h"
#include "com/com_pointer.h"
#include "com/failing_memory.h"
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

// The classes with the default interface of each, and what that one derives from.
const struct {
    const CLSID& classId;
    std::vector<IID> interfaces;
} kClasses[] = {
    {CLSID_Ghosthand, {IID_IGhosthand}},
    {CLSID_BaseWindow, {IID_IBaseWindow}},
    {CLSID_CheckBox, {IID_ICheckBox, IID_IBaseWindow}},
    {CLSID_TreeItem, {IID_ITreeItem}},
    {CLSID_TreeControl, {IID_ITreeControl, IID_IBaseWindow}},
    {CLSID_CADTreeItem, {IID_ICADTreeItem, IID_ITreeItem}},
    {CLSID_CADTreeControl, {IID_ITreeControl, IID_IBaseWindow}},
    {CLSID_ComboBox, {IID_IComboBox, IID_IBaseWindow}},
    {CLSID_GroupCombo, {IID_IGroupCombo, IID_IBaseWindow}},
    {CLSID_ListBox, {IID_IListBox, IID_IBaseWindow}},
    {CLSID_ListView, {IID_IListView, IID_IListBox, IID_IBaseWindow}},
    {CLSID_TabControl, {IID_ITabControl, IID_IBaseWindow}},
    {CLSID_TrackBar, {IID_ITrackBar, IID_IBaseWindow}},
    {CLSID_ControlBar, {IID_IControlBar, IID_IBaseWindow}},
    {CLSID_ControlBarItem, {IID_IControlBarItem}},
    {CLSID_OptionTree, {IID_IOptionTree, IID_IBaseWindow}},
    {CLSID_OptionTreeItem, {IID_IOptionTreeItem}},
    {CLSID_GXGrid, {IID_IGXGrid, IID_IBaseWindow}},
    {CLSID_CADView, {IID_ICADView, IID_IBaseWindow}},
    {CLSID_OpenSaveDialog, {IID_IOpenSaveDialog, IID_IBaseWindow}},
    {CLSID_RibCustomisationWidget, {IID_IRibCustomisationWidget, IID_IBaseWindow}},
};

TEST_F(ClassObjects, EveryClassMakesObjectsOfItsDefaultInterface) {
    int number = 0;
    for (const auto& [classId, interfaces] : kClasses) {
        SCOPED_TRACE(testing::Message() << "class " << ++number);
        const IID& iid = interfaces.front();
        const ComPointer<IClassFactory> factory = Factory(classId);
        const ComPointer<IClassFactory> again = Factory(classId);
        EXPECT_EQ(factory.Get(), again.Get());
        ComPointer<IUnknown> object;
        EXPECT_EQ(factory->CreateInstance(nullptr, iid, object.ReceiveVoid()), S_OK);
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, object.ReceiveVoid()), E_NOINTERFACE);
        EXPECT_EQ(object.Get(), nullptr);
        EXPECT_EQ(factory->CreateInstance(nullptr, iid, nullptr), E_POINTER);
    }
}

TEST_F(ClassObjects, EveryObjectAnswersForItsBaseInterfacesAndForErrorTexts) {
    int number = 0;
    for (const auto& [classId, interfaces] : kClasses) {
        SCOPED_TRACE(testing::Message() << "class " << ++number);
        ComPointer<IUnknown> object;
        ASSERT_EQ(Factory(classId)->CreateInstance(nullptr, IID_IUnknown, object.ReceiveVoid()), S_OK);
        ComPointer<ISupportErrorInfo> support;
        ASSERT_EQ(object->QueryInterface(IID_ISupportErrorInfo, support.ReceiveVoid()), S_OK);
        std::vector<IID> answered = interfaces;
        answered.push_back(IID_IDispatch);
        answered.push_back(IID_ISupportErrorInfo);
        for (const auto& [unused, others] : kClasses) {
            for (const IID& iid : others) {
                const bool isOwn = std::ranges::find(interfaces, iid) != interfaces.end();
                EXPECT_EQ(support->InterfaceSupportsErrorInfo(iid), isOwn ? S_OK : S_FALSE);
                ComPointer<IUnknown> other;
                EXPECT_EQ(object->QueryInterface(iid, other.ReceiveVoid()), isOwn ? S_OK : E_NOINTERFACE);
            }
        }
        EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IDispatch), S_FALSE);
        for (const IID& iid : answered) {
            // From each to each, and to the one identity.
            ComPointer<IUnknown> from, identity;
            ASSERT_EQ(object->QueryInterface(iid, from.ReceiveVoid()), S_OK);
            ASSERT_EQ(from->QueryInterface(IID_IUnknown, identity.ReceiveVoid()), S_OK);
            EXPECT_EQ(identity.Get(), object.Get());
            for (const IID& to : answered) {
                ComPointer<IUnknown> reached;
                EXPECT_EQ(from->QueryInterface(to, reached.ReceiveVoid()), S_OK);
            }
        }
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
    for (const CLSID& classId : {CLSID_BaseWindow, CLSID_OpenSaveDialog}) {
        const ComPointer<IClassFactory> factory = Factory(classId);
        Outer outer;
        void* refused = &outer;
        EXPECT_EQ(factory->CreateInstance(&outer, IID_IDispatch, &refused), CLASS_E_NOAGGREGATION);
        EXPECT_EQ(refused, nullptr);
        ASSERT_EQ(factory->CreateInstance(&outer, IID_IUnknown, outer.m_inner.ReceiveVoid()), S_OK);
        EXPECT_NE(outer.m_inner.Get(), &outer);
        EXPECT_EQ(outer.m_references, 1u);
        for (const IID& iid : {IID_IBaseWindow, IID_IDispatch, IID_ISupportErrorInfo}) {
            ComPointer<IUnknown> part;
            ASSERT_EQ(outer.QueryInterface(iid, part.ReceiveVoid()), S_OK);
            EXPECT_EQ(outer.m_references, 2u);
            ComPointer<IUnknown> identity;
            ASSERT_EQ(part->QueryInterface(IID_IUnknown, identity.ReceiveVoid()), S_OK);
            EXPECT_EQ(identity.Get(), &outer);
        }
        EXPECT_EQ(outer.m_references, 1u);
        outer.m_inner.Reset();
    }
}

// Where memory is short no object comes to be, and nothing worse happens.
TEST_F(ClassObjects, WithoutMemoryThereIsNoObject) {
    support::FailingMemory memory(GetModuleHandleW(m_module.Path().c_str()));
    for (const auto& [classId, interfaces] : kClasses) {
        const ComPointer<IClassFactory> factory = Factory(classId);
        ComPointer<IUnknown> object;
        HRESULT result = E_FAIL;
        int allocations = 0;
        while (memory.RunsShortAfter(allocations, [&] {
            result = factory->CreateInstance(nullptr, interfaces.front(), object.ReceiveVoid());
        })) {
            EXPECT_EQ(result, E_OUTOFMEMORY);
            EXPECT_EQ(object.Get(), nullptr);
            ++allocations;
        }
        EXPECT_EQ(result, S_OK);
        EXPECT_GE(allocations, 1);
    }
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
