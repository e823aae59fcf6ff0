// Stand-in for the library resbase: the resources that the programs of a site share.
#pragma once

// Makes the shared resources available. Called once when the module starts; further calls do nothing.
void init_resources();
