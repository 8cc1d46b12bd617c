// A pivot table over a new workbook's rows: which columns it takes, and what its cells and its parts say.
#include "adapters/workbook/package_reader.h"
#include "tests/workbook/fixture.h"

namespace vmgv::test {
namespace {

class PivotTest : public WorkbookTest {
 protected:
  void putRows(const std::vector<std::vector<Value>>& rows) {
    begin();
    for (std::size_t row = 0; row < rows.size(); ++row) {
      for (std::size_t column = 0; column < rows[row].size(); ++column) {
        put(static_cast<int>(row) + 1, static_cast<int>(column) + 1, rows[row][column]);
      }
    }
  }
  void makePivot() {
    EXPECT_EQ(Value("PivotTable1"), sheet.call("PivotTableWizard").object().get("Name"));
    sheet.call("PivotTableWizard").object().call("Update");
    EXPECT_EQ(Value(1), book.object("PivotCaches").get("Count"));
    book.object("PivotCaches").item(1).object().call("Refresh");
    show();
  }
  std::string part(const char* name) const {
    const PackageReader package(published);
    const workbook::PackagePart* const found = package.find(name);
    return found ? package.text(*found) : "none";
  }
  // The sheet's cells as "label number, label number".
  std::string cells() const {
    std::string xml = part("xl/worksheets/sheet2.xml"), text;
    for (std::size_t at = 0; (at = xml.find("<row", at)) != xml.npos; ++at) {
      const std::string row = xml.substr(at, xml.find("</row>", at) - at);
      text += text.empty() ? "" : ", ";
      for (const auto& [begin, end] : {std::pair("preserve\">", "</t>"), std::pair("<v>", "</v>")}) {
        for (std::size_t cell = row.find(begin); cell != row.npos; cell = row.find(begin, cell + 1)) {
          const std::size_t start = cell + std::string_view(begin).size();
          text += row.substr(start, row.find(end, start) - start) + ' ';
        }
      }
      text.pop_back();
    }
    return text;
  }

 private:
  using PackageReader = workbook::PackageReader;
};

TEST_F(PivotTest, TheFirstTextsAndTheFirstNumbers) {
  const Value nothing = Null{};
  const struct {
    std::vector<std::vector<Value>> rows;
    const char *cells, *cacheFields;
  } cases[] = {
      {{{"mixed", "Name", "n", "name"},
        {1, "fig", 2, "x"},
        {"a", "ΜΉΛΟΣ", 0.5, "y"},
        {1, "Fig", nothing, "z"},
        {1, nothing, 4},
        {1, "μήλος <&\">", 1},
        {1, "μήλος", -1}},
       "Name Σ n, fig 2, ΜΉΛΟΣ -0.5, μήλος &lt;&amp;\"&gt; 1, (blank) 4, Σ 6.5",
       "name=\"mixed\" numFmtId=\"0\"><sharedItems/></cacheField><cacheField name=\"Name\" numFmtId=\"0\">"
       "<sharedItems containsBlank=\"1\" count=\"4\"><s v=\"fig\"/><s v=\"ΜΉΛΟΣ\"/>"
       "<s v=\"μήλος &lt;&amp;&quot;&gt;\"/><m/></sharedItems></cacheField>"
       "<cacheField name=\"n\" numFmtId=\"0\"><sharedItems/></cacheField><cacheField name=\"name2\""},
      {{{"a", "b\nc"}, {"x", "1"}, {nothing, "2"}, {"x", "3"}},
       "a # a, x 2, (blank) 0, Σ 2",
       "name=\"b_x000a_c\""},
      {{{"a", "", "n"}, {1, "x", 5}, {2, "y", 6}},
       "Σ a, 3",
       "cacheFields count=\"1\"><cacheField name=\"a\""},
      {{{"a"}, {true}}, "# a, 1", "count=\"1\""},
      {{{"long", "t", "n"}, {std::string(256, 'x'), "y", 1}}, "t Σ n, y 1, Σ 1", "count=\"3\""},
  };
  for (const auto& c : cases) {
    putRows(c.rows);
    makePivot();
    EXPECT_EQ(c.cells, cells());
    const std::string cache = part("xl/pivotCache/pivotCacheDefinition1.xml");
    EXPECT_NE(cache.npos, cache.find(c.cacheFields)) << cache;
  }
}

TEST_F(PivotTest, ManyRowsAndTooManyTexts) {
  begin();
  put(1, 1, "each"), put(1, 2, "name"), put(1, 3, "n");
  for (int row = 2; row <= 20001; ++row) {
    put(row, 1, "text " + std::to_string(row));
    put(row, 2, row % 2 ? "odd" : "even");
    put(row, 3, row);
  }
  makePivot();
  EXPECT_EQ("name Σ n, even 100010000, odd 100020000, Σ 200030000", cells());
  const std::string cache = part("xl/pivotCache/pivotCacheDefinition1.xml");
  EXPECT_NE(cache.npos, cache.find("ref=\"A1:C20001\" sheet=\"Sheet1\"")) << cache;
}

TEST_F(PivotTest, PreviewLinesGiveNoTexts) {
  putRows({{"a", "b", "n"}, {"x", "u", 1}});
  put(3, 1, "a preview");
  range(3, 1, 3).call("Merge");
  makePivot();
  EXPECT_EQ("b Σ n, u 1, (blank) 0, Σ 1", cells());
}

TEST_F(PivotTest, WhereThereCanBeNone) {
  putRows({{"a"}});
  EXPECT_ERROR(1004, "a row below the headers", sheet.call("PivotTableWizard"));
  putRows({{"", "b"}, {1, 2}});
  EXPECT_ERROR(1004, "in A1", sheet.call("PivotTableWizard"));
  EXPECT_ERROR(1004, "no arguments", sheet.call("PivotTableWizard", 1));
  sheet.put("Name", "Sheet2");
  show();
  EXPECT_EQ("none", part("xl/worksheets/sheet2.xml"));
}

}  // namespace
}  // namespace vmgv::test
