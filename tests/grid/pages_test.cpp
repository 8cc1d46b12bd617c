// Pages of a grid: every row once and in order, whatever the paper, and what is printed.
#include "tests/grid/pages.h"

#include <cmath>
#include <set>

#include "adapters/grid/pages/page_look.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

constexpr double kPaper = 300, kMargin = 20;

// Records r1, r2, ... in groups of three, with numbers and previews of different lengths.
struct PagedGrid final : EventSink {
  explicit PagedGrid(int records, int columns = 3) {
    std::vector<ColumnSpec> specs{{"name"}, {"amount"}, {"group"}, {"notes"}};
    for (int i = 4; i < columns + 1; ++i) specs.push_back({"more" + std::to_string(i)});
    std::vector<std::vector<Value>> rows;
    for (int i = 1; i <= records; ++i) {
      auto& row = rows.emplace_back();
      row = {"r" + std::to_string(i), i * 100, "g" + std::to_string((i - 1) / 3), std::string()};
      for (int word = 0; word < i % 4 * 9; ++word) row[3] = *row[3].as<std::string>() + "word ";
      while (row.size() < specs.size()) row.emplace_back("x");
    }
    engine = engineOf(std::move(specs), std::move(rows));
    engine->setVisible(4, false);
    engine->setPrintPort(&printer);
    engine->printer().setup = {{kPaper, kPaper}, kMargin, kMargin, kMargin, kMargin};
    grid = makeGridObject(engine);
  }
  // As a listener that counts pages.
  void raised(std::string_view event, std::span<const Value> parameters) override {
    EXPECT_EQ(event, "BeforePrintPage");
    engine->printer().footer[2] = toText(parameters[0]) + " of " + toText(parameters[1]);
  }
  std::deque<RecordedPage>& print() {
    const auto listening = (*grid).listen(*this);
    grid.call("PrintGrid", false);
    return printer.pages;
  }
  // The first texts of the rows on all pages, titles and margins left out.
  Rows printedRows() {
    Rows rows;
    for (const RecordedPage& page : print()) {
      for (const PageText& text : page.texts) {
        if (text.text[0] == 'r' || text.text.starts_with("group:")) rows.push_back(text.text);
      }
    }
    return rows;
  }
  Rows displayedRows(bool selected = false) const {
    Rows rows;
    for (std::int32_t position = 1; position <= engine->rowCount(); ++position) {
      const DisplayRow row = engine->displayRow(position);
      if (row.rowType == kGroupFooterRow) continue;
      const auto& selection = engine->selection();
      if (selected && !std::binary_search(selection.begin(), selection.end(), position)) continue;
      rows.push_back(engine->displayText(position, 1));
    }
    return rows;
  }

  MemoryPrinter printer;
  std::shared_ptr<GridEngine> engine;
  ObjectRef grid;
};

TEST(Pages, EveryRowOnceAndInOrderOnEveryKindOfGridAndPaper) {
  const struct {
    int records;
    bool groups, footers, previews, repeat;
    PageSize paper;
  } cases[] = {{0, false, false, false, true, {kPaper, kPaper}},
               {1, false, false, false, true, {kPaper, kPaper}},
               {17, false, false, false, true, {kPaper, kPaper}},
               {200, false, false, false, false, {kPaper, kPaper}},
               {200, true, true, false, true, {kPaper, kPaper}},
               {200, true, true, true, true, {kPaper, kPaper}},
               {200, true, false, true, false, {kPaper * 2, kPaper}},
               {40, true, true, true, true, {180, 113}},
               {5000, true, false, true, true, {595, 842}}};
  for (const auto& c : cases) {
    PagedGrid f(c.records);
    f.engine->printer().setup.paper = c.paper;
    f.engine->printer().repeatHeaders = c.repeat;
    if (c.groups) f.engine->addGroup({3, kSortAscending});
    f.engine->changeSettings([&](GridSettings& settings) {
      settings.groupFooterStyle = c.footers ? kTotalsGroupFooter : kNoGroupFooter;
      settings.previewRowLines = 3;
    });
    if (c.previews) f.engine->setPreviewColumn(4);
    EXPECT_EQ(f.printedRows(), f.displayedRows());
    const std::string pages = std::to_string(f.printer.pages.size());
    int number = 0;
    for (const RecordedPage& page : f.printer.pages) {
      EXPECT_TRUE(page.shows(std::to_string(++number) + " of " + pages));
      EXPECT_EQ(page.shows("amount"), c.repeat || number == 1) << number;
      for (const PageText& text : page.texts) {
        const double right = text.x + static_cast<double>(countCharacters(text.text)) * text.font.size / 2;
        EXPECT_TRUE(text.x >= kMargin - 0.01 && right <= c.paper.width - kMargin + 0.01) << text.text;
        EXPECT_TRUE(text.baseline > kMargin && text.baseline < c.paper.height - kMargin) << text.text;
      }
    }
  }
}

