// A picture of the drawing.
#pragma once

#include "cad_model.h"
#include "camera.h"

#include <cstdint>
#include <vector>

namespace sample_host {

struct Picture {
    int width = 0, height = 0;
    std::vector<std::uint32_t> pixels; // 0x00RRGGBB, from the top row down
    std::vector<int> items;            // whose pixel it is, -1 the background's

    // -1 for the background and outside of the picture.
    int ItemAt(int x, int y) const;
};

// Draws the items that are shown; the one that is selected has bright edges.
Picture DrawModel(const Camera& camera, int width, int height);

// Where a point of the model is in such a picture, in pixels.
struct ScreenPoint {
    double x, y, depth; // depth grows away from the eye
};
ScreenPoint Project(const Camera& camera, int width, int height, Vector3 point);

} // namespace sample_host
