#include "frontends/common/settings_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

namespace vmgv {
namespace {

class SettingsFileTest : public testing::Test {
 protected:
  SettingsFileTest() { std::filesystem::create_directories(folder_); }
  ~SettingsFileTest() override { std::filesystem::remove_all(folder_); }

  std::filesystem::path write(const std::string& name, const std::string& text) {
    std::ofstream(folder_ / name, std::ios::binary) << text;
    return folder_ / name;
  }

  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("vmg_settings_" + std::to_string(std::random_device{}()));
};

TEST_F(SettingsFileTest, ReadsValues) {
  struct {
    const char* text;
    const char* expected;
    std::size_t messages;
  } const cases[]{
      {"\xEF\xBB\xBF[SOFTWARE\\Velmora\\Common]\r\nhelpFolder=/help\r\n", "/help", 0},
      {"# c\n; c\n\n[software\\velmora\\common]\nHELPFOLDER = /a = b # c \n", "/a = b # c", 0},
      {"[SOFTWARE\\Velmora\\Common]\nhelpFolder = /a\nhelpFolder = /βοήθεια\n", "/βοήθεια", 0},
      {"helpFolder = /help\n", "default", 1},
      {"[SOFTWARE\\Velmora\\Common\nhelpFolder = /help\n", "default", 2},
      {"[SOFTWARE\\Velmora\\Common]\nnonsense\n= x\nhelpFolder = /help\n", "/help", 2},
      {"[SOFTWARE\\Velmora\\Common]\nhelpFolder = /\xFF\n", "default", 1},
  };
  for (const auto& c : cases) {
    const auto settings = SettingsFile::readFirst({folder_ / "missing", write("settings", c.text)});
    EXPECT_EQ(settings.value("SOFTWARE\\Velmora\\Common", "helpFolder", "default"), c.expected) << c.text;
    EXPECT_EQ(settings.messages().size(), c.messages) << c.text;
  }
}

TEST_F(SettingsFileTest, SaysWhatItCannotRead) {
  using Messages = std::vector<std::string>;
  const auto file = write("bad", "[a]\nb = c\nnul = \n" + std::string("x = \0y\n", 7));
  const auto large = write("large", std::string((1 << 20) + 1, 'x'));
  EXPECT_EQ(SettingsFile::readFirst({file}).messages(), Messages{file.string() + ":4: not UTF-8 text"});
  EXPECT_EQ(SettingsFile::readFirst({folder_}).messages(), Messages{folder_.string() + ": not a file"});
  EXPECT_EQ(SettingsFile::readFirst({large}).messages(), Messages{large.string() + ": larger than 1 MB"});
}

}  // namespace
}  // namespace vmgv
