#include "hosts/player/grid_report.h"

#include <functional>
#include <initializer_list>
#include <vector>

#include "grid/contract.h"
#include "support/automation/convert.h"
#include "support/automation/error.h"
#include "support/text/json.h"

namespace vmgv {
namespace {

// The names in the JSON are the members' own, whatever the case of their letters.
using Names = std::initializer_list<const char*>;

constexpr Names kColumn{"index", "key", "caption", "dataField", "visible", "colPosition"};
constexpr Names kOrder{"colIndex", "sortOrder"};
constexpr Names kCondition{"name", "colIndex", "operator", "value1", "value2"};
constexpr Names kStyle{"backColor", "foreColor",  "fontName",      "fontSize",
                       "fontBold",  "fontItalic", "fontUnderline", "fontStrikethru"};
constexpr Names kGrid{
    "previewColumn",      "previewRowLines",  "useEvenOddColor", "columnAutoResize", "groupByBoxVisible",
    "groupByBoxInfoText", "groupFooterStyle", "multiSelect",     "redraw",           "rowCount"};

Value readable(const ObjectRef& object, const char* name) {
  try {
    return object.get(Member(name));
  } catch (const Error& error) {
    if (error.number() != static_cast<std::int32_t>(ErrorNumber::MemberNotFound)) throw;
    return {};
  }
}

void writeMembers(JsonWriter& json, const ObjectRef& object, Names names) {
  for (const char* name : names) json.key(name).value(readable(object, name));
}

void writeStyle(JsonWriter& json, const ObjectRef& condition) {
  json.key("style").beginObject();
  writeMembers(json, condition.object("FormatStyle"), kStyle);
  json.endObject();
}

void writeCollection(JsonWriter& json, const ObjectRef& grid, const char* name, Names members,
                     void (*more)(JsonWriter&, const ObjectRef&) = nullptr) {
  json.key(name).beginArray();
  const ObjectRef collection = grid.object(Member(name));
  const std::int32_t count = toLong(collection.get("Count"));
  for (std::int32_t i = 1; i <= count; ++i) {
    const ObjectRef item = collection.item(i).object();
    json.beginObject();
    writeMembers(json, item, members);
    if (more) more(json, item);
    json.endObject();
  }
  json.endArray();
}

std::vector<std::int32_t> visibleColumns(const ObjectRef& grid) {
  const ObjectRef columns = grid.object("Columns");
  const std::int32_t count = toLong(columns.get("Count"));
  std::vector<std::int32_t> visible;
  for (std::int32_t position = 1; position <= count; ++position) {
    const ObjectRef column = columns.object("ItemByPosition", position);
    if (toBoolean(column.get("Visible"))) visible.push_back(toLong(column.get("Index")));
  }
  return visible;
}

void writeEscaped(std::ostream& out, const std::string& text) {
  for (const char c : text) {
    switch (c) {
      case '\t': out << "\\t"; break;
      case '\n': out << "\\n"; break;
      case '\r': out << "\\r"; break;
      case '\\': out << "\\\\"; break;
      default: out << c;
    }
  }
}

void writeValue(std::ostream& out, const Value& value) {
  if (value.isNull() || value.isEmpty() || value.isMissing()) return;
  writeEscaped(out, toText(value));
}

}  // namespace

std::string layoutJson(const ObjectRef& grid) {
  JsonWriter json;
  json.beginObject();
  writeCollection(json, grid, "columns", kColumn);
  writeCollection(json, grid, "sortKeys", kOrder);
  writeCollection(json, grid, "groups", kOrder);
  writeCollection(json, grid, "fmtConditions", kCondition, writeStyle);
  writeMembers(json, grid, kGrid);
  json.endObject();
  return json.text();
}

void writeRows(const ObjectRef& grid, std::int32_t first, std::int32_t last, std::ostream& out) {
  const Member getRowData("GetRowData"), rowType("RowType"), value("Value");
  const std::vector<std::int32_t> columns = visibleColumns(grid);
  for (std::int32_t position = first; position <= last; ++position) {
    const ObjectRef row = grid.object(getRowData, position);
    const std::int32_t type = toLong(row.get(rowType));
    out << type;
    for (const std::int32_t column : columns) {
      out << '\t';
      try {
        writeValue(out, row.get(value, column));
      } catch (const Error&) {
        if (type == kRecordRow) throw;
      }
    }
    out << '\n';
  }
}

}  // namespace vmgv
