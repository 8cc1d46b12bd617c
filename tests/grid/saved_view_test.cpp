// Views as text, and steps back and forth between views.
#include "adapters/grid/saved_view.h"
#include "fixture.h"

namespace vmgv {
namespace {

std::shared_ptr<GridEngine> table() {
  return engineOf({{"a"}, {"b \"quoted\""}, {"γ"}}, {{1, "x", 2.5}, {2, "y", 0.5}});
}

// A view that differs from a new one in every part.
void reshape(const std::shared_ptr<GridEngine>& shared) {
  GridEngine& engine = *shared;
  const ObjectRef grid = makeGridObject(shared);
  engine.setColPosition(3, 1);
  engine.setVisible(2, false);
  engine.setWidth(1, 77);
  engine.addSortKey({3, -1});
  engine.addGroup({1, -1});
  engine.setPreviewColumn(2);
  const Value operands[] = {Null{},
                            true,
                            std::int16_t{7},
                            -5,
                            0.1f,
                            1e300,
                            Currency{-12345},
                            Date{43831.0},
                            Date{43831.123456789},
                            "line\nwith \"quotes\" \\ = and\ttabs",
                            *Decimal::fromText("-0.50"),
                            Value()};
  for (const Value& operand : operands) {
    const std::string name = "condition " + std::to_string(engine.conditions().size());
    grid.object("FmtConditions").call("Add", 3, 6, operand, Missing{}, name.c_str());
  }
  const ObjectRef style = grid.object("FmtConditions", 1).object("FormatStyle");
  style.put("BackColor", -5);
  style.put("FontName", "Sans \"x\"");
  style.put("FontSize", 10.5);
  style.put("FontBold", true);
  grid.object("Font").put("Italic", true);
  engine.changeSettings([](GridSettings& settings) {
    settings.previewRowLines = 3;
    settings.useEvenOddColor = settings.groupByBoxVisible = true;
    settings.groupByBoxInfoText = "Σύρετε εδώ";
    settings.groupFooterStyle = kTotalsGroupFooter;
    settings.foreColor = 0xFF00FF;
  });
}

TEST(SavedView, GivesBackEveryPartOfAView) {
  const auto engine = table(), other = table();
  reshape(engine);
  const std::string text = savedView(*engine);
  EXPECT_EQ(restoreView(*other, text).messages(), Rows{});
  EXPECT_EQ(savedView(*other), text);
  EXPECT_EQ(other->rowCount(), engine->rowCount());
  other->undo();
  EXPECT_EQ(other->state(), table()->state()) << "restoring is one step";
}

TEST(SavedView, KeepsForeignColumnsAndTellsWhatDidNotFit) {
  const std::string text =
      "grid view 1\r\n"
      "column \"gone\" width=5\n"
      "column \"γ\" hidden fat\n"
      "sort \"gone\" descending\n"
      "sort \"γ\" up\n"
      "sort \"γ\"\n"
      "condition \"c\" column=\"gone\"\n"
      "condition \"d\" operator=99 value1=Long:x value2=String:\"ok\"\n"
      "preview \"gone\"\n"
      "set useEvenOddColor perhaps\n"
      "set nothing 1\n"
      "frob 1\n"
      "column \"a\n"
      "column\n"
      "\n";
  const auto engine = table();
  EXPECT_EQ(
      restoreView(*engine, text).messages(),
      (Rows{"line 2: there is no column \"gone\" now", "line 3: \"fat\" says nothing about a column",
            "line 4: there is no column \"gone\" now", "line 5: \"up\" is no direction; ascending was taken",
            "line 6: column \"γ\" is there twice", "line 7: there is no column \"gone\" now",
            "line 8: \"operator=99\" says nothing about a condition",
            "line 8: \"value1=Long:x\" says nothing about a condition",
            "line 9: there is no column \"gone\" now",
            "line 10: the setting \"useEvenOddColor\" has no value that makes sense",
            "line 11: nothing is known of the setting \"nothing\"", "line 12: nothing is known of \"frob\"",
            "line 13: a quote is not closed", "line 14: \"column\" lacks what it is about",
            "column \"a\": the saved view does not know it; it comes last",
            "column \"b \"quoted\"\": the saved view does not know it; it comes last"}));
  const std::string again = savedView(*engine);
  EXPECT_EQ(
      again.substr(0, again.find("set ")),
      "grid view 1\ncolumn \"gone\" width=5\ncolumn \"γ\" hidden\ncolumn \"a\"\ncolumn \"b \\\"quoted\\\"\"\n"
      "sort \"gone\" descending\nsort \"γ\" ascending\n"
      "condition \"c\" column=\"gone\"\n"
      "condition \"d\" column=\"a\" operator=0 value1=Empty value2=String:\"ok\"\npreview \"gone\"\n");
  const GridState before = engine->state();
  for (const char* wrong : {"", "grid view 2\n", "\xFF", "column \"a\"\n"}) {
    EXPECT_EQ(errorOf([&] { restoreView(*engine, wrong); }, "no saved view"), 5) << wrong;
  }
  EXPECT_EQ(engine->state(), before);
}

TEST(History, TakesEveryRedrawBracketAsOneStep) {
  const auto engine = table();
  const ObjectRef grid = makeGridObject(engine);
  const GridState first = engine->state();
  const auto rewrite = [&](std::int32_t column) {
    grid.put("Redraw", false);
    grid.object("Groups").call("Clear");
    grid.object("Groups").call("Add", column, 1);
    grid.put("GroupFooterStyle", 2);
    EXPECT_EQ(errorOf([&] { grid.call("Undo"); }, "While Redraw is off"), 5);
    grid.put("Redraw", true);
  };
  rewrite(1);
  const GridState second = engine->state();
  rewrite(1);  // changes nothing: no step
  engine->setWidth(3, 50);
  const GridState third = engine->state();
  grid.call("Undo");
  EXPECT_EQ(engine->state(), second);
  EXPECT_EQ(engine->rowCount(), 6);
  grid.call("Undo");
  EXPECT_EQ(engine->state(), first);
  EXPECT_EQ(engine->rowCount(), 2);
  EXPECT_EQ(grid.get("CanUndo"), Value(false));
  EXPECT_EQ(errorOf([&] { grid.call("Undo"); }, "no change of the view to undo"), 5);
  grid.call("Redo");
  grid.call("Redo");
  EXPECT_EQ(engine->state(), third);
  EXPECT_EQ(errorOf([&] { grid.call("Redo"); }), 5);
  grid.call("Undo");
  engine->setVisible(1, false);
  EXPECT_EQ(grid.get("CanRedo"), Value(false)) << "a new change ends what could be redone";

  grid.object("FmtConditions").call("Add", 1, 0, 1, Missing{}, "kept");
  const ObjectRef condition = grid.object("FmtConditions", "kept");
  condition.put("Operator", 3);
  grid.call("Undo");
  EXPECT_EQ(condition.get("Operator"), Value(std::int16_t{0})) << "a reference follows";
  for (int i = 0; i < 300; ++i) engine->setWidth(2, i + 1);
  int steps = 0;
  for (; engine->canUndo(); ++steps) engine->undo();
  EXPECT_EQ(steps, static_cast<int>(GridHistory::kSteps));
}

}  // namespace
}  // namespace vmgv
