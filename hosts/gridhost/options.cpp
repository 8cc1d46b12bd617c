#include "hosts/gridhost/options.h"

#include <string_view>

#include "hosts/player/paths.h"

namespace vmgv {
namespace {

#ifdef _WIN32
#define VMG_NATIVE "win32"
#else
#define VMG_NATIVE "qt"
#endif

template <class Value, std::size_t count>
Value oneOf(const std::string& option, const std::string& given,
            const std::pair<const char*, Value> (&choices)[count]) {
  std::string names;
  for (const auto& [name, value] : choices) {
    if (given == name) return value;
    names += (names.empty() ? "" : " or ") + std::string(name);
  }
  throw UsageError(option + " is " + names + ", not \"" + given + "\"");
}

}  // namespace

const char* const kUsage =
    "usage: gridhost [--data FILE[#TABLE]] [--language en|el] [--frontend " VMG_NATIVE
    "|headless]\n"
    "                [--play SCRIPT] [--out DIR]\n"
    "\n"
    "  --data      a CSV file, or an SQLite file and the table to show (default: the demo table)\n"
    "  --language  of all texts (default: el)\n"
    "  --frontend  headless plays scripts without a display\n"
    "  --play      carries out SCRIPT as a user would, then ends\n"
    "  --out       the folder for all that a script writes (default: out)\n";

Options readOptions(std::span<const std::string> arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string option = arguments[i];
    const auto value = [&]() -> std::string {
      if (i + 1 == arguments.size()) throw UsageError(option + " needs a value");
      return arguments[++i];
    };
    if (option == "--help") {
      options.help = true;
    } else if (option == "--data") {
      options.data = value();
      if (options.data.empty()) throw UsageError("--data needs a file");
    } else if (option == "--language") {
      options.language = oneOf<LanguageId>(option, value(), {{"en", kEnglish}, {"el", kGreek}});
    } else if (option == "--frontend") {
      options.frontEnd = oneOf<FrontEnd>(option, value(),
                                         {{VMG_NATIVE, FrontEnd::Native}, {"headless", FrontEnd::Headless}});
    } else if (option == "--play") {
      options.script = pathOf(value());
    } else if (option == "--out") {
      options.out = pathOf(value());
    } else {
      throw UsageError("unknown argument \"" + option + "\"");
    }
  }
  if (options.frontEnd == FrontEnd::Headless && !options.script && !options.help) {
    throw UsageError("--frontend headless needs --play");
  }
  return options;
}

}  // namespace vmgv
