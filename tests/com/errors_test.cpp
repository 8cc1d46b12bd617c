// Failures keep their numbers and words across the border.
#include "frontends/com/text.h"
#include "frontends/com/wall.h"
#include "tests/com/things.h"

namespace vmgv::test {
namespace {

constexpr HRESULT hresult(std::uint32_t code) { return static_cast<HRESULT>(code); }

HRESULT STDMETHODCALLTYPE fillIn(EXCEPINFO* exception) {
  exception->scode = hresult(0x800A0009);
  exception->bstrDescription = SysAllocString(L"late words");
  return S_OK;
}

TEST(Errors, OfAHostInTheRunTimesNumbers) {
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
      {DISP_E_OVERFLOW, {}, "6: Overflow"},
      {DISP_E_BADINDEX, {}, "9: Subscript out of range"},
      {DISP_E_MEMBERNOTFOUND, {}, "438: Object doesn't support this property or method"},
      {DISP_E_BADPARAMCOUNT, {}, "450: Wrong number of arguments or invalid property assignment"},
      {E_OUTOFMEMORY, {}, "7: Out of memory"},
      {E_INVALIDARG, {}, "5: Invalid procedure call or argument"},
      {hresult(0x800A000D), {}, "13: Type mismatch"},
  };
  for (const auto& test : cases) {
    host->answer = [&](const FakeHost::Call&, VARIANT*, EXCEPINFO* exception) {
      *exception = test.exception;
      if (!exception->pfnDeferredFillIn) exception->bstrDescription = SysAllocString(L"words");
      return test.result;
    };
    EXPECT_EQ(test.expected, errorOfStep([&] { object.call("Anything"); }));
  }
  // a result that the run-time has no number for keeps its own
  host->answer = [](const FakeHost::Call&, VARIANT*, EXCEPINFO*) { return hresult(0x80041234); };
  EXPECT_EQ("-2147216844: Automation error (0x80041234)", errorOfStep([&] { object.call("Anything"); }));
}

TEST(Errors, OfOursInAutomationsNumbers) {
  const ComPtr<IDispatch> thing = exposeObject(makeObject<Thing>());
  DISPID fail, breakDown;
  LPOLESTR name = const_cast<LPOLESTR>(L"FAIL");
  ASSERT_EQ(S_OK, thing->GetIDsOfNames(IID_NULL, &name, 1, 0, &fail));
  name = const_cast<LPOLESTR>(L"break");
  ASSERT_EQ(S_OK, thing->GetIDsOfNames(IID_NULL, &name, 1, 0, &breakDown));
  const std::pair<std::int32_t, std::uint32_t> cases[] = {{9, 0x800A0009},
                                                          {1004, 0x800A03EC},
                                                          {65535, 0x800AFFFF},
                                                          {DISP_E_OVERFLOW, 0x8002000A},
                                                          {0, 0x800A03EC}};
  for (const auto& [number, code] : cases) {
    Variant arguments[2];
    toVariant("Λάθος", &arguments[0]);
    toVariant(number, &arguments[1]);
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    EXCEPINFO exception{};
    EXPECT_EQ(DISP_E_EXCEPTION,
              thing->Invoke(fail, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, &exception, nullptr));
    EXPECT_EQ(hresult(code), exception.scode);
    EXPECT_EQ(L"Λάθος", BString::view(exception.bstrDescription));
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    // a client that does not ask is told nothing
    EXPECT_EQ(DISP_E_EXCEPTION,
              thing->Invoke(fail, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr));
  }
  DISPPARAMS none{};
  EXCEPINFO exception{};
  EXPECT_EQ(DISP_E_EXCEPTION,
            thing->Invoke(breakDown, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, &exception, nullptr));
  EXPECT_EQ(E_OUTOFMEMORY, exception.scode);
  SysFreeString(exception.bstrSource);
}

TEST(Errors, TheWallDescribesThem) {
  EXPECT_EQ(S_FALSE, guarded([] { return S_FALSE; }));
  EXPECT_EQ(E_OUTOFMEMORY, guarded([] { throw std::bad_alloc(); }));
  EXPECT_EQ(hresult(0x800A0035), guarded([] { throw Error(53, "Δεν υπάρχει"); }));
  ComPtr<IErrorInfo> info;
  ASSERT_EQ(S_OK, GetErrorInfo(0, info.put()));
  BString description;
  info->GetDescription(description.put());
  EXPECT_EQ(L"Δεν υπάρχει", description.view());
}

}  // namespace
}  // namespace vmgv::test
