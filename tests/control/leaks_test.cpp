// Ten thousand controls leave nothing behind.
#include <gtest/gtest.h>
#include <winternl.h>

#include "tests/control/container.h"

namespace vmgv::test {
namespace {

// Of every heap: automation's strings and COM's memory are among them.
int heapBlocks() {
  HANDLE heaps[64];
  const DWORD count = GetProcessHeaps(64, heaps);
  int blocks = 0;
  for (DWORD i = 0; i < count; ++i) {
    HeapLock(heaps[i]);
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heaps[i], &entry)) blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
    HeapUnlock(heaps[i]);
  }
  return blocks;
}

// The process's own table of GDI handles, found by way of its environment block.
int gdiObjects() {
  constexpr std::size_t kTableAt = sizeof(void*) == 8 ? 0xF8 : 0x94;
  constexpr int kEntries = 0x10000, kEntrySize = 24, kTypeAt = 14;  // bytes
  const auto block = reinterpret_cast<std::uintptr_t>(NtCurrentTeb()->ProcessEnvironmentBlock);
  const BYTE* const table = *reinterpret_cast<const BYTE* const*>(block + kTableAt);
  int objects = 0;
  for (int i = 0; table && i < kEntries; ++i) objects += table[i * kEntrySize + kTypeAt] != 0;
  return objects;
}

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
  const int blocks = heapBlocks(), objects = gdiObjects();
  for (int i = 0; i < 10'000; ++i) useOne(*container, *bag);
  EXPECT_NEAR(blocks, heapBlocks(), 20);  // the system keeps a few of its own
  EXPECT_EQ(objects, gdiObjects());
  EXPECT_GT(objects, 0);
  EXPECT_EQ(nullptr, GetWindow(container->window, GW_CHILD));
  EXPECT_EQ(S_OK, controlLibrary().canUnload());
}

}  // namespace
}  // namespace vmgv::test
