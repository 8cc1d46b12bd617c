// Script objects as hosts pass them: instances of VBScript classes and JScript objects.
#include "tests/com/script.h"

namespace vmgv::test {
namespace {

constexpr const char* kVbScript = R"(
Class Column
  Public Caption
End Class

Class Grid
  Public Owner
  Private first
  Private Sub Class_Initialize: Set first = New Column: first.Caption = "Column 1": End Sub
  Public Default Property Get Item(index)
    If index = 1 Then Set Item = first
  End Property
  Public Function GetRowData(position): GetRowData = "row " & position: End Function
  Public Sub Refresh: Owner = "refreshed": End Sub
  Public Sub Fail: Err.Raise 9, "Grid", "out of rows": End Sub
End Class

Function MakeGrid: Set MakeGrid = New Grid: End Function

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
function MakeGrid() {
  var first = { Caption: "Column 1" };
  return {
    Owner: null,
    Item: function (index) { return index == 1 ? first : null; },
    GetRowData: function (position) { return "row " + position; },
    Refresh: function () { this.Owner = "refreshed"; },
    Fail: function () { var error = new Error(9, "out of rows"); error.number = 0x800A0009 | 0; throw error; }
  };
}
function Use(thing) {
  thing.Value = "from script";
  for (var text = "", items = new Enumerator(thing); !items.atEnd(); items.moveNext()) text += items.item();
  return thing.Value + thing.Sum(1, 2, 3) + text;
}
function Caught(thing) {
  try { thing.Fail(1004, "no such cell"); } catch (error) { return (error.number & 0xFFFF) + " " + error.description; }
}
)";

class Scripts : public testing::TestWithParam<std::pair<const wchar_t*, const char*>> {
 protected:
  Script script{GetParam().first, GetParam().second};
  ObjectRef grid = script.globals.call("MakeGrid").takeObject();
  ObjectRef thing = makeObject<Thing>();
};

TEST_P(Scripts, AScriptsObjectIsAGrid) {
  EXPECT_EQ(nullptr, (*grid).classId());
  const ObjectRef column = grid.object("item", 1);
  EXPECT_EQ(Value("Column 1"), column.get("CAPTION"));
  EXPECT_EQ(Value(column), grid.item(1));
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
  EXPECT_EQ("out of rows", script.site->lastError);
}

TEST_P(Scripts, AnObjectOfOursServesTheScript) {
  EXPECT_EQ(Value("from script123123"), script.globals.call("Use", thing));
  EXPECT_EQ("1004 no such cell", toText(script.globals.call("Caught", thing)));
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
