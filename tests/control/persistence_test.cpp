// What a form keeps of its control: the font alone, and only one that is not the container's.
#include <gtest/gtest.h>

#include "tests/control/container.h"

namespace vmgv::test {
namespace {

// A control in a container, and the three ways to keep it.
struct Placed {
  explicit Placed(ComPtr<IFontDisp> ambient) : container(makeComObject<Container>(std::move(ambient))) {
    EXPECT_EQ(S_OK, control.as<IOleObject>()->SetClientSite(container.get()));
  }
  ~Placed() { control.as<IOleObject>()->SetClientSite(nullptr); }

  ComPtr<_vmgrEdit> control = makeControl();
  ComPtr<Container> container;
};

void copyByBag(_vmgrEdit& from, _vmgrEdit& to) {
  const auto bag = makeComObject<Bag>();
  EXPECT_EQ(S_OK, ComPtr(&from).as<IPersistPropertyBag>()->Save(bag.get(), TRUE, TRUE));
  EXPECT_EQ(S_OK, ComPtr(&to).as<IPersistPropertyBag>()->Load(bag.get(), nullptr));
}

void copyByStream(_vmgrEdit& from, _vmgrEdit& to) {
  ComPtr<IStream> stream;
  ASSERT_EQ(S_OK, CreateStreamOnHGlobal(nullptr, TRUE, stream.put()));
  EXPECT_EQ(S_OK, ComPtr(&from).as<IPersistStreamInit>()->Save(stream.get(), TRUE));
  ULARGE_INTEGER used{}, atMost{};
  stream->Seek({}, STREAM_SEEK_CUR, &used);
  EXPECT_EQ(S_OK, ComPtr(&from).as<IPersistStreamInit>()->GetSizeMax(&atMost));
  EXPECT_LE(used.QuadPart, atMost.QuadPart);
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  EXPECT_EQ(S_OK, ComPtr(&to).as<IPersistStreamInit>()->Load(stream.get()));
}

void copyByStorage(_vmgrEdit& from, _vmgrEdit& to) {
  ComPtr<IStorage> storage;
  ASSERT_EQ(S_OK, StgCreateDocfile(nullptr,
                                   STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE,
                                   0, storage.put()));
  EXPECT_EQ(S_OK, ComPtr(&from).as<IPersistStorage>()->Save(storage.get(), TRUE));
  EXPECT_EQ(S_OK, ComPtr(&from).as<IPersistStorage>()->SaveCompleted(nullptr));
  EXPECT_EQ(S_OK, ComPtr(&to).as<IPersistStorage>()->Load(storage.get()));
}

class Persistence : public testing::TestWithParam<void (*)(_vmgrEdit&, _vmgrEdit&)> {};

TEST_P(Persistence, KeepsAFontOfItsOwnAndNothingElse) {
  Placed from(makeFont(L"DejaVu Sans", 12)), to(makeFont(L"DejaVu Sans", 12));
  from.control->putref_Font(makeFont(L"DejaVu Sans Mono", 12, true).get());
  from.control->put_excelVisible(VARIANT_FALSE);
  from.control->put_CurrentView(BString(L"view").get());
  GetParam()(*from.control, *to.control);
  EXPECT_EQ("DejaVu Sans Mono 12 bold", fontOf(*to.control));
  EXPECT_EQ(S_FALSE, from.control.as<IPersistStreamInit>()->IsDirty());
  VARIANT_BOOL visible = VARIANT_FALSE;
  BString view;
  to.control->get_excelVisible(&visible);
  to.control->get_CurrentView(view.put());
  EXPECT_EQ(VARIANT_TRUE, visible);
  EXPECT_EQ(L"", view.view());
}

TEST_P(Persistence, AFontLikeTheContainersFollowsTheContainer) {
  Placed from(makeFont(L"DejaVu Sans", 12)), to(makeFont(L"DejaVu Serif", 9));
  from.control->putref_Font(makeFont(L"DejaVu Sans", 12).get());  // equal, though another object
  GetParam()(*from.control, *to.control);
  EXPECT_EQ("DejaVu Serif 9", fontOf(*to.control));
}

INSTANTIATE_TEST_SUITE_P(Ways, Persistence, testing::Values(copyByBag, copyByStream, copyByStorage));

TEST(Persistence, AFontLikeTheContainersIsNotInTheBag) {
  Placed placed(makeFont(L"DejaVu Sans", 12));
  const auto bag = makeComObject<Bag>();
  for (const bool own : {false, true}) {
    if (own) placed.control->putref_Font(makeFont(L"DejaVu Sans", 15).get());
    EXPECT_EQ(S_OK, placed.control.as<IPersistPropertyBag>()->Save(bag.get(), TRUE, TRUE));
    EXPECT_EQ(own, bag->kept.contains(L"Font"));
  }
}

TEST(Persistence, TheAmbientFontIsTakenWhenFirstAskedFor) {
  Placed placed(makeFont(L"DejaVu Sans", 12));
  placed.container->ambient = makeFont(L"DejaVu Serif", 9);
  EXPECT_EQ("DejaVu Serif 9", fontOf(*placed.control));
  placed.container->ambient = nullptr;
  EXPECT_EQ("DejaVu Serif 9", fontOf(*placed.control));
  EXPECT_EQ(described(makeFont(L"Tahoma", 8).get()), fontOf(*makeControl()));  // no container at all
}

TEST(Persistence, ANewFontIsAnnounced) {
  Placed placed(makeFont(L"DejaVu Sans", 12));
  ComPtr<IConnectionPoint> point;
  DWORD cookie = 0;
  ASSERT_EQ(S_OK, placed.control.as<IConnectionPointContainer>()->FindConnectionPoint(IID_IPropertyNotifySink,
                                                                                      point.put()));
  ASSERT_EQ(S_OK, point->Advise(static_cast<IPropertyNotifySink*>(placed.container.get()), &cookie));
  const auto persisted = placed.control.as<IPersistStreamInit>();
  EXPECT_EQ(S_OK, persisted->InitNew());
  EXPECT_EQ(S_FALSE, persisted->IsDirty());
  placed.control->putref_Font(makeFont(L"DejaVu Sans", 15).get());
  EXPECT_EQ(std::vector<DISPID>{0x6803000C}, placed.container->changes);
  EXPECT_EQ(S_OK, persisted->IsDirty());
  EXPECT_EQ(S_OK, point->Unadvise(cookie));
  EXPECT_EQ(CONNECT_E_NOCONNECTION, point->Unadvise(cookie));
  placed.control->putref_Font(nullptr);
  EXPECT_EQ(1U, placed.container->changes.size());
  EXPECT_EQ("DejaVu Sans 12", fontOf(*placed.control));  // nothing set: the container's again
}

// A form's file may be cut short, or come from somewhere else.
TEST(Persistence, DamagedStreamsAreRefusedAndChangeNothing) {
  Placed placed(makeFont(L"DejaVu Sans", 12));
  placed.control->putref_Font(makeFont(L"DejaVu Sans Mono", 12).get());
  ComPtr<IStream> whole;
  CreateStreamOnHGlobal(nullptr, TRUE, whole.put());
  placed.control.as<IPersistStreamInit>()->Save(whole.get(), FALSE);
  ULARGE_INTEGER size{};
  whole->Seek({}, STREAM_SEEK_CUR, &size);
  std::vector<char> bytes(size.QuadPart);
  whole->Seek({}, STREAM_SEEK_SET, nullptr);
  whole->Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
  const auto load = [&](const std::vector<char>& content) {
    ComPtr<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, stream.put());
    stream->Write(content.data(), static_cast<ULONG>(content.size()), nullptr);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    return placed.control.as<IPersistStreamInit>()->Load(stream.get());
  };
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    EXPECT_TRUE(FAILED(load({bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)}))) << length;
  }
  for (const std::size_t byte : {0, 4}) {  // the signature, and whether there is a font
    std::vector<char> wrong = bytes;
    wrong[byte] = static_cast<char>(wrong[byte] ^ 0x55);
    EXPECT_TRUE(FAILED(load(wrong))) << byte;
  }
  EXPECT_EQ("DejaVu Sans Mono 12", fontOf(*placed.control));
  EXPECT_EQ(S_OK, load(bytes));
}

}  // namespace
}  // namespace vmgv::test
