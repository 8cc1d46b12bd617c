// gridhost: a table in a grid, with the control beside it.
#include <exception>
#include <iostream>

#include "hosts/gridhost/run.h"

using vmgv::FrontEnd;
using vmgv::Options;

int main(int argc, char** argv) {
  try {
    const Options options = vmgv::readOptions({argv + 1, argv + argc});
    if (options.help) {
      std::cout << vmgv::kUsage;
      return 0;
    }
    return options.frontEnd == FrontEnd::Headless ? vmgv::runHeadless(options)
                                                  : vmgv::runQt(options, argv[0]);
  } catch (const vmgv::UsageError& error) {
    std::cerr << "gridhost: " << error.what() << '\n' << vmgv::kUsage;
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "gridhost: " << error.what() << '\n';
    return 1;
  }
}
