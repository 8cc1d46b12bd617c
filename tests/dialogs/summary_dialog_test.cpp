// The hub: its buttons, its geometry without the export, and what it does with dialogs that fail.
#include "tests/dialogs/fixture.h"

namespace vmgv {
namespace {

struct Shape {
  Size form;
  Rect frame, excel, excelLine, help, helpLine, close;
};

Shape shapeOf(DialogFixture& f) {
  return {f.desktop.form()->size(), f.at("Frame1").rect(), f.at("cmdExcel").rect(), f.at("Label7").rect(),
          f.at("cmdHelp").rect(),   f.at("Label9").rect(), f.at("cmdClose").rect()};
}

TEST(SummaryDialog, WithoutTheExportHelpMovesUpAndTheFormShrinks) {
  DialogFixture f(gridOfColumns(1));
  Shape whole, shorter;
  f.show("ShowSummary", {[&] {
                           whole = shapeOf(f);
                           EXPECT_TRUE(f.at("cmdExcel").visible());
                           EXPECT_GT(whole.help.top, whole.excel.top);
                         },
                         f.click("cmdClose")});
  f.control.put("excelVisible", false);
  f.show("ShowSummary", {[&] {
                           shorter = shapeOf(f);
                           EXPECT_FALSE(f.at("cmdExcel").visible());
                           EXPECT_FALSE(f.at("Label7").visible());
                         },
                         f.press("cmdGeneral", Key::Escape)});
  const int pixel = f.desktop.pixel().height, height = whole.excel.height;
  EXPECT_EQ(shorter.help.top, whole.excel.top);
  EXPECT_EQ(shorter.helpLine.top, whole.excelLine.top);
  EXPECT_EQ(shorter.frame.height, whole.frame.height - height - 7 * pixel);
  EXPECT_EQ(shorter.close.top, whole.close.top - height - 7 * pixel);
  EXPECT_EQ(shorter.form.height, whole.form.height - height - 9 * pixel);
  EXPECT_EQ(shorter.form.width, whole.form.width);
}

TEST(SummaryDialog, EachButtonOpensItsDialogOverTheHub) {
  const struct {
    const char *button, *line, *caption, *form;  // form: null where nothing opens
  } cases[] = {{"cmdGeneral", "Label8", "Διάφορες ρυθμίσεις εμφάνισης...", "frmOther"},
               {"cmdGrp", "Label1", "Δημιουργία και ταξινόμηση ομάδων...", "frmGroupBy"},
               {"cmdSrt", "Label2", "Ταξινόμηση δεδομένων...", "frmSort"},
               {"cmdFld", "Label3", "Εμφάνιση και απόκρυψη στηλών...", "frmItems"},
               {"cmdFnt", "Label4", "Γραμματοσειρές επικεφαλίδων...", nullptr},
               {"cmdFrm", "Label5", "Συνθήκες εμφάνισης γραμμών...", "frmFormConditions"},
               {"cmdViews", "Label6", "Εισαγωγή και κατάργηση προβολών", nullptr},
               {"cmdExcel", "Label7", "Εξαγωγή δεδομένων σε φύλλο εργασίας του Excel", "frmExcel"}};
  DialogFixture f(gridOfColumns(1));
  f.strings.setLanguage(kGreek);
  std::vector<Steps::Step> steps;
  for (const auto& c : cases) {
    steps.push_back([&] {
      EXPECT_EQ(f.at(c.line).caption(), c.caption);
      f.desktop.click(f.at(c.button));
    });
    if (c.form) {
      steps.push_back([&] {
        EXPECT_EQ(f.desktop.form()->name(), c.form);
        f.desktop.closeWindow();
      });
    }
    steps.push_back([&] { EXPECT_EQ(f.desktop.form()->name(), "frmSummary") << c.button; });
  }
  steps.push_back(f.click("cmdHelp"));
  steps.push_back(f.click("cmdClose"));
  f.show("ShowSummary", std::move(steps));
  EXPECT_TRUE(f.grid.log.empty());
  EXPECT_EQ(f.desktop.helpCalls().at(0).topic, "");  // the contents
}

// Only what escapes the conditions editor is told; the hub stays open all the same.
TEST(SummaryDialog, FailingDialogsLeaveItOpen) {
  for (const char* button : {"cmdGeneral", "cmdGrp", "cmdSrt", "cmdFld", "cmdFnt", "cmdFrm", "cmdExcel"}) {
    DialogFixture f(gridOfColumns(1));
    Fault fault{2};  // the first call asks for the grid
    const bool told = button == std::string("cmdFrm");
    std::vector<Steps::Step> steps{f.click(button)};
    if (told) {
      steps.push_back([&] {
        EXPECT_EQ(f.desktop.box()->text, "injected");
        EXPECT_EQ(f.desktop.box()->style, MessageStyle::Critical);
        f.desktop.answer(MessageResult::Ok);
      });
    }
    steps.push_back(f.click("cmdClose"));
    Steps user(f.desktop, std::move(steps));
    f.application.open(Facet::Summary, {.editor = makeObject<FaultyObject>(f.control, fault)});
    user.finish();
    EXPECT_EQ(f.messages().size(), told ? 1u : 0u) << button;
  }
}

TEST(SummaryDialog, WithoutAGridNothingOpens) {
  DialogFixture f;
  f.control.putRef("Grid", ObjectRef());
  f.show("ShowSummary", {});
}

}  // namespace
}  // namespace vmgv
