// Modal life: forms over forms, boxes over forms, and nothing that waits for ever.
#include <filesystem>
#include <fstream>

#include "support/automation/error.h"
#include "tests/headless/fixture.h"

namespace vmgv {
namespace {

using BoxesTest = HeadlessTest;

TEST_F(BoxesTest, WithoutAUserEverythingEnds) {
  SampleForm form;
  desktop.showModal(form);
  EXPECT_FALSE(form.isOpen());
  EXPECT_EQ(desktop.messageBox("done", MessageStyle::Information, "t"), MessageResult::Ok);
  EXPECT_EQ(desktop.messageBox("sure?", MessageStyle::Question, ""), MessageResult::No);
  EXPECT_EQ(desktop.pickFile({}), std::nullopt);
  desktop.doEvents();
  ASSERT_EQ(desktop.boxes().size(), 3u);
  EXPECT_EQ(desktop.boxes()[1].text, "sure?");
  EXPECT_EQ(desktop.form(), nullptr);
  EXPECT_EQ(desktop.box(), nullptr);
}

TEST_F(BoxesTest, AFormThatRefusesToCloseIsGivenUp) {
  SampleForm form;
  form.onCloseByUser = [] {};
  EXPECT_THROW(desktop.showModal(form), Error);
  EXPECT_FALSE(form.isOpen());
  EXPECT_EQ(desktop.form(), nullptr);
}

TEST_F(BoxesTest, OnlyTheTopmostThingCanBeActedOn) {
  SampleForm form;
  MessageResult answer = MessageResult::Cancel;
  form.cmdHelp.onClick = [&] { answer = desktop.messageBox("sure?", MessageStyle::Question, "title"); };
  play(form, {
                 [&] { desktop.click(form.cmdHelp); },
                 [&] {
                   EXPECT_EQ(desktop.form(), nullptr);
                   EXPECT_EQ(desktop.box()->title, "title");
                   EXPECT_THROW(desktop.click(form.cmdOK), CannotDo);
                   EXPECT_THROW(desktop.closeWindow(), CannotDo);
                   EXPECT_THROW(desktop.answer(MessageResult::Ok), CannotDo);
                   desktop.answer(MessageResult::Yes);
                 },
                 [&] {
                   EXPECT_EQ(answer, MessageResult::Yes);
                   desktop.click(form.cmdOK);
                 },
             });
}

TEST_F(BoxesTest, AFormIsShownOnceAtATime) {
  SampleForm form;
  play(form, {[&] {
         try {
           desktop.showModal(form);
           ADD_FAILURE();
         } catch (const Error& error) {
           EXPECT_EQ(error.number(), 400);
         }
       }});
}

TEST_F(BoxesTest, FilePickersTakeExistingFiles) {
  const auto file = std::filesystem::temp_directory_path() / "vmg_headless_pick.xls";
  std::ofstream(file) << "x";
  Steps steps(desktop, {
                           [&] { EXPECT_THROW(desktop.pick("/no/such/file"), CannotDo); },
                           [&] { desktop.pick(file.string()); },
                       });
  EXPECT_EQ(desktop.pickFile({}), file.string());
  steps.finish();
  std::filesystem::remove(file);
}

TEST_F(BoxesTest, AFailingStepEndsThePlayAndIsTold) {
  SampleForm form;
  EXPECT_THROW(play(form, {[] { throw CannotDo("x"); }, [] { FAIL() << "nothing follows a failure"; }}),
               CannotDo);
  EXPECT_FALSE(form.isOpen());
  SampleForm other;
  EXPECT_THROW(play(other, {[&] { other.close(); }, [] {}}), std::logic_error) << "a step is left";
}

TEST_F(BoxesTest, LongOperationsLetTheUserIn) {
  SampleForm form;
  int rows = 0;
  bool cancelled = false;
  form.cmdCancel.onClick = [&] { cancelled = true; };
  form.cmdOK.onClick = [&] {
    for (; rows < 100 && !cancelled; ++rows) desktop.doEvents();
    form.close();
  };
  Steps steps(desktop, {[&] { desktop.click(form.cmdOK); }});
  steps.whileWorking = [&] {
    if (rows == 10) desktop.click(form.cmdCancel);
  };
  desktop.showModal(form);
  steps.finish();
  EXPECT_EQ(rows, 11);
}

TEST(HeadlessSystem, AnswersWhatItWasTold) {
  HeadlessDesktop desktop;
  EXPECT_EQ(desktop.desktopFonts()->at(3).height, -12);
  desktop.setScale(200);
  EXPECT_EQ(desktop.desktopFonts()->at(3).height, -24);
  EXPECT_EQ(desktop.pixelsPerInch(), 192);
  desktop.setDesktopFonts({});
  EXPECT_FALSE(desktop.desktopFonts());

  SettingsFile settings;
  settings.set("Key", "name", "value");
  desktop.setSettings(settings);
  EXPECT_EQ(desktop.setting("key", "NAME", "default"), "value");
  EXPECT_EQ(desktop.setting("key", "other", "default"), "default");

  EXPECT_EQ(desktop.openHelp(nullptr, "a.chm", HelpCommand::Topic, "t.htm"), 0);
  ASSERT_EQ(desktop.helpCalls().size(), 1u);
  EXPECT_EQ(desktop.helpCalls()[0].topic, "t.htm");

  EXPECT_THROW(desktop.createObject("Excel.Application"), Error);
  desktop.objectFactory = [](const std::string&) { return ObjectRef(); };
  EXPECT_THROW(desktop.createObject("Excel.Application"), Error);
  EXPECT_THROW(desktop.picture("x.png"), Error);
}

}  // namespace
}  // namespace vmgv
