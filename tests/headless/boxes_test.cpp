// Modal life: forms over forms, boxes over forms, and nothing that waits for ever.
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
  EXPECT_EQ(desktop.boxes().at(1).text, "sure?");
  EXPECT_FALSE(desktop.confirm(Box::Kind::Print));

  SampleForm stubborn;
  stubborn.onCloseByUser = [] {};
  EXPECT_THROW(desktop.showModal(stubborn), Error);
  EXPECT_FALSE(stubborn.isOpen());
}

TEST_F(BoxesTest, OnlyTheTopmostThingCanBeActedOn) {
  SampleForm form;
  MessageResult answer = MessageResult::Cancel;
  form.cmdHelp.onClick = [&] { answer = desktop.messageBox("sure?", MessageStyle::Question, "title"); };
  play(form, {
                 [&] { desktop.click(form.cmdHelp); },
                 [&] {
                   EXPECT_THROW(desktop.click(form.cmdOK), CannotDo);
                   EXPECT_THROW(desktop.showModal(form), Error) << "it is shown already";
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

TEST_F(BoxesTest, PrintingTakesOkAndCancel) {
  SampleForm form;
  std::string answers;
  form.cmdHelp.onClick = [&] {
    for (const auto kind : {Box::Kind::PageSetup, Box::Kind::Print}) {
      answers += desktop.confirm(kind) ? "ok " : "cancel ";
    }
  };
  play(form, {
                 [&] { desktop.click(form.cmdHelp); },
                 [&] {
                   EXPECT_THROW(desktop.answer(MessageResult::Yes), CannotDo);
                   EXPECT_THROW(desktop.pick({}), CannotDo);
                   desktop.answer(MessageResult::Ok);
                 },
                 [&] { desktop.answer(MessageResult::Cancel); },
                 [&] { desktop.click(form.cmdOK); },
             });
  EXPECT_EQ(answers, "ok cancel ");
}

}  // namespace
}  // namespace vmgv
