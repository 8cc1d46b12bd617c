// Modal life: forms over forms, boxes over forms, long work, and nothing that waits for ever.
#include <QAbstractButton>
#include <QFileInfo>
#include <QMessageBox>
#include <QTemporaryFile>
#include <QTimer>

#include "support/automation/error.h"
#include "support/strings/string_service.h"
#include "tests/qt/fixture.h"

namespace vmgv {
namespace {

using BoxesTest = QtTest;

TEST_F(BoxesTest, WhenNobodyActsAnyMoreEverythingEnds) {
  SampleForm form;
  play(form, {});
  EXPECT_FALSE(form.isOpen());
  EXPECT_EQ(form.events, "") << "closed as by the title bar, not by a button";
  Steps nobody(desktop, {});
  EXPECT_EQ(desktop.messageBox("done", MessageStyle::Information, ""), MessageResult::Ok);
  EXPECT_EQ(desktop.messageBox("sure?", MessageStyle::Question, ""), MessageResult::No);
  EXPECT_EQ(desktop.pickFile({}), std::nullopt);
  EXPECT_EQ(desktop.form(), nullptr);
  EXPECT_EQ(desktop.box(), nullptr);

  SampleForm stubborn;
  stubborn.onCloseByUser = [] {};
  EXPECT_THROW(desktop.showModal(stubborn), Error);
  EXPECT_FALSE(stubborn.isOpen());
}

TEST_F(BoxesTest, OnlyTheTopmostThingCanBeActedOn) {
  SampleForm below, above;
  MessageResult answer = MessageResult::Cancel;
  below.cmdBrowse.onClick = [&] { desktop.showModal(above); };
  above.cmdBrowse.onClick = [&] { answer = desktop.messageBox("sure?", MessageStyle::Question, "title"); };
  above.layOut(desktop);
  play(below, {
                  [&] { desktop.click(below.cmdBrowse); },
                  [&] {
                    EXPECT_EQ(desktop.form(), &above);
                    EXPECT_THROW(desktop.click(below.cmdOK), CannotDo);
                    EXPECT_THROW(desktop.showModal(below), Error);
                    desktop.click(above.cmdBrowse);
                  },
                  [&] {
                    EXPECT_EQ(desktop.form(), nullptr);
                    EXPECT_EQ(desktop.box()->title, "title");
                    EXPECT_THROW(desktop.click(above.cmdOK), CannotDo);
                    EXPECT_THROW(desktop.answer(MessageResult::Ok), CannotDo);
                    desktop.answer(MessageResult::Yes);
                  },
                  [&] { desktop.click(above.cmdOK); },
                  [&] { desktop.closeWindow(); },
              });
  EXPECT_EQ(answer, MessageResult::Yes);
  EXPECT_EQ(above.events, "ok");
  EXPECT_EQ(below.events, "");
}

TEST_F(BoxesTest, MessagesSpeakTheLanguageOfTheProcess) {
  const struct {
    LanguageId language;
    QStringList buttons;
  } cases[] = {{kEnglish, {"Yes", "No"}}, {kGreek, {"Ναι", "Όχι"}}};
  for (const auto& each : cases) {
    processStringService().setLanguage(each.language);
    QStringList found;
    Steps user(desktop, {[&] {
                 auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                 ASSERT_TRUE(box);
                 EXPECT_EQ(box->text(), "<b>1 < 2</b> & so");
                 EXPECT_EQ(box->icon(), QMessageBox::Question);
                 for (const QAbstractButton* button : box->buttons()) found << button->text();
                 desktop.answer(MessageResult::No);
               }});
    EXPECT_EQ(desktop.messageBox("<b>1 < 2</b> & so", MessageStyle::Question, ""), MessageResult::No);
    user.finish();
    found.sort();
    QStringList expected = each.buttons;
    expected.sort();
    EXPECT_EQ(found, expected);
  }
}

TEST_F(BoxesTest, ThePickerGivesFilesThatExist) {
  QTemporaryFile file(QStringLiteral("XXXXXX.xls"));
  ASSERT_TRUE(file.open());
  const FileRequest request{
      "", {{"Excel Files (*.xls)", "*.xls"}, {"Excel Template Files (*.xlt)", "*.xlt"}}, "xls"};
  Steps user(desktop, {
                          [&] {
                            EXPECT_EQ(desktop.box()->files.filters.size(), 2u);
                            EXPECT_THROW(desktop.pick("/no/such/file"), CannotDo);
                            EXPECT_THROW(desktop.pick("/"), CannotDo);
                          },
                          [&] { desktop.pick(utf8(file.fileName())); },
                          [&] { desktop.pick(std::nullopt); },
                      });
  EXPECT_EQ(desktop.pickFile(request), utf8(QFileInfo(file.fileName()).absoluteFilePath()));
  EXPECT_EQ(desktop.pickFile(request), std::nullopt);
  user.finish();
}

TEST_F(BoxesTest, LongWorkLetsTheUserIn) {
  SampleForm form;
  int rows = 0, timers = 0;
  bool cancelled = false;
  QTimer host;  // a host's own timer may fire inside a yield, and yield itself
  QObject::connect(&host, &QTimer::timeout, [&] {
    ++timers;
    desktop.doEvents();
  });
  host.start(0);
  form.cmdCancel.onClick = [&] { cancelled = true; };
  form.cmdOK.onClick = [&] {
    for (; rows < 100'000 && !cancelled; ++rows) {
      form.bar.setValue(rows % 100);
      desktop.doEvents();
    }
    form.close();
  };
  form.layOut(desktop);
  Steps user(desktop, {[&] { desktop.click(form.cmdOK); }});
  user.whileWorking = [&] {
    if (rows == 50'000) desktop.click(form.cmdCancel);
  };
  desktop.showModal(form);
  user.finish();
  EXPECT_EQ(rows, 50'001);
  EXPECT_GT(timers, 0);
}

TEST_F(BoxesTest, NothingThrownPassesThroughQt) {
  SampleForm form;
  form.check.onClick = [] { throw Error(13, "Type mismatch"); };
  form.combo.onClick = [] { throw 7; };
  play(form, {
                 [&] { desktop.click(form.check); },
                 [&] {
                   ASSERT_NE(desktop.box(), nullptr);
                   EXPECT_EQ(desktop.box()->text, "Type mismatch");
                   EXPECT_EQ(desktop.box()->style, MessageStyle::Critical);
                   desktop.answer(MessageResult::Ok);
                 },
                 [&] { desktop.choose(form.combo, 1); },
                 [&] { desktop.answer(MessageResult::Ok); },
                 [&] { desktop.click(form.cmdOK); },
             });
  EXPECT_EQ(form.events, "ok");
}

TEST_F(BoxesTest, TheEndOfTheApplicationClosesDialogs) {
  SampleForm form;
  form.layOut(desktop);
  QTimer::singleShot(0, [] { QApplication::exit(0); });
  QTimer::singleShot(0, [&] { desktop.showModal(form); });
  QApplication::exec();
  EXPECT_FALSE(form.isOpen());
}

}  // namespace
}  // namespace vmgv
