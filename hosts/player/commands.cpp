#include "hosts/player/commands.h"

#include "hosts/player/near.h"
#include "hosts/player/words.h"

namespace vmgv {
namespace {

constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);
constexpr unsigned kAnywhere = kAtHost | kAtDialog | kAtBox;

constexpr Command kCommands[]{
    {"call METHOD [ARG ...]", 1, kAnyNumber, kAtHost, WhileWorking::Never, &Actions::call},
    {"set PROPERTY VALUE", 2, 2, kAtHost, WhileWorking::Never, &Actions::set},
    {"grid MEMBER VALUE", 2, 2, kAtHost, WhileWorking::Never, &Actions::grid},
    {"select [ROW ...]", 0, kAnyNumber, kAtHost, WhileWorking::Never, &Actions::select},
    {"output FILE", 1, 1, kAtHost, WhileWorking::Never, &Actions::output},
    {"layout FILE", 1, 1, kAtHost, WhileWorking::Never, &Actions::layout},
    {"rows FILE [FIRST LAST]", 1, 3, kAtHost, WhileWorking::Never, &Actions::rows},
    {"print FILE", 1, 1, kAtHost, WhileWorking::Never, &Actions::print},

    {"click CONTROL", 1, 1, kAtDialog, WhileWorking::Control, &Actions::click},
    {"doubleclick CONTROL [ENTRY]", 1, 2, kAtDialog, WhileWorking::Control, &Actions::doubleClick},
    {"choose CONTROL ENTRY", 2, 2, kAtDialog, WhileWorking::Never, &Actions::choose},
    {"enter CONTROL TEXT", 2, 2, kAtDialog, WhileWorking::Never, &Actions::enter},
    {"press CONTROL KEY", 2, 2, kAtDialog, WhileWorking::Control, &Actions::press},
    {"focus CONTROL", 1, 1, kAtDialog, WhileWorking::Never, &Actions::focus},
    {"resize WIDTH HEIGHT", 2, 2, kAtDialog, WhileWorking::Never, &Actions::resize},
    {"edit ROW TEXT", 2, 2, kAtDialog, WhileWorking::Never, &Actions::edit},
    {"close", 0, 0, kAtDialog, WhileWorking::Dialog, &Actions::close},
    {"form FILE", 1, 1, kAtDialog, WhileWorking::Dialog, &Actions::form},
    {"until CONTROL.PROPERTY VALUE", 2, 2, kAtDialog, WhileWorking::Watch, &Actions::expect},

    {"answer yes|no|ok|cancel|TEXT", 1, 1, kAtDialog | kAtBox, WhileWorking::Never, &Actions::answer},
    {"pick PATH|cancel", 1, 1, kAtBox, WhileWorking::Never, &Actions::pick},
    {"colour RRGGBB|cancel", 1, 1, kAtBox, WhileWorking::Never, &Actions::colour},

    {"expect CONTROL.PROPERTY VALUE, or expect message TEXT", 2, 2, kAtDialog | kAtBox,
     WhileWorking::Property, &Actions::expect},
    {"picture FILE", 1, 1, kAnywhere, WhileWorking::Dialog, &Actions::picture},
    {"wait", 0, 0, kAnywhere, WhileWorking::Never, &Actions::wait},
};

}  // namespace

const Command& commandOf(const ScriptLine& line) {
  const std::string& name = line.words[0].text;
  const std::size_t arguments = line.words.size() - 1;
  for (const Command& command : kCommands) {
    if (command.name() != name) continue;
    if (arguments >= command.least && arguments <= command.most) return command;
    throw CannotDo("expected " + std::string(command.usage) + ", found " + std::to_string(arguments) +
                   (arguments == 1 ? " word" : " words") + " behind " + name);
  }
  std::vector<std::string> names;
  for (const Command& command : kCommands) names.emplace_back(command.name());
  const std::string near = nearNames(name, names);
  throw CannotDo("expected a command, found " + quoted(name.substr(0, 40)) +
                 (near.empty() ? "" : "; near: " + near));
}

}  // namespace vmgv
