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

class Strings : public testing::Test {
 protected:
  std::wstring text(const wchar_t* application, const wchar_t* key) {
    BString out;
    EXPECT_EQ(S_OK, service->GetString(BString(application).get(), BString(key).get(), out.put()));
    return std::wstring(out.view());
  }

  const Registered registered{stringLibrary()};
  const ComPtr<_MlStringService> service = createService();
};

TEST_F(Strings, OneServiceForTheProcess) {
  IUnknown* elsewhere = nullptr;
  std::thread([&] {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    elsewhere = createService().as<IUnknown>().get();
    CoUninitialize();
  }).join();
  EXPECT_EQ(service.as<IUnknown>().get(), elsewhere);
}

TEST_F(Strings, ServesTheLanguageThatTheProcessHasChosen) {
  const ClosesDialogs user;
  const struct {
    short language;
    long charset;
    const wchar_t* title;
  } cases[] = {{1033, 0, L"Order"}, {1032, 161, L"Ταξινόμηση"}};
  for (const auto& one : cases) {
    VARIANT_BOOL changed = VARIANT_TRUE;
    long charset = -1;
    EXPECT_EQ(S_OK, service->put_Language(one.language));
    EXPECT_EQ(L"", text(L"vmGridViews", L"x38"));
    EXPECT_EQ(S_OK, makeControl()->ShowSort(&changed));  // loads the texts
    EXPECT_EQ(one.title, ClosesDialogs::lastTitle);
    EXPECT_EQ(one.title, text(L"vmGridViews", L"x38"));
    EXPECT_EQ(L"", text(L"another", L"x38"));
    EXPECT_EQ(L"", text(L"vmGridViews", L"x9999"));
    EXPECT_EQ(S_OK, service->get_LanguageCharset(&charset));
    EXPECT_EQ(one.charset, charset);
  }
}

TEST_F(Strings, NullPointersAreRefused) {
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
