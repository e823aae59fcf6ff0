// The notice that the mouse is blocked.
#include "hostlink/module_instance.h"
#include "input/ghSplashScreen.h"
#include "support/environment.h"
#include "support/input_window.h"

#include <gmock/gmock.h>

#include <cstring>

namespace {

HWND Notice() {
    return FindWindowA("SplashScreen", nullptr);
}

RECT AreaOf(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return area;
}

// A copy of the module with a bitmap for the notice: 40 by 30 pixels, red.
class ModuleWithBitmap {
public:
    static constexpr int kWidth = 40, kHeight = 30;

    ModuleWithBitmap() {
        char folder[MAX_PATH], file[MAX_PATH];
        GetTempPathA(sizeof folder, folder);
        GetTempFileNameA(folder, "gh", 0, file);
        m_file = file;
        CopyFileA(support::PathFromEnvironment("GHOSTHAND_DLL").c_str(), file, FALSE);
        AddBitmap();
        m_module = LoadLibraryExA(file, nullptr, DONT_RESOLVE_DLL_REFERENCES);
    }
    ~ModuleWithBitmap() {
        FreeLibrary(m_module);
        DeleteFileA(m_file.c_str());
    }
    HINSTANCE Instance() const { return m_module; }

private:
    void AddBitmap() const {
        BITMAPINFOHEADER header{};
        header.biSize = sizeof header;
        header.biWidth = kWidth;
        header.biHeight = kHeight;
        header.biPlanes = 1;
        header.biBitCount = 32;
        std::vector<DWORD> bitmap(sizeof header / sizeof(DWORD) + kWidth * kHeight, 0x00FF0000);
        std::memcpy(bitmap.data(), &header, sizeof header);
        const HANDLE update = BeginUpdateResourceA(m_file.c_str(), FALSE);
        UpdateResourceA(update, reinterpret_cast<LPCSTR>(RT_BITMAP), MAKEINTRESOURCEA(5925), 0, bitmap.data(),
                        static_cast<DWORD>(bitmap.size() * sizeof(DWORD)));
        EndUpdateResourceA(update, FALSE);
    }

    std::string m_file;
    HMODULE m_module = nullptr;
};

class MouseNoticeTest : public testing::Test {
protected:
    // The module itself has no bitmap.
    void SetUp() override { hostlink::SetModuleInstance(GetModuleHandleA(nullptr)); }
    void TearDown() override { ghSplashScreen::Destroy(); }

    support::InputWindow m_host;
};

TEST_F(MouseNoticeTest, HasNoSizeWithoutABitmapAndTakesNoActivation) {
    ghSplashScreen::Show(nullptr);
    const HWND notice = Notice();
    ASSERT_NE(notice, nullptr);
    EXPECT_EQ(AreaOf(notice).left, AreaOf(notice).right);
    EXPECT_EQ(AreaOf(notice).top, AreaOf(notice).bottom);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongPtrA(notice, GWL_STYLE)) & (WS_POPUP | WS_VISIBLE | WS_CAPTION),
              0x90000000u);
    EXPECT_NE(GetWindowLongPtrA(notice, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    EXPECT_EQ(GetForegroundWindow(), m_host.Frame());

    ghSplashScreen::Show(nullptr);
    EXPECT_EQ(FindWindowExA(nullptr, notice, "SplashScreen", nullptr), nullptr) << "one at a time";
    SendMessageA(notice, WM_NCRBUTTONDOWN, HTCLIENT, 0);
    EXPECT_EQ(Notice(), nullptr);
}

TEST_F(MouseNoticeTest, IsDestroyedByItsOwnThreadOnly) {
    m_host.Thread().Run([] { ghSplashScreen::Show(nullptr); });
    ASSERT_NE(Notice(), nullptr);
    ghSplashScreen::Destroy();
    m_host.Thread().Run([] {
        MSG message;
        while (PeekMessageA(&message, nullptr, WM_CLOSE, WM_CLOSE, PM_REMOVE)) {
            DispatchMessageA(&message);
        }
    });
    EXPECT_EQ(Notice(), nullptr);
    ghSplashScreen::Destroy(); // none is shown
}

TEST_F(MouseNoticeTest, ShowsTheBitmapInTheCornerOfItsParent) {
    const ModuleWithBitmap module;
    hostlink::SetModuleInstance(module.Instance());
    m_host.Thread().Run([&] { ghSplashScreen::Show(m_host.Frame()); });
    const HWND notice = Notice();
    ASSERT_NE(notice, nullptr);
    const RECT area = AreaOf(notice);
    EXPECT_EQ(area.right - area.left, ModuleWithBitmap::kWidth);
    EXPECT_EQ(area.bottom - area.top, ModuleWithBitmap::kHeight);
    EXPECT_EQ(area.right, AreaOf(m_host.Frame()).right);
    EXPECT_EQ(area.bottom, AreaOf(m_host.Frame()).bottom);
    EXPECT_EQ(GetWindowLongPtrA(notice, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    m_host.Thread().Run([&] {
        const HDC context = GetDC(notice);
        EXPECT_EQ(GetPixel(context, 20, 15), RGB(255, 0, 0));
        ReleaseDC(notice, context);
        ghSplashScreen::Destroy();
        UnregisterClassA("SplashScreen", hostlink::ModuleInstance());
    });
    EXPECT_EQ(Notice(), nullptr);
}

} // namespace
