// The built module with the sample host that it drives: what the tests of automation objects start from.
#pragma once

#include <windows.h>

#include <memory>

#include <gtest/gtest.h>

#include "automation/interfaces.h"
#include "com/built_module.h"
#include "com/com_pointer.h"
#include "support/sample_host.h"

namespace support {

// A text for a call.
class Bstr {
public:
    explicit Bstr(const wchar_t* text) : m_text(SysAllocString(text)) {}
    ~Bstr() { SysFreeString(m_text); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    operator BSTR() const noexcept { return m_text; }

private:
    BSTR m_text;
};

class DrivenHost : public testing::Test {
protected:
    static void SetUpTestSuite() {
        Require(OleInitialize(nullptr), "OleInitialize");
        module = std::make_unique<BuiltModule>(BuiltModule::DefaultPath());
        host = std::make_unique<SampleHost>();
    }
    static void TearDownTestSuite() {
        host.reset();
        // Nothing that a test held has kept its lock.
        EXPECT_EQ(module->CanUnloadNow(), S_OK);
        module.reset();
        OleUninitialize();
    }

    template <class Interface>
    static ComPointer<Interface> Create(const CLSID& classId) {
        ComPointer<IClassFactory> factory;
        Require(module->GetClassObject(classId, IID_IClassFactory, factory.ReceiveVoid()), "class object");
        ComPointer<Interface> object;
        Require(factory->CreateInstance(nullptr, __uuidof(Interface), object.ReceiveVoid()),
                "CreateInstance");
        return object;
    }

    static ComPointer<IBaseWindow> MainWindow() {
        const auto entry = Create<IGhosthand>(CLSID_Ghosthand);
        ComPointer<IBaseWindow> window;
        Require(entry->MainWindow(Bstr(L"sample_host"), nullptr, nullptr, 0, 60, window.Receive()),
                "MainWindow");
        return window;
    }

    // The edit control of the first document.
    static ComPointer<IBaseWindow> Edit() {
        ComPointer<IBaseWindow> edit;
        Require(MainWindow()->WindowByID(Bstr(L"document 1.1001"), 60, edit.Receive()), "WindowByID");
        edit->put_Synchronization(VARIANT_FALSE);
        return edit;
    }

    static inline std::unique_ptr<BuiltModule> module;
    static inline std::unique_ptr<SampleHost> host;
};

} // namespace support
