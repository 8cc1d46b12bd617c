// Every property and method, and what a call that fits nothing says.
var count = 0;
function expect(what, actual, wanted) {
  ++count;
  if (actual !== wanted) WScript.Echo("FAILED " + what + ": " + actual + ", not " + wanted);
}

var edit = new ActiveXObject("vmGridViews.vmgrEdit");
expect("Grid at first", edit.Grid, null);
expect("CurrentCatalog at first", edit.CurrentCatalog, null);
expect("CurrentView at first", edit.CurrentView, "");
expect("excelVisible at first", edit.excelVisible, true);

var grid = { Name: "grid" }, catalog = new ActiveXObject("Scripting.Dictionary");
edit.Grid = grid;
edit.CurrentCatalog = catalog;
edit.CurrentView = "\u03a0\u03c1\u03bf\u03b2\u03bf\u03bb\u03ae";
edit.excelVisible = 0;
expect("Grid", edit.Grid, grid);
expect("its member", edit.Grid.Name, "grid");
edit.CurrentCatalog.Add("key", 5);
expect("CurrentCatalog", catalog.Item("key"), 5);
expect("CurrentView", edit.CurrentView, "\u03a0\u03c1\u03bf\u03b2\u03bf\u03bb\u03ae");
expect("excelVisible", edit.excelVisible, false);
edit.Font.Name = "DejaVu Sans";
edit.Font.Size = 12;
expect("Font.Size", edit.Font.Size, 12);

// Each opens a dialog or nothing, and answers false either way.
expect("ShowSummary", edit.ShowSummary(), false);
expect("ShowSort", edit.ShowSort(), false);
expect("ShowOther", edit.ShowOther(), false);
expect("ShowItems", edit.ShowItems(), false);
expect("ShowGroups", edit.ShowGroups(), false);
expect("ShowExcel", edit.ShowExcel(), false);
expect("ShowFormat", edit.ShowFormat(), false);
expect("ShowGeneral", edit.ShowGeneral(), false);
expect("ShowPreview", edit.ShowPreview("header", true), false);
expect("ShowPreviewX", edit.ShowPreviewX("header", false, true), false);

edit.Grid = null;
expect("null as Grid", edit.Grid, null);
var failed = 0;
try { edit.ShowOther(1); } catch (error) { ++failed; }
try { edit.nothing(); } catch (error) { ++failed; }
try { edit.Grid = "text"; } catch (error) { ++failed; }
expect("calls that fail", failed, 3);
WScript.Echo(count + " expectations");
if (count === 22) WScript.Echo("done");
