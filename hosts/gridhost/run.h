// gridhost from its arguments on, and on each of its front ends. These return the exit status.
#pragma once

#include <span>
#include <string>

#include "hosts/gridhost/options.h"

namespace vmgv {

// The arguments behind the program's name, UTF-8. Tells on standard error what is wrong.
int runGridhost(std::span<const std::string> arguments);

// Throw Error for data that cannot be read.
int runNative(const Options& options);
int runHeadless(const Options& options);

}  // namespace vmgv
