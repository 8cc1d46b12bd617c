// Where the help file is looked for and what is asked of it.
#include <gtest/gtest.h>

#include "support/help/help.h"
#include "tests/support/fake_system.h"

namespace vmgv {
namespace {

TEST(HelpFile, FolderIsReadOnceAndEndsInASeparator) {
  const struct {
    std::optional<std::string> setting;
    const char* folder;
  } cases[] = {{{}, "C:\\Common\\Velmora\\Help\\"},
               {"D:\\Help", "D:\\Help\\"},
               {"D:\\Help\\", "D:\\Help\\"},
               {"", "\\"}};
  for (const auto& c : cases) {
    FakeSystem system;
    system.helpFolder = c.setting;
    Help help(system);
    EXPECT_EQ(help.HelpFolder(), c.folder);
    system.helpFolder = "E:\\Later\\";
    EXPECT_EQ(help.HelpFolder(), c.folder);
    EXPECT_EQ(system.settingReads, 1);
  }
}

TEST(HelpFile, TopicsGetTheirExtension) {
  const struct {
    const char* topic;
    const char* windowType;
    const char* call;
  } cases[] = {{"gridViewsSorting", "", "D:\\VMgridViews.chm|0|gridViewsSorting.htm"},
               {"a.HTM", "", "D:\\VMgridViews.chm|0|a.HTM"},
               {"a.HtMl", "", "D:\\VMgridViews.chm|0|a.HtMl"},
               {"htm", "", "D:\\VMgridViews.chm|0|htm.htm"},
               {"a", "main", "D:\\VMgridViews.chm>main|0|a.htm"}};
  for (const auto& c : cases) {
    FakeSystem system;
    system.helpFolder = "D:";
    Help help(system);
    std::string topic = c.topic;
    help.ShowHelpTopic(topic, nullptr, c.windowType);
    EXPECT_EQ(system.helpCalls.at(0), c.call);
    EXPECT_TRUE(std::string(c.call).ends_with("|" + topic));  // the caller's text changed too
    EXPECT_EQ(help.helpWindow(), 42);
  }
}

TEST(HelpFile, Contents) {
  FakeSystem system;
  system.helpFolder = "D:";
  Help(system).ShowHelpContents(nullptr);
  EXPECT_EQ(system.helpCalls.at(0), "D:\\VMgridViews.chm|1|");
}

}  // namespace
}  // namespace vmgv
