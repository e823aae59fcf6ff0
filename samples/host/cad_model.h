// The drawing that all pages of the CAD program show: a small gearbox. Used on the GUI thread only.
#pragma once

#include <span>
#include <string>
#include <vector>
#include <windows.h>

namespace sample_host {

// In millimetres; z points up.
struct Vector3 {
    double x = 0, y = 0, z = 0;
};

enum class Shape { Assembly, Box, CylinderAlongX, CylinderAlongZ };

// An assembly only holds what names it as its parent.
struct ModelItem {
    std::string name;
    int parent = -1; // index of an item, -1 for the whole model
    Shape shape = Shape::Assembly;
    COLORREF color = 0;
    Vector3 centre{}, size{}; // follow from the parameters
    bool visible = true;
    bool checked = false; // a checked part is labelled in the drawing
    bool starred = false; // a starred part is marked in the drawing
};

struct Parameter {
    const char* name;
    const char* unit;
    double value;
    bool computed; // follows from the others; cannot be set
};

struct Material {
    const char* heading;
    const char* name;
    double density; // in g/cm3
};

// An item comes behind its parent. Whoever changes one calls ModelChanged.
std::vector<ModelItem>& ModelItems();
// Whether the item and all that it is part of are visible.
bool IsShown(int item);
// The colour of the item and of everything that is part of it.
void SetColor(int item, COLORREF color);

std::span<const Parameter> Parameters();
std::string ParameterText(int parameter);
// False for a computed parameter and for anything but a number from 1 to 1000.
bool SetParameter(int parameter, const std::string& text);

std::span<const Material> Materials();
const Material& CurrentMaterial();
void SetMaterial(const Material& material);

// The item that the user picked last, -1 if none.
int SelectedItem();
void SelectItem(int item);

// The window is painted anew whenever the model changes.
void ShowsModel(HWND window);
void ModelChanged();

} // namespace sample_host
