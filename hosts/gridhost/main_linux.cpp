// gridhost: a table in a grid, with the control beside it.
#include <vector>

#include "hosts/gridhost/run.h"

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  return vmgv::runGridhost(arguments);
}
