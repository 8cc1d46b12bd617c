// The print preview over a grid that pages nothing but numbers: both toolbars, the status line, keys,
// closing, and every call of the grid failing once.
#include "support/automation/events.h"
#include "support/forms/page_preview.h"
#include "support/pages/page_objects.h"
#include "tests/dialogs/contract_guide.h"
#include "tests/dialogs/fixture.h"

namespace vmgv {
namespace {

// Notes what is written to it and called; its pages say when they are drawn, set up and printed.
class PrintingGrid final : public NamedObject, public PageSource {
 public:
  PrintingGrid() : NamedObject("GridEX") {}

  std::int32_t count() override { return pages; }
  PageSize paper() override { return {200, 300}; }
  void draw(std::int32_t page, PageSurface& surface) override {
    const Value parameters[] = {page, pages};
    ++unfinished;
    events.raise("BeforePrintPage", parameters);
    --unfinished;
    surface.fill({10, 10, 100, 100}, 0x808080);
  }
  void setUp() override { log.push_back("SetUp"), pages = 4; }
  void print(bool showDialog) override { log.push_back(showDialog ? "Print True" : "Print False"); }
  std::shared_ptr<void> listen(EventSink& sink) override { return events.connect(sink); }

  std::int32_t pages = 10;
  EventSource events;
  std::vector<std::string> log;
  std::string counter;
  bool fails = false;
  int unfinished = 0;  // drawings that failed

 private:
  Value answer(const std::string& name, Access access, Args args) override {
    if (name == "PrinterProperties") return ObjectRef(this);
    if (name == "PrintGrid" && fails) throw Error(ErrorNumber::Printer, "out of paper");
    if (name == "FooterString" && toLong(args[0]) == 3) return counter = toText(args[1]), Value();
    std::string what = name;
    for (std::size_t i = name == "PrintPreview" ? 1 : 0; i < args.size(); ++i) what += " " + toText(args[i]);
    log.push_back(what);
    if (name == "PrintPreview") {
      args[0].object().call("ShowPages", objectOf(std::shared_ptr<PageSource>(this, [](PageSource*) {})));
    } else if (access != Access::Put && name != "PrintGrid") {
      throw Error(ErrorNumber::MemberNotFound, name);
    }
    return {};
  }
};

struct PreviewFixture : DialogFixture {
  PreviewFixture() { control.putRef("Grid", held); }

  void show(const char* header, bool ownToolbar, std::vector<Steps::Step> steps, bool onlySelected = false) {
    Steps user(desktop, std::move(steps));
    EXPECT_EQ(control.call("ShowPreviewX", header, ownToolbar, onlySelected), Value(false));
    user.finish();
    EXPECT_EQ(desktop.form(), nullptr);
  }
  std::string status() { return at("SmartUI1").caption(); }
  Steps::Step key(Key key) {
    return [this, key] { desktop.press(at("GEXPreview1.pages"), key, 0); };
  }

