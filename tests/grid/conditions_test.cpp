// Format conditions through the contract.
#include "fixture.h"

namespace vmgv {
namespace {

TEST(Conditions, AreAddedChangedAndRemovedByName) {
  const ObjectRef all = makeGridObject(engineOf({{"a"}, {"b"}}, {})).object("FmtConditions");
  all.call("Add", 2, 6, 1.5, "x", "one");
  // As an editor adds one: column 1, the name, nothing between.
  for (const char* name : {"δύο", "3"}) all.call("Add", 1, Missing{}, Missing{}, Missing{}, name);
  const ObjectRef one = all.item("one").object(), two = all.item(2).object();
  EXPECT_EQ(two.get("Name"), Value("δύο"));
  EXPECT_EQ(errorOf([&] { all.call("Add", 1, 6, 1, 2, "one"); }), 457);
  EXPECT_EQ(errorOf([&] { all.call("Add", 1, 6, 1, 2, ""); }), 5);
  EXPECT_EQ(errorOf([&] { all.call("Add", 3, 0, 1, 2, "far"); }), 9);
  EXPECT_EQ(errorOf([&] { all.call("Add", 1, 10, 1, 2, "op"); }), 5);
  EXPECT_EQ(one.get("Operator"), Value(std::int16_t{6}));
  EXPECT_EQ(one.get("Value2"), Value("x"));
  EXPECT_TRUE(two.get("Value2").isEmpty());
  two.put("Operator", "8");
  two.put("Value2", "γ");
  EXPECT_EQ(two.get("Operator"), Value(std::int16_t{8}));
  EXPECT_EQ(two.get("Value2"), Value("γ"));
  EXPECT_EQ(errorOf([&] { two.put("ColIndex", 3); }), 9);
  EXPECT_EQ(errorOf([&] { two.put("Operator", -1); }), 5);
  all.call("Remove", "one");
  EXPECT_EQ(all.item(1).object().get("Name"), Value("δύο"));
  for (const Value& gone : {Value(3), Value("one")}) EXPECT_EQ(errorOf([&] { all.item(gone); }), 9);
}

TEST(Conditions, StylesFollowTheGridWhereNotSet) {
  const ObjectRef grid = makeGridObject(engineOf({{"a"}}, {}));
  grid.object("FmtConditions").call("Add", 1, 1, 2, 3, "x");
  const ObjectRef style = grid.object("FmtConditions").object("Item", 1).object("FormatStyle");
  const ObjectRef font = grid.object("Font");
  const struct {
    const char* ofStyle;
    const ObjectRef& owner;
    const char* member;
    Value other, third;
  } members[] = {
      {"BackColor", grid, "BackColor", 0x0000FF, 0x00FF00},
      {"FontName", font, "name", "Serif", "Mono"},
      {"FontSize", font, "size", 20.0, 5.5},
      {"FontStrikethru", font, "Strikethrough", true, true},
  };
  for (const auto& m : members) {
    const Value own = m.owner.get(m.member);
    EXPECT_EQ(style.get(m.ofStyle), own) << m.ofStyle;
    style.put(m.ofStyle, m.other);
    EXPECT_EQ(style.get(m.ofStyle), m.other) << m.ofStyle;
    EXPECT_EQ(m.owner.get(m.member), own) << m.ofStyle;
    style.put(m.ofStyle, own);  // that is, not set
    m.owner.put(m.member, m.third);
    EXPECT_EQ(style.get(m.ofStyle), m.third) << m.ofStyle;
  }
}

}  // namespace
}  // namespace vmgv
