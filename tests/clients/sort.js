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
expect("ShowSort with OK", edit.ShowSort(), false);
expect("the keys", keys.text, "cleared, 2 -1");
expect("Redraw", grid.Redraw, true);
keys.text = "as before";
expect("ShowSort with Esc", edit.ShowSort(), false);
expect("the keys after Esc", keys.text, "as before");
WScript.Echo("done");
