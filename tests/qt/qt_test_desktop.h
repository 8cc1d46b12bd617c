// The dialogs' tests on Qt widgets.
#pragma once

#include "frontends/qt/qt_desktop.h"
#include "frontends/user/steps.h"

namespace vmgv {

class TestDesktop final : public QtDesktop {
 public:
  struct HelpCall {
    std::string file, topic;
  };
  const std::vector<HelpCall>& helpCalls() const noexcept { return helpCalls_; }
  std::intptr_t openHelp(Form*, const std::string& file, HelpCommand, const std::string& topic) override {
    helpCalls_.push_back({file, topic});
    return 0;
  }

 private:
  Steps nobody_{*this, {}};  // what opens without a step closes again
  std::vector<HelpCall> helpCalls_;
};

constexpr int kFaultStep = 1;  // each call of a session fails once

}  // namespace vmgv
