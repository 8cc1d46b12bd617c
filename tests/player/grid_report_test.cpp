#include "hosts/player/grid_report.h"

#include <regex>

#include "tests/player/stage.h"

namespace vmgv {
namespace {

std::function<Value(Args)> itemOf(std::vector<Value> items) {
  return [items](Args args) { return items.at(static_cast<std::size_t>(toLong(args[0])) - 1); };
}

ObjectRef listing(const std::vector<Value>& items) {
  return thing({{"count", static_cast<std::int32_t>(items.size())}},
               {{"", itemOf(items)}, {"itembyposition", itemOf(items)}});
}

ObjectRef column(std::int32_t index, bool visible) {
  return thing({{"index", index}, {"key", "id"}, {"visible", visible}});
}

TEST(GridReport, RowsAreTypesAndVisibleValues) {
  const auto noValue = [](Args) -> Value { throw Error(ErrorNumber::InvalidCall); };
  const std::vector<Value> rows{
      thing({{"rowtype", 1}}, {{"value", noValue}}),
      thing({{"rowtype", 0}}, {{"value", itemOf({"a\tb\n\\", "hidden", Null{}})}}),
      thing({{"rowtype", 0}}, {{"value", itemOf({1.5, 0, true})}}),
  };
  const ObjectRef grid = thing({{"columns", listing({column(1, true), column(2, false), column(3, true)})}},
                               {{"getrowdata", itemOf(rows)}});
  std::ostringstream out;
  writeRows(grid, 1, 3, out);
  EXPECT_EQ(out.str(), "1\t\t\n0\ta\\tb\\n\\\\\t\n0\t1.5\tTrue\n");
}

TEST(GridReport, LayoutTellsWhatTheGridHas) {
  const ObjectRef style = thing({{"backcolor", 255}, {"fontbold", true}});
  const ObjectRef condition = thing({{"name", "late"}, {"value1", Null{}}, {"formatstyle", style}});
  const ObjectRef key = thing({{"colindex", 2}, {"sortorder", std::int16_t{-1}}});
  const std::string layout = layoutJson(thing({{"columns", listing({column(1, true), column(2, false)})},
                                               {"sortkeys", listing({key})},
                                               {"groups", listing({})},
                                               {"fmtconditions", listing({condition})},
                                               {"rowcount", 3}}));
  EXPECT_TRUE(layout.starts_with("{\n  \"columns\": [\n    {\n      \"index\": 1,\n")) << layout;
  EXPECT_EQ(
      std::regex_replace(layout, std::regex("\n *"), ""),
      R"({"columns": [)"
      R"({"index": 1,"key": "id","caption": null,"dataField": null,"visible": true,"colPosition": null},)"
      R"({"index": 2,"key": "id","caption": null,"dataField": null,"visible": false,"colPosition": null}],)"
      R"("sortKeys": [{"colIndex": 2,"sortOrder": -1}],"groups": [],)"
      R"("fmtConditions": [{"name": "late","colIndex": null,"operator": null,"value1": null,"value2": null,)"
      R"("style": {"backColor": 255,"foreColor": null,"fontName": null,"fontSize": null,"fontBold": true,)"
      R"("fontItalic": null,"fontUnderline": null,"fontStrikethru": null}}],)"
      R"("previewColumn": null,"previewRowLines": null,"useEvenOddColor": null,"columnAutoResize": null,)"
      R"("groupByBoxVisible": null,"groupByBoxInfoText": null,"groupFooterStyle": null,)"
      R"("multiSelect": null,"redraw": null,"rowCount": 3})");
}

}  // namespace
}  // namespace vmgv
