// Nothing piles up at the border.
#include "tests/com/script.h"
#include "tests/win32/resources.h"

namespace vmgv::test {
namespace {

TEST(Lifetime, OneObjectHasOneFaceOnEachSide) {
  const long before = livingComObjects();
  {
    const ObjectRef thing = makeObject<Thing>();
    const ComPtr<IDispatch> face = exposeObject(thing);
    EXPECT_EQ(face, exposeObject(thing));
    EXPECT_EQ(thing, wrapDispatch(face.get()));
    EXPECT_EQ(thing, wrapUnknown(face.as<IUnknown>().get()));
    const auto host = makeComObject<FakeHost>();
    const ObjectRef object = wrapDispatch(host.get());
    EXPECT_EQ(ComPtr<IDispatch>(host), exposeObject(object));
    EXPECT_EQ(before + 2, livingComObjects());
    EXPECT_EQ(2, thing.get()->references());  // this reference and the face's
  }
  EXPECT_EQ(before, livingComObjects());
  const ComPtr<IDispatch> left = exposeObject(makeObject<Thing>());  // a face may outlive other references
  EXPECT_EQ(Value(), wrapDispatch(left.get()).get("Value"));
  EXPECT_FALSE(wrapDispatch(nullptr) || exposeObject(nullptr));
}

TEST(Lifetime, ManyCrossingsLeaveNothing) {
  Script script(L"VBScript",
                "Class Host\nPublic Value\nEnd Class\nFunction Make: Set Make = New Host: End Function");
  const auto failing = makeComObject<FakeHost>();
  failing->answer = [](VARIANT*, EXCEPINFO* exception) {
    exception->bstrSource = SysAllocString(L"source");
    exception->bstrDescription = SysAllocString(L"description");
    exception->bstrHelpFile = SysAllocString(L"help file");
    return DISP_E_EXCEPTION;
  };
  const auto round = [&] {
    const ObjectRef thing = makeObject<Thing>(), host = script.globals.call("Make").takeObject();
    const ObjectRef dictionary = createAutomationObject("Scripting.Dictionary");
    host.putRef("Value", thing);
    dictionary.put("Item", "host", host);
    for (const Value& value : {Value("text"), Value(1.5), Value(thing), Value(host)}) {
      value.isObject() ? host.putRef("Value", value) : host.put("Value", value);
      EXPECT_EQ(value, host.get("Value"));
    }
    errorOfStep([&] { host.get("Nothing"); });
    errorOfStep([&] { wrapDispatch(failing.get()).call("Anything"); });
    host.put("Value", Value());
  };
  constexpr int kRounds = 200;
  round();  // whatever is made once
  const long objects = livingComObjects();
  const std::size_t blocks = countResources().heapBlocks;
  for (int i = 0; i < kRounds; ++i) round();
  EXPECT_LT(countResources().heapBlocks, blocks + kRounds / 10);
  EXPECT_EQ(objects, livingComObjects());
}

}  // namespace
}  // namespace vmgv::test
