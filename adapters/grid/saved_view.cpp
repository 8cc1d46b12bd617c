#include "adapters/grid/saved_view.h"

#include <algorithm>

#include "adapters/grid/saved_settings.h"
#include "adapters/grid/saved_text.h"
#include "support/automation/error.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

constexpr std::string_view kFirstLine = "grid view 1";

std::string keyText(const GridEngine& engine, std::int32_t column) {
  return quotedText(engine.column(column).key);
}

std::string columnLine(const GridEngine& engine, const GridState::Column& column) {
  std::string line = "column " + keyText(engine, column.index);
  if (column.width > 0) line += " width=" + std::to_string(column.width);
  return column.visible ? line : line + " hidden";
}

std::string orderLine(const GridEngine& engine, const char* kind, const SortKey& key) {
  return std::string(kind) + ' ' + keyText(engine, key.colIndex) +
         (key.sortOrder == kSortAscending ? " ascending" : " descending");
}

std::string conditionLine(const GridEngine& engine, const FormatCondition& condition) {
  std::string line = "condition " + quotedText(condition.name) +
                     " column=" + keyText(engine, condition.colIndex) +
                     " operator=" + std::to_string(condition.op) + " value1=" + savedValue(condition.value1) +
                     " value2=" + savedValue(condition.value2);
  const auto add = [&](const char* name, const auto& value, auto text) {
    if (value) line += ' ' + std::string(name) + '=' + text(*value);
  };
  const auto& style = condition.style;
  add("backColor", style.backColor, savedColor);
  add("foreColor", style.foreColor, savedColor);
  add("fontName", style.fontName, quotedText);
  add("fontSize", style.fontSize, savedNumber);
  add("fontBold", style.fontBold, savedFlag);
  add("fontItalic", style.fontItalic, savedFlag);
  add("fontUnderline", style.fontUnderline, savedFlag);
  add("fontStrikethru", style.fontStrikethru, savedFlag);
  return line;
}

// A saved view on its way into a state.
class Reader {
 public:
  Reader(const GridEngine& engine, Problems& problems)
      : engine_(engine), problems_(problems), state_(engine.state()) {
    before_ = std::move(state_.columns);
    state_.columns.clear();
    state_.sortKeys.clear();
    state_.groups.clear();
    state_.conditions.clear();
    state_.foreign.clear();
    state_.previewColumn = Null{};
  }

  void take(std::string_view line, std::size_t number);
  GridState finish();

 private:
  using Words = std::vector<SavedWord>;

  void tell(const std::string& what) { problems_.add("line " + std::to_string(number_), what); }
  // 0 where the grid has no such column: the line, which follows `fitting` ones of its kind, is kept then.
  std::int32_t column(const std::string& key, std::size_t fitting);
  void takeColumn(const Words& words);
  void takeKey(const Words& words, std::vector<SortKey>& keys);
  void takeCondition(const Words& words);
  bool takeConditionWord(const SavedWord& word, FormatCondition& condition);
  void takeSetting(const Words& words);

  const GridEngine& engine_;
  Problems& problems_;
  GridState state_;
  std::vector<GridState::Column> before_;
  std::string_view line_;
  std::string kind_;
  std::size_t number_ = 0;
};

void Reader::take(std::string_view line, std::size_t number) {
  line_ = line;
  number_ = number;
  const auto words = savedWords(line);
  if (!words) return tell("a quote is not closed");
  if (words->empty()) return;
  const std::string& kind = words->front().text;
  kind_ = kind;
  if (words->size() < 2) return tell("\"" + kind + "\" lacks what it is about");
  if (kind == "column") return takeColumn(*words);
  if (kind == "sort") return takeKey(*words, state_.sortKeys);
  if (kind == "group") return takeKey(*words, state_.groups);
  if (kind == "condition") return takeCondition(*words);
  if (kind == "set") return takeSetting(*words);
  if (kind != "preview") return tell("nothing is known of \"" + kind + '"');
  if (const std::int32_t index = column((*words)[1].text, 0); index != 0) state_.previewColumn = index;
}

std::int32_t Reader::column(const std::string& key, std::size_t fitting) {
  for (std::int32_t index = 1; index <= engine_.columnCount(); ++index) {
    if (engine_.column(index).key == key) return index;
  }
  tell("there is no column \"" + key + "\" now");
  const auto before = std::count_if(state_.foreign.begin(), state_.foreign.end(),
                                    [&](const GridState::Foreign& other) { return other.kind == kind_; });
  state_.foreign.push_back({kind_, fitting + static_cast<std::size_t>(before), std::string(line_)});
  return 0;
}

void Reader::takeColumn(const Words& words) {
  const std::int32_t index = column(words[1].text, state_.columns.size());
  if (index == 0) return;
  const bool twice = std::any_of(state_.columns.begin(), state_.columns.end(),
                                 [&](const GridState::Column& other) { return other.index == index; });
  if (twice) return tell("column \"" + words[1].text + "\" is there twice");
  GridState::Column column{index};
  for (std::size_t i = 2; i < words.size(); ++i) {
    const auto width = numberOfWord(words[i].text);
    if (words[i].name.empty() && words[i].text == "hidden") {
      column.visible = false;
    } else if (words[i].name == "width" && width && *width >= 0) {
      column.width = *width;
    } else {
      tell("\"" + words[i].text + "\" says nothing about a column");
    }
  }
  state_.columns.push_back(column);
}

