// Nothing piles up at the border.
#include "tests/com/script.h"
#include "tests/com/things.h"

namespace vmgv::test {
namespace {

// Counts the allocator's blocks, which automation strings are too.
class Blocks final : public ComObject<IMallocSpy> {
 public:
  SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
  void* STDMETHODCALLTYPE PostAlloc(void* block) override { return count += block != nullptr, block; }
  void* STDMETHODCALLTYPE PreFree(void* block, WINBOOL) override { return count -= block != nullptr, block; }
  void STDMETHODCALLTYPE PostFree(WINBOOL) override {}
  SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** out, WINBOOL) override {
    return count -= block != nullptr, *out = block, size;
  }
  void* STDMETHODCALLTYPE PostRealloc(void* block, WINBOOL) override {
    return count += block != nullptr, block;
  }
  void* STDMETHODCALLTYPE PreGetSize(void* block, WINBOOL) override { return block; }
  SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, WINBOOL) override { return size; }
  void* STDMETHODCALLTYPE PreDidAlloc(void* block, WINBOOL) override { return block; }
  int STDMETHODCALLTYPE PostDidAlloc(void*, WINBOOL, int actual) override { return actual; }
  void STDMETHODCALLTYPE PreHeapMinimize() override {}
  void STDMETHODCALLTYPE PostHeapMinimize() override {}

  long count = 0;
};

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
    EXPECT_EQ(object, wrapUnknown(host.get()));
    EXPECT_EQ(ComPtr<IDispatch>(host), exposeObject(object));
    EXPECT_EQ(before + 2, livingComObjects());
    EXPECT_EQ(2, thing.get()->references());  // this reference and the face's
  }
  EXPECT_EQ(before, livingComObjects());
  EXPECT_FALSE(wrapDispatch(nullptr));
  EXPECT_FALSE(exposeObject(nullptr));
}

TEST(Lifetime, AFaceMayOutliveItsReferences) {
  ComPtr<IDispatch> face;
  {
    const ObjectRef thing = makeObject<Thing>();
    thing.put("Value", 5);
    face = exposeObject(thing);
  }
  EXPECT_EQ(Value(5), wrapDispatch(face.get()).get("Value"));
}

TEST(Lifetime, ManyCrossingsLeaveNothing) {
  Script script(L"VBScript",
                "Class Host\nPublic Value\nEnd Class\nFunction Make: Set Make = New Host: End Function");
  const auto failing = makeComObject<FakeHost>();
  failing->answer = [](const FakeHost::Call&, VARIANT*, EXCEPINFO* exception) {
    exception->bstrSource = SysAllocString(L"source");
    exception->bstrDescription = SysAllocString(L"description");
    exception->bstrHelpFile = SysAllocString(L"help file");
    return DISP_E_EXCEPTION;
  };
  const auto round = [&] {
    const ObjectRef thing = makeObject<Thing>(), host = script.globals.call("Make").takeObject();
    const ObjectRef dictionary = createAutomationObject("Scripting.Dictionary");
    host.putRef("Value", thing);
    dictionary.call("Add", "Αθήνα", std::string(1000, 'x'));
    dictionary.put("Item", "host", host);
    for (const Value& value : {Value("text"), Value(1.5), Value(thing), Value(host)}) {
      value.isObject() ? host.putRef("Value", value) : host.put("Value", value);
      EXPECT_EQ(value, host.get("Value"));
    }
    errorOfStep([&] { host.get("Nothing"); });
    errorOfStep([&] { wrapDispatch(failing.get()).call("Anything"); });
    errorOfStep([&] { dictionary.call("Add", "host", 1); });
    const auto keys = (*dictionary).enumerate();
    for (Value key; keys->next(key);) {
    }
    host.put("Value", Value());
  };
  round();  // whatever is made once
  const auto blocks = makeComObject<Blocks>();
  ASSERT_EQ(S_OK, CoRegisterMallocSpy(blocks.get()));
  const long objects = livingComObjects();
  round();
  const long once = blocks->count;
  for (int i = 0; i < 200; ++i) round();
  const long often = blocks->count;
  CoRevokeMallocSpy();
  EXPECT_EQ(once, often);
  EXPECT_EQ(objects, livingComObjects());
}

// Whether all came back as themselves.
DWORD WINAPI crossOften(void*) {
  CoInitialize(nullptr);
  bool good = true;
  for (int i = 0; i < 20000; ++i) {
    const ObjectRef thing = makeObject<Thing>(), host = wrapDispatch(makeComObject<FakeHost>().get());
    host.get("Anything");
    const ComPtr<IDispatch> face = exposeObject(thing);
    good = good && wrapDispatch(face.get()) == thing && wrapDispatch(exposeObject(host).get()) == host;
  }
  CoUninitialize();
  return good;
}

TEST(Lifetime, EachApartmentHasItsOwnObjects) {
  const long before = livingComObjects();
  HANDLE threads[4];
  for (HANDLE& thread : threads) thread = CreateThread(nullptr, 0, crossOften, nullptr, 0, nullptr);
  WaitForMultipleObjects(4, threads, TRUE, INFINITE);
  for (const HANDLE thread : threads) {
    DWORD good = 0;
    GetExitCodeThread(thread, &good);
    EXPECT_EQ(1u, good);
    CloseHandle(thread);
  }
  EXPECT_EQ(before, livingComObjects());
}

}  // namespace
}  // namespace vmgv::test
