// What a form keeps of its control: the font alone, and only one that is not the container's.
#include <gtest/gtest.h>

#include "tests/control/container.h"

namespace vmgv::test {
namespace {

// A control in a container whose font is DejaVu Sans 12.
struct Placed {
  Placed() { EXPECT_EQ(S_OK, control.as<IOleObject>()->SetClientSite(container.get())); }
  ~Placed() { control.as<IOleObject>()->SetClientSite(nullptr); }

  ComPtr<_vmgrEdit> control = makeControl();
  ComPtr<Container> container = makeComObject<Container>(makeFont(L"DejaVu Sans", 12));
};

void copyByBag(_vmgrEdit& from, _vmgrEdit& to) {
  const auto bag = makeComObject<Bag>();
  EXPECT_EQ(S_OK, ComPtr(&from).as<IPersistPropertyBag>()->Save(bag.get(), TRUE, TRUE));
  EXPECT_EQ(S_OK, ComPtr(&to).as<IPersistPropertyBag>()->Load(bag.get(), nullptr));
}

ComPtr<IStream> streamOf(std::string_view content) {
  ComPtr<IStream> stream;
  EXPECT_EQ(S_OK, CreateStreamOnHGlobal(nullptr, TRUE, stream.put()));
  stream->Write(content.data(), static_cast<ULONG>(content.size()), nullptr);
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  return stream;
}

// What the control writes.
std::string bytesOf(_vmgrEdit& control) {
  const auto stream = streamOf({});
  EXPECT_EQ(S_OK, ComPtr(&control).as<IPersistStreamInit>()->Save(stream.get(), TRUE));
  ULARGE_INTEGER used{}, atMost{};
  stream->Seek({}, STREAM_SEEK_CUR, &used);
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  EXPECT_EQ(S_OK, ComPtr(&control).as<IPersistStreamInit>()->GetSizeMax(&atMost));
  EXPECT_LE(used.QuadPart, atMost.QuadPart);
  std::string bytes(used.QuadPart, '\0');
  stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
  return bytes;
}

void copyByStream(_vmgrEdit& from, _vmgrEdit& to) {
  EXPECT_EQ(S_OK, ComPtr(&to).as<IPersistStreamInit>()->Load(streamOf(bytesOf(from)).get()));
}

class Persistence : public testing::TestWithParam<void (*)(_vmgrEdit&, _vmgrEdit&)> {};
INSTANTIATE_TEST_SUITE_P(Ways, Persistence, testing::Values(copyByBag, copyByStream));

TEST_P(Persistence, KeepsAFontOfItsOwnAndNothingElse) {
  const Placed from, to;
  from.control->putref_Font(makeFont(L"DejaVu Sans Mono", 12, true).get());
  from.control->put_excelVisible(VARIANT_FALSE);
  from.control->put_CurrentView(BString(L"view").get());
  EXPECT_EQ(S_OK, from.control.as<IPersistStreamInit>()->IsDirty());
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
  const Placed from, to;
  to.container->ambient = makeFont(L"DejaVu Serif", 9);
  from.control->putref_Font(makeFont(L"DejaVu Sans", 12).get());  // equal, though another object
  GetParam()(*from.control, *to.control);
  EXPECT_EQ("DejaVu Serif 9", fontOf(*to.control));
}

TEST(Fonts, TheAmbientOneServesUntilThereIsAnother) {
  const Placed placed;
  placed.container->ambient = makeFont(L"DejaVu Serif", 9);  // it is taken when first asked for
  EXPECT_EQ("DejaVu Serif 9", fontOf(*placed.control));
  const auto bag = makeComObject<Bag>();
  for (const bool own : {false, true}) {
    if (own) placed.control->putref_Font(makeFont(L"DejaVu Sans", 15).get());
    EXPECT_EQ(S_OK, placed.control.as<IPersistPropertyBag>()->Save(bag.get(), TRUE, TRUE));
    EXPECT_EQ(own, bag->kept.contains(L"Font"));
  }
  placed.control->putref_Font(nullptr);
  EXPECT_EQ("DejaVu Serif 9", fontOf(*placed.control));
  EXPECT_EQ(described(makeFont(L"Tahoma", 8).get()), fontOf(*makeControl()));  // no container at all
}

// A form's file may be cut short, or come from somewhere else.
TEST(Streams, DamagedOnesAreRefusedAndChangeNothing) {
  const Placed placed;
  placed.control->putref_Font(makeFont(L"DejaVu Sans Mono", 12).get());
  const std::string whole = bytesOf(*placed.control);
  std::vector<std::string> damaged(2, whole);
  damaged[0][0] ^= 0x55;  // the signature
  damaged[1][4] ^= 0x55;  // whether there is a font
  for (std::size_t length = 0; length < whole.size(); ++length) damaged.push_back(whole.substr(0, length));
  const auto persisted = placed.control.as<IPersistStreamInit>();
  for (const std::string& one : damaged) {
    EXPECT_TRUE(FAILED(persisted->Load(streamOf(one).get()))) << one.size();
  }
  EXPECT_EQ("DejaVu Sans Mono 12", fontOf(*placed.control));
  EXPECT_EQ(S_OK, persisted->Load(streamOf(whole).get()));
}

}  // namespace
}  // namespace vmgv::test