void Reader::takeKey(const Words& words, std::vector<SortKey>& keys) {
  const std::int32_t index = column(words[1].text, keys.size());
  if (index == 0) return;
  const bool twice =
      std::any_of(keys.begin(), keys.end(), [&](const SortKey& other) { return other.colIndex == index; });
  if (twice) return tell("column \"" + words[1].text + "\" is there twice");
  const std::string order = words.size() > 2 ? words[2].text : "ascending";
  if (order != "ascending" && order != "descending") {
    tell("\"" + order + "\" is no direction; ascending was taken");
  }
  keys.push_back({index, order == "descending" ? kSortDescending : kSortAscending});
}

void Reader::takeCondition(const Words& words) {
  FormatCondition condition;
  condition.name = words[1].text;
  const bool taken = std::any_of(state_.conditions.begin(), state_.conditions.end(),
                                 [&](const SharedCondition& other) { return other->name == condition.name; });
  if (taken || condition.name.empty()) return tell("a format condition needs a name of its own");
  for (std::size_t i = 2; i < words.size(); ++i) {
    if (words[i].name == "column") {
      condition.colIndex = column(words[i].text, state_.conditions.size());
      if (condition.colIndex == 0) return;
    } else if (!takeConditionWord(words[i], condition)) {
      tell('"' + words[i].name + '=' + words[i].text + "\" says nothing about a condition");
    }
  }
  state_.conditions.emplace_back(std::move(condition));
}

bool Reader::takeConditionWord(const SavedWord& word, FormatCondition& condition) {
  FormatStyle& style = condition.style;
  const auto putValue = [&](Value& place) {
    auto value = valueOfWord(word.text);
    if (value) place = std::move(*value);
    return value.has_value();
  };
  if (word.name == "operator") {
    const auto op = numberOfWord(word.text);
    return op && *op >= 0 && *op <= kLastOperator && takeInto(condition.op, op);
  }
  if (word.name == "value1") return putValue(condition.value1);
  if (word.name == "value2") return putValue(condition.value2);
  if (word.name == "backColor") return takeInto(style.backColor, numberOfWord(word.text));
  if (word.name == "foreColor") return takeInto(style.foreColor, numberOfWord(word.text));
  if (word.name == "fontName") return style.fontName = word.text, true;
  if (word.name == "fontSize") return takeFontSize(style.fontSize, word.text);
  if (word.name == "fontBold") return takeInto(style.fontBold, flagOfWord(word.text));
  if (word.name == "fontItalic") return takeInto(style.fontItalic, flagOfWord(word.text));
  if (word.name == "fontUnderline") return takeInto(style.fontUnderline, flagOfWord(word.text));
  if (word.name == "fontStrikethru") return takeInto(style.fontStrikethru, flagOfWord(word.text));
  return false;
}

void Reader::takeSetting(const Words& words) {
  const std::string& name = words[1].text;
  if (!isSetting(name)) return tell("nothing is known of the setting \"" + name + '"');
  if (words.size() < 3 || !takeSavedSetting(state_.settings, name, words[2].text)) {
    tell("the setting \"" + name + "\" has no value that makes sense");
  }
}

GridState Reader::finish() {
  for (const GridState::Column& column : before_) {
    const bool named = std::any_of(state_.columns.begin(), state_.columns.end(),
                                   [&](const auto& other) { return other.index == column.index; });
    if (named) continue;
    problems_.add("column \"" + engine_.column(column.index).key + '"',
                  "the saved view does not know it; it comes last");
    state_.columns.push_back({column.index});
  }
  return std::move(state_);
}

}  // namespace

std::string savedView(const GridEngine& engine) {
  const GridState state = engine.state();
  std::string text(kFirstLine);
  text += '\n';
  const auto add = [&](const char* kind, const auto& items, auto lineOf) {
    std::vector<std::string> lines;
    lines.reserve(items.size());
    for (const auto& item : items) lines.push_back(lineOf(item));
    for (const GridState::Foreign& foreign : state.foreign) {
      if (foreign.kind != kind) continue;
      const auto place = std::min(foreign.position, lines.size());
      lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place), foreign.line);
    }
    for (const std::string& line : lines) text.append(line).append("\n");
  };
  add("column", state.columns, [&](const auto& column) { return columnLine(engine, column); });
  add("sort", state.sortKeys, [&](const SortKey& key) { return orderLine(engine, "sort", key); });
  add("group", state.groups, [&](const SortKey& group) { return orderLine(engine, "group", group); });
  add("condition", state.conditions,
      [&](const auto& condition) { return conditionLine(engine, *condition); });
  std::vector<std::int32_t> preview;
  if (const std::int32_t index = engine.previewColumnIndex(); index != 0) preview.push_back(index);
  add("preview", preview, [&](std::int32_t index) { return "preview " + keyText(engine, index); });
  for (const auto& [name, value] : savedSettings(state.settings)) text.append("set ").append(name).append(" ").append(value).append("\n");
  return text;
}

Problems restoreView(GridEngine& engine, std::string_view text) {
  const auto takeLine = [&] {
    const auto end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
  };
  if (!isUtf8(text) || takeLine() != kFirstLine) {
    throw Error(ErrorNumber::InvalidCall,
                "This is no saved view of a grid; the first line must be \"" + std::string(kFirstLine) + '"');
  }
  Problems problems;
  Reader reader(engine, problems);
  for (std::size_t number = 2; !text.empty(); ++number) reader.take(takeLine(), number);
  engine.setState(reader.finish());
  return problems;
}

}  // namespace vmgv