TEST(Pages, BreaksKeepRowsWholeAndHeadersWithTheirFirstRow) {
  const RowHeight small{10, 5, 0, false}, header{10, 5, 0, true}, tall{10, 5, 30, false},
      huge{90, 5, 0, false};
  const RowHeight noted{10, 5, 3, false};
  const struct {
    std::vector<RowHeight> rows;
    std::vector<PageStart> starts;  // rooms of 40, then 50
  } cases[] = {
      {{}, {{0, 0}, {0, 0}}},
      {{small, small, small, small}, {{0, 0}, {4, 0}}},
      {{small, small, small, small, small}, {{0, 0}, {4, 0}, {5, 0}}},
      {{small, small, header, header, small}, {{0, 0}, {2, 0}, {5, 0}}},
      {{small, header, noted}, {{0, 0}, {1, 0}, {3, 0}}},
      {{header, header, header, header, small}, {{0, 0}, {4, 0}, {5, 0}}},
      {{small, noted, noted, small}, {{0, 0}, {2, 0}, {4, 0}}},
      {{small, tall, small}, {{0, 0}, {1, 5}, {1, 15}, {1, 25}, {3, 0}}},
      {{huge, huge, small}, {{0, 0}, {1, 0}, {2, 0}, {3, 0}}},
  };
  for (const auto& c : cases) {
    const auto rows = static_cast<std::int32_t>(c.rows.size());
    EXPECT_EQ(
        breakPages(rows, [&](std::int32_t row) { return c.rows[static_cast<std::size_t>(row)]; }, {40, 50}),
        c.starts)
        << &c - cases;
  }
}

TEST(Pages, ColumnsShrinkAndThenGoOnBesideWithTheFirstRepeated) {
  const struct {
    std::vector<double> widths;
    bool fill;
    double scale;
    std::vector<std::vector<double>> bands;  // on a page of 100, shrunk to 0.5 at least
  } cases[] = {{{}, true, 1, {{}}},
               {{30, 20}, false, 1, {{30, 20}}},
               {{30, 20}, true, 1, {{60, 40}}},
               {{100, 60}, false, 0.625, {{62.5, 37.5}}},
               {{40, 100, 80, 60, 100}, false, 0.55, {{22, 55}, {22, 44, 33}, {22, 55}}},
               {{300, 300}, false, 1, {{100}, {50, 50}}}};
  for (const auto& c : cases) {
    std::vector<PageColumn> columns;
    for (const double width : c.widths) {
      columns.push_back({static_cast<std::int32_t>(columns.size()) + 1, width});
    }
    const PageBands fitted = fitColumns(columns, 100, 0.5, c.fill);
    EXPECT_EQ(fitted.scale, c.scale);
    std::vector<std::vector<double>> bands;
    for (const PageBand& band : fitted.bands) {
      bands.emplace_back();
      for (const PageColumn& column : band) bands.back().push_back(std::round(column.width * 100) / 100);
      EXPECT_TRUE(band.empty() || band.front().index == 1);
    }
    EXPECT_EQ(bands, c.bands) << &c - cases;
  }
}

