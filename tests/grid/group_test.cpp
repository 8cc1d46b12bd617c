// Groups: which rows are displayed where, their totals, and what collapsing does to the selection.
#include <algorithm>
#include <functional>
#include <map>
#include <random>

#include "fixture.h"

namespace vmgv {
namespace {

using Longs = std::vector<std::int32_t>;

std::shared_ptr<GridEngine> sales() {
  return engineOf({{"place", "Place"}, {"kind", "Kind"}, {"price", "Price"}, {"pieces", "Pieces"}},
                  {{"Volos", "lamp", 0.1, 2},
                   {"Athens", "lamp", 10.5, 1},
                   {Null{}, "desk", 4.0, Null{}},
                   {"Volos", "desk", 0.2, 5},
                   {"Athens", Null{}, Null{}, 7},
                   {"Volos", "lamp", 0.7, 4}});
}

// Every row: its type's mark, then what a view shows of it.
Rows shown(const GridEngine& engine) {
  Rows rows;
  for (std::int32_t position = 1; position <= engine.rowCount(); ++position) {
    const DisplayRow row = engine.displayRow(position);
    std::string text = row.rowType == kRecordRow ? "  " : row.rowType == kGroupHeaderRow ? "+ " : "= ";
    if (row.rowType == kGroupHeaderRow) {
      text += engine.groupText(row);
    } else {
      for (std::int32_t column = 1; column <= engine.columnCount(); ++column) {
        text += (column > 1 ? "|" : "") + engine.displayText(position, column);
      }
    }
    rows.push_back(std::move(text));
  }
  return rows;
}

TEST(Groups, HaveHeadersAndTotalsAndCollapse) {
  const auto engine = sales();
  const ObjectRef grid = makeGridObject(engine);
  grid.put("Redraw", false);
  grid.object("Groups").call("Add", 1, -1);
  grid.object("Groups").call("Add", 2, 1);
  grid.object("SortKeys").call("Add", 3, -1);
  grid.put("GroupFooterStyle", 2);
  grid.call("RefreshGroups", false);
  grid.put("Redraw", true);
  const Rows expanded = {
      "+ Place: Volos (3)", "+ Kind: desk (1)",    "  Volos|desk|0.2|5",   "= (1)|(1)|0.2|5",
      "+ Kind: lamp (2)",   "  Volos|lamp|0.7|4",  "  Volos|lamp|0.1|2",   "= (2)|(2)|0.8|6",
      "= (3)|(3)|1|11",     "+ Place: Athens (2)", "+ Kind: – (1)",        "  Athens|||7",
      "= (1)|(0)|0|7",      "+ Kind: lamp (1)",    "  Athens|lamp|10.5|1", "= (1)|(1)|10.5|1",
      "= (2)|(1)|10.5|8",   "+ Place: – (1)",      "+ Kind: desk (1)",     "  |desk|4|",
      "= (0)|(1)|4|0",      "= (0)|(1)|4|0"};
  EXPECT_EQ(shown(*engine), expanded);

  const ObjectRef header = grid.object("GetRowData", 5), footer = grid.object("GetRowData", 8);
  EXPECT_EQ(toLong(header.get("RowType")), kGroupHeaderRow);
  EXPECT_EQ(toLong(footer.get("RowType")), kGroupFooterRow);
  EXPECT_EQ(header.get("Value", 1), Value("Volos"));
  EXPECT_EQ(header.get("Value", 2), Value("lamp"));
  EXPECT_EQ(header.get("Value", 3), Value(Null{}));
  EXPECT_EQ(header.get("RecordCount"), Value(2));
  EXPECT_EQ(footer.get("Value", 4), Value(6));

  grid.call("SetExpanded", 1, false);
  grid.object("SortKeys").call("Clear");  // the order within groups leaves them as they are
  EXPECT_EQ(shown(*engine)[1], "+ Place: Athens (2)");
  grid.put("GroupFooterStyle", 0);
  EXPECT_EQ(toLong(grid.get("RowCount")), 9);
  EXPECT_EQ(errorOf([&] { grid.call("SetExpanded", 4, true); }, "Row 4 is no header"), 5);
  EXPECT_EQ(errorOf([&] { header.get("GroupText"); }, "made anew"), 9);
  EXPECT_EQ(errorOf([&] { footer.get("Value", 4); }, "made anew"), 9);
  grid.call("RefreshGroups", true);
  EXPECT_EQ(shown(*engine), (Rows{"+ Place: Volos (3)", "+ Place: Athens (2)", "+ Place: – (1)"}));
  engine->addGroup({3, 1});  // the groups above the new ones stay collapsed
  EXPECT_EQ(engine->rowCount(), 3);
  grid.call("ExpandAll");
  EXPECT_EQ(engine->rowCount(), 3 + 8 + 6 + 3);
  engine->setValueList(4, std::make_shared<ValueList>(ValueList{{{2, "two"}}}));
  grid.put("GroupFooterStyle", 2);
  EXPECT_EQ(engine->displayText(engine->rowCount(), 4), "(0)")
      << "numbers that stand for texts do not add up";
}

TEST(Groups, SumWhatDoesNotFitALong) {
  const Folder folder;
  const auto engine = std::make_shared<GridEngine>();
  const std::string most = "9223372036854775807", least = "-9223372036854775808";
  engine->load(*openRowSource(folder.write("t.csv", "g,n\na," + most + "\na," + most + "\nb," + least +
                                                        "\nb," + least + "\nc,2147483647\nc,1\nd," + most +
                                                        "\nd," + least + "\n")));
  engine->addGroup({1, 1});
  engine->changeSettings([](GridSettings& settings) { settings.groupFooterStyle = kTotalsGroupFooter; });
  Rows sums;
  for (const std::int32_t position : {4, 8, 12, 16}) sums.push_back(engine->displayText(position, 2));
  EXPECT_EQ(sums, (Rows{"18446744073709551614", "-18446744073709551616", "2147483648", "-1"}));
}

TEST(Groups, KeepTheSelectionWithItsRows) {
  const auto engine = sales();
  engine->select({2, 4});
  engine->addGroup({1, 1});  // - (1): 1; Athens (2): 3; Volos (3): 6
  EXPECT_EQ(engine->selection(), (Longs{4, 8}));
  engine->select({3, 4, 8});
  engine->setExpanded(1, false);
  EXPECT_EQ(engine->selection(), (Longs{2, 3, 7}));
  engine->setExpanded(2, false);
  EXPECT_EQ(engine->selection(), (Longs{2, 6 - 1})) << "the collapsed group keeps its header alone";
  engine->clearGroups();
  EXPECT_EQ(engine->selection(), Longs{4});
}

// A plain model of what is displayed: "level:record" of headers, "record", "level=" of footers.
struct Model {
  const GridEngine& engine;
  const std::map<std::string, bool>& collapsed;  // by path of values
  bool footers;
  Rows rows;

