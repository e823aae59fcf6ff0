#include "picture.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace sample_host {
namespace {

constexpr double kModelSize = 240; // mm that fit the shorter side at zoom 1
constexpr int kCylinderSides = 32;

// A convex polygon; pixels of faces with different numbers have an edge between them.
struct Face {
    std::vector<Vector3> corners;
    Vector3 normal;
    int item;
    int number;
};

double Radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

// Axes of the screen: x to the right, y away from the eye, z up.
Vector3 Turn(const Camera& camera, Vector3 point) {
    const double yaw = Radians(camera.yaw), pitch = Radians(camera.pitch);
    const double x = point.x * std::cos(yaw) - point.y * std::sin(yaw);
    const double y = point.x * std::sin(yaw) + point.y * std::cos(yaw);
    return {x, y * std::cos(pitch) - point.z * std::sin(pitch),
            point.z * std::cos(pitch) + y * std::sin(pitch)};
}

class FaceList {
public:
    std::vector<Face> Make() {
        const auto& items = ModelItems();
        for (std::size_t index = 0; index < items.size(); ++index)
            if (IsShown(static_cast<int>(index)))
                Add(items[index], static_cast<int>(index));
        return std::move(m_faces);
    }

private:
    void Add(const ModelItem& item, int index) {
        switch (item.shape) {
        case Shape::Box:
            AddBox(item, index);
            break;
        case Shape::CylinderAlongX:
            AddCylinder(item, index, [](double along, double a, double b) { return Vector3{along, a, b}; });
            break;
        case Shape::CylinderAlongZ:
            AddCylinder(item, index, [](double along, double a, double b) { return Vector3{a, b, along}; });
            break;
        case Shape::Assembly:
            break;
        }
    }

    // Coordinates from -1 to 1 within the item.
    static Vector3 Within(const ModelItem& item, Vector3 point) {
        return {item.centre.x + point.x * item.size.x / 2, item.centre.y + point.y * item.size.y / 2,
                item.centre.z + point.z * item.size.z / 2};
    }

    void AddFace(const ModelItem& item, int index, std::vector<Vector3> corners, Vector3 normal,
                 bool newNumber = true) {
        for (Vector3& corner : corners)
            corner = Within(item, corner);
        m_number += newNumber;
        m_faces.push_back({std::move(corners), normal, index, m_number});
    }

    void AddBox(const ModelItem& item, int index) {
        for (const double side : {-1.0, 1.0}) {
            AddFace(item, index, {{side, -1, -1}, {side, 1, -1}, {side, 1, 1}, {side, -1, 1}}, {side, 0, 0});
            AddFace(item, index, {{-1, side, -1}, {1, side, -1}, {1, side, 1}, {-1, side, 1}}, {0, side, 0});
            AddFace(item, index, {{-1, -1, side}, {1, -1, side}, {1, 1, side}, {-1, 1, side}}, {0, 0, side});
        }
    }

    template <class Orient>
    void AddCylinder(const ModelItem& item, int index, Orient orient) {
        const auto point = [&](double along, double side) {
            const double angle = 2 * std::numbers::pi * side / kCylinderSides;
            return orient(along, std::cos(angle), std::sin(angle));
        };
        for (const double end : {-1.0, 1.0}) {
            std::vector<Vector3> corners;
            for (int side = 0; side < kCylinderSides; ++side)
                corners.push_back(point(end, side));
            AddFace(item, index, std::move(corners), orient(end, 0, 0));
        }
        for (int side = 0; side < kCylinderSides; ++side)
            AddFace(item, index, {point(-1, side), point(1, side), point(1, side + 1), point(-1, side + 1)},
                    point(0, side + 0.5), side == 0);
    }

    std::vector<Face> m_faces;
    int m_number = 0;
};

// Light comes from the eye's side, from above.
COLORREF Shade(COLORREF color, Vector3 turnedNormal) {
    const double light =
        std::clamp(0.55 - 0.3 * turnedNormal.y + 0.3 * turnedNormal.z - 0.15 * turnedNormal.x, 0.25, 1.15);
    const auto channel = [&](int value) { return static_cast<BYTE>(std::min(value * light, 255.0)); };
    return RGB(channel(GetRValue(color)), channel(GetGValue(color)), channel(GetBValue(color)));
}

// A pixel of a picture is what is nearest to the eye there.
class Canvas {
public:
    Canvas(int width, int height)
        : m_picture{width, height, std::vector<std::uint32_t>(static_cast<std::size_t>(width) * height),
                    std::vector<int>(static_cast<std::size_t>(width) * height, -1)},
          m_depth(m_picture.items.size(), std::numeric_limits<double>::max()),
          m_faces(m_picture.items.size()) {
        for (int y = 0; y < height; ++y) {
            const auto shade = static_cast<std::uint32_t>(236 - 40 * y / std::max(height, 1));
            std::fill_n(m_picture.pixels.begin() + static_cast<std::ptrdiff_t>(y) * width, width,
                        shade << 16 | shade << 8 | 0xF4u);
        }
    }