TEST(Pages, NoNumberLosesDigitsHoweverRareItIs) {
  std::vector<std::vector<Value>> rows;
  for (int i = 0; i < 29998; ++i) rows.push_back({i % 2 == 0 ? "odd" : "even", i % 9});
  rows[12345][1] = 1234567;
  rows[23458][1] = -7654321;
  MemoryPrinter printer;
  const auto engine = engineOf({{"kind"}, {"amount"}}, std::move(rows));
  engine->setPrintPort(&printer);
  engine->addGroup({1, 1});
  engine->changeSettings([](GridSettings& settings) {
    settings.groupFooterStyle = kTotalsGroupFooter;
    settings.columnAutoResize = false;
  });
  makeGridObject(engine).call("PrintGrid", false);
  std::set<std::string> shown;
  for (const RecordedPage& page : printer.pages) {
    for (const PageText& text : page.texts) shown.insert(text.text);
  }
  for (const char* number : {"1234567", "-7654321"}) EXPECT_TRUE(shown.contains(number)) << number;
  EXPECT_TRUE(shown.contains(engine->displayText(engine->rowCount(), 2))) << "the last total";
}

TEST(Pages, TextsAreCutAndWrapped) {
  HalfWideFonts fonts;
  const FontRuler ruler(fonts.metrics({"Any", 2}));  // every character is 1 wide
  for (const auto& [text, cut] : {std::pair{"exact", "exact"}, {"longer", "long…"}, {"Ελληνικά", "Ελλη…"}}) {
    std::string shown = text;
    EXPECT_EQ(ruler.fit(shown, 5), countCharacters(cut));
    EXPECT_EQ(shown, cut);
  }
  const std::pair<std::string, Rows> wrapped[] = {{"", {}},
                                                  {"one two three", {"one", "two", "three"}},
                                                  {"a b c d e", {"a b c", "d e"}},
                                                  {"λέξη ελληνικά", {"λέξη", "ελλην", "ικά"}},
                                                  {"well-known", {"well-", "known"}},
                                                  {"a\n\nb", {"a", "", "b"}},
                                                  {std::string(12, 'w'), {"wwwww", "wwwww", "ww"}}};
  for (const auto& [text, lines] : wrapped) {
    Rows found;
    for (LineBreaker breaker(ruler, text, 5); !breaker.atEnd();) found.emplace_back(breaker.next());
    EXPECT_EQ(found, lines);
    EXPECT_EQ(countLines(ruler, text, 5, 2), std::min<int>(2, static_cast<int>(lines.size())));
  }
}

TEST(Pages, TranslatedColoursCanBeReadOnWhitePaper) {
  GridSettings dark;
  dark.backColor = 0x202020;
  dark.foreColor = 0xF0F0F0;
  const PageLook look(dark, true), screen(dark, false);
  const std::int32_t colours[] = {0x202020, 0xF0F0F0, 0xFFFFFF,     0,
                                  0x0000FF, 0x00FFFF, kWindowColor, kWindowTextColor};
  for (const std::int32_t back : colours) {
    for (const std::int32_t fore : colours) {
      for (const bool alternate : {false, true}) {
        const RowStyle style{back, fore, {}, alternate};
        EXPECT_GE(contrast(look.ink(style), look.back(style)), 4.5) << back << ' ' << fore;
      }
    }
  }
  const RowStyle own{dark.backColor, dark.foreColor}, red{dark.backColor, 0x0000C0};
  EXPECT_EQ(look.back(own), PageLook::kPaper);
  EXPECT_EQ(look.ink(red), 0xC00000u);
  EXPECT_EQ(screen.back(own), 0x202020u);
  EXPECT_EQ(screen.ink(own), 0xF0F0F0u);
}

