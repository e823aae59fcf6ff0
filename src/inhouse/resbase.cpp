#include "inhouse/resbase.h"

// Every resource of Ghosthand is in its own module, so there is nothing to make available. A site's library
// opens its resource modules here.
void init_resources() {}
