// The views dialog, which only shows itself, and the three questions for a name.
#include "tests/dialogs/fixture.h"
#include "views/frm_insert.h"
#include "views/frm_views.h"

namespace vmgv {
namespace {

TEST(ViewsDialog, ShowsItsTextsAndActsOnNothing) {
  for (const bool greek : {false, true}) {
    DialogFixture f;
    f.strings.setLanguage(greek ? kGreek : kEnglish);
    frmViews views(f.application.services());
    Steps user(f.desktop,
               {f.click("cmdCancel"), f.press("cmdCancel", Key::Escape), [&] {
                  EXPECT_EQ(f.desktop.form()->caption(), greek ? "Εισαγωγή προβολών" : "Import views");
                  EXPECT_EQ(f.at("cmdCancel").caption(), greek ? "Κλείσιμο" : "Close");
                  EXPECT_EQ(f.at("Label1").caption(), greek ? "Διαθέσιμες προβολές" : "Available views");
                  EXPECT_EQ(f.at<ListView>("lstViews").header(), greek ? "Προβολές" : "Views");
                  EXPECT_EQ(f.at("sMenu").caption(), greek ? "Επεξεργασία" : "Edit");
                  std::string items;
                  for (const auto& [key, caption] : f.at<Menu>("sMenu").items()) {
                    items += key + "=" + caption + " ";
                  }
                  EXPECT_EQ(items, greek
                                       ? "ID_Insert=Εισαγωγή ID_Save=Αποθήκευση ID_SaveAs=Αποθήκευση ως "
                                         "ID_Delete=Διαγραφή "
                                       : "ID_Insert=Insert ID_Save=Save ID_SaveAs=Save As ID_Delete=Clear ");
                  EXPECT_EQ(f.at<ListBox>("lstCatalogs").listCount(), 0);
                  EXPECT_EQ(f.at<ListView>("lstViews").listCount(), 0);
                  f.desktop.closeWindow();
                }});
    views.Show();
    user.finish();
  }
}

TEST(NameDialog, ReturnsWhatOkConfirms) {
  using Ask = std::function<std::string(frmInsert&)>;
  using Act = std::function<void(DialogFixture&)>;
  const Ask insert = [](frmInsert& form) { return form.Insert(); };
  const Ask saveAs = [](frmInsert& form) { return form.SaveAs(); };
  const Ask condition = [](frmInsert& form) { return form.NewConditionName("Συνθήκη 1"); };
  const Act type = [](DialogFixture& f) { f.desktop.enter(f.at("txtName"), " Προβολή "); };
  const Act ok = [](DialogFixture& f) { f.desktop.click(f.at("cmdOK")); };
  const Act cancel = [](DialogFixture& f) { f.desktop.click(f.at("cmdCancel")); };
  const Act enterKey = [](DialogFixture& f) { f.desktop.press(f.at("txtName"), Key::Return, 0); };
  const Act escape = [](DialogFixture& f) { f.desktop.press(f.at("cmdOK"), Key::Escape, 0); };
  const Act titleBar = [](DialogFixture& f) {
    f.desktop.focus(f.at("cmdOK"));
    f.desktop.closeWindow();
  };
  const Act letter = [](DialogFixture& f) { f.desktop.press(f.at("txtName"), static_cast<Key>('N'), 0); };
  const struct {
    Ask ask;
    std::vector<Act> acts;
    const char *caption, *title, *result;
  } cases[] = {
      {insert, {type, ok}, "Import views...", "New view name", " Προβολή "},
      {insert, {type, enterKey}, "Import views...", "New view name", " Προβολή "},
      {insert, {ok}, "Import views...", "New view name", ""},
      {saveAs, {type, cancel}, "Save view as...", "New view name", ""},
      {saveAs, {type, escape}, "Save view as...", "New view name", ""},
      {saveAs, {type, titleBar}, "Save view as...", "New view name", ""},
      {condition, {ok}, "State definition...", "New data view state", "Συνθήκη 1"},
      {condition, {letter, enterKey}, "State definition...", "New data view state", "n"},  // it was selected
      {condition, {cancel}, "State definition...", "New data view state", ""},
  };
  for (const auto& c : cases) {
    DialogFixture f;
    frmInsert form(f.application.services());
    std::vector<Steps::Step> steps{[&] {
      EXPECT_EQ(f.desktop.form()->caption(), c.caption);
      EXPECT_EQ(f.at("lbTitle").caption(), c.title);
      EXPECT_EQ(f.desktop.focused(), &f.at("txtName"));
    }};
    for (const Act& act : c.acts) steps.push_back([&f, act] { act(f); });
    Steps user(f.desktop, std::move(steps));
    EXPECT_EQ(c.ask(form), c.result) << &c - cases;
    user.finish();
  }
}

}  // namespace
}  // namespace vmgv
