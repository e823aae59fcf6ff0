// The automation interfaces, as C++ sees them.
#pragma once

#include <windows.h>

#include <objbase.h>
#include <oleauto.h>

// Members of the interfaces have these names.
#undef SendMessage
#undef PostMessage

#include "Ghosthand_idl.h"
