#include "hosts/player/actions.h"

#include <algorithm>
#include <charconv>

#include "hosts/player/grid_report.h"
#include "hosts/player/paths.h"
#include "hosts/player/words.h"
#include "support/automation/convert.h"
#include "support/automation/error.h"
#include "support/forms/property_editor.h"
#include "support/frame/input_box.h"

namespace vmgv {
namespace {

constexpr const char* kDefaultWorkbook = "export.xlsx";

std::int32_t requireNumber(const Word& word, const char* what) {
  if (const auto number = wholeNumber(word)) return *number;
  throw CannotDo(std::string("expected ") + what + ", found " + quoted(word.text));
}

// A message's line breaks are those of its platform.
std::string withLineFeeds(std::string text) {
  std::erase(text, '\r');
  return text;
}

std::filesystem::file_time_type writtenAt(const std::filesystem::path& file) {
  std::error_code missing;
  return std::filesystem::last_write_time(file, missing);
}

int entryOf(const ListControl& list, const Word& word) {
  const auto& items = list.items();
  const auto found = std::find(items.begin(), items.end(), word.text);
  if (const auto index = wholeNumber(word)) return *index;
  if (found != items.end()) return static_cast<int>(found - items.begin());
  throw CannotDo(list.address() + " has no entry " + quoted(word.text) + " among its " +
                 std::to_string(items.size()));
}

}  // namespace

Actions::Actions(Stage stage, std::filesystem::path outFolder)
    : stage_(std::move(stage)), out_(std::move(outFolder)) {
  nameWorkbook(out_.path() / kDefaultWorkbook);
}

void Actions::nameWorkbook(std::filesystem::path file) {
  workbook_ = std::move(file);
  if (stage_.nameWorkbook) stage_.nameWorkbook(workbook_);
}

std::string Actions::whatIsOnTop() const {
  if (const Box* box = user().box()) {
    return box->kind == Box::Kind::Message ? "the message " + quoted(withLineFeeds(box->text))
                                           : std::string("a ") + nameOf(box->kind);
  }
  const Form* form = user().form();
  return form ? "dialog " + form->name() : "nothing open";
}

Form& Actions::topForm() const {
  if (Form* form = user().form()) return *form;
  throw CannotDo("expected a dialog, found " + whatIsOnTop());
}

ListControl& Actions::list(const Word& word) const {
  Control& found = control(word);
  if (auto* list = dynamic_cast<ListControl*>(&found)) return *list;
  throw CannotDo(found.address() + " is no list");
}

void Actions::call(Words words) {
  std::vector<Value> arguments;
  for (const Word& word : words.subspan(1)) arguments.push_back(valueOf(word));
  std::error_code ignored;  // where there can be no such folder, the export says so
  std::filesystem::create_directories(workbook_.parent_path(), ignored);
  const auto before = writtenAt(workbook_);
  Object& target = *stage_.control;
  target.invoke(target.member(words[0].text), Access::Call, arguments);
  // A name holds for one export.
  if (writtenAt(workbook_) != before) nameWorkbook(out_.path() / kDefaultWorkbook);
}

void Actions::set(Words words) {
  stage_.control.put(Member(std::string_view(words[0].text)), valueOf(words[1]));
}

void Actions::grid(Words words) {
  stage_.grid.put(Member(std::string_view(words[0].text)), valueOf(words[1]));
}

void Actions::select(Words words) {
  std::vector<std::int32_t> rows;
  const std::int32_t count = toLong(stage_.grid.get("RowCount"));
  for (const Word& word : words) {
    rows.push_back(requireNumber(word, "a row"));
    if (rows.back() < 1 || rows.back() > count) {
      throw CannotDo("expected a row from 1 to " + std::to_string(count) + ", found " + word.text);
    }
  }
  if (!stage_.selectRows) throw CannotDo("rows cannot be selected here");
  stage_.selectRows(rows);
}

void Actions::output(Words words) {
  if (!stage_.nameWorkbook) throw CannotDo("no workbook is written here");
  nameWorkbook(out_.file(words[0].text));
}

void Actions::layout(Words words) {
  out_.write(words[0].text, [this](std::ostream& out) { out << layoutJson(stage_.grid); });
}

void Actions::rows(Words words) {
  if (words.size() == 2) throw CannotDo("expected FIRST and LAST, found FIRST alone");
  const std::int32_t count = toLong(stage_.grid.get("RowCount"));
  std::int32_t first = 1, last = count;
  if (words.size() == 3) {
    first = requireNumber(words[1], "the first row");
    last = requireNumber(words[2], "the last row");
    if (first < 1 || last > count || first > last) {
      throw CannotDo("expected rows within 1 to " + std::to_string(count) + ", found " + words[1].text +
                     " to " + words[2].text);
    }
  }
  out_.write(words[0].text, [&](std::ostream& out) { writeRows(stage_.grid, first, last, out); });
}

void Actions::print(Words words) {
  if (!stage_.print) throw CannotDo("the grid cannot be printed here");
  stage_.print(out_.file(words[0].text));
}

void Actions::click(Words words) { user().click(control(words[0])); }
void Actions::doubleClick(Words words) {
  if (words.size() == 1) return user().doubleClick(control(words[0]));
  ListControl& clicked = list(words[0]);
  user().doubleClick(clicked, entryOf(clicked, words[1]));
}

void Actions::choose(Words words) {
  ListControl& chosen = list(words[0]);
  user().choose(chosen, entryOf(chosen, words[1]));
}

void Actions::enter(Words words) { user().enter(control(words[0]), words[1].text); }

void Actions::press(Words words) {
  const auto stroke = keyOf(words[1].text);
  if (!stroke)
    throw CannotDo("expected a key such as Enter, Esc, Down or Ctrl+A, found " + quoted(words[1].text));
  user().press(control(words[0]), stroke->key, stroke->shift);
}

void Actions::focus(Words words) { user().focus(control(words[0])); }

void Actions::resize(Words words) {
  const std::int32_t width = requireNumber(words[0], "a width in twips");
  user().resize({width, requireNumber(words[1], "a height in twips")});
}

// Typed and left; in a list the entry, or the first one that begins so, as typing finds it.
void Actions::edit(Words words) {
  const std::string &key = words[0].text, &text = words[1].text;
  for (const auto& control : topForm().controls()) {
    const auto* editor = dynamic_cast<PropertyEditor*>(control.get());
    if (!editor || !editor->find(key)) continue;
    Control& field = findControl(topForm(), editor->name() + "." + key);
    auto* list = dynamic_cast<ListControl*>(&field);
    if (!list) return user().enter(field, text);
    const auto& items = list->items();
    auto found = std::find(items.begin(), items.end(), text);
    if (found == items.end()) {
      found = std::find_if(items.begin(), items.end(),
                           [&text](const std::string& item) { return item.starts_with(text); });
    }
    if (found == items.end()) throw CannotDo(field.address() + " has no entry " + quoted(text));
    return user().choose(field, static_cast<int>(found - items.begin()));
  }
  throw CannotDo(topForm().name() + " has no property row " + key);
}

void Actions::close(Words) { user().closeWindow(); }

void Actions::form(Words words) {
  const std::string text = dump(topForm());
  out_.write(words[0].text, [&text](std::ostream& out) { out << text; });
}

Form* Actions::question() const {
  Form* form = user().form();
  return form && form->name() == InputBox::kFormName ? form : nullptr;
}

void Actions::answerQuestion(Form& form, const Word& word) {
  const bool cancels = isKeyword(word, "cancel");
  if (!cancels && !isKeyword(word, "ok")) user().enter(findControl(form, "txtAnswer"), word.text);
  user().click(findControl(form, cancels ? "cmdCancel" : "cmdOK"));
}

void Actions::answer(Words words) {
  if (Form* form = question()) return answerQuestion(*form, words[0]);
  if (!user().box()) throw CannotDo("expected a box, found " + whatIsOnTop());
  for (const auto& [name, result] : {std::pair{"yes", MessageResult::Yes},
                                     {"no", MessageResult::No},
                                     {"ok", MessageResult::Ok},
                                     {"cancel", MessageResult::Cancel}}) {
    if (isKeyword(words[0], name)) return user().answer(result);
  }
  throw CannotDo("expected yes, no, ok or cancel, found " + quoted(words[0].text));
}

// A relative name is a file of the output folder if there is one, else as the program itself finds it.
void Actions::pick(Words words) {
  if (isKeyword(words[0], "cancel")) return user().pick({});
  const std::filesystem::path given = pathOf(words[0].text);
  std::error_code unknown;
  const std::filesystem::path below = out_.path() / given;
  user().pick(pathText(std::filesystem::exists(below, unknown) ? below : given));
}

void Actions::colour(Words words) {
  if (isKeyword(words[0], "cancel")) return user().chooseColour({});
  const std::string& digits = words[0].text;
  constexpr std::size_t kDigits = 6;
  int rgb = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stopped, failed] = std::from_chars(digits.data(), end, rgb, 16);
  if (failed != std::errc() || stopped != end || digits.size() != kDigits || rgb < 0) {
    throw CannotDo("expected a colour as RRGGBB or cancel, found " + quoted(digits));
  }
  user().chooseColour(colourOf(rgb >> 16, rgb >> 8 & 0xFF, rgb & 0xFF));
}

void Actions::expect(Words words) {
  if (isKeyword(words[0], "message")) return expectMessage(words[1].text);
  const std::string found = propertyText(topForm(), PropertyName::from(words[0].text));
  if (found == words[1].text) return;
  throw CannotDo("expected " + words[0].text + " " + quoted(words[1].text) + ", found " + quoted(found));
}

void Actions::expectMessage(const std::string& text) {
  const Form* asked = question();
  if (asked && findControl(*asked, "lbPrompt").caption() == text) return;
  const Box* box = user().box();
  if (box && box->kind == Box::Kind::Message && withLineFeeds(box->text) == text) return;
  throw CannotDo("expected the message " + quoted(text) + ", found " + whatIsOnTop());
}

void Actions::picture(Words words) { user().picture(pathText(out_.file(words[0].text))); }

}  // namespace vmgv
