// Core objects as clients call them, rightly and wrongly.
#include "frontends/com/text.h"
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
  HRESULT invoke(DISPID member, WORD flags, DISPPARAMS* parameters, VARIANT* result = nullptr) {
    return dispatch->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, parameters, result, nullptr,
                            nullptr);
  }

  ObjectRef thing = makeObject<Thing>();
  ComPtr<IDispatch> dispatch = exposeObject(thing);
};

TEST_F(ExposureTest, ArgumentsComeInTheirOrder) {
  for (const UINT count : {0u, 1u, 2u, 4u, 5u, 6u}) {
    Variant arguments[6];
    double expected = 0;
    for (UINT i = 0; i < count; ++i) {
      toVariant(static_cast<std::int32_t>(i + 1), &arguments[count - 1 - i]);
      expected = expected * 10 + i + 1;
    }
    DISPPARAMS parameters{arguments, nullptr, count, 0};
    Variant sum;
    EXPECT_EQ(S_OK, invoke(id(L"sum"), DISPATCH_METHOD | DISPATCH_PROPERTYGET, &parameters, &sum));
    EXPECT_EQ(Value(expected), sum.value());
  }
}

TEST_F(ExposureTest, AnyKindOfPut) {
  DISPID newValue = DISPID_PROPERTYPUT;
  std::int32_t number = 0;
  for (const WORD flags :
       {DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF, DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF}) {
    for (const bool named : {true, false}) {
      Variant value{Value(++number)};
      DISPPARAMS parameters{&value, named ? &newValue : nullptr, 1, named ? 1u : 0u};
      EXPECT_EQ(S_OK, invoke(id(L"Value"), flags, &parameters));
      EXPECT_EQ(Value(number), thing.get("Value"));
      EXPECT_EQ(Value(number), thing.item());
    }
  }
}

