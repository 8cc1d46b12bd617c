// Modal life: forms over forms, boxes over forms, long work, and nothing that waits for ever.
#include <QAbstractButton>
#include <QMessageBox>
#include <QTimer>

#include "support/automation/error.h"
#include "support/strings/string_service.h"
#include "tests/qt/fixture.h"

namespace vmgv {

TEST_F(QtTest, WhenNobodyActsAnyMoreEverythingEnds) {
  SampleForm form;
  play(form, {});
  EXPECT_EQ(form.events, "") << "closed as by the title bar, not by a button";
  Steps nobody(desktop, {});
  EXPECT_EQ(desktop.messageBox("sure?", MessageStyle::Question, ""), MessageResult::No);
  EXPECT_EQ(desktop.pickFile({}), std::nullopt);
  form.onCloseByUser = [] {};
  form.open();
  EXPECT_THROW(desktop.showModal(form), Error);
  EXPECT_FALSE(form.isOpen());
}

TEST_F(QtTest, OnlyTheTopmostThingCanBeActedOn) {
  SampleForm below, above;
  below.cmdBrowse.onClick = [&] { desktop.showModal(above); };
  above.cmdBrowse.onClick = [&] { desktop.messageBox("sure?", MessageStyle::Question, "title"); };
  above.layOut(desktop);
  play(below, {[&] { desktop.click(below.cmdBrowse); },
               [&] {
                 EXPECT_THROW(desktop.click(below.cmdOK), CannotDo);
                 EXPECT_THROW(desktop.showModal(below), Error);
                 desktop.click(above.cmdBrowse);
               },
               [&] {
                 EXPECT_THROW(desktop.click(above.cmdOK), CannotDo);
                 EXPECT_THROW(desktop.answer(MessageResult::Ok), CannotDo);
                 desktop.answer(MessageResult::Yes);
               },
               [&] { desktop.click(above.cmdOK); }});
  EXPECT_EQ(above.events, "ok");
}

TEST_F(QtTest, MessagesSpeakTheLanguageOfTheProcess) {
  for (const auto& [language, yes] : {std::pair{kEnglish, "Yes"}, {kGreek, "Ναι"}}) {
    processStringService().setLanguage(language);
    Steps user(desktop, {[&, yes = yes] {
                 auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                 EXPECT_EQ(box->text(), "<b>1 < 2</b> & so");
                 QStringList buttons;
                 for (const auto* button : box->buttons()) buttons << button->text();
                 EXPECT_TRUE(buttons.contains(yes)) << yes;
                 desktop.answer(MessageResult::Yes);
               }});
    EXPECT_EQ(desktop.messageBox("<b>1 < 2</b> & so", MessageStyle::Question, ""), MessageResult::Yes);
    user.finish();
  }
}

TEST_F(QtTest, LongWorkLetsTheUserIn) {
  SampleForm form;
  int rows = 0;
  bool cancelled = false;
  QTimer host;  // a host's own timer may fire inside a yield, and yield itself
  QObject::connect(&host, &QTimer::timeout, [&] { desktop.doEvents(); });
  host.start(0);
  form.cmdCancel.onClick = [&] { cancelled = true; };
  form.cmdOK.onClick = [&] {
    for (; rows < 1000 && !cancelled; ++rows) desktop.doEvents();
    form.close();
  };
  form.layOut(desktop);
  Steps user(desktop, {[&] { desktop.click(form.cmdOK); }});
  user.whileWorking = [&] {
    if (rows == 500) desktop.click(form.cmdCancel);
  };
  desktop.showModal(form);
  user.finish();
  EXPECT_EQ(rows, 501);
}

TEST_F(QtTest, NothingThrownPassesThroughQt) {
  SampleForm form;
  form.check.onClick = [] { throw Error(13, "Type mismatch"); };
  form.combo.onClick = [] { throw 7; };
  play(form, {[&] { desktop.click(form.check); },
              [&] {
                EXPECT_EQ(desktop.box()->text, "Type mismatch");
                desktop.answer(MessageResult::Ok);
              },
              [&] { desktop.choose(form.combo, 1); }, [&] { desktop.answer(MessageResult::Ok); }});
}

TEST_F(QtTest, TheEndOfTheApplicationClosesDialogs) {
  SampleForm form;
  form.layOut(desktop);
  QTimer::singleShot(0, [] { QApplication::exit(0); });
  QTimer::singleShot(0, [&] { desktop.showModal(form); });
  QApplication::exec();
  EXPECT_FALSE(form.isOpen());
}

}  // namespace vmgv
