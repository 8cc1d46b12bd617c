// The editor as a widget: its slots, where its grid comes from, and what it does with errors.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTimer>

#include "adapters/grid/engine.h"
#include "frontends/qt/grid_view.h"
#include "frontends/qt/grid_view_editor.h"
#include "support/automation/error.h"
#include "support/fonts/standard_font.h"

namespace vmgv {
namespace {

struct GridViewEditorTest : testing::Test {
  GridViewEditorTest() {
    GridViewEditor::setLanguage(QLocale::English);
    model.appendRow({new QStandardItem(QStringLiteral("b")), new QStandardItem(QStringLiteral("2"))});
    model.appendRow({new QStandardItem(QStringLiteral("a")), new QStandardItem(QStringLiteral("1"))});
    view.setModel(&model);
  }

  // What is opened by `open`: the title of a dialog or the text of a message, "" for nothing. `meanwhile`
  // runs before it is closed.
  template <class Open>
  QString opened(
      Open open, const std::function<void()>& meanwhile = [] {}) {
    QString seen;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, &user, [&] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      user.stop();
      auto* message = qobject_cast<QMessageBox*>(dialog);
      seen = message ? message->text() : dialog->windowTitle();
      meanwhile();
      dialog->close();
    });
    user.start(0);
    open();
    return seen;
  }

  QStandardItemModel model;
  GridView view;
};

TEST_F(GridViewEditorTest, EverySlotOpensItsDialogAndAnswersFalse) {
  GridViewEditor editor;
  editor.setGridView(&view);
  const struct {
    bool (GridViewEditor::*slot)();
    const char* title;
  } cases[] = {
      {&GridViewEditor::showSummary, "Customize"},
      {&GridViewEditor::showSort, "Order"},
      {&GridViewEditor::showGroups, "Create Groups"},
      {&GridViewEditor::showItems, "Show data"},
      {&GridViewEditor::showGeneral, "Miscellaneous"},
      {&GridViewEditor::showFormat, "View Conditions"},
      {&GridViewEditor::showExcel, "Export"},
      {&GridViewEditor::showPreview, "Print"},
      {&GridViewEditor::showOther, ""},
  };
  for (const auto& each : cases) {
    bool answer = true;
    EXPECT_EQ(opened([&] { answer = (editor.*each.slot)(); }).toStdString(), each.title);
    EXPECT_FALSE(answer) << each.title;
  }
}

TEST_F(GridViewEditorTest, EditsTheEngineThatTheViewHasNow) {
  GridViewEditor editor;
  editor.setGridView(&view);
  view.setEngine(std::make_shared<GridEngine>());
  EXPECT_EQ(editor.grid().get("RowCount").as<std::int32_t>()[0], 0);

  editor.setModel(&model);
  EXPECT_EQ(editor.grid().get("RowCount").as<std::int32_t>()[0], 2);
  EXPECT_NE(editor.gridView(), &view);
}

TEST_F(GridViewEditorTest, PrintsByTheDesktopAsLongAsItLives) {
  {
    GridViewEditor editor;
    editor.setGridView(&view);
    opened([&] { editor.showPreview(); });
    EXPECT_TRUE(view.engine()->printPort());
  }
  EXPECT_FALSE(view.engine()->printPort());
}

TEST_F(GridViewEditorTest, ErrorsReachTheCallerFromShowFormatAlone) {
  GridViewEditor editor;
  editor.setGrid(makeObject<StandardFont>());  // no grid
  EXPECT_THROW(editor.showFormat(), Error);
  opened([&] { EXPECT_FALSE(editor.showSummary()); });

  // Nothing may be thrown through a signal.
  QPushButton button;
  QObject::connect(&button, &QPushButton::clicked, &editor, &GridViewEditor::showFormat);
  EXPECT_NE(opened([&] { button.click(); }), QString());
}

TEST_F(GridViewEditorTest, MayBeDeletedWhileItsDialogIsOpen) {
  auto* editor = new GridViewEditor;
  editor->setGridView(&view);
  EXPECT_NE(opened([&] { editor->showSort(); }, [&] { delete editor; }), QString());
}

}  // namespace
}  // namespace vmgv
