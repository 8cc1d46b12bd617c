// A small host for scripts: a control with a few dialogs, a grid of three rows, a desktop without a screen.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <random>
#include <sstream>

#include "frontends/headless/headless_desktop.h"
#include "hosts/player/player.h"
#include "tests/dialogs/fake_object.h"

namespace vmgv {

// Members that hold values, what is put replacing what was there, and members that do something; the names
// are given in small letters.
class Thing final : public NamedObject {
 public:
  using Values = std::map<std::string, Value>;
  using Actions = std::map<std::string, std::function<Value(Args)>>;

  explicit Thing(Values values, Actions actions = {})
      : NamedObject("Thing"), values_(std::move(values)), actions_(std::move(actions)) {}

 private:
  Value answer(const std::string& name, Access access, Args args) override {
    if (const auto found = actions_.find(lowerCase(name)); found != actions_.end())
      return found->second(args);
    const auto found = values_.find(lowerCase(name));
    if (found == values_.end()) throw Error(ErrorNumber::MemberNotFound, "Thing lacks " + name);
    if (access == Access::Put) found->second = args[0];
    return found->second;
  }

  Values values_;
  Actions actions_;
};

inline ObjectRef thing(Thing::Values values, Thing::Actions actions = {}) {
  return new Thing(std::move(values), std::move(actions));
}

struct Case {
  std::string script;
  std::string error;  // empty: the script succeeds
  std::string events = "";
};

class PlayerTest : public testing::Test {
 protected:
  PlayerTest() { std::filesystem::create_directories(out_); }
  ~PlayerTest() override { std::filesystem::remove_all(folder_); }

  // Plays a script of this text; the error comes without the script's own path.
  int play(const std::string& text) {
    const auto script = folder_ / "s.vgs";
    std::ofstream(script, std::ios::binary) << text;
    std::ostringstream errors;
    Player player(script, out_, stage_, errors);
    desktop_.setIdleHandler(&player);
    const int result = player.run();
    desktop_.setIdleHandler(nullptr);
    error_ = errors.str();
    if (error_.starts_with(script.string())) error_.erase(0, script.string().size());
    EXPECT_TRUE(!desktop_.form() && !desktop_.box()) << text;
    return result;
  }
  // Each case is a script of its own, behind firstLine_.
  void playAll(std::initializer_list<Case> cases) {
    for (const Case& c : cases) {
      events_.clear();
      EXPECT_EQ(play(firstLine_ + c.script), c.error.empty() ? 0 : 1) << c.script;
      EXPECT_EQ(error_, c.error) << c.script;
      EXPECT_EQ(events_, c.events) << c.script;
    }
  }

  void note(const std::string& event) { events_ += (events_.empty() ? "" : ", ") + event; }

  Value show(Form& form) {
    form.open();
    desktop_.showModal(form);
    return false;
  }

  // A field, a list, and buttons that open a message, a question, a picker and the dialog at work.
  Value showPlain() {
    Form form("frmPlain");
    form.resizable = true;
    auto& text = form.add<TextBox>("txtName");
    auto& list = form.add<ComboBox>("cboSort", nullptr, 0);
    for (const char* entry : {"NO", "origin_state", "2"}) list.addItem(entry);
    const auto button = [&form](const char* name, std::function<void()> click) -> CommandButton& {
      auto& added = form.add<CommandButton>(name);
      added.onClick = std::move(click);
      return added;
    };
    button("cmdMessage", [this] { desktop_.messageBox("All\r\ndone.", MessageStyle::Information, {}); });
    button("cmdAsk", [this] {
      note(desktop_.messageBox("Sure?", MessageStyle::Question, {}) == MessageResult::Yes ? "yes" : "no");
    });
    button("cmdOpen", [this, &text] { text.setText(desktop_.pickFile({}).value_or("")); });
    button("cmdWork", [this] { showWork(); });
    button("cmdGrey", [] {}).setEnabled(false);
    button("cmdOK", [this, &form, &list] {
      note("ok " + std::to_string(list.listIndex()));
      form.close();
    }).isDefault = true;
    button("cmdCancel", [&form] { form.close(); }).isCancel = true;
    return show(form);
  }

  // OK works through 100 rows; Cancel stops it.
  Value showWork() {
    Form form("frmWork");
    auto& bar = form.add<ProgressBar>("prbar");
    auto& ok = form.add<CommandButton>("cmdOK");
    auto& cancel = form.add<CommandButton>("cmdCancel");
    cancel.onClick = form.onCloseByUser = [&] {
      desktop_.doEvents();
      form.close();
    };
    ok.onClick = [&] {
      ok.setEnabled(false);
      for (desktop_.doEvents(); form.isOpen() && bar.value() < 100; desktop_.doEvents()) {
        bar.setValue(bar.value() + 1);
      }
      note("worked to " + std::to_string(bar.value()));
      form.close();
    };
    return show(form);
  }

  Value showStubborn() {
    Form form("frmStubborn");
    form.onCloseByUser = [this] { desktop_.messageBox("No.", MessageStyle::Critical, {}); };
    return show(form);
  }

  Value echo(Args args) {
    for (std::size_t i = 0; i < args.size(); ++i) note(typeName(args[i]));
    return {};
  }

  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("vmg_player_" + std::to_string(std::random_device{}()));
  const std::filesystem::path out_ = folder_ / "out";
  HeadlessDesktop desktop_;
  std::string firstLine_, events_, error_;
  std::filesystem::path workbook_;
  const Stage stage_{
      thing({{"excelvisible", true}}, {{"showplain", [this](Args) { return showPlain(); }},
                                       {"showwork", [this](Args) { return showWork(); }},
                                       {"showstubborn", [this](Args) { return showStubborn(); }},
                                       {"echo", [this](Args args) { return echo(args); }}}),
      thing({{"rowcount", 3}, {"previewcolumn", Null{}}}),
      desktop_,
      [this](const std::vector<std::int32_t>& rows) {
        for (const auto row : rows) note("row " + std::to_string(row));
      },
      [this](const std::filesystem::path& file) { workbook_ = file; },
      [this](const std::filesystem::path& file) { note("print " + file.filename().string()); }};
};

}  // namespace vmgv
