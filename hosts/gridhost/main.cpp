// gridhost: a table in a grid, with the control beside it.
#include <exception>
#include <iostream>

#include "hosts/gridhost/run.h"

int main(int argc, char** argv) {
  using namespace vmgv;
  try {
    const Options options = readOptions({argv + 1, argv + argc});
    if (options.help) {
      std::cout << kUsage;
      return 0;
    }
    return options.frontEnd == FrontEnd::Headless ? runHeadless(options) : runQt(options, argv[0]);
  } catch (const UsageError& error) {
    std::cerr << "gridhost: " << error.what() << '\n' << kUsage;
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "gridhost: " << error.what() << '\n';
    return 1;
  }
}
