// Pages on Windows: which of them the pane draws and how a hand goes through them, and what reaches a device.
#include <algorithm>
#include <set>

#include "adapters/grid/pages/grid_pages.h"
#include "frontends/com/text.h"
#include "frontends/win32/gdi_page.h"
#include "frontends/win32/win32_printing.h"
#include "support/automation/error.h"
#include "support/forms/page_preview.h"
#include "tests/grid/fixture.h"
#include "tests/win32/fixture.h"

#include <winspool.h>

namespace vmgv {
namespace {

// A5 pages, the odd ones red, the even ones green; page 5 cannot be drawn.
class Pages final : public PageSource {
 public:
  std::int32_t count() override { return 1'000'000; }
  PageSize paper() override { return {419.5, 595.3}; }
  void draw(std::int32_t page, PageSurface& surface) override {
    drawn.insert(page);
    if (page == 5) throw Error(ErrorNumber::Application, "out of ink");
    surface.fill({0, 0, 419.5, 595.3}, page % 2 ? 0xFF0000 : 0x00FF00);
  }
  void setUp() override {}
  void print(bool) override {}

  std::set<int> drawn;
};

struct PagesTest : Win32Test {
  PagesTest() {
    form.resizable = true;
    form.content = layout::item(preview).stretch();
    form.open();
    preview.show(source);
  }
  HWND pane() { return windowOf(preview.pane()); }
  void wheel(int clicks) { SendMessageW(pane(), WM_MOUSEWHEEL, MAKEWPARAM(0, clicks * WHEEL_DELTA), 0); }
  int scrolled() { return GetScrollPos(pane(), SB_VERT); }
  COLORREF at(int percentAcross) {
    UpdateWindow(pane());
    RECT inside{};
    GetClientRect(pane(), &inside);
    const HDC screen = GetDC(pane());
    const COLORREF colour = GetPixel(screen, inside.right * percentAcross / 100, inside.bottom * 3 / 4);
    ReleaseDC(pane(), screen);
    return colour;
  }

