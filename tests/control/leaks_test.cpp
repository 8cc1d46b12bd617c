// Ten thousand controls leave nothing behind.
#include <gtest/gtest.h>
#include <winternl.h>

#include "tests/control/container.h"

namespace vmgv::test {
namespace {

// Blocks of the allocator that automation strings and COM share.
class Allocations final : public ComObject<IMallocSpy> {
 public:
  SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
  void* STDMETHODCALLTYPE PostAlloc(void* block) override { return blocks += block != nullptr, block; }
  void* STDMETHODCALLTYPE PreFree(void* block, WINBOOL) override { return blocks -= block != nullptr, block; }
  void STDMETHODCALLTYPE PostFree(WINBOOL) override {}
  SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** out, WINBOOL) override {
    return blocks -= block != nullptr, *out = block, size;
  }
  void* STDMETHODCALLTYPE PostRealloc(void* block, WINBOOL) override {
    return blocks += block != nullptr, block;
  }
  void* STDMETHODCALLTYPE PreGetSize(void* block, WINBOOL) override { return block; }
  SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, WINBOOL) override { return size; }
  void* STDMETHODCALLTYPE PreDidAlloc(void* block, WINBOOL) override { return block; }
  int STDMETHODCALLTYPE PostDidAlloc(void*, WINBOOL, int actual) override { return actual; }
  void STDMETHODCALLTYPE PreHeapMinimize() override {}
  void STDMETHODCALLTYPE PostHeapMinimize() override {}

  long blocks = 0;
};

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
  struct Entry {
    UINT64 object;
    ULONG owner;
    USHORT unique;
    BYTE type;
    BYTE flags;
    UINT64 user;
  };
  constexpr std::size_t kTableAt = sizeof(void*) == 8 ? 0xF8 : 0x94;
  constexpr int kEntries = 0x10000;
  const std::uintptr_t block = reinterpret_cast<std::uintptr_t>(NtCurrentTeb()->ProcessEnvironmentBlock);
  const Entry* const table = *reinterpret_cast<const Entry* const*>(block + kTableAt);
  int objects = 0;
  for (int i = 0; table && i < kEntries; ++i) objects += table[i].type != 0;
  return objects;
}

BOOL CALLBACK count(HWND, LPARAM windows) {
  ++*reinterpret_cast<int*>(windows);
  return TRUE;
}

BOOL CALLBACK countWithChildren(HWND window, LPARAM windows) {
  EnumChildWindows(window, count, windows);
  return count(window, windows);
}

int windows() {
  int number = 0;
  EnumThreadWindows(GetCurrentThreadId(), countWithChildren, reinterpret_cast<LPARAM>(&number));
  return number;
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
  EXPECT_EQ(static_cast<IDispatch*>(&container), grid.get());
  object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &container, 0, container.window, nullptr);
  VARIANT_BOOL changed = VARIANT_TRUE;
  edit->ShowOther(&changed);
  ComPtr<IFontDisp> font;
  edit->get_Font(font.put());
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
  const auto spy = makeComObject<Allocations>();
  ASSERT_EQ(S_OK, CoRegisterMallocSpy(spy.get()));
  for (int i = 0; i < 200; ++i) useOne(*container, *bag);  // what is made once is made
  const long allocations = spy->blocks;
  const int blocks = heapBlocks(), objects = gdiObjects(), shown = windows();
  for (int i = 0; i < 10'000; ++i) useOne(*container, *bag);
  EXPECT_EQ(allocations, spy->blocks);
  EXPECT_NEAR(blocks, heapBlocks(), 20);  // the system keeps a few of its own
  EXPECT_EQ(objects, gdiObjects());
  EXPECT_EQ(shown, windows());
  EXPECT_GT(objects, 0);
  CoRevokeMallocSpy();
  EXPECT_EQ(S_OK, controlLibrary().canUnload());
}

}  // namespace
}  // namespace vmgv::test