TEST(Pages, WhatAPreviewShowsIsPrinted) {
  PagedGrid f(12);
  f.engine->addGroup({3, kSortAscending});
  f.engine->select({3, 10});  // r2 and r7
  struct Preview final : Object {
    std::string typeName() const override { return "Preview"; }
    ClassId classId() const noexcept override { return nullptr; }
    MemberId member(std::string_view name) override { return name == "ShowPages" ? 1 : 2; }
    Value invoke(MemberId, Access, std::span<const Value> args) override {
      return pages = args[0].object(), Value();
    }
    ObjectRef pages;
  };
  auto* preview = new Preview;
  const ObjectRef holder(preview);
  f.grid.call("PrintPreview", holder, true);
  EXPECT_EQ(preview->pages.get("PageCount"), Value(1));
  EXPECT_EQ(f.printedRows(), (Rows{"group: g0 (3)", "r2", "group: g2 (3)", "r7"}));
  preview->pages = {};
  EXPECT_EQ(f.printedRows(), f.displayedRows());
}

TEST(Pages, PrintingTakesTheDialogsChoiceOrNothing) {
  PagedGrid f(100);
  f.engine->printer().header[0] = "Sales";
  f.grid.call("PrintGrid", true);  // cancelled
  EXPECT_TRUE(f.printer.titles.empty());
  const std::int32_t all = f.printer.askedFor;
  EXPECT_GT(all, 3);

  f.printer.setup = PageSetup{{500, 300}, 0, 0, 0, 0};
  f.printer.chosen.firstPage = 2;
  f.printer.chosen.lastPage = 3;
  f.grid.call("PrintGrid", true);
  EXPECT_EQ(f.printer.pages.size(), 2u);
  EXPECT_EQ(f.printer.titles.back(), "Sales");
  EXPECT_TRUE(f.printer.paper == (PageSize{500, 300}) && f.printer.finished);
  const ObjectRef properties = f.grid.object("PrinterProperties");
  EXPECT_EQ(properties.get("PaperWidth"), Value(500.0));

  f.printer.chosen = {1000, 1001};
  EXPECT_EQ(errorOf([&] { f.grid.call("PrintGrid", true); }, "no pages from 1000 to 1001"), 482);
  f.printer.failsAt = 2;
  EXPECT_EQ(errorOf([&] { f.grid.call("PrintGrid", false); }, "out of paper"), 482);
  EXPECT_TRUE(f.printer.openJobs == 0 && !f.printer.finished);
  properties.put("LeftMargin", 450);
  EXPECT_EQ(errorOf([&] { f.grid.call("PrintGrid", false); }, "margins leave less"), 482);
  EXPECT_EQ(errorOf([&] { properties.put("PaperHeight", -1); }, "cannot have -1"), 5);
  f.engine->setPrintPort(nullptr);
  EXPECT_EQ(errorOf([&] { f.grid.call("PrintGrid", false); }, "no printing"), 482);
}

TEST(Pages, ExtremesGiveSensiblePages) {
  PagedGrid f(50, 200);
  f.engine->setWidth(7, 100000);
  f.engine->printer().header = {std::string(10000, 'h'), std::string(10000, 'm'), "right"};
  f.engine->changeSettings([](GridSettings& settings) { settings.font.size = 1638; });
  Rows titles;  // of the pages at the top, the repeated column once
  for (const RecordedPage& page : f.print()) {
    EXPECT_TRUE(page.shows("right") && !page.shows(f.engine->printer().header[0]) && page.shows("name"));
    if (page.shows("r1")) {
      for (const PageText& text : page.texts) {
        const bool title = text.font.bold && text.baseline > 1.5 * kMargin && text.text != "name";
        if (title) titles.push_back(text.text);
      }
    }
  }
  Rows expected;
  for (const std::int32_t column : f.engine->visibleColumns()) {
    if (column > 1) expected.push_back(f.engine->column(column).caption);
  }
  EXPECT_EQ(titles, expected);

  PagedGrid bare(5);
  for (int column = 1; column <= 4; ++column) bare.engine->setVisible(column, false);
  bare.engine->printer().setup = {{72, 72}, 0, 0, 0, 0};
  EXPECT_EQ(bare.print().size(), 2u);  // no column, but five rows
}

}  // namespace
}  // namespace vmgv
