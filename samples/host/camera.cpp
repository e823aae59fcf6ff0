#include "camera.h"

#include <cmath>
#include <cstdio>

namespace sample_host {

std::string ToText(const Camera& camera) {
    char text[96];
    std::snprintf(text, sizeof text, "yaw=%.2f pitch=%.2f zoom=%.3f", camera.yaw, camera.pitch, camera.zoom);
    std::string result = text;
    if (!camera.name.empty())
        (result += ' ') += camera.name;
    return result;
}

std::optional<Camera> CameraFromText(const std::string& text) {
    Camera camera;
    int length = 0;
    if (std::sscanf(text.c_str(), "yaw=%lf pitch=%lf zoom=%lf%n", &camera.yaw, &camera.pitch, &camera.zoom,
                    &length) != 3)
        return std::nullopt;
    // Written so that no number ("nan") passes.
    if (!(std::abs(camera.yaw) <= 1e6 && std::abs(camera.pitch) <= 90 && camera.zoom >= 0.1 &&
          camera.zoom <= 20))
        return std::nullopt;
    if (static_cast<std::size_t>(length) < text.size())
        camera.name = text.substr(static_cast<std::size_t>(length) + 1);
    return ToText(camera) == text ? std::optional(camera) : std::nullopt;
}

} // namespace sample_host
