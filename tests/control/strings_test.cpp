// The string service: one object for the whole process, and the control speaks its language.
#include <gtest/gtest.h>

#include <thread>

#include "tests/control/libraries.h"

namespace vmgv::test {
namespace {

ComPtr<_MlStringService> createService() {
  ComPtr<_MlStringService> service;
  EXPECT_EQ(S_OK, CoCreateInstance(__uuidof(::MlStringService), nullptr, CLSCTX_INPROC_SERVER,
                                   __uuidof(_MlStringService), service.putVoid()));
  return service;
}

std::string text(_MlStringService& service, const wchar_t* application, const wchar_t* key) {
  BString out;
  EXPECT_EQ(S_OK, service.GetString(BString(application).get(), BString(key).get(), out.put()));
  return narrow(out.view());
}

TEST(Strings, OneServiceForTheProcess) {
  const Registered registered(stringLibrary());
  const auto first = createService();
  EXPECT_EQ(first, createService());
  IUnknown* elsewhere = nullptr;
  std::thread([&] {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    elsewhere = createService().as<IUnknown>().get();
    CoUninitialize();
  }).join();
  EXPECT_EQ(first.as<IUnknown>().get(), elsewhere);
}

TEST(Strings, ServesTheLanguageThatTheProcessHasChosen) {
  const Registered registered(stringLibrary());
  const ClosesDialogs user;
  const struct {
    short language;
    long charset;
    const wchar_t* title;
  } cases[] = {{1033, 0, L"Order"}, {1032, 161, L"Ταξινόμηση"}};
  for (const auto& one : cases) {
    const auto service = createService();
    VARIANT_BOOL loaded = VARIANT_TRUE, changed = VARIANT_TRUE;
    long charset = -1;
    EXPECT_EQ(S_OK, service->put_Language(one.language));
    service->get_Loaded(&loaded);
    EXPECT_EQ(VARIANT_FALSE, loaded);
    EXPECT_EQ("", text(*service, L"vmGridViews", L"x38"));
    EXPECT_EQ(S_OK, makeControl()->ShowSort(&changed));  // loads the texts
    service->get_Loaded(&loaded);
    EXPECT_EQ(VARIANT_TRUE, loaded);
    EXPECT_EQ(one.title, ClosesDialogs::lastTitle());
    EXPECT_EQ(narrow(one.title), text(*service, L"vmGridViews", L"x38"));
    EXPECT_EQ("", text(*service, L"another", L"x38"));
    EXPECT_EQ("", text(*service, L"vmGridViews", L"x9999"));
    service->get_LanguageCharset(&charset);
    EXPECT_EQ(one.charset, charset);
  }
}

TEST(Strings, ScriptsReachItByName) {
  const Registered registered(stringLibrary());
  const auto service = createService();
  const wchar_t* const names[] = {L"Load", L"Loaded", L"Language", L"GetString", L"LanguageCharset"};
  for (const wchar_t* const name : names) EXPECT_GT(idOf(*service.get(), name), 0);
  DISPPARAMS none{};
  Variant result;
  EXPECT_EQ(S_OK, service->Invoke(idOf(*service.get(), L"language"), IID_NULL, 0, DISPATCH_PROPERTYGET, &none,
                                  &result, nullptr, nullptr));
  EXPECT_EQ(VT_I2, result.vt);
  EXPECT_TRUE(FAILED(service->get_Loaded(nullptr)));
  EXPECT_TRUE(FAILED(service->get_Language(nullptr)));
  EXPECT_TRUE(FAILED(service->GetString(nullptr, nullptr, nullptr)));
  EXPECT_TRUE(FAILED(service->get_LanguageCharset(nullptr)));
  EXPECT_TRUE(FAILED(service->Invoke(99, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr)));
  BString nothing;
  EXPECT_EQ(S_OK, service->GetString(nullptr, nullptr, nothing.put()));
  EXPECT_EQ(L"", nothing.view());
}

}  // namespace
}  // namespace vmgv::test
