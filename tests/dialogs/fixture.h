// A control over a fake grid, on the desktop of the front end that is tested.
#pragma once

#include <gtest/gtest.h>

#include "control/vmgr_edit.h"
#include "frontends/user/steps.h"
#include "tests/dialogs/fake_excel.h"
#include "tests/dialogs/fake_grid.h"
#include "tests/dialogs/fake_object.h"
#include VMG_TEST_DESKTOP  // a TestDesktop: a front end that remembers the help asked for

namespace vmgv {

struct DialogFixture {
  explicit DialogFixture(FakeGrid initial = {}) : grid(std::move(initial)) {
    strings.setLanguage(kEnglish);
    desktop.objectFactory = [this](const std::string& id) {
      return id == "Excel.Application" && excelInstalled ? excel.application() : ObjectRef();
    };
    control.putRef("Grid", grid.object());
  }

  template <class Kind = Control>
  Kind& at(const char* address) {
    Form* form = desktop.form();
    if (!form) throw std::logic_error(std::string("no dialog for ") + address);
    Kind* found = dynamic_cast<Kind*>(form->find(address));
    if (!found) throw std::logic_error(std::string("no control ") + address);
    return *found;
  }
  Steps::Step click(const char* address) {
    return [this, address] { desktop.click(at(address)); };
  }
  Steps::Step press(const char* address, Key key) {
    return [this, address, key] { desktop.press(at(address), key, 0); };
  }
  // Opens a dialog and acts; every Show method answers False.
  void show(const char* method, std::vector<Steps::Step> steps) { show(method, std::move(steps), {}); }
  void show(const char* method, std::vector<Steps::Step> steps, Steps::Step whileWorking) {
    Steps user(desktop, std::move(steps));
    user.whileWorking = std::move(whileWorking);
    EXPECT_EQ(control.call(method), Value(false));
    user.finish();
    EXPECT_EQ(desktop.form(), nullptr);
  }
  std::vector<std::string> messages() const {
    std::vector<std::string> texts;
    for (const Box& box : desktop.boxes()) {
      if (box.kind == Box::Kind::Message) texts.push_back(box.text);
    }
    return texts;
  }

  FakeGrid grid;
  FakeExcel excel;
  bool excelInstalled = true;
  EmbeddedStringService strings;
  TestDesktop desktop;
  Application application{desktop, desktop, strings};
  ObjectRef control = makeObject<vmgrEdit>(application);
};

}  // namespace vmgv
