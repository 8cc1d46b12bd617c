// Numbers of the DLL's resources.
#pragma once

#define VMG_TOOLBOX_BITMAP 101
