#include "trace/desktop_picture.h"

#include <initializer_list>
#include <memory>

#include <objbase.h>
#include <wincodec.h>

namespace trace {

namespace {

struct Releaser {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};
template <class Interface>
using Owned = std::unique_ptr<Interface, Releaser>;

// Takes what a function with an out pointer gives.
template <class Interface, class Function>
Owned<Interface> Take(Function function) {
    Interface* object = nullptr;
    return SUCCEEDED(function(&object)) ? Owned<Interface>(object) : nullptr;
}

RECT DesktopRectangle() noexcept {
    const int left = GetSystemMetrics(SM_XVIRTUALSCREEN);
    const int top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    return {left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN),
            top + GetSystemMetrics(SM_CYVIRTUALSCREEN)};
}

// What the screen shows, as a bitmap for its lifetime.
class ScreenCopy {
public:
    explicit ScreenCopy(const RECT& rectangle) noexcept
        : m_screen(GetDC(nullptr)), m_memory(CreateCompatibleDC(m_screen)),
          m_bitmap(CreateCompatibleBitmap(m_screen, rectangle.right - rectangle.left,
                                          rectangle.bottom - rectangle.top)) {
        const HGDIOBJ before = SelectObject(m_memory, m_bitmap);
        m_isThere = BitBlt(m_memory, 0, 0, rectangle.right - rectangle.left, rectangle.bottom - rectangle.top,
                           m_screen, rectangle.left, rectangle.top, SRCCOPY | CAPTUREBLT) != FALSE;
        SelectObject(m_memory, before);
    }
    ~ScreenCopy() {
        DeleteObject(m_bitmap);
        DeleteDC(m_memory);
        ReleaseDC(nullptr, m_screen);
    }
    ScreenCopy(const ScreenCopy&) = delete;
    ScreenCopy& operator=(const ScreenCopy&) = delete;

    HBITMAP Bitmap() const noexcept { return m_isThere ? m_bitmap : nullptr; }

private:
    HDC m_screen;
    HDC m_memory;
    HBITMAP m_bitmap;
    bool m_isThere = false;
};

bool Encode(IWICImagingFactory& factory, HBITMAP bitmap, const std::wstring& path) {
    const auto source = Take<IWICBitmap>([&](IWICBitmap** object) {
        return factory.CreateBitmapFromHBITMAP(bitmap, nullptr, WICBitmapIgnoreAlpha, object);
    });
    const auto stream = Take<IWICStream>([&](IWICStream** object) { return factory.CreateStream(object); });
    const auto encoder = Take<IWICBitmapEncoder>([&](IWICBitmapEncoder** object) {
        return factory.CreateEncoder(GUID_ContainerFormatPng, nullptr, object);
    });
    if (source == nullptr || stream == nullptr || encoder == nullptr ||
        FAILED(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE)) ||
        FAILED(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache))) {
        return false;
    }
    const auto frame = Take<IWICBitmapFrameEncode>(
        [&](IWICBitmapFrameEncode** object) { return encoder->CreateNewFrame(object, nullptr); });
    if (frame == nullptr || FAILED(frame->Initialize(nullptr))) {
        return false;
    }
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    const auto converted = Take<IWICFormatConverter>(
        [&](IWICFormatConverter** object) { return factory.CreateFormatConverter(object); });
    return converted != nullptr &&
           SUCCEEDED(converted->Initialize(source.get(), format, WICBitmapDitherTypeNone, nullptr, 0,
                                           WICBitmapPaletteTypeCustom)) &&
           SUCCEEDED(frame->SetPixelFormat(&format)) &&
           SUCCEEDED(frame->WriteSource(converted.get(), nullptr)) && SUCCEEDED(frame->Commit()) &&
           SUCCEEDED(encoder->Commit());
}

} // namespace

std::optional<RECT> SaveDesktopPicture(const std::wstring& path) noexcept {
    const RECT rectangle = DesktopRectangle();
    const ScreenCopy copy(rectangle);
    if (copy.Bitmap() == nullptr) {
        return std::nullopt;
    }
    const auto factory = Take<IWICImagingFactory>([](IWICImagingFactory** object) {
        return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IWICImagingFactory, reinterpret_cast<void**>(object));
    });
    if (factory == nullptr) {
        return std::nullopt;
    }
    if (!Encode(*factory, copy.Bitmap(), path)) {
        DeleteFileW(path.c_str()); // half a picture
        return std::nullopt;
    }
    return rectangle;
}

} // namespace trace
