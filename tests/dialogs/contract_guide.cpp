#include "tests/dialogs/contract_guide.h"

#include <fstream>

namespace vmgv {
namespace {

// What the next pair of backquotes from `at` on encloses; `at` is then behind it, or npos where there is
// none.
std::string nextQuoted(const std::string& line, std::size_t& at) {
  const std::size_t open = line.find('`', at);
  const std::size_t close = open == line.npos ? open : line.find('`', open + 1);
  at = close == line.npos ? close : close + 1;
  return close == line.npos ? std::string() : line.substr(open + 1, close - open - 1);
}

}  // namespace

std::set<std::string> membersInGuide(const std::string& method) {
  std::ifstream guide(GUIDE_FOLDER "/grid-contract.md");
  std::set<std::string> members;
  bool inChapter = false;
  for (std::string line; std::getline(guide, line);) {
    if (line.starts_with("#")) inChapter = line.find('`' + method + '`') != line.npos;
    if (!inChapter || !line.starts_with("| `")) continue;
    std::size_t at = 0;
    const std::string object = nextQuoted(line, at);
    for (std::string member = nextQuoted(line, at); at != line.npos; member = nextQuoted(line, at)) {
      members.insert((object == "Grid" ? "GridEX" : object) + "." + member);
    }
  }
  return members;
}

}  // namespace vmgv
