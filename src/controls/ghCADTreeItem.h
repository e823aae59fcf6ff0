// An item of the host's model tree.
#pragma once

#include "controls/ghTreeItem.h"

class ghCADTreeItem : public ghTreeItem {};
