// Containers that come with the system: the AtlAx window and the functions of OLE.
#include <gtest/gtest.h>

#include <set>

#include "tests/control/container.h"

namespace vmgv::test {
namespace {

TEST(SystemContainers, AnAtlAxWindowHostsTheControl) {
  HMODULE atl = LoadLibraryW(L"atl100.dll");
  if (!atl) atl = LoadLibraryW(L"atl.dll");
  const auto init = entry<BOOL(WINAPI*)()>(atl, "AtlAxWinInit");
  const auto create =
      entry<HRESULT(WINAPI*)(LPCOLESTR, HWND, IStream*, IUnknown**)>(atl, "AtlAxCreateControl");
  const auto get = entry<HRESULT(WINAPI*)(HWND, IUnknown**)>(atl, "AtlAxGetControl");
  ASSERT_TRUE(init && create && get && init());
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
    EXPECT_EQ(described(makeFont(L"Tahoma", 8).get()), fontOf(*edit));  // it has no ambient font
    HWND icon = nullptr;
    RECT rect{};
    if (SUCCEEDED(edit.as<IOleInPlaceObject>()->GetWindow(&icon)) && GetClientRect(icon, &rect)) {
      EXPECT_EQ(16, rect.right);
      EXPECT_EQ(16, rect.bottom);
    }
    const ClosesDialogs user;
    VARIANT_BOOL changed = VARIANT_TRUE;
    const int before = ClosesDialogs::closed;
    EXPECT_EQ(S_OK, edit->ShowSort(&changed));
    EXPECT_EQ(before + 1, ClosesDialogs::closed);
  }
  DestroyWindow(window);
}

// How many there are in the icon as the functions of OLE draw it, enlarged.
std::size_t colours(IUnknown& object) {
  constexpr int kSide = 64;
  HDC screen = GetDC(nullptr), memory = CreateCompatibleDC(screen);
  HBITMAP bitmap = CreateCompatibleBitmap(screen, kSide, kSide);
  SelectObject(memory, bitmap);
  const RECT bounds{0, 0, kSide, kSide};
  EXPECT_EQ(S_OK, OleDraw(&object, DVASPECT_CONTENT, memory, &bounds));
  std::set<COLORREF> seen;
  for (int i = 0; i < kSide * kSide; ++i) seen.insert(GetPixel(memory, i % kSide, i / kSide));
  DeleteDC(memory);
  DeleteObject(bitmap);
  ReleaseDC(nullptr, screen);
  return seen.size();
}

TEST(SystemContainers, OleCreatesDrawsSavesAndLoads) {
  const Registered registered(controlLibrary());
  const auto container = makeComObject<Container>(makeFont(L"DejaVu Sans", 12));
  constexpr DWORD kMode = STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE;
  ComPtr<IStorage> storage;
  ASSERT_EQ(S_OK, StgCreateDocfile(nullptr, kMode, 0, storage.put()));
  ComPtr<IOleObject> made;
  ASSERT_EQ(S_OK, OleCreate(__uuidof(::vmgrEdit), IID_IOleObject, OLERENDER_NONE, nullptr, container.get(),
                            storage.get(), made.putVoid()));
  EXPECT_EQ(7U, colours(*made));
  made.as<_vmgrEdit>()->putref_Font(makeFont(L"DejaVu Sans Mono", 12, true).get());
  EXPECT_EQ(S_OK, OleSave(made.as<IPersistStorage>().get(), storage.get(), TRUE));
  made->Close(OLECLOSE_NOSAVE);
  made->SetClientSite(nullptr);
  ComPtr<_vmgrEdit> loaded;
  ASSERT_EQ(S_OK, OleLoad(storage.get(), __uuidof(_vmgrEdit), container.get(), loaded.putVoid()));
  EXPECT_EQ("DejaVu Sans Mono 12 bold", fontOf(*loaded));
  loaded.as<IOleObject>()->SetClientSite(nullptr);
}

}  // namespace
}  // namespace vmgv::test
