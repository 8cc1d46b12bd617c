// Ten thousand controls leave nothing behind.
#include <gtest/gtest.h>

#include "tests/control/container.h"
#include "tests/win32/resources.h"

namespace vmgv::test {
namespace {

void useOne(Container& container, Bag& bag) {
  const auto edit = makeControl();
  const auto object = edit.as<IOleObject>();
  object->SetClientSite(&container);
  edit.as<IPersistPropertyBag>()->Load(&bag, nullptr);
  edit->putref_Grid(static_cast<IDispatch*>(&container));
  edit->put_CurrentView(BString(L"Προβολή").get());
  ComPtr<IDispatch> grid;
  edit->get_Grid(grid.put());
  object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &container, 0, container.window, nullptr);
  VARIANT_BOOL changed = VARIANT_TRUE;
  edit->ShowOther(&changed);
  Variant failed;
  DISPPARAMS none{};
  edit->Invoke(12345, IID_NULL, 0, DISPATCH_METHOD, &none, &failed, nullptr, nullptr);
  edit.as<IPersistPropertyBag>()->Save(&bag, TRUE, TRUE);
  object->Close(OLECLOSE_NOSAVE);
  object->SetClientSite(nullptr);
}

TEST(Leaks, TenThousandControlsLeaveNothing) {
  const auto container = makeComObject<Container>(makeFont(L"DejaVu Sans", 12));
  const auto bag = makeComObject<Bag>();
  bag->kept[L"Font"] = makeFont(L"DejaVu Serif", 9);
  for (int i = 0; i < 200; ++i) useOne(*container, *bag);  // what is made once is made
  const Resources before = countResources();
  for (int i = 0; i < 10'000; ++i) useOne(*container, *bag);
  const Resources after = countResources();
  EXPECT_EQ(before.held, after.held);
  EXPECT_LE(after.heapBlocks, before.heapBlocks + 20);  // the system keeps a few of its own
  EXPECT_EQ(S_OK, controlLibrary().canUnload());
}

}  // namespace
}  // namespace vmgv::test
