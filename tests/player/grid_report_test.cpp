#include "hosts/player/grid_report.h"

#include "tests/player/stage.h"

namespace vmgv {
namespace {

ObjectRef column(std::int32_t index, const char* key, bool visible) {
  return holding({{"Index", index}, {"Key", key}, {"Caption", key}, {"Visible", visible}});
}

ObjectRef row(std::int32_t type, std::vector<Value> values) {
  const ObjectRef made = holding({{"RowType", type}});
  dynamic_cast<FakeObject&>(*made).on("Value", [type, values](Access, Args args) -> Value {
    if (type != 0) throw Error(ErrorNumber::InvalidCall);
    return values.at(static_cast<std::size_t>(toLong(args[0])) - 1);
  });
  return made;
}

ObjectRef sampleGrid() {
  const ObjectRef condition = holding({{"Name", "late"},
                                       {"Value1", Null{}},
                                       {"FormatStyle", holding({{"BackColor", 255}, {"FontBold", true}})}});
  const ObjectRef key = holding({{"ColIndex", 2}, {"SortOrder", std::int16_t{-1}}});
  const ObjectRef grid = holding(
      {{"Columns", listing({column(1, "id", true), column(2, "no", false), column(3, "state", true)})},
       {"SortKeys", listing({key})},
       {"Groups", listing({})},
       {"FmtConditions", listing({condition})},
       {"RowCount", 3},
       {"PreviewColumn", Null{}}});
  const std::vector<ObjectRef> rows{row(1, {}), row(0, {"a\tb\n\\", "hidden", Null{}}),
                                    row(0, {1.5, 0, true})};
  dynamic_cast<FakeObject&>(*grid).on("GetRowData", [rows](Access, Args args) -> Value {
    return rows.at(static_cast<std::size_t>(toLong(args[0])) - 1);
  });
  return grid;
}

TEST(GridReport, RowsAreTypesAndVisibleValues) {
  std::ostringstream out;
  writeRows(sampleGrid(), 1, 3, out);
  EXPECT_EQ(out.str(), "1\t\t\n0\ta\\tb\\n\\\\\t\n0\t1.5\tTrue\n");
}

TEST(GridReport, LayoutTellsWhatTheGridHas) {
  EXPECT_EQ(layoutJson(sampleGrid()), R"({
  "columns": [
    {
      "index": 1,
      "key": "id",
      "caption": "id",
      "dataField": null,
      "visible": true,
      "colPosition": null
    },
    {
      "index": 2,
      "key": "no",
      "caption": "no",
      "dataField": null,
      "visible": false,
      "colPosition": null
    },
    {
      "index": 3,
      "key": "state",
      "caption": "state",
      "dataField": null,
      "visible": true,
      "colPosition": null
    }
  ],
  "sortKeys": [
    {
      "colIndex": 2,
      "sortOrder": -1
    }
  ],
  "groups": [],
  "fmtConditions": [
    {
      "name": "late",
      "colIndex": null,
      "operator": null,
      "value1": null,
      "value2": null,
      "style": {
        "backColor": 255,
        "foreColor": null,
        "fontName": null,
        "fontSize": null,
        "fontBold": true,
        "fontItalic": null,
        "fontUnderline": null,
        "fontStrikethru": null
      }
    }
  ],
  "previewColumn": null,
  "previewRowLines": null,
  "useEvenOddColor": null,
  "columnAutoResize": null,
  "groupByBoxVisible": null,
  "groupByBoxInfoText": null,
  "groupFooterStyle": null,
  "multiSelect": null,
  "redraw": null,
  "rowCount": 3
}
)");
}

}  // namespace
}  // namespace vmgv