TEST_F(ExposureTest, WrongInputIsAnsweredByAResult) {
  Variant value;
  LPOLESTR names[] = {const_cast<LPOLESTR>(L"Value"), const_cast<LPOLESTR>(L"argument")};
  LPOLESTR noName[] = {nullptr};
  DISPID ids[2] = {1, 1}, position = 0, newValue = DISPID_PROPERTYPUT;
  EXPECT_EQ(E_INVALIDARG, dispatch->GetIDsOfNames(IID_NULL, nullptr, 1, 0, ids));
  EXPECT_EQ(E_INVALIDARG, dispatch->GetIDsOfNames(IID_NULL, names, 1, 0, nullptr));
  EXPECT_EQ(E_INVALIDARG, dispatch->GetIDsOfNames(IID_NULL, names, 0, 0, ids));
  EXPECT_EQ(E_INVALIDARG, dispatch->GetIDsOfNames(IID_NULL, noName, 1, 0, ids));
  EXPECT_EQ(DISP_E_UNKNOWNINTERFACE, dispatch->GetIDsOfNames(IID_IUnknown, names, 1, 0, ids));
  EXPECT_EQ(DISP_E_UNKNOWNNAME, dispatch->GetIDsOfNames(IID_NULL, names, 2, 0, ids));
  EXPECT_EQ(id(L"Value"), ids[0]);
  EXPECT_EQ(DISPID_UNKNOWN, ids[1]);
  for (const std::wstring& name : {std::wstring(), std::wstring(1000000, L'x'), std::wstring(L"Τιμή")}) {
    EXPECT_EQ(DISPID_UNKNOWN, id(name.c_str()));
  }

  const DISPID value_ = id(L"Value"), sum = id(L"Sum"), echo = id(L"Echo");
  const struct {
    DISPID member;
    WORD flags;
    DISPPARAMS parameters;
    HRESULT expected;
  } cases[] = {
      {sum, DISPATCH_METHOD, {nullptr, nullptr, 1, 0}, E_INVALIDARG},
      {sum, DISPATCH_METHOD, {&value, &position, 1, 1}, DISP_E_NONAMEDARGS},
      {value_, DISPATCH_PROPERTYPUT, {nullptr, nullptr, 0, 0}, DISP_E_BADPARAMCOUNT},
      {value_, DISPATCH_PROPERTYPUT, {&value, &position, 1, 1}, DISP_E_NONAMEDARGS},
      {value_, DISPATCH_PROPERTYPUT, {&value, nullptr, 1, 1}, DISP_E_NONAMEDARGS},
      {echo, DISPATCH_PROPERTYPUT, {&value, &newValue, 1, 1}, DISP_E_EXCEPTION},
      {12345, DISPATCH_METHOD, {nullptr, nullptr, 0, 0}, DISP_E_EXCEPTION},
      {-1, DISPATCH_METHOD, {nullptr, nullptr, 0, 0}, DISP_E_EXCEPTION},
      {value_, DISPATCH_METHOD, {&value, nullptr, 1, 0}, DISP_E_EXCEPTION},
      {value_, 0, {nullptr, nullptr, 0, 0}, S_OK},
  };
  for (const auto& test : cases) {
    DISPPARAMS parameters = test.parameters;
    EXPECT_EQ(test.expected, invoke(test.member, test.flags, &parameters)) << &test - cases;
  }
  EXPECT_EQ(E_INVALIDARG, invoke(sum, DISPATCH_METHOD, nullptr));
  EXPECT_EQ(E_POINTER, dispatch->QueryInterface(IID_IDispatch, nullptr));
  EXPECT_EQ(E_POINTER, dispatch->GetTypeInfoCount(nullptr));
  EXPECT_EQ(E_POINTER, dispatch->GetTypeInfo(0, 0, nullptr));

  std::vector<Variant> many(100000);
  DISPPARAMS crowd{many.data(), nullptr, static_cast<UINT>(many.size()), 0};
  EXPECT_EQ(DISP_E_EXCEPTION, invoke(sum, DISPATCH_METHOD, &crowd));
  Variant text{Value(std::string(50000000, 'x'))}, echoed;
  DISPPARAMS huge{&text, nullptr, 1, 0};
  EXPECT_EQ(S_OK, invoke(echo, DISPATCH_METHOD, &huge, &echoed));
  EXPECT_EQ(50000000u, SysStringLen(V_BSTR(&echoed)));
}

TEST_F(ExposureTest, EnumeratorsCountSkipAndClone) {
  DISPPARAMS none{};
  Variant answer;
  ASSERT_EQ(S_OK, invoke(DISPID_NEWENUM, DISPATCH_PROPERTYGET, &none, &answer));
  const auto items = ComPtr<IUnknown>(V_UNKNOWN(&answer)).as<IEnumVARIANT>();
  Variant taken[4];
  ULONG fetched = 9;
  EXPECT_EQ(E_POINTER, items->Next(1, nullptr, &fetched));
  EXPECT_EQ(E_POINTER, items->Next(2, taken, nullptr));
  EXPECT_EQ(E_POINTER, items->Clone(nullptr));
  EXPECT_EQ(S_OK, items->Next(1, taken, nullptr));
  EXPECT_EQ(Value(1), taken[0].value());
  EXPECT_EQ(S_OK, items->Skip(1));
  ComPtr<IEnumVARIANT> clone;
  EXPECT_EQ(S_OK, items->Clone(clone.put()));
  for (IEnumVARIANT* walker : {items.get(), clone.get()}) {
    EXPECT_EQ(S_FALSE, walker->Next(4, taken, &fetched));
    EXPECT_EQ(1u, fetched);
    EXPECT_EQ(Value(3), taken[0].value());
    EXPECT_EQ(S_FALSE, walker->Skip(1));
  }
  EXPECT_EQ(S_OK, items->Reset());
  EXPECT_EQ(S_OK, items->Next(3, taken, &fetched));
  EXPECT_EQ(3u, fetched);
}

}  // namespace
}  // namespace vmgv::test
