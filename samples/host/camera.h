// Where the drawing is looked at from.
#pragma once

#include <optional>
#include <string>

namespace sample_host {

// The drawing is seen in parallel projection.
struct Camera {
    double yaw = -35;   // degrees around the vertical axis
    double pitch = 25;  // degrees from above, -90 to 90
    double zoom = 1;    // from 0.1 to 20
    std::string name{}; // free text that travels with the camera
};

// "yaw=-35.00 pitch=25.00 zoom=1.000", then a blank and the name if there is one.
std::string ToText(const Camera& camera);
// No value for a text that ToText did not make.
std::optional<Camera> CameraFromText(const std::string& text);

} // namespace sample_host
