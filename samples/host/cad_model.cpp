#include "cad_model.h"

#include <charconv>
#include <cstdio>
#include <numbers>

namespace sample_host {
namespace {

enum ParameterIndex {
    kLength,
    kWidth,
    kThickness,
    kWallHeight,
    kShaftDiameter,
    kBoltDiameter,
    kVolume,
    kMass
};
Parameter parameters[] = {
    {"Length", "mm", 160, false},        {"Width", "mm", 100, false},
    {"Thickness", "mm", 16, false},      {"Wall height", "mm", 70, false},
    {"Shaft diameter", "mm", 28, false}, {"Bolt diameter", "mm", 14, false},
    {"Volume", "cm3", 0, true},          {"Mass", "g", 0, true},
};

// The same name stands below two headings: a name alone does not tell a material.
constexpr Material kMaterials[] = {{"Metals", "Aluminium", 2.7}, {"Metals", "Brass", 8.5},
                                   {"Metals", "Steel", 7.85},    {"Metals", "Custom", 10.0},
                                   {"Plastics", "ABS", 1.05},    {"Plastics", "Nylon", 1.15},
                                   {"Plastics", "PEEK", 1.32},   {"Plastics", "Custom", 1.0}};

enum ItemIndex {
    kGearbox,
    kHousing,
    kBasePlate,
    kLeftWall,
    kRightWall,
    kShafts,
    kInputShaft,
    kOutputShaft,
    kFasteners,
    kFirstBolt
};
constexpr int kBolts = 4;

constexpr COLORREF kHousingColor = RGB(120, 144, 172);
constexpr COLORREF kShaftColor = RGB(196, 160, 92);
constexpr COLORREF kBoltColor = RGB(96, 104, 112);

const Material* material = &kMaterials[2];
int selectedItem = -1;
std::vector<HWND> windows;

double VolumeOf(const ModelItem& item) {
    const Vector3& size = item.size;
    switch (item.shape) {
    case Shape::Box:
        return size.x * size.y * size.z;
    case Shape::CylinderAlongX:
    case Shape::CylinderAlongZ:
        return size.x * size.y * size.z * std::numbers::pi / 4;
    case Shape::Assembly:
        break;
    }
    return 0;
}

void Place(ModelItem& item, Vector3 centre, Vector3 size) {
    item.centre = centre;
    item.size = size;
}

// Gives every part the place and size that follow from the parameters.
void Rebuild(std::vector<ModelItem>& items) {
    const double length = parameters[kLength].value, width = parameters[kWidth].value;
    const double thickness = parameters[kThickness].value, height = parameters[kWallHeight].value;
    const double shaft = parameters[kShaftDiameter].value, bolt = parameters[kBoltDiameter].value;

    Place(items[kBasePlate], {0, 0, thickness / 2}, {length, width, thickness});
    const double wallX = length / 2 - 2 * thickness;
    const Vector3 wall{thickness, width * 0.7, height};
    Place(items[kLeftWall], {-wallX, 0, thickness + height / 2}, wall);
    Place(items[kRightWall], {wallX, 0, thickness + height / 2}, wall);
    const double shaftZ = thickness + height * 0.6;
    Place(items[kInputShaft], {-length * 0.1, -width * 0.17, shaftZ}, {length, shaft, shaft});
    Place(items[kOutputShaft], {length * 0.1, width * 0.17, shaftZ}, {length, shaft * 0.7, shaft * 0.7});
    for (int index = 0; index < kBolts; ++index) {
        const double x = (index % 2 == 0 ? -1 : 1) * (length / 2 - bolt);
        const double y = (index < 2 ? -1 : 1) * (width / 2 - bolt);
        Place(items[kFirstBolt + index], {x, y, thickness + bolt / 2}, {bolt, bolt, bolt});
    }
    double volume = 0;
    for (const ModelItem& item : items)
        volume += VolumeOf(item) / 1000;
    parameters[kVolume].value = volume;
    parameters[kMass].value = volume * material->density;
}

std::vector<ModelItem> MakeItems() {
    std::vector<ModelItem> items{
        {"Gearbox", -1},
        {"Housing", kGearbox, Shape::Assembly, kHousingColor},
        {"Base plate", kHousing, Shape::Box, kHousingColor},
        {"Left wall", kHousing, Shape::Box, kHousingColor},
        {"Right wall", kHousing, Shape::Box, kHousingColor},
        {"Shafts", kGearbox, Shape::Assembly, kShaftColor},
        {"Input shaft", kShafts, Shape::CylinderAlongX, kShaftColor},
        {"Output shaft", kShafts, Shape::CylinderAlongX, kShaftColor},
        {"Fasteners", kGearbox, Shape::Assembly, kBoltColor},
    };
    for (int index = 1; index <= kBolts; ++index)
        items.push_back({"Bolt " + std::to_string(index), kFasteners, Shape::CylinderAlongZ, kBoltColor});
    Rebuild(items);
    return items;
}

} // namespace

std::vector<ModelItem>& ModelItems() {
    static std::vector<ModelItem> items = MakeItems();
    return items;
}

bool IsShown(int item) {
    const auto& items = ModelItems();
    for (; item >= 0; item = items[item].parent)
        if (!items[item].visible)
            return false;
    return true;
}

void SetColor(int item, COLORREF color) {
    auto& items = ModelItems();
    items[item].color = color;
    for (std::size_t part = 0; part < items.size(); ++part)
        if (items[part].parent == item)
            SetColor(static_cast<int>(part), color);
}

std::span<const Parameter> Parameters() {
    ModelItems(); // computes what is computed
    return parameters;
}

std::string ParameterText(int parameter) {
    const Parameter& shown = Parameters()[parameter];
    char text[32];
    std::snprintf(text, sizeof text, shown.computed ? "%.1f" : "%g", shown.value);
    return text;
}

bool SetParameter(int parameter, const std::string& text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isNumber = error == std::errc{} && end == text.data() + text.size();
    if (parameters[parameter].computed || !isNumber || !(value >= 1 && value <= 1000))
        return false;
    parameters[parameter].value = value;
    Rebuild(ModelItems());
    ModelChanged();
    return true;
}

std::span<const Material> Materials() {
    return kMaterials;
}

const Material& CurrentMaterial() {
    return *material;
}

void SetMaterial(const Material& chosen) {
    material = &chosen;
    Rebuild(ModelItems());
    ModelChanged();
}

int SelectedItem() {
    return selectedItem;
}

void SelectItem(int item) {
    if (item == selectedItem)
        return;
    selectedItem = item;
    ModelChanged();
}

void ShowsModel(HWND window) {
    windows.push_back(window);
}

void ModelChanged() {
    std::erase_if(windows, [](HWND window) { return !IsWindow(window); });
    for (const HWND window : windows)
        InvalidateRect(window, nullptr, FALSE);
}

} // namespace sample_host
