// The help pages: links lead somewhere, and what the pages call a control or a message is what the user sees.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/strings/format_message.h"
#include "support/strings/string_module.h"

namespace vmgv {
namespace {

namespace fs = std::filesystem;

// The page on one line.
std::string contents(const fs::path& path) {
  std::ifstream file(path);
  std::string text{std::istreambuf_iterator<char>(file), {}};
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

std::vector<fs::path> pages(const char* language) {
  std::vector<fs::path> found;
  for (const auto& entry : fs::directory_iterator(fs::path(HELP_FOLDER) / language)) {
    if (entry.path().extension() == ".htm") found.push_back(entry.path());
  }
  return found;
}

// What stands between each `before` and the next `after` in the page.
std::vector<std::string> findAll(const fs::path& page, std::string_view before, std::string_view after) {
  const std::string text = contents(page);
  std::vector<std::string> found;
  for (std::size_t at = 0; (at = text.find(before, at)) != text.npos;) {
    at += before.size();
    found.push_back(text.substr(at, text.find(after, at) - at));
  }
  return found;
}

// As the reader sees it.
std::string unescaped(std::string text) {
  for (const auto& [entity, sign] : {std::pair{"&lt;", "<"}, {"&gt;", ">"}}) {
    for (std::size_t at = 0; (at = text.find(entity, at)) != text.npos;) text.replace(at, 4, sign);
  }
  return text;
}

TEST(HelpPages, LinksLeadToPagesAndPlacesThatExist) {
  int links = 0;
  for (const char* language : {"en", "el"}) {
    for (const fs::path& page : pages(language)) {
      for (const std::string& link : findAll(page, "href=\"", "\"")) {
        ++links;
        const auto hash = link.find('#');
        const fs::path target = page.parent_path() / link.substr(0, hash);
        EXPECT_TRUE(fs::is_regular_file(target)) << page << ": " << link;
        if (hash == link.npos) continue;
        const auto places = findAll(target, "id=\"", "\"");
        EXPECT_EQ(std::count(places.begin(), places.end(), link.substr(hash + 1)), 1) << page << ": " << link;
      }
    }
  }
  EXPECT_GT(links, 0);
}

TEST(HelpPages, BothLanguagesHaveTheSamePagesAndPlaces) {
  const auto places = [](const char* language) {
    std::set<std::string> found;
    for (const fs::path& page : pages(language)) {
      found.insert(page.filename());
      for (const auto& id : findAll(page, "id=\"", "\"")) found.insert(page.filename().string() + "#" + id);
    }
    return found;
  };
  EXPECT_EQ(places("en"), places("el"));
}

TEST(HelpPages, NameControlsAndMessagesAsTheUserSeesThem) {
  const std::pair<const char*, LanguageId> languages[]{{"en", kEnglish}, {"el", kGreek}};
  for (const auto& [folder, language] : languages) {
    EmbeddedStringService service;
    service.setLanguage(language);
    MlStringModule module(service);
    std::set<std::string> captions{"..."};  // of the button that picks a file
    std::string messages;
    for (int id = 0; id < 200; ++id) {
      const std::string text = module.GetResString(id);
      captions.insert(text);
      messages += FormatMessage(text, {"..."}) + "\n";
    }
    for (const fs::path& page : pages(folder)) {
      for (const auto& name : findAll(page, "<b>", "</b>")) {
        EXPECT_TRUE(captions.contains(unescaped(name))) << page << ": no control is called " << name;
      }
      for (const auto& message : findAll(page, "<th>", "</th>")) {
        EXPECT_NE(messages.find(message), messages.npos) << page << ": no message says " << message;
      }
    }
  }
}

}  // namespace
}  // namespace vmgv
