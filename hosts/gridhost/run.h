// gridhost on each of its front ends. Returns the exit status; throws Error for data that cannot be read.
#pragma once

#include "hosts/gridhost/options.h"

namespace vmgv {

int runQt(const Options& options, char* program);
int runHeadless(const Options& options);

}  // namespace vmgv
