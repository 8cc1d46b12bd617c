// A grid written in the script: the sort dialog lists its columns and writes its sort keys. Nobody chooses a
// language, so the dialog is Greek.
function expect(what, actual, wanted) {
  if (actual !== wanted) WScript.Echo("FAILED " + what + ": " + actual + ", not " + wanted);
}

var keys = {
  text: "", Count: 0,
  Clear: function () { this.text = "cleared"; },
  Add: function (column, order) { this.text += ", " + column + " " + order; }
};
var columns = { Count: 3, Item: function (index) { return { Caption: "\u03c3\u03c4\u03ae\u03bb\u03b7 " + index }; } };
var grid = { Columns: columns, SortKeys: keys, Redraw: true };

var edit = new ActiveXObject("vmGridViews.vmgrEdit");
edit.Grid = grid;
expect("Grid", edit.Grid, grid);
expect("ShowSort with OK", edit.ShowSort(), false);
expect("the keys", keys.text, "cleared, 2 -1");
expect("Redraw", grid.Redraw, true);
keys.text = "as before";
expect("ShowSort with Esc", edit.ShowSort(), false);
expect("the keys after Esc", keys.text, "as before");

edit.CurrentView = "\u03a0\u03c1\u03bf\u03b2\u03bf\u03bb\u03ae";
expect("CurrentView", edit.CurrentView, "\u03a0\u03c1\u03bf\u03b2\u03bf\u03bb\u03ae");
edit.excelVisible = 0;
expect("excelVisible", edit.excelVisible, false);
edit.Grid = null;
expect("null as Grid", edit.Grid, null);
var failed = 0;
try { edit.ShowOther(1); } catch (error) { ++failed; }
try { edit.nothing(); } catch (error) { ++failed; }
try { edit.Grid = "text"; } catch (error) { ++failed; }
expect("calls that fail", failed, 3);
WScript.Echo("done");
