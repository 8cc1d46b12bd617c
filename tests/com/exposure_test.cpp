// Core objects as clients call them, rightly and wrongly.
#include "frontends/com/text.h"
#include "frontends/com/wall.h"
#include "tests/com/things.h"

namespace vmgv::test {
namespace {

class ExposureTest : public testing::Test {
 protected:
  DISPID id(const wchar_t* name) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    DISPID id = DISPID_UNKNOWN;
    dispatch->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    return id;
  }
  HRESULT invoke(DISPID member, WORD flags, DISPPARAMS* parameters, VARIANT* result = nullptr,
                 EXCEPINFO* exception = nullptr) {
    return dispatch->Invoke(member, IID_NULL, 0, flags, parameters, result, exception, nullptr);
  }

  ComPtr<IDispatch> dispatch = exposeObject(makeObject<Thing>());
};

TEST_F(ExposureTest, ErrorsHaveAutomationsNumbers) {
  const std::pair<std::int32_t, std::uint32_t> cases[] = {
      {9, 0x800A0009}, {65535, 0x800AFFFF}, {DISP_E_OVERFLOW, 0x8002000A}, {0, 0x800A03EC}};
  for (const auto& [number, code] : cases) {
    Variant arguments[2];
    toVariant("Λάθος", &arguments[0]);
    toVariant(number, &arguments[1]);
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    Exception exception;
    EXPECT_EQ(DISP_E_EXCEPTION, invoke(id(L"FAIL"), DISPATCH_METHOD, &parameters, nullptr, &exception));
    EXPECT_EQ(static_cast<SCODE>(code), exception.scode);
    EXPECT_EQ(L"Λάθος", BString::view(exception.bstrDescription));
  }
  // and so have those that early-bound clients meet
  EXPECT_EQ(E_OUTOFMEMORY, guarded([] { throw std::bad_alloc(); }));
  EXPECT_EQ(static_cast<HRESULT>(0x800A0035), guarded([] { throw Error(53, "Δεν υπάρχει"); }));
  ComPtr<IErrorInfo> info;
  ASSERT_EQ(S_OK, GetErrorInfo(0, info.put()));
  BString description;
  info->GetDescription(description.put());
  EXPECT_EQ(L"Δεν υπάρχει", description.view());
}

TEST_F(ExposureTest, WrongInputIsAnsweredByAResult) {
  Variant value;
  DISPID position = 0, newValue = DISPID_PROPERTYPUT;
  const DISPID property = id(L"Value"), sum = id(L"Sum");
  const struct {
    DISPID member;
    WORD flags;
    DISPPARAMS parameters;
    HRESULT expected;
  } cases[] = {
      {sum, DISPATCH_METHOD, {nullptr, nullptr, 1, 0}, E_INVALIDARG},
      {sum, DISPATCH_METHOD, {&value, &position, 1, 1}, DISP_E_NONAMEDARGS},
      {property, DISPATCH_PROPERTYPUT, {nullptr, nullptr, 0, 0}, DISP_E_BADPARAMCOUNT},
      {property, DISPATCH_PROPERTYPUT, {&value, nullptr, 1, 1}, DISP_E_NONAMEDARGS},
      {sum, DISPATCH_PROPERTYPUT, {&value, &newValue, 1, 1}, DISP_E_EXCEPTION},
      {-1, DISPATCH_METHOD, {nullptr, nullptr, 0, 0}, DISP_E_EXCEPTION},
      {property, DISPATCH_METHOD, {&value, nullptr, 1, 0}, DISP_E_EXCEPTION},
      {property, 0, {nullptr, nullptr, 0, 0}, S_OK},
      {property, DISPATCH_PROPERTYPUTREF, {&value, &newValue, 1, 1}, S_OK},
      {property, DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF, {&value, nullptr, 1, 0}, S_OK},
  };
  for (const auto& test : cases) {
    DISPPARAMS parameters = test.parameters;
    EXPECT_EQ(test.expected, invoke(test.member, test.flags, &parameters)) << &test - cases;
  }
  EXPECT_EQ(E_INVALIDARG, invoke(sum, DISPATCH_METHOD, nullptr));
}

TEST_F(ExposureTest, EnumeratorsSkipAndClone) {
  DISPPARAMS none{};
  Variant answer, taken[4];
  ASSERT_EQ(S_OK, invoke(DISPID_NEWENUM, DISPATCH_PROPERTYGET, &none, &answer));
  const auto items = ComPtr<IUnknown>(V_UNKNOWN(&answer)).as<IEnumVARIANT>();
  ULONG fetched = 9;
  EXPECT_EQ(E_POINTER, items->Next(2, taken, nullptr));
  EXPECT_EQ(S_OK, items->Skip(2));
  ComPtr<IEnumVARIANT> clone;
  EXPECT_EQ(S_OK, items->Clone(clone.put()));
  for (IEnumVARIANT* walker : {items.get(), clone.get()}) {
    EXPECT_EQ(S_FALSE, walker->Next(4, taken, &fetched));
    EXPECT_EQ(1u, fetched);
    EXPECT_EQ(Value(3), taken[0].value());
    EXPECT_EQ(S_OK, walker->Reset());
    EXPECT_EQ(S_OK, walker->Next(3, taken, &fetched));
  }
}

}  // namespace
}  // namespace vmgv::test
