// The control's place in a container: always 16 by 16 pixels.
#include <gtest/gtest.h>

#include "tests/control/container.h"

namespace vmgv::test {
namespace {

class Place : public testing::Test {
 protected:
  Place() { object->SetClientSite(container.get()); }
  ~Place() override {
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
  }

  HRESULT doVerb(LONG verb) {
    return object->DoVerb(verb, nullptr, container.get(), 0, container->window, nullptr);
  }
  void expectAt(LONG left, LONG top) {
    HWND window = nullptr;
    EXPECT_EQ(S_OK, inPlace->GetWindow(&window));
    RECT rect{};
    GetWindowRect(window, &rect);
    MapWindowPoints(nullptr, container->window, reinterpret_cast<POINT*>(&rect), 2);
    const RECT expected{left, top, left + 16, top + 16};
    EXPECT_TRUE(EqualRect(&expected, &rect))
        << rect.left << " " << rect.top << " " << rect.right << " " << rect.bottom;
  }

  ComPtr<_vmgrEdit> control = makeControl();
  ComPtr<IOleObject> object = control.as<IOleObject>();
  ComPtr<IOleInPlaceObject> inPlace = control.as<IOleInPlaceObject>();
  ComPtr<Container> container = makeComObject<Container>();
};

TEST_F(Place, EveryResizeEndsAt16Pixels) {
  container->placed = inPlace.get();
  ASSERT_EQ(S_OK, doVerb(OLEIVERB_INPLACEACTIVATE));
  expectAt(10, 20);
  EXPECT_EQ(1, container->sizeRequests);
  const RECT larger{30, 40, 230, 60}, clip{0, 0, 300, 200}, right{5, 6, 21, 22};
  EXPECT_EQ(S_OK, inPlace->SetObjectRects(&larger, &clip));
  expectAt(30, 40);
  EXPECT_EQ(2, container->sizeRequests);
  EXPECT_EQ(S_OK, inPlace->SetObjectRects(&right, &clip));
  expectAt(5, 6);
  EXPECT_EQ(2, container->sizeRequests);  // content
  SIZEL twice{2000, 2000};
  EXPECT_EQ(E_FAIL, object->SetExtent(DVASPECT_CONTENT, &twice));
  expectAt(5, 6);
}

TEST_F(Place, TheExtentIs16PixelsOfThisScreen) {
  HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  SIZEL extent{};
  EXPECT_EQ(S_OK, object->GetExtent(DVASPECT_CONTENT, &extent));
  const LONG expected = dpi == 96 ? 423 : dpi == 144 ? 282 : -1;  // 1/100 mm
  EXPECT_EQ(expected, extent.cx) << dpi;
  EXPECT_EQ(expected, extent.cy) << dpi;
  EXPECT_EQ(S_OK, object->SetExtent(DVASPECT_CONTENT, &extent));
}

TEST_F(Place, ComesAndGoesAsTheContainerSays) {
  HWND window = nullptr;
  EXPECT_TRUE(FAILED(inPlace->GetWindow(&window)));
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(S_OK, doVerb(OLEIVERB_SHOW));
    EXPECT_EQ(S_OK, inPlace->GetWindow(&window));
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(S_OK, doVerb(OLEIVERB_HIDE));
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(S_OK, inPlace->InPlaceDeactivate());
    EXPECT_FALSE(IsWindow(window));
  }
  EXPECT_EQ(OLEOBJ_S_INVALIDVERB, doVerb(7));
  doVerb(OLEIVERB_SHOW);
  DestroyWindow(container->window);  // takes the control's window along
  EXPECT_EQ(S_OK, inPlace->InPlaceDeactivate());
}

TEST_F(Place, QuickActivationDoesAllAtOnce) {
  QACONTAINER given{};
  given.cbSize = sizeof(given);
  given.pClientSite = container.get();
  given.pPropertyNotifySink = container.get();
  QACONTROL got{};
  got.cbSize = sizeof(got);
  object->SetClientSite(nullptr);
  ASSERT_EQ(S_OK, control.as<IQuickActivate>()->QuickActivate(&given, &got));
  ComPtr<IOleClientSite> site;
  EXPECT_EQ(S_OK, object->GetClientSite(site.put()));
  EXPECT_EQ(static_cast<IOleClientSite*>(container.get()), site.get());
  DWORD status = 0;
  object->GetMiscStatus(DVASPECT_CONTENT, &status);
  EXPECT_EQ(status, got.dwMiscStatus);
  control->putref_Font(makeFont(L"DejaVu Sans", 12).get());
  EXPECT_EQ(1U, container->changes.size());
  EXPECT_EQ(S_OK, notificationsOf(*control)->Unadvise(got.dwPropNotifyCookie));
}

}  // namespace
}  // namespace vmgv::test
