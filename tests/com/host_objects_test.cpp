// Automation objects that are not ours, used from the core.
#include "tests/com/things.h"

namespace vmgv::test {
namespace {

constexpr HRESULT hresult(std::uint32_t code) { return static_cast<HRESULT>(code); }

HRESULT STDMETHODCALLTYPE fillIn(EXCEPINFO* exception) {
  exception->scode = hresult(0x800A0009);
  exception->bstrDescription = SysAllocString(L"late words");
  return S_OK;
}

TEST(HostObjects, TheDictionaryOfTheScriptingLibrary) {
  const ObjectRef dictionary = createAutomationObject("Scripting.Dictionary");
  const ObjectRef thing = makeObject<Thing>();
  dictionary.call("Add", "a", 1.5);
  dictionary.call("add", Date{2}, "Αθήνα");
  dictionary.put("Item", "a", Currency{25000});
  dictionary.put("Item", "thing", thing);
  EXPECT_EQ(Value(Currency{25000}), dictionary.item("a"));
  EXPECT_EQ(Value("Αθήνα"), dictionary.get("Item", Date{2}));
  const auto keys = (*dictionary).enumerate();
  std::vector<Value> found;
  for (Value key; keys->next(key);) found.push_back(key);
  EXPECT_EQ((std::vector<Value>{"a", Date{2}, "thing"}), found);
  EXPECT_EQ("Dictionary", typeName(dictionary));
}

TEST(HostObjects, WhatIsRefusedIsTriedTheOtherWay) {
  const auto host = makeComObject<FakeHost>();
  const ObjectRef object = wrapDispatch(host.get()), thing = makeObject<Thing>();
  const auto flagsOf = [&](WORD accepted, HRESULT refusal, const std::function<void()>& step) {
    host->calls.clear();
    host->answer = [=, &host](VARIANT*, EXCEPINFO*) {
      return host->calls.back() == accepted ? S_OK : refusal;
    };
    EXPECT_EQ("", errorOfStep(step));
    return host->calls;
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
  // what may have run is not run again
  host->calls.clear();
  host->answer = [](VARIANT*, EXCEPINFO*) { return DISP_E_TYPEMISMATCH; };
  EXPECT_EQ("13: Type mismatch", errorOfStep([&] { object.put("Value", 1); }));
  EXPECT_EQ(1u, host->calls.size());
}

TEST(HostObjects, ErrorsHaveTheRunTimesNumbers) {
  const auto host = makeComObject<FakeHost>();
  const ObjectRef object = wrapDispatch(host.get());
  const struct {
    HRESULT result;
    EXCEPINFO exception;  // with the description "words" unless it is filled in later
    std::string expected;
  } cases[] = {
      {DISP_E_EXCEPTION, {.scode = hresult(0x800A03EC)}, "1004: words"},
      {DISP_E_EXCEPTION, {.wCode = 513}, "513: words"},
      {DISP_E_EXCEPTION, {.scode = DISP_E_TYPEMISMATCH}, "13: words"},
      {DISP_E_EXCEPTION, {.scode = hresult(0x80040E21)}, "-2147217887: words"},
      {DISP_E_EXCEPTION, {.pfnDeferredFillIn = fillIn}, "9: late words"},
      {DISP_E_TYPEMISMATCH, {}, "13: Type mismatch"},
      {DISP_E_MEMBERNOTFOUND, {}, "438: Object doesn't support this property or method"},
      {DISP_E_BADPARAMCOUNT, {}, "450: Wrong number of arguments or invalid property assignment"},
      {hresult(0x80041234), {}, "-2147216844: Automation error (0x80041234)"},  // none of the run-time's
  };
  for (const auto& test : cases) {
    host->answer = [&](VARIANT*, EXCEPINFO* exception) {
      *exception = test.exception;
      if (!exception->pfnDeferredFillIn) exception->bstrDescription = SysAllocString(L"words");
      return test.result;
    };
    EXPECT_EQ(test.expected, errorOfStep([&] { object.call("Anything"); }));
  }
}

}  // namespace
}  // namespace vmgv::test
