// A good script with random damage: whatever it says then, it ends, and nothing stays open.
#include "tests/player/stage.h"

namespace vmgv {
namespace {

constexpr const char* kGood = R"(# a good script
call Echo 1 "two" 3.5
call ShowPlain
enter txtName "a \"b\" \\ c"
choose cboSort(0) origin_state
click cmdMessage
expect message "All\ndone."
answer ok
click cmdWork
click cmdOK
until prbar.value 50
click cmdCancel
form forms/plain.json
press txtName Enter
select 1 2
)";

std::string damaged(std::string text, std::mt19937& random) {
  const auto below = [&random](std::size_t n) { return random() % n; };
  for (std::size_t times = 1 + below(4); times > 0; --times) {
    const std::size_t at = below(text.size());
    const std::size_t line = text.rfind('\n', at) + 1;  // npos + 1 is 0
    const std::size_t end = std::min(text.find('\n', at), text.size() - 1) + 1;
    switch (below(5)) {
      case 0: text[at] = static_cast<char>(below(256)); break;
      case 1: text.erase(at, 1 + below(8)); break;
      case 2: text.insert(at, 1, "\" \\\n#.(0-"[below(9)]); break;
      case 3: text.insert(line, text.substr(line, end - line)); break;
      case 4: text.erase(line, end - line); break;
    }
    if (text.empty()) return " ";
  }
  return text;
}

TEST_F(PlayerTest, EveryDamagedScriptEnds) {
  playAll({{kGood, "", "Long, String, Double, worked to 50, ok 1, row 1, row 2"}});
  std::ifstream form(out_ / "forms" / "plain.json");
  const std::string json{std::istreambuf_iterator<char>(form), {}};
  EXPECT_NE(json.find(R"("text": "a \"b\" \\ c")"), std::string::npos) << json;

  std::mt19937 random(20240521);
  for (int i = 0; i < 500; ++i) {
    const std::string script = damaged(kGood, random);
    const int result = play(script);
    EXPECT_EQ(result == 0, error_.empty()) << script;
    EXPECT_LE(std::count(error_.begin(), error_.end(), '\n'), 1) << error_;
  }
}

}  // namespace
}  // namespace vmgv
