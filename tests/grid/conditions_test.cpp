// Format conditions through the contract.
#include "fixture.h"

namespace vmgv {
namespace {

struct Conditions {
  std::shared_ptr<GridEngine> engine = engineOf({{"a"}, {"b"}}, {});
  ObjectRef grid = makeGridObject(engine);
  ObjectRef all = grid.object("FmtConditions");

  // As an editor adds one: column 1, the name, nothing between.
  void add(const char* name) const { all.call("Add", 1, Missing{}, Missing{}, Missing{}, name); }
  std::string names() const {
    std::string text;
    Value item;
    for (const auto walk = (*all).enumerate(); walk->next(item);) {
      text += item.object().get("Name").text() + ' ';
    }
    return text;
  }
};

TEST(Conditions, AreAddedFoundAndRemovedByName) {
  const Conditions c;
  for (const char* name : {"one", "δύο", "3"}) c.add(name);
  EXPECT_EQ(c.names(), "one δύο 3 ");
  EXPECT_EQ(c.all.item(2).object().get("Name"), Value("δύο"));
  EXPECT_EQ(c.all.item("3").object().get("Name"), Value("3"));
  EXPECT_EQ(errorOf([&] { c.add("one"); }), 457);
  EXPECT_EQ(errorOf([&] { c.add(""); }), 5);
  EXPECT_EQ(errorOf([&] { c.all.call("Add", 3, 0, 1, 2, "far"); }), 9);
  EXPECT_EQ(errorOf([&] { c.all.call("Add", 1, 10, 1, 2, "op"); }), 5);
  EXPECT_EQ(errorOf([&] { c.all.item(4); }), 9);
  EXPECT_EQ(errorOf([&] { c.all.item("four"); }), 9);
  c.all.call("Remove", "one");
  EXPECT_EQ(errorOf([&] { c.all.call("Remove", "one"); }), 9);
  EXPECT_EQ(c.names(), "δύο 3 ");
}

TEST(Conditions, KeepWhatIsWrittenToThem) {
  const Conditions c;
  c.all.call("Add", 2, 6, 1.5, "x", "full");
  const ObjectRef full = c.all.item("full").object();
  EXPECT_EQ(full.get("ColIndex"), Value(2));
  EXPECT_EQ(full.get("Operator"), Value(std::int16_t{6}));
  EXPECT_EQ(full.get("Value1"), Value(1.5));
  EXPECT_EQ(full.get("Value2"), Value("x"));
  c.add("bare");
  const ObjectRef bare = c.all.item(2).object();
  EXPECT_EQ(bare.get("Operator"), Value(std::int16_t{0}));
  EXPECT_TRUE(bare.get("Value1").isEmpty());
  bare.put("ColIndex", 2);
  bare.put("Operator", "8");
  bare.put("Value1", "γ");
  const FormatCondition& kept = *c.engine->conditions()[1];
  EXPECT_EQ(kept.colIndex, 2);
  EXPECT_EQ(kept.op, 8);
  EXPECT_EQ(kept.value1, Value("γ"));
  EXPECT_EQ(errorOf([&] { bare.put("ColIndex", 3); }), 9);
  EXPECT_EQ(errorOf([&] { bare.put("Operator", -1); }), 5);
}

TEST(Conditions, StylesStartAsTheGridsOwnAndFollowItWhereNotSet) {
  const Conditions c;
  c.add("x");
  const ObjectRef style = c.all.item(1).object().object("FormatStyle");
  const ObjectRef font = c.grid.object("Font");
  const struct {
    const char *ofStyle, *ofGrid;
    bool inFont;
    Value other, third;
  } members[] = {
      {"BackColor", "BackColor", false, 0x0000FF, 0x00FF00},
      {"ForeColor", "ForeColor", false, 1, 2},
      {"FontName", "name", true, "Serif", "Mono"},
      {"FontSize", "size", true, 20.0, 5.5},
      {"FontBold", "bold", true, true, true},
      {"FontItalic", "italic", true, true, true},
      {"FontUnderline", "underline", true, true, true},
      {"FontStrikethru", "Strikethrough", true, true, true},
  };
  for (const auto& m : members) {
    const ObjectRef& grid = m.inFont ? font : c.grid;
    const Member ofStyle{std::string_view(m.ofStyle)}, ofGrid{std::string_view(m.ofGrid)};
    const Value own = grid.get(ofGrid);
    EXPECT_EQ(style.get(ofStyle), own) << m.ofStyle;
    style.put(ofStyle, m.other);
    EXPECT_EQ(style.get(ofStyle), m.other) << m.ofStyle;
    EXPECT_EQ(grid.get(ofGrid), own) << m.ofStyle;
    style.put(ofStyle, own);  // that is, not set
    grid.put(ofGrid, m.third);
    EXPECT_EQ(style.get(ofStyle), m.third) << m.ofStyle;
  }
  EXPECT_EQ(errorOf([&] { style.put("FontSize", 0); }), 5);
  EXPECT_EQ(errorOf([&] { style.put("FontSize", "abc"); }), 13);
}

}  // namespace
}  // namespace vmgv
