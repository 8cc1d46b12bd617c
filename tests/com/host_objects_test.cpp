// Automation objects that are not ours, used from the core.
#include "frontends/com/class_identity.h"
#include "tests/com/things.h"

namespace vmgv::test {
namespace {

TEST(HostObjects, TheDictionaryOfTheScriptingLibrary) {
  const ObjectRef dictionary = createAutomationObject("Scripting.Dictionary");
  const ObjectRef thing = makeObject<Thing>();
  dictionary.call("Add", "a", 1.5);
  dictionary.call("add", Date{2}, "Αθήνα");
  dictionary.put("Item", "a", Currency{25000});
  dictionary.put("Item", "thing", thing);
  EXPECT_EQ(Value(3), dictionary.get("Count"));
  EXPECT_EQ(Value(Currency{25000}), dictionary.item("a"));
  EXPECT_EQ(Value("Αθήνα"), dictionary.get("Item", Date{2}));
  EXPECT_EQ(Value(thing), dictionary.item("thing"));
  EXPECT_EQ(Value(true), dictionary.call("Exists", "a"));
  const auto keys = (*dictionary).enumerate();
  Value key;
  for (const Value& expected : {Value("a"), Value(Date{2}), Value("thing")}) {
    ASSERT_TRUE(keys->next(key));
    EXPECT_EQ(expected, key);
  }
  EXPECT_FALSE(keys->next(key));
  EXPECT_EQ("Dictionary", typeName(dictionary));
  EXPECT_EQ("438: Dictionary has no member Nothing", errorOfStep([&] { dictionary.get("Nothing"); }));
  EXPECT_EQ("13: An array cannot be used here", errorOfStep([&] { dictionary.call("Keys"); }));
}

TEST(HostObjects, AProgramThatIsNotThere) {
  for (const char* name : {"No.Such.Program", "", "{not-a-guid}"}) {
    EXPECT_EQ(std::string("429: ") + name + ": ActiveX component can't create object",
              errorOfStep([&] { createAutomationObject(name); }));
  }
}

TEST(HostObjects, MembersAreLookedUpOnceForAClassOrAnObject) {
  static const Member count("Count"), anything("Anything");
  const ObjectRef first = createAutomationObject("Scripting.Dictionary");
  const ObjectRef second = createAutomationObject("Scripting.Dictionary");
  EXPECT_EQ((*first).classId(), (*second).classId());
  EXPECT_NE(nullptr, (*first).classId());

  // without type information nothing is known about other objects
  const ComPtr<FakeHost> hosts[] = {makeComObject<FakeHost>(), makeComObject<FakeHost>()};
  for (const auto& host : hosts) {
    const ObjectRef object = wrapDispatch(host.get());
    for (int i = 0; i < 3; ++i) object.get(anything);
    EXPECT_EQ(1, host->lookups);
  }
}

TEST(HostObjects, ClassesOfOursAreKnownToOtherModules) {
  const ObjectRef things[] = {makeObject<Thing>(), makeObject<Thing>()};
  GUID ids[2] = {};
  for (int i = 0; i < 2; ++i) ids[i] = toldIdentity(exposeObject(things[i]).get());
  EXPECT_EQ(ids[0], ids[1]);
  EXPECT_NE(GUID_NULL, ids[0]);
  EXPECT_EQ("Thing", toldClassName(exposeObject(things[0]).get()));
}

TEST(HostObjects, WhatIsRefusedIsTriedTheOtherWay) {
  const auto host = makeComObject<FakeHost>();
  const ObjectRef object = wrapDispatch(host.get()), thing = makeObject<Thing>();
  const auto flagsOf = [&](WORD accepted, HRESULT refusal, const std::function<void()>& step) {
    host->calls.clear();
    host->answer = [=](const FakeHost::Call& call, VARIANT*, EXCEPINFO*) {
      return call.flags == accepted ? S_OK : refusal;
    };
    EXPECT_EQ("", errorOfStep(step));
    std::vector<WORD> flags;
    for (const auto& call : host->calls) flags.push_back(call.flags);
    return flags;
  };
  using Flags = std::vector<WORD>;
  const WORD get = DISPATCH_PROPERTYGET, either = DISPATCH_PROPERTYGET | DISPATCH_METHOD;
  const WORD put = DISPATCH_PROPERTYPUT, putRef = DISPATCH_PROPERTYPUTREF;
  for (const HRESULT refusal : {DISP_E_MEMBERNOTFOUND, DISP_E_BADPARAMCOUNT}) {
    EXPECT_EQ((Flags{put, putRef}), flagsOf(putRef, refusal, [&] { object.put("Value", thing); }));
    EXPECT_EQ((Flags{putRef, put}), flagsOf(put, refusal, [&] { object.putRef("Value", thing); }));
    EXPECT_EQ((Flags{either, get}), flagsOf(get, refusal, [&] { object.get("Value"); }));
    EXPECT_EQ((Flags{DISPATCH_METHOD, either}), flagsOf(either, refusal, [&] { object.call("Value"); }));
  }
  // a property without arguments that is a collection
  const ObjectRef dictionary = createAutomationObject("Scripting.Dictionary");
  dictionary.call("Add", "key", "value");
  host->answer = [&](const FakeHost::Call& call, VARIANT* result, EXCEPINFO*) {
    if (call.arguments > 0) return DISP_E_BADPARAMCOUNT;
    toVariant(dictionary, result);
    return S_OK;
  };
  EXPECT_EQ(Value("value"), object.get("Columns", "key"));
  // what may have run is not run again
  host->calls.clear();
  host->answer = [](const FakeHost::Call&, VARIANT*, EXCEPINFO*) { return DISP_E_TYPEMISMATCH; };
  EXPECT_EQ("13: Type mismatch", errorOfStep([&] { object.put("Value", 1); }));
  EXPECT_EQ(1u, host->calls.size());
}

}  // namespace
}  // namespace vmgv::test