    void Fill(const std::vector<ScreenPoint>& corners, const Face& face, COLORREF color) {
        for (std::size_t third = 2; third < corners.size(); ++third)
            FillTriangle(corners[0], corners[third - 1], corners[third], face, color);
    }

    Picture WithEdges() {
        for (int y = 0; y + 1 < m_picture.height; ++y)
            for (int x = 0; x + 1 < m_picture.width; ++x)
                DrawEdge(Index(x, y), Index(x + 1, y), Index(x, y + 1));
        return std::move(m_picture);
    }

private:
    std::size_t Index(int x, int y) const { return static_cast<std::size_t>(y) * m_picture.width + x; }

    void DrawEdge(std::size_t here, std::size_t right, std::size_t below) {
        if (m_faces[here] == m_faces[right] && m_faces[here] == m_faces[below])
            return;
        const auto isSelected = [&](std::size_t pixel) {
            return m_picture.items[pixel] >= 0 && m_picture.items[pixel] == SelectedItem();
        };
        const bool selected = isSelected(here) || isSelected(right) || isSelected(below);
        m_picture.pixels[here] = selected ? 0xFF7A00 : 0x303840;
    }

    // Barycentric coordinates of each pixel's centre.
    void FillTriangle(const ScreenPoint& a, const ScreenPoint& b, const ScreenPoint& c, const Face& face,
                      COLORREF color) {
        const double area = (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
        if (std::abs(area) < 1e-9)
            return;
        const auto first = [](double low, int limit) {
            return static_cast<int>(std::clamp(std::floor(low), 0.0, static_cast<double>(limit)));
        };
        const int left = first(std::min({a.x, b.x, c.x}), m_picture.width);
        const int right = first(std::max({a.x, b.x, c.x}) + 1, m_picture.width);
        const int top = first(std::min({a.y, b.y, c.y}), m_picture.height);
        const int bottom = first(std::max({a.y, b.y, c.y}) + 1, m_picture.height);
        for (int y = top; y < bottom; ++y)
            for (int x = left; x < right; ++x) {
                const double px = x + 0.5, py = y + 0.5;
                const double u = ((b.x - px) * (c.y - py) - (b.y - py) * (c.x - px)) / area;
                const double v = ((c.x - px) * (a.y - py) - (c.y - py) * (a.x - px)) / area;
                const double w = 1 - u - v;
                if (u >= 0 && v >= 0 && w >= 0)
                    Set(Index(x, y), u * a.depth + v * b.depth + w * c.depth, face, color);
            }
    }

    void Set(std::size_t pixel, double depth, const Face& face, COLORREF color) {
        if (depth >= m_depth[pixel])
            return;
        m_depth[pixel] = depth;
        m_faces[pixel] = face.number;
        m_picture.items[pixel] = face.item;
        m_picture.pixels[pixel] = static_cast<std::uint32_t>(GetRValue(color)) << 16 |
                                  static_cast<std::uint32_t>(GetGValue(color)) << 8 | GetBValue(color);
    }

    Picture m_picture;
    std::vector<double> m_depth;
    std::vector<int> m_faces;
};

} // namespace

int Picture::ItemAt(int x, int y) const {
    const bool inside = x >= 0 && y >= 0 && x < width && y < height;
    return inside ? items[static_cast<std::size_t>(y) * width + x] : -1;
}

Picture DrawModel(const Camera& camera, int width, int height) {
    Canvas canvas(width, height);
    for (const Face& face : FaceList().Make()) {
        const Vector3 normal = Turn(camera, face.normal);
        if (normal.y > 0)
            continue; // seen from behind
        std::vector<ScreenPoint> corners;
        for (const Vector3& corner : face.corners)
            corners.push_back(Project(camera, width, height, corner));
        canvas.Fill(corners, face, Shade(ModelItems()[face.item].color, normal));
    }
    return canvas.WithEdges();
}

ScreenPoint Project(const Camera& camera, int width, int height, Vector3 point) {
    const double scale = std::min(width, height) / kModelSize * camera.zoom;
    const Vector3 turned = Turn(camera, {point.x, point.y, point.z - 40}); // around the middle of the box
    return {width / 2.0 + scale * turned.x, height / 2.0 - scale * turned.z, turned.y};
}

} // namespace sample_host
