// A test's user: acts step by step, each time a dialog or box waits.
//
//   Steps steps(desktop, {
//       [&] { desktop.choose(*desktop.form()->find("cboSort(0)"), 3); },
//       [&] { desktop.click(*desktop.form()->find("cmdOK")); },
//   });
//   showTheDialog();
//   steps.finish();
#pragma once

#include <exception>
#include <functional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "frontends/user/user.h"

namespace vmgv {

class Steps final : public IdleHandler {
 public:
  using Step = std::function<void()>;

  Steps(User& user, std::vector<Step> steps)
      : user_(user), steps_(std::move(steps)), before_(user.setIdleHandler(this)) {}
  Steps(const Steps&) = delete;
  Steps& operator=(const Steps&) = delete;
  ~Steps() override { user_.setIdleHandler(before_); }

  // At each yield of a long operation.
  Step whileWorking;

  // Throws what a step threw, or an error where steps are left over.
  void finish() const {
    if (thrown_) std::rethrow_exception(thrown_);
    if (next_ < steps_.size()) {
      throw std::logic_error("nothing waited for step " + std::to_string(next_ + 1) + " of " +
                             std::to_string(steps_.size()));
    }
  }

  // A step's exception must not pass through the program: what waits is closed, and finish() tells.
  bool waiting() override {
    if (thrown_ || next_ == steps_.size()) return false;
    carryOut(steps_[next_++]);
    return true;
  }
  void yielding() override {
    if (whileWorking && !thrown_) carryOut(whileWorking);
  }

 private:
  void carryOut(const Step& step) {
    try {
      step();
    } catch (...) {
      thrown_ = std::current_exception();
    }
  }

  User& user_;
  std::vector<Step> steps_;
  IdleHandler* before_;
  std::size_t next_ = 0;
  std::exception_ptr thrown_;
};

}  // namespace vmgv