  void add(const std::vector<std::uint32_t>& records, std::size_t level, const std::string& path) {
    if (level == engine.groups().size()) {
      for (const std::uint32_t record : records) rows.push_back(std::to_string(record));
      return;
    }
    const std::int32_t column = engine.groups()[level].colIndex;
    for (std::size_t first = 0; first < records.size();) {
      const Value value = engine.recordValue(records[first], column);
      std::vector<std::uint32_t> part;
      for (; first < records.size() && engine.recordValue(records[first], column) == value; ++first) {
        part.push_back(records[first]);
      }
      const std::string below = path + "/" + (value.isNull() ? "~" : toText(value));
      rows.push_back(std::to_string(level) + ":" + std::to_string(part.front()));
      if (collapsed.contains(below)) continue;
      add(part, level + 1, below);
      if (footers) rows.push_back(std::to_string(level) + "=");
    }
  }
};

TEST(Groups, AgreeWithAPlainModelOnRandomRows) {
  std::mt19937 random(11);
  for (int round = 0; round < 40; ++round) {
    std::vector<std::vector<Value>> rows(random() % 300);
    for (auto& row : rows) {
      for (const unsigned kinds : {3u, 7u, 4u}) {
        const auto kind = static_cast<std::int32_t>(random() % kinds);
        row.push_back(kind == 0 ? Value(Null{}) : Value(kind));
      }
    }
    const auto engine = engineOf({{"a"}, {"b"}, {"c"}}, rows);
    std::map<std::string, bool> collapsed;
    bool footers = false;
    for (int step = 0; step < 12; ++step) {
      switch (random() % 4) {
        case 0: {  // other groups: those of the same columns as before stay collapsed
          std::vector<SortKey> groups;
          Longs columns{1, 2, 3};
          std::shuffle(columns.begin(), columns.end(), random);
          columns.resize(random() % 4);
          for (const std::int32_t column : columns) {
            groups.push_back({column, static_cast<std::int16_t>(random() % 2 == 0 ? 1 : -1)});
          }
          const auto before = engine->groups();
          std::size_t kept = 0;
          while (kept < groups.size() && kept < before.size() &&
                 groups[kept].colIndex == before[kept].colIndex) {
            ++kept;
          }
          engine->setGroups(groups);
          std::erase_if(collapsed, [&](const auto& path) {
            return static_cast<std::size_t>(std::count(path.first.begin(), path.first.end(), '/')) > kept;
          });
          break;
        }
        case 1:
          footers = !footers;
          engine->changeSettings([&](GridSettings& s) { s.groupFooterStyle = footers ? 2 : 0; });
          break;
        default: {
          if (engine->rowCount() == 0) break;
          const auto position =
              static_cast<std::int32_t>(random() % static_cast<unsigned>(engine->rowCount())) + 1;
          const DisplayRow row = engine->displayRow(position);
          if (row.rowType != kGroupHeaderRow) break;
          std::string path;
          for (std::int32_t level = 0; level <= row.level; ++level) {
            const std::int32_t column = engine->groups()[static_cast<std::size_t>(level)].colIndex;
            const Value value = engine->rowValue(row, column);
            path += "/" + (value.isNull() ? std::string("~") : toText(value));
          }
          const bool expanded = engine->isExpanded(row);
          engine->setExpanded(position, !expanded);
          expanded ? void(collapsed[path] = true) : void(collapsed.erase(path));
        }
      }
      std::vector<OrderKey> keys;
      std::vector<std::uint32_t> records(rows.size());
      for (std::uint32_t i = 0; i < records.size(); ++i) records[i] = i;
      std::stable_sort(records.begin(), records.end(), [&](std::uint32_t a, std::uint32_t b) {
        for (const SortKey& key : engine->groups()) {
          const Value x = engine->recordValue(a, key.colIndex), y = engine->recordValue(b, key.colIndex);
          const int order = (x.isNull() ? 0 : toLong(x)) - (y.isNull() ? 0 : toLong(y));
          if (order != 0) return order * key.sortOrder < 0;
        }
        return false;
      });
      Model model{*engine, collapsed, footers, {}};
      model.add(records, 0, "");
      Rows found;
      std::vector<std::int32_t> headers;  // the header above, by level
      for (std::int32_t position = 1; position <= engine->rowCount(); ++position) {
        const DisplayRow row = engine->displayRow(position);
        const auto level = static_cast<std::size_t>(row.level);
        switch (row.rowType) {
          case kGroupHeaderRow:
            found.push_back(std::to_string(row.level) + ":" + std::to_string(row.record));
            headers.resize(level);
            ASSERT_EQ(row.parent, headers.empty() ? 0 : headers.back());
            headers.push_back(position);
            break;
          case kGroupFooterRow:
            found.push_back(std::to_string(row.level) + "=");
            ASSERT_EQ(row.parent, headers[level]);
            break;
          default:
            found.push_back(std::to_string(row.record));
            ASSERT_EQ(row.parent, headers.empty() ? 0 : headers.back());
        }
      }
      ASSERT_EQ(found, model.rows) << "round " << round << ", step " << step;
    }
  }
}

}  // namespace
}  // namespace vmgv
