#include "cad_view.h"

#include "camera.h"
#include "frame.h"
#include "host_ids.h"
#include "picture.h"

#include <ghosthand/host_contract.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <map>
#include <windowsx.h>

namespace sample_host {
namespace {

namespace names = ghosthand::host_contract::message_name;

const UINT kGetViewPosition = RegisterWindowMessageA(names::kGetViewPosition);
const UINT kSetViewPosition = RegisterWindowMessageA(names::kSetViewPosition);

constexpr int kDragThreshold = 3;        // pixels until a press becomes a drag
constexpr double kDegreesPerPixel = 0.5; // of a drag
constexpr double kZoomPerNotch = 1.1;    // of the wheel

struct View {
    Camera camera;
    POINT pressed{};
    Camera whenPressed;
    bool isPressed = false;
    bool isDragged = false;
};

std::map<HWND, View> views;

void Look(HWND window, const Camera& camera) {
    views[window].camera = camera;
    InvalidateRect(window, nullptr, FALSE);
}

Picture PictureOf(HWND window) {
    RECT area;
    GetClientRect(window, &area);
    return DrawModel(views[window].camera, area.right, area.bottom);
}

void DrawStar(HDC canvas, double x, double y) {
    std::array<POINT, 10> corners;
    for (int corner = 0; corner < 10; ++corner) {
        const double radius = corner % 2 == 0 ? 9 : 4, angle = corner * 3.14159265 / 5;
        corners[corner] = {std::lround(x + radius * std::sin(angle)),
                           std::lround(y - radius * std::cos(angle))};
    }
    SetDCBrushColor(canvas, RGB(255, 206, 0));
    const HGDIOBJ brush = SelectObject(canvas, GetStockObject(DC_BRUSH));
    Polygon(canvas, corners.data(), static_cast<int>(corners.size()));
    SelectObject(canvas, brush);
}

// The names of checked parts and the stars of starred ones lie over the picture.
void DrawMarks(HDC canvas, const Camera& camera, const RECT& area) {
    SetBkMode(canvas, TRANSPARENT);
    const HGDIOBJ font = SelectObject(canvas, DialogFont());
    const auto& items = ModelItems();
    for (std::size_t index = 0; index < items.size(); ++index) {
        const ModelItem& item = items[index];
        if (item.shape == Shape::Assembly || !IsShown(static_cast<int>(index)))
            continue;
        const ScreenPoint point = Project(camera, area.right, area.bottom, item.centre);
        if (item.starred)
            DrawStar(canvas, point.x, point.y);
        if (item.checked)
            TextOutA(canvas, static_cast<int>(point.x) + 12, static_cast<int>(point.y) - 7, item.name.c_str(),
                     static_cast<int>(item.name.size()));
    }
    SelectObject(canvas, font);
}

void Paint(HWND window) {
    PAINTSTRUCT painting;
    const HDC canvas = BeginPaint(window, &painting);
    RECT area;
    GetClientRect(window, &area);
    const Picture picture = PictureOf(window);
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = picture.width;
    format.bmiHeader.biHeight = -picture.height; // from the top row down
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    if (!picture.pixels.empty())
        SetDIBitsToDevice(canvas, 0, 0, picture.width, picture.height, 0, 0, 0, picture.height,
                          picture.pixels.data(), &format, DIB_RGB_COLORS);
    DrawMarks(canvas, views[window].camera, area);
    EndPaint(window, &painting);
}

void Press(HWND window, POINT point) {
    View& view = views[window];
    view.pressed = point;
    view.whenPressed = view.camera;
    view.isPressed = true;
    view.isDragged = false;
    SetFocus(window);
    SetCapture(window);
}

void Drag(HWND window, POINT point) {
    View& view = views[window];
    if (!view.isPressed)
        return;
    const int right = point.x - view.pressed.x, down = point.y - view.pressed.y;
    view.isDragged = view.isDragged || std::abs(right) + std::abs(down) > kDragThreshold;
    if (!view.isDragged)
        return;
    Camera camera = view.whenPressed;
    camera.yaw = std::remainder(camera.yaw + right * kDegreesPerPixel, 360);
    camera.pitch = std::clamp(camera.pitch + down * kDegreesPerPixel, -90.0, 90.0);
    Look(window, camera);
}

void ReleaseButton(HWND window, POINT point) {
    View& view = views[window];
    if (!view.isPressed)
        return;
    view.isPressed = false;
    ReleaseCapture();
    if (view.isDragged)
        return;
    const int item = PictureOf(window).ItemAt(point.x, point.y);
    SelectItem(item);
    SetStatus(item < 0 ? "Nothing picked" : "Picked " + ModelItems()[item].name);
}

void Zoom(HWND window, int notches) {
    Camera camera = views[window].camera;
    const double zoom = std::clamp(camera.zoom * std::pow(kZoomPerNotch, notches), 0.1, 20.0);
    camera.zoom = std::round(zoom * 1000) / 1000; // as exact as the camera's text
    Look(window, camera);
}

// With a part under the cursor the menu has an entry that hides it.
void OpenMenu(HWND window, POINT screenPoint) {
    POINT point = screenPoint;
    ScreenToClient(window, &point);
    const int item = PictureOf(window).ItemAt(point.x, point.y);
    if (item >= 0)
        SelectItem(item);
    const HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING | (item < 0 ? MF_GRAYED : 0), ids::kPartHide, "&Hide part");
    AppendMenuA(menu, MF_STRING, ids::kPartsShowAll, "Show &all parts");
    AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuA(menu, MF_STRING, ids::kCameraFront, "&Front");
    AppendMenuA(menu, MF_STRING, ids::kCameraTop, "&Top");
    AppendMenuA(menu, MF_STRING, ids::kCameraReset, "&Reset");
    TrackPopupMenu(menu, TPM_RIGHTBUTTON, screenPoint.x, screenPoint.y, 0, window, nullptr);
    DestroyMenu(menu);
}

void OnCommand(HWND window, unsigned command) {
    switch (command) {
    case ids::kPartHide:
        if (SelectedItem() >= 0)
            ModelItems()[SelectedItem()].visible = false;
        return ModelChanged();
    case ids::kPartsShowAll:
        for (ModelItem& item : ModelItems())
            item.visible = true;
        return ModelChanged();
    case ids::kCameraFront:
        return Look(window, {.yaw = 0, .pitch = 0});
    case ids::kCameraTop:
        return Look(window, {.yaw = 0, .pitch = 90});
    case ids::kCameraReset:
        return Look(window, {});
    default:
        return;
    }
}

// wParam 1 asks whether this is a CAD view; for 0 the camera goes out as a global atom, which the
// asker deletes.
LRESULT AnswerViewPosition(HWND window, WPARAM wParam) {
    switch (wParam) {
    case 1:
        return 1;
    case 0:
        return GlobalAddAtomA(ToText(views[window].camera).c_str());
    default:
        return 0;
    }
}

// The atom belongs to the sender: it is read here and left alone.
LRESULT AdoptViewPosition(HWND window, WPARAM atom) {
    char text[256] = "";
    GlobalGetAtomNameA(static_cast<ATOM>(atom), text, sizeof text);
    if (const auto camera = CameraFromText(text))
        Look(window, *camera);
    return 0;
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    if (message == kGetViewPosition)
        return AnswerViewPosition(window, wParam);
    if (message == kSetViewPosition)
        return AdoptViewPosition(window, wParam);
    switch (message) {
    case WM_PAINT:
        Paint(window);
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_SIZE:
        InvalidateRect(window, nullptr, FALSE);
        return 0;
    case WM_LBUTTONDOWN:
        Press(window, point);
        return 0;
    case WM_MOUSEMOVE:
        Drag(window, point);
        return 0;
    case WM_LBUTTONUP:
        ReleaseButton(window, point);
        return 0;
    case WM_LBUTTONDBLCLK:
        Look(window, {});
        return 0;
    case WM_CAPTURECHANGED:
        views[window].isPressed = false;
        return 0;
    case WM_MOUSEWHEEL:
        Zoom(window, GET_WHEEL_DELTA_WPARAM(wParam) / WHEEL_DELTA);
        return 0;
    case WM_CONTEXTMENU:
        OpenMenu(window, point);
        return 0;
    case WM_COMMAND:
        OnCommand(window, LOWORD(wParam));
        return 0;
    case WM_NCDESTROY:
        views.erase(window);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

} // namespace

HWND AddCadView(HWND parent, Area area, int id) {
    RegisterHostClass(ids::kCadViewClass, Procedure);
    const HWND view =
        AddControl(parent, {.className = ids::kCadViewClass, .text = "View", .area = area, .id = id});
    ShowsModel(view);
    return view;
}

} // namespace sample_host
