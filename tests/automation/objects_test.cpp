// Late-bound access: names, default members, arguments, reference counts, errors.
#include <gtest/gtest.h>

#include "support/automation/class_table.h"
#include "support/automation/convert.h"
#include "tests/automation/error_number.h"

namespace vmgv {
namespace {

class Item final : public Exposed<Item> {
 public:
  explicit Item(std::int32_t number) : number_(number) { ++alive; }
  ~Item() override { --alive; }
  static const ClassTable<Item>& table() {
    static const ClassTable<Item> table("Item",
                                        {{"Number", 0, [](Item& i, Args) -> Value { return i.number_; },
                                          [](Item& i, Args, const Value& v) { i.number_ = toLong(v); }},
                                         {"Double", 0, [](Item& i, Args) -> Value { return 2 * i.number_; }}},
                                        "Number");
    return table;
  }
  static inline int alive = 0;

 private:
  std::int32_t number_;
};

class List final : public Exposed<List> {
 public:
  static const ClassTable<List>& table() {
    static const ClassTable<List> table(
        "List",
        {{"Item", 1,
          [](List&, Args args) -> Value {
            if (!args.has(0)) throw Error(ErrorNumber::ArgumentCount);
            return makeObject<Item>(toLong(args[0]));
          }},
         {"Self", 0, [](List& list, Args) -> Value { return ObjectRef(&list); }},
         {"Cell", 2, nullptr,
          [](List& list, Args args, const Value& v) {
            list.written = toText(args[0]) + "," + toText(args[1]) + "=" + toText(v);
          }}},
        "Item");
    return table;
  }
  std::string written;
};

TEST(LateBinding, NamesIgnoreCaseAndCallSitesFollowTheClass) {
  const ObjectRef item = makeObject<Item>(4);
  const ObjectRef list = makeObject<List>();
  const Member number("nUMBER"), anyMember("Item");
  EXPECT_EQ(item.get(number), Value(4));
  item.put(number, "7");
  EXPECT_EQ(item.get("double"), Value(14));
  EXPECT_EQ(list.object(anyMember, 3).get(number), Value(3));
  EXPECT_EQ(errorNumber([&] { item.get(anyMember); }), 438);  // the same call site, another class
  EXPECT_EQ(list.object(anyMember, 5).get(number), Value(5));
}

TEST(LateBinding, ArgumentsBeyondAMembersOwnGoToTheDefaultMember) {
  const ObjectRef list = makeObject<List>();
  EXPECT_EQ(list.item(6).object().item(), Value(6));
  EXPECT_EQ(toLong(list.get("Self", 9)), 9);  // an object stands for its default member
  list.put("Cell", 1, 2, "x");
  EXPECT_EQ(static_cast<List&>(*list).written, "1,2=x");
}

TEST(LateBinding, ErrorsNameWhatIsWrong) {
  const ObjectRef item = makeObject<Item>(1);
  EXPECT_EQ(errorNumber([] { ObjectRef().get("Anything"); }), 91);
  EXPECT_EQ(errorNumber([&] { item.put("Double", 1); }), 438);
  EXPECT_EQ(errorNumber([&] { item.put("Number", 1, 2); }), 450);
  EXPECT_EQ(errorNumber([&] { item.call("Number", 1); }), 450);
  EXPECT_EQ(errorNumber([&] { item.object("Number"); }), 424);
  EXPECT_EQ(errorNumber([&] { (*item).enumerate(); }), 438);
  try {
    item.get("Colour");
    FAIL();
  } catch (const Error& error) {
    EXPECT_STREQ(error.description(), "Item has no member Colour");
  }
}

TEST(LateBinding, CountsReturnToWhereTheyBegan) {
  Item::alive = 0;
  {
    const ObjectRef list = makeObject<List>();
    ObjectRef kept = list.object("Item", 1);
    const ObjectRef& alias = kept;
    kept = alias;  // assigning to oneself keeps the object
    Value held = kept;
    Value moved = std::move(held);
    EXPECT_EQ((*kept).references(), 2);
    kept = list.object("Item", 2);
    EXPECT_EQ(Item::alive, 2);
  }
  EXPECT_EQ(Item::alive, 0);
}

}  // namespace
}  // namespace vmgv