  Form form{"frmPages"};
  PagePreview& preview = form.add<PagePreview>("preview");
  std::shared_ptr<Pages> source = std::make_shared<Pages>();
};

constexpr COLORREF kRed = RGB(255, 0, 0), kGreen = RGB(0, 255, 0);

TEST_F(PagesTest, OnlyPagesInSightAreDrawnAndAWindowKeepsItsSmallestSize) {
  play(form, {[&] {
                const Size smallest = form.smallest();
                desktop.resize({15, 15});
                EXPECT_EQ(form.size(), smallest);
                desktop.resize({9000, 7000});
                EXPECT_EQ(at(50), kRed);
                desktop.press(preview.pane(), Key::End, 0);
                EXPECT_EQ(preview.page(), 1'000'000);
                EXPECT_EQ(at(50), kGreen);
                preview.setViewMode(ViewMode::TwoPages);
                preview.goTo(4);
              },
              [&] {
                EXPECT_EQ(at(40), kGreen);
                EXPECT_EQ(at(1), GetSysColor(COLOR_APPWORKSPACE));
                EXPECT_EQ(source->drawn, (std::set<int>{1, 4, 5, 1'000'000}));
              }});
}

TEST_F(PagesTest, WheelKeysAndBarGoThroughThePages) {
  play(form, {[&] {
                desktop.resize({12000, 9000});
                wheel(-1), wheel(-1), wheel(1);
                EXPECT_EQ(preview.page(), 2);
                desktop.press(preview.pane(), Key::PageDown, 0);
                desktop.press(preview.pane(), Key::Down, 0);
                EXPECT_EQ(preview.page(), 4);
                SendMessageW(pane(), WM_VSCROLL, SB_BOTTOM, 0);
                EXPECT_EQ(preview.page(), 1'000'000);
                wheel(1), wheel(-5);
                EXPECT_EQ(preview.page(), 1'000'000);
                desktop.press(preview.pane(), Key::Home, 0);
              },
              // Within a page that is larger than the pane first.
              [&] { preview.setViewMode(ViewMode::ZoomedIn); },
              [&] {
                desktop.resize({9000, 5000});
                wheel(-1);
                EXPECT_EQ(preview.page(), 1);
                EXPECT_GT(scrolled(), 0);
                SendMessageW(pane(), WM_VSCROLL, SB_BOTTOM, 0);
                const int end = scrolled();
                wheel(-1);
                EXPECT_EQ(preview.page(), 2);
                EXPECT_EQ(scrolled(), 0) << "the next page begins at its top";
                wheel(1);
                EXPECT_EQ(scrolled(), end) << "and the one before at its end";
              }});
}

int CALLBACK noteText(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM texts) {
  if (record->iType != EMR_EXTTEXTOUTW) return 1;
  const auto& text = reinterpret_cast<const EMREXTTEXTOUTW*>(record)->emrtext;
  const auto* const start = reinterpret_cast<const std::byte*>(record);
  const auto* const letters = reinterpret_cast<const wchar_t*>(start + text.offString);
  const auto* const widths = reinterpret_cast<const INT*>(start + text.offDx);
  int width = 0;
  for (DWORD i = 0; i < text.nChars; ++i) width += widths[i];
  auto& all = *reinterpret_cast<std::vector<std::pair<std::string, int>>*>(texts);
  all.emplace_back(narrow({letters, text.nChars}), width);
  return 1;
}

using Texts = std::vector<std::pair<std::string, int>>;  // with their widths in pixels

// What a device is told to write.
Texts textsOf(double scale, PageFonts& fonts, const std::function<void(PageSurface&)>& draw) {
  Texts texts;
  const HDC record = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
  {
    GdiPage page(record, {0, 0}, scale, fonts);
    draw(page);
  }
  const HENHMETAFILE file = CloseEnhMetaFile(record);
  EnumEnhMetaFile(nullptr, file, reinterpret_cast<ENHMFENUMPROC>(noteText), &texts, nullptr);
  DeleteEnhMetaFile(file);
  return texts;
}

// However coarse the device, a text ends where the fonts say.
TEST(GdiPage, TextsAreAsLongAsTheFontsMeasureThem) {
  GdiPageFonts fonts;
  const PageFont font{"DejaVu Sans", 9};
  const std::string text = "Γλάρος 𝔸 gull, 12.50";
  double width = 0;
  for (const char32_t character : U"Γλάρος 𝔸 gull, 12.50") {
    if (character) width += fonts.metrics(font)->advance(character);
  }
  for (const double scale : {0.5, 4.0 / 3, 600.0 / 72}) {
    const Texts texts = textsOf(scale, fonts, [&](PageSurface& page) { page.text(36, 72, text, font, 0); });
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(texts[0].first, text);
    EXPECT_NEAR(texts[0].second, width * scale, 1) << scale;
  }
}

TEST_F(Win32Test, EachRowOfAGridIsOnOnePageInOrder) {
  constexpr int kRows = 200;
  std::vector<std::vector<Value>> rows;
  for (int i = 1; i <= kRows; ++i) rows.push_back({"Σειρά " + std::to_string(i)});
  const auto engine = engineOf({{"City"}}, std::move(rows));
  Win32Printing printing(desktop);
  engine->setPrintPort(&printing);
  engine->printer().repeatHeaders = true;
  GridPages pages(engine, std::make_shared<EventSource>(), false);
  ASSERT_GT(pages.count(), 2);
  int row = 0;
  for (std::int32_t page = 1; page <= pages.count(); ++page) {
    const Texts texts =
        textsOf(600.0 / 72, printing.fonts(), [&](PageSurface& surface) { pages.draw(page, surface); });
    EXPECT_TRUE(
        std::any_of(texts.begin(), texts.end(), [](const auto& text) { return text.first == "City"; }));
    for (const auto& [text, width] : texts) {
      if (!text.starts_with("Σειρά")) continue;
      EXPECT_EQ(text, "Σειρά " + std::to_string(++row));
    }
  }
  EXPECT_EQ(row, kRows);
}

TEST_F(Win32Test, WithoutAPrinterPrintingSaysSo) {
  DWORD size = 0;
  if (GetDefaultPrinterW(nullptr, &size) || size > 0) GTEST_SKIP() << "this machine has a printer";
  Win32Printing printing(desktop);
  PageSetup setup;
  const auto refuses = [](auto act) {
    try {
      act();
      FAIL() << "nothing refused";
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), 482);
      EXPECT_NE(std::string(error.what()).find("no default printer"), std::string::npos);
    }
  };
  refuses([&] { printing.askPageSetup(setup); });
  refuses([&] { printing.askPrint(setup, 3); });
  refuses([&] { printing.start(setup, {}, "Sales"); });
}

}  // namespace
}  // namespace vmgv
