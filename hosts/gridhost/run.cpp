#include "hosts/gridhost/run.h"

#include <exception>
#include <iostream>

namespace vmgv {

int runGridhost(std::span<const std::string> arguments) {
  try {
    const Options options = readOptions(arguments);
    if (options.help) {
      std::cout << kUsage;
      return 0;
    }
    return options.frontEnd == FrontEnd::Headless ? runHeadless(options) : runNative(options);
  } catch (const UsageError& error) {
    std::cerr << "gridhost: " << error.what() << '\n' << kUsage;
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "gridhost: " << error.what() << '\n';
    return 1;
  }
}

}  // namespace vmgv
