#include "hosts/player/grid_report.h"

#include "tests/player/stage.h"

namespace vmgv {
namespace {

ObjectRef column(std::int32_t index, const char* key, bool visible) {
  return Bag::of({{"index", Bag::holds(index)},
                  {"key", Bag::holds(key)},
                  {"caption", Bag::holds(key)},
                  {"visible", Bag::holds(visible)}});
}

ObjectRef row(std::int32_t type, std::vector<Value> values) {
  return Bag::of({{"rowtype", Bag::holds(type)}, {"value", [type, values](Args args) -> Value {
                                                    if (type != 0) throw Error(ErrorNumber::InvalidCall);
                                                    return values.at(
                                                        static_cast<std::size_t>(toLong(args[0])) - 1);
                                                  }}});
}

ObjectRef sampleGrid() {
  const ObjectRef style = Bag::of({{"backcolor", Bag::holds(255)}, {"fontbold", Bag::holds(true)}});
  const ObjectRef condition = Bag::of(
      {{"name", Bag::holds("late")}, {"value1", Bag::holds(Null{})}, {"formatstyle", Bag::holds(style)}});
  const ObjectRef key = Bag::of({{"colindex", Bag::holds(2)}, {"sortorder", Bag::holds(std::int16_t{-1})}});
  const std::vector<ObjectRef> rows{row(1, {}), row(0, {"a\tb\n\\", "hidden", Null{}}),
                                    row(0, {1.5, 0, true})};
  return Bag::of(
      {{"columns",
        Bag::holds(Bag::list({column(1, "id", true), column(2, "no", false), column(3, "state", true)}))},
       {"sortkeys", Bag::holds(Bag::list({key}))},
       {"groups", Bag::holds(Bag::list({}))},
       {"fmtconditions", Bag::holds(Bag::list({condition}))},
       {"rowcount", Bag::holds(3)},
       {"previewcolumn", Bag::holds(Null{})},
       {"getrowdata",
        [rows](Args args) -> Value { return rows.at(static_cast<std::size_t>(toLong(args[0])) - 1); }}});
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
