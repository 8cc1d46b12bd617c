// A small host for scripts: a control with a few dialogs, a grid of three rows, a desktop without a screen.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>

#include "frontends/headless/headless_desktop.h"
#include "hosts/player/player.h"
#include "tests/dialogs/fake_object.h"

namespace vmgv {

// An object whose members hold values; what is put replaces what was there.
inline ObjectRef holding(std::map<std::string, Value> members) {
  auto* object = new FakeObject("Thing");
  for (auto& [name, value] : members) {
    object->on(name, [held = std::move(value)](Access access, Args args) mutable -> Value {
      if (access == Access::Put) held = args[0];
      return held;
    });
  }
  return object;
}

// A collection of fixed objects.
inline ObjectRef listing(std::vector<ObjectRef> items) {
  auto* object = new FakeObject("Things");
  const auto count = static_cast<std::int32_t>(items.size());
  const auto item = [items](Access, Args args) -> Value {
    return items.at(static_cast<std::size_t>(toLong(args[0])) - 1);
  };
  object->on("Count", [count](Access, Args) -> Value { return count; });
  object->on("", item).on("ItemByPosition", item);
  return object;
}

class PlayerTest : public testing::Test {
 protected:
  PlayerTest() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  ~PlayerTest() override { std::filesystem::remove_all(folder_); }

  // Plays a script of this text; the error comes without the script's own path.
  int play(const std::string& text) {
    const auto script = folder_ / "s.vgs";
    std::ofstream(script, std::ios::binary) << text;
    return playFile(script);
  }
  int playFile(const std::filesystem::path& script) {
    std::ostringstream errors;
    Player player(script, out_, stage(), errors);
    desktop_.setIdleHandler(&player);
    const int result = player.run();
    desktop_.setIdleHandler(nullptr);
    error_ = errors.str();
    if (error_.starts_with(script.string())) error_.erase(0, script.string().size());
    EXPECT_EQ(desktop_.form(), nullptr);
    EXPECT_EQ(desktop_.box(), nullptr);
    return result;
  }

  static std::string read(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  void note(const std::string& event) { events_ += (events_.empty() ? "" : ", ") + event; }

  Stage stage() {
    return {control(), grid_, desktop_,
            [this](const std::vector<std::int32_t>& rows) {
              for (const auto row : rows) note("row " + std::to_string(row));
            },
            [this](const std::filesystem::path& file) { workbook_ = file; }};
  }

  ObjectRef control() {
    const ObjectRef control = holding({{"excelVisible", true}});
    auto& members = dynamic_cast<FakeObject&>(*control);
    const auto shows = [this, &members](const char* name, void (PlayerTest::*dialog)()) {
      members.on(name, [this, dialog](Access, Args) -> Value {
        (this->*dialog)();
        return false;
      });
    };
    shows("ShowPlain", &PlayerTest::showPlain);
    shows("ShowWork", &PlayerTest::showWork);
    shows("ShowStubborn", &PlayerTest::showStubborn);
    members.on("Fail", [](Access, Args) -> Value { throw Error(ErrorNumber::TypeMismatch); });
    members.on("Echo", [this](Access, Args args) -> Value {
      for (std::size_t i = 0; i < args.size(); ++i) note(typeName(args[i]));
      return {};
    });
    return control;
  }

  // A field, a list, and buttons that open a message, a question, a picker and the dialog at work.
  void showPlain() {
    Form form("frmPlain");
    form.setCaption("Plain");
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
      const bool yes = desktop_.messageBox("Sure?", MessageStyle::Question, {}) == MessageResult::Yes;
      note(yes ? "yes" : "no");
    });
    button("cmdOpen", [this, &text] { text.setText(desktop_.pickFile({}).value_or("")); });
    button("cmdWork", [this] { showWork(); });
    button("cmdGrey", [] {}).setEnabled(false);
    button("cmdOK", [this, &form, &list] {
      note("ok " + std::to_string(list.listIndex()));
      form.close();
    }).isDefault = true;
    button("cmdCancel", [&form] { form.close(); }).isCancel = true;
    form.open();
    desktop_.showModal(form);
  }

  // OK works through 100 rows; Cancel stops it.
  void showWork() {
    Form form("frmWork");
    auto& bar = form.add<ProgressBar>("prbar");
    auto& label = form.add<Label>("Label1");
    auto& ok = form.add<CommandButton>("cmdOK");
    auto& cancel = form.add<CommandButton>("cmdCancel");
    bool cancelled = false;
    const auto stop = [&] {
      desktop_.doEvents();
      cancelled = true;
      form.close();
    };
    cancel.onClick = stop;
    form.onCloseByUser = stop;
    ok.onClick = [&] {
      ok.setEnabled(false);
      for (int row = 1; row <= 100; ++row) {
        desktop_.doEvents();
        if (cancelled) break;
        bar.setValue(row);
        label.setCaption("row " + std::to_string(row));
      }
      note("worked to " + std::to_string(bar.value()));
      form.close();
    };
    form.open();
    desktop_.showModal(form);
  }

  void showStubborn() {
    Form form("frmStubborn");
    form.onCloseByUser = [this] { desktop_.messageBox("No.", MessageStyle::Critical, {}); };
    form.open();
    desktop_.showModal(form);
  }

  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("vmg_player_" + std::to_string(std::random_device{}()));
  const std::filesystem::path out_ = folder_ / "out";
  HeadlessDesktop desktop_;
  ObjectRef grid_ = holding({{"RowCount", 3}, {"PreviewColumn", Null{}}});
  std::string events_, error_;
  std::filesystem::path workbook_;
};

}  // namespace vmgv
