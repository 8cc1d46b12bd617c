// Containers that come with the system: the AtlAx window and the functions of OLE.
#include <gtest/gtest.h>

#include "tests/control/container.h"

namespace vmgv::test {
namespace {

TEST(SystemContainers, AnAtlAxWindowHostsTheControl) {
  HMODULE atl = LoadLibraryW(L"atl100.dll");
  if (!atl) atl = LoadLibraryW(L"atl.dll");
  ASSERT_TRUE(atl);
  using Init = BOOL(WINAPI*)();
  using Create = HRESULT(WINAPI*)(LPCOLESTR, HWND, IStream*, IUnknown**);
  using Get = HRESULT(WINAPI*)(HWND, IUnknown**);
  const auto init = reinterpret_cast<Init>(reinterpret_cast<void (*)()>(GetProcAddress(atl, "AtlAxWinInit")));
  const auto create =
      reinterpret_cast<Create>(reinterpret_cast<void (*)()>(GetProcAddress(atl, "AtlAxCreateControl")));
  const auto get =
      reinterpret_cast<Get>(reinterpret_cast<void (*)()>(GetProcAddress(atl, "AtlAxGetControl")));
  ASSERT_TRUE(init && create && get);
  ASSERT_TRUE(init());
  const Registered registered(controlLibrary());
  HWND window = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200,
                                nullptr, nullptr, nullptr, nullptr);
  {
    ComPtr<IUnknown> container, hosted;
    ASSERT_EQ(S_OK, create(L"vmGridViews.vmgrEdit", window, nullptr, container.put()));
    ASSERT_EQ(S_OK, get(window, hosted.put()));
    const auto edit = hosted.as<_vmgrEdit>();
    ASSERT_TRUE(edit);
    ComPtr<IOleClientSite> site;
    EXPECT_EQ(S_OK, edit.as<IOleObject>()->GetClientSite(site.put()));
    EXPECT_TRUE(site);
    EXPECT_EQ(described(makeFont(L"Tahoma", 8).get()),
              fontOf(*edit.get()));  // this container has no ambient font
    HWND icon = nullptr;
    if (SUCCEEDED(edit.as<IOleInPlaceObject>()->GetWindow(&icon))) {
      RECT rect{};
      GetWindowRect(icon, &rect);
      EXPECT_EQ(16, rect.right - rect.left);
      EXPECT_EQ(16, rect.bottom - rect.top);
    }
    const ClosesDialogs user;
    VARIANT_BOOL changed = VARIANT_TRUE;
    const int before = ClosesDialogs::closed();
    EXPECT_EQ(S_OK, edit->ShowSort(&changed));
    EXPECT_EQ(before + 1, ClosesDialogs::closed());
  }
  DestroyWindow(window);
}

// The icon as the functions of OLE draw it, enlarged: blue, white and grey must show.
int colours(IUnknown& object) {
  constexpr int kSide = 64;
  HDC screen = GetDC(nullptr), memory = CreateCompatibleDC(screen);
  HBITMAP bitmap = CreateCompatibleBitmap(screen, kSide, kSide);
  HGDIOBJ before = SelectObject(memory, bitmap);
  const RECT bounds{0, 0, kSide, kSide};
  EXPECT_EQ(S_OK, OleDraw(&object, DVASPECT_CONTENT, memory, &bounds));
  std::map<COLORREF, int> seen;
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) ++seen[GetPixel(memory, x, y)];
  }
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return static_cast<int>(seen.size());
}

TEST(SystemContainers, OleCreatesDrawsSavesAndLoads) {
  const Registered registered(controlLibrary());
  const auto container = makeComObject<Container>(makeFont(L"DejaVu Sans", 12));
  ComPtr<IStorage> storage;
  ASSERT_EQ(S_OK, StgCreateDocfile(nullptr,
                                   STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE,
                                   0, storage.put()));
  {
    ComPtr<IOleObject> made;
    ASSERT_EQ(S_OK, OleCreate(__uuidof(::vmgrEdit), IID_IOleObject, OLERENDER_NONE, nullptr, container.get(),
                              storage.get(), made.putVoid()));
    EXPECT_EQ(7, colours(*made.get()));
    made.as<_vmgrEdit>()->putref_Font(makeFont(L"DejaVu Sans Mono", 12, true).get());
    EXPECT_EQ(S_OK, OleSave(made.as<IPersistStorage>().get(), storage.get(), TRUE));
    made->Close(OLECLOSE_NOSAVE);
    made->SetClientSite(nullptr);
  }
  ComPtr<_vmgrEdit> loaded;
  ASSERT_EQ(S_OK, OleLoad(storage.get(), __uuidof(_vmgrEdit), container.get(), loaded.putVoid()));
  EXPECT_EQ("DejaVu Sans Mono 12 bold", fontOf(*loaded.get()));
  loaded.as<IOleObject>()->SetClientSite(nullptr);
}

}  // namespace
}  // namespace vmgv::test
