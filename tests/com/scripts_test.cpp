// Script objects as hosts pass them: instances of VBScript classes and JScript objects.
#include "tests/com/script.h"
#include "tests/com/things.h"

namespace vmgv::test {
namespace {

constexpr const char* kVbScript = R"(
Class Column
  Public Caption
  Private isVisible
  Public Property Get Visible
    Visible = isVisible
  End Property
  Public Property Let Visible(value)
    isVisible = value
  End Property
End Class

Class Columns
  Private firstColumn
  Private secondColumn
  Private Sub Class_Initialize
    Set firstColumn = New Column
    firstColumn.Caption = "Column 1"
    Set secondColumn = New Column
    secondColumn.Caption = "Column 2"
  End Sub
  Public Property Get Count
    Count = 2
  End Property
  Public Default Property Get Item(index)
    If index = 1 Then Set Item = firstColumn Else Set Item = secondColumn
  End Property
End Class

Class Grid
  Public Owner
  Private allColumns
  Private Sub Class_Initialize
    Set allColumns = New Columns
  End Sub
  Public Property Get Columns
    Set Columns = allColumns
  End Property
  Public Function GetRowData(position)
    GetRowData = "row " & position
  End Function
  Public Sub Refresh
    Owner = "refreshed"
  End Sub
  Public Sub Fail
    Err.Raise 9, "Grid", "out of rows"
  End Sub
End Class

Function MakeGrid
  Set MakeGrid = New Grid
End Function

Function Use(thing)
  Dim item, text
  thing.Value = "from script"
  For Each item In thing
    text = text & item
  Next
  Use = thing & thing.Sum(1, 2, 3) & text
End Function

Function Caught(thing)
  On Error Resume Next
  thing.Fail 1004, "no such cell"
  Caught = Err.Number & " " & Err.Description
End Function
)";

constexpr const char* kJScript = R"(
function Column(i) { this.Caption = "Column " + i; this.Visible = null; }
function MakeGrid() {
  var columns = [new Column(1), new Column(2)];
  return {
    Owner: null,
    Columns: { Count: 2, Item: function (index) { return columns[index - 1]; } },
    GetRowData: function (position) { return "row " + position; },
    Refresh: function () { this.Owner = "refreshed"; },
    Fail: function () { var error = new Error(9, "out of rows"); error.number = 0x800A0009 | 0; throw error; }
  };
}
function Use(thing) {
  thing.Value = "from script";
  var text = "";
  for (var items = new Enumerator(thing); !items.atEnd(); items.moveNext()) text += items.item();
  return thing.Value + thing.Sum(1, 2, 3) + text;
}
function Caught(thing) {
  try { thing.Fail(1004, "no such cell"); } catch (error) { return (error.number & 0xFFFF) + " " + error.description; }
}
)";

class Scripts : public testing::TestWithParam<std::pair<const wchar_t*, const char*>> {
 protected:
  Script script{GetParam().first, GetParam().second};
};

TEST_P(Scripts, AScriptsObjectIsAGrid) {
  const ObjectRef grid = script.globals.call("MakeGrid").takeObject();
  EXPECT_EQ(nullptr, (*grid).classId());
  const ObjectRef columns = grid.object("columns");
  EXPECT_EQ(2, toLong(columns.get("Count")));
  EXPECT_EQ(Value("Column 2"), columns.item(2).object().get("Caption"));
  EXPECT_EQ(Value("Column 1"), columns.object("Item", 1).get("CAPTION"));
  EXPECT_EQ(columns.object("Item", 1), columns.item(1).object());
  columns.object("Item", 1).put("Visible", true);
  EXPECT_EQ(Value(true), columns.object("Item", 1).get("Visible"));
  EXPECT_EQ(Value("row 7"), grid.get("GetRowData", 7));
  EXPECT_EQ(Value("row 7"), grid.call("GetRowData", 7));
  grid.call("Refresh");
  EXPECT_EQ(Value("refreshed"), grid.get("Owner"));
  EXPECT_EQ("438: Object has no member RowCount", errorOfStep([&] { grid.get("RowCount"); }));
  EXPECT_EQ("438: Object is not a collection", errorOfStep([&] { (*grid).enumerate(); }));
  EXPECT_EQ("", script.site->lastError);  // nothing was tried that a script's user would have to read

  // where the engine tells its user of an error, it keeps the number from us
  EXPECT_EQ("-2147352319: A script has failed and reported its error",
            errorOfStep([&] { grid.call("Fail"); }));
  EXPECT_NE(std::string::npos, script.site->lastError.find("out of rows"));
}

TEST_P(Scripts, AnObjectOfOursServesTheScript) {
  const ObjectRef thing = makeObject<Thing>();
  EXPECT_EQ(Value("from script123123"), script.globals.call("Use", thing));
  EXPECT_EQ(Value("1004 no such cell"), Value(toText(script.globals.call("Caught", thing))));
}

TEST_P(Scripts, ObjectsComeBackAsThemselves) {
  const ObjectRef grid = script.globals.call("MakeGrid").takeObject();
  const ObjectRef thing = makeObject<Thing>();
  thing.put("Value", grid);
  grid.putRef("Owner", thing);
  EXPECT_EQ(Value(thing), grid.get("Owner"));
  EXPECT_EQ(Value(grid), grid.object("Owner").get("Value"));
  thing.put("Value", Value());  // they held each other
}

INSTANTIATE_TEST_SUITE_P(Engines, Scripts,
                         testing::Values(std::pair(L"VBScript", kVbScript), std::pair(L"JScript", kJScript)));

}  // namespace
}  // namespace vmgv::test