  const ObjectRef held = new PrintingGrid;
  PrintingGrid& grid = static_cast<PrintingGrid&>(*held);
};

TEST(PreviewDialog, OpensWithEitherToolbarInBothLanguages) {
  const struct {
    LanguageId language;
    const char *header, *caption, *status, *setup, *print, *close, *next;
  } cases[] = {
      {kEnglish, "", "Print", "Page 1 of 10", "Page Setup...", "Print", "Close", "Next page"},
      {kEnglish, "Sales", "Print - Sales", "Page 1 of 10", "Page Setup...", "Print", "Close", "Next page"},
      {kGreek, "Πωλήσεις", "Εκτύπωση - Πωλήσεις", "Σελίδα 1 από 10", "Διαμόρφωση σελίδας...", "Εκτύπωση",
       "Κλείσιμο", "Επόμενη σελίδα"}};
  for (const auto& c : cases) {
    for (const bool own : {false, true}) {
      PreviewFixture f;
      f.strings.setLanguage(c.language);
      const std::string toolbar = own ? "smuToolbar" : "GEXPreview1.toolbar";
      const auto look = [&] {
        EXPECT_EQ(f.desktop.form()->caption(), c.caption);
        EXPECT_EQ(f.status(), c.status);
        EXPECT_EQ(f.at("smuToolbar").visible(), own);
        EXPECT_EQ(f.at("GEXPreview1.toolbar").visible(), !own);
        EXPECT_EQ(f.at("GEXPreview1").rect().top, own ? f.at("smuToolbar").rect().height : 0);
        EXPECT_EQ(f.at("GEXPreview1.toolbar.close").caption(), c.close);
        EXPECT_EQ(f.at("GEXPreview1.toolbar.print").caption(), c.print);
        EXPECT_EQ(f.at("GEXPreview1.toolbar.setup").caption(), c.setup);
        EXPECT_EQ(f.at("smuToolbar.next").toolTip(), c.next);
      };
      const std::string exit = toolbar + (own ? ".exit" : ".close");
      f.show(c.header, own, {look, f.click(exit.c_str())}, own);
      EXPECT_EQ(f.grid.log,
                (std::vector<std::string>{"TranslateColors True", "RepeatHeaders True",
                                          std::string("HeaderString 1 ") + c.header,
                                          "FooterString 2 " + f.desktop.mediumDate(),
                                          std::string("PrintPreview ") + (own ? "True" : "False")}));
      EXPECT_TRUE(f.messages().empty());
    }
  }
}

TEST(PreviewDialog, PagesTurnAndTheStatusLineFollows) {
  const struct {
    const char* button;  // else a key
    Key key;
    const char* status;
  } cases[] = {{"prev", {}, "Page 1 of 10"},         {"next", {}, "Page 2 of 10"},
               {"zoomout", {}, "Page 2 - 3 of 10"},  {"next", {}, "Page 3 - 4 of 10"},
               {nullptr, Key::End, "Page 10 of 10"}, {"next", {}, "Page 10 of 10"},
               {"prev", {}, "Page 9 - 10 of 10"},    {"zoom1", {}, "Page 9 of 10"},
               {nullptr, Key::Home, "Page 1 of 10"}, {"zoomin", {}, "Page 1 of 10"},
               {"prev", {}, "Page 1 of 10"}};
  for (const bool own : {true, false}) {
    PreviewFixture f;
    std::vector<Steps::Step> steps;
    for (const auto& c : cases) {
      steps.push_back([&f, &c, own] {
        const std::string button =
            std::string(own ? "smuToolbar." : "GEXPreview1.toolbar.") + (c.button ? c.button : "");
        if (c.button) {
          f.desktop.click(f.at(button.c_str()));
        } else {
          f.key(c.key)();
        }
        EXPECT_EQ(f.status(), c.status);
      });
    }
    steps.push_back([&f] { f.desktop.closeWindow(); });
    f.show("", own, std::move(steps));
  }
}

TEST(PreviewDialog, EachPageIsCountedBeforeItIsDrawn) {
  PreviewFixture f;
  const std::vector<Value> page{3, 10};
  f.show("", true, {[&] {
           f.grid.events.raise("BeforePrintPage", page);
           EXPECT_EQ(f.grid.counter, "Page 3 of 10");
           f.desktop.closeWindow();
         }});
  f.grid.counter = {};
  f.grid.events.raise("BeforePrintPage", page);
  EXPECT_EQ(f.grid.counter, "") << "the window is gone";
}

TEST(PreviewDialog, PrintsFromBothToolbarsAndTellsWhatFails) {
  PreviewFixture f;
  const auto logged = [&](const char* last) { return [&f, last] { EXPECT_EQ(f.grid.log.back(), last); }; };
  f.show("", true,
         {f.click("smuToolbar.setup"), logged("PrintGrid True"), f.click("smuToolbar.print"),
          logged("PrintGrid False"), [&] { f.grid.fails = true; }, f.click("smuToolbar.print"),
          [&] {
            EXPECT_EQ(f.desktop.box()->text, "out of paper");
            f.desktop.answer(MessageResult::Ok);
          },
          f.click("smuToolbar.exit")});
  f.show("", false,
         {f.click("GEXPreview1.toolbar.print"), logged("Print True"), f.key(Key::End),
          f.click("GEXPreview1.toolbar.setup"), logged("SetUp"),
          [&] { EXPECT_EQ(f.status(), "Page 4 of 4"); }, f.key(Key::Escape)});
}

TEST(PreviewDialog, HelpAndSize) {
  PreviewFixture f;
  const auto fills = [&] {
    const Size inner = f.desktop.form()->size();
    const Rect preview = f.at("GEXPreview1").rect(), status = f.at("SmartUI1").rect();
    EXPECT_EQ(preview.width, inner.width);
    EXPECT_EQ(preview.top + preview.height, inner.height - status.height);
  };
  f.show("", true,
         {fills,
          [&] {
            f.desktop.resize({9000, 6000});
          },
          fills, f.click("smuToolbar.help"), f.key(Key::F1), f.key(Key::Escape)});
  ASSERT_EQ(f.desktop.helpCalls().size(), 2u);
  EXPECT_NE(f.desktop.helpCalls()[1].topic.find("gridViewsPrint"), std::string::npos);
}

TEST(PreviewDialog, EveryCallOfTheGridFailsOnce) {
  const auto run = [](PreviewFixture& f, Fault& fault) {
    f.control.putRef("Grid", makeObject<FaultyObject>(f.held, fault));
    bool opened = false;
    const auto act = [&](Steps::Step step) {
      return [&f, step] {
        if (f.desktop.box()) return f.desktop.answer(MessageResult::Ok);
        if (f.desktop.form()) step();
      };
    };
    Steps user(f.desktop, {act([&] {
                             opened = true;
                             f.desktop.click(f.at("smuToolbar.print"));
                           }),
                           act([&] { f.desktop.closeWindow(); }), act([&] { f.desktop.closeWindow(); })});
    EXPECT_EQ(f.control.call("ShowPreviewX", "Sales", true, false), Value(false));
    EXPECT_EQ(f.desktop.form(), nullptr);
    return opened;
  };
  Fault counting;
  PreviewFixture healthy;
  EXPECT_TRUE(run(healthy, counting));
  ASSERT_GE(counting.calls, 7);
  // This grid is its own PrinterProperties.
  std::set<std::string> inGuide;
  for (const std::string& member : membersInGuide("ShowPreview")) {
    inGuide.insert("GridEX" + member.substr(member.find('.')));
  }
  EXPECT_EQ(counting.asked, inGuide);
  for (int failAt = 1; failAt <= counting.calls; ++failAt) {
    PreviewFixture f;
    Fault fault{failAt};
    run(f, fault);
    // A page that cannot be drawn stays blank.
    if (f.grid.unfinished > 0) continue;
    EXPECT_EQ(f.messages(), std::vector<std::string>{Fault::kDescription}) << failAt << fault.failed;
  }
}

}  // namespace
}  // namespace vmgv
