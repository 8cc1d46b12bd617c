#include "dialogs/conditions/frm_form_conditions.h"

#include <algorithm>
#include <utility>

#include "dialogs/conditions/rule_rows.h"
#include "support/automation/convert.h"
#include "support/errors/errors.h"
#include "support/frame/input_box.h"
#include "support/strings/format_message.h"

namespace vmgv {
namespace {

using State = ToolButton::State;

struct Toggle {
  ToolButton::Picture picture;
  Text toolTip;
  const char* styleMember;
  const char* fontMember;
};
constexpr std::array<Toggle, 4> kToggleButtons{{
    {ToolButton::Picture::Bold, Text::Bold, "FontBold", "bold"},
    {ToolButton::Picture::Italic, Text::Italics, "FontItalic", "italic"},
    {ToolButton::Picture::Underline, Text::Underline, "FontUnderline", "underline"},
    {ToolButton::Picture::Strikeout, Text::Strikethrough, "FontStrikethru", "Strikethrough"},
}};
constexpr int kFirstOperator = static_cast<int>(Text::EqualTo), kOperators = 10;
constexpr std::int32_t kBetween = 6, kNotBetween = 7;  // the operators with two operands
constexpr std::int32_t kColumnOfNewRule = 1;
constexpr auto kA = static_cast<Key>('A');

bool usesSecondValue(std::int32_t op) noexcept { return op == kBetween || op == kNotBetween; }

// Sets a flag as long as it lives.
class Flag {
 public:
  explicit Flag(bool& flag) noexcept : flag_(flag) { flag_ = true; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;
  ~Flag() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace

frmFormConditions::frmFormConditions(Services& services)
    : Dialog(services, "frmFormConditions", "gridViewsConditions") {
  smuToolbar_ = &form_.add<Toolbar>("smuToolbar");
  ToolButton& add = smuToolbar_->addButton("add");
  add.shortcut = {kA, kControl};
  add.onClick = [this] { reporting(services_.window, [this] { addRule(); }); };
  ToolButton& remove = smuToolbar_->addButton("delete");
  remove.picture = ToolButton::Picture::Delete;
  remove.onClick = [this] { reporting(services_.window, [this] { removeRule(); }); };

  smuList_ = &form_.add<ListBox>("smuList");
  paintSelected(SystemColour::ButtonFace, SystemColour::ButtonText);
  smuList_->onClick = [this] { reporting(services_.window, [this] { showSelected(); }); };
  smuList_->onKeyDown = [this](Key key, int shift) {
    if (key != Key::Delete || shift != 0) return false;
    reporting(services_.window, [this] { removeRule(); });
    return true;
  };
  smuList_->onGotFocus = [this] { paintSelected(SystemColour::Highlight, SystemColour::HighlightText); };
  smuList_->onLostFocus = [this] { paintSelected(SystemColour::ButtonFace, SystemColour::ButtonText); };
  addProperties();

  cmdOK_ = &form_.add<CommandButton>("cmdOk");
  cmdOK_->setCaption("OK");
  cmdOK_->isDefault = cmdOK_->isCancel = true;
  cmdOK_->onClick = [this] { closeBy(*cmdOK_); };
  form_.onCloseByUser = [this] { closeBy(*cmdOK_); };
  layout::Node closing = layout::buttons({cmdOK_, &addHelpButton()});

  layout::Node rules = layout::column({layout::item(*smuToolbar_), layout::item(*smuList_).stretch()});
  layout::Node halves = layout::row({std::move(rules), layout::item(*smuProperties_)}).gap(2);
  form_.content = layout::column({std::move(halves), std::move(closing)}).gap(2);
  form_.initialFocus = smuList_;
}

void frmFormConditions::addProperties() {
  smuProperties_ = &form_.add<PropertyEditor>("smuProperties");
  PropertyEditor& editor = *smuProperties_;
  rows_.condition = &editor.addHeading();
  rows_.column = &editor.addList("column");
  rows_.op = &editor.addList("operator");
  rows_.value1 = &editor.addText("value1");
  rows_.value2 = &editor.addText("value2");
  rows_.settings = &editor.addHeading();
  rows_.backColour = &editor.addColour("backcolor");
  rows_.foreColour = &editor.addColour("forecolor");
  rows_.font = &editor.addList("font");
  rows_.fontSize = &editor.addText("fontsize");
  smuFont_ = &editor.host("smuFont");
  for (std::size_t i = 0; i < kToggleButtons.size(); ++i) {
    ToolButton& button = smuFont_->addButton();
    button.picture = kToggleButtons[i].picture;
    button.toggles = true;
    button.onClick = [this, i] { reporting(services_.window, [this, i] { writeToggle(i); }); };
  }
  editor.onRowChanged = [this](const PropertyRow& row, const std::string& text) {
    reporting(services_.window, [&] { writeChoice(row, text); });
  };
  editor.onRowValidating = [this](PropertyRow& row) {
    std::optional<bool> accepted;
    reporting(services_.window, [&] { accepted = writeText(row); });
    if (!accepted) row.drop();  // it could not be written, and has been told
    return accepted.value_or(false);
  };
  editor.onRowButton = [this](PropertyRow& row) { reporting(services_.window, [&] { pickColour(row); }); };
}

void frmFormConditions::ShowConditions(const ObjectRef& editor) {
  editor_ = editor;
  grid_ = editor_.object("Grid");
  load();
  fill();
  showModal();
  dropReferences();
}

void frmFormConditions::setCaptions() {
  caption(form_, Text::ViewConditions);
  caption(*smuProperties_, Text::Properties);
  smuList_->setAccessibleName(form_.caption());
  std::vector<std::string> operators;
  operators.reserve(kOperators);
  for (int i = 0; i < kOperators; ++i) operators.push_back(text(static_cast<Text>(kFirstOperator + i)));
  rows_.op->setEntries(operators);
  rows_.op->setValue(operators.front());
  for (const auto& [row, id] : {std::pair{rows_.condition, Text::IfConditionHolds},
                                {rows_.column, Text::ColumnRow},
                                {rows_.op, Text::OperatorRow},
                                {rows_.value1, Text::Value1Row},
                                {rows_.value2, Text::Value2Row},
                                {rows_.settings, Text::RecordSettings},
                                {rows_.backColour, Text::BackColourRow},
                                {rows_.foreColour, Text::ForeColourRow},
                                {rows_.font, Text::FontRow},
                                {rows_.fontSize, Text::FontSizeRow}}) {
    row->setCaption(text(id));
  }
  const auto name = [this](ToolButton& button, Text id) {
    button.setToolTip(text(id));
    button.setAccessibleName(button.toolTip());
  };
  for (std::size_t i = 0; i < kToggleButtons.size(); ++i) {
    name(*smuFont_->buttons()[i], kToggleButtons[i].toolTip);
  }
  ToolButton& add = *smuToolbar_->buttons()[0];
  caption(add, Text::Add);
  add.setToolTip(text(Text::AddTip));
  name(*smuToolbar_->buttons()[1], Text::Delete);
}

void frmFormConditions::fill() {
  const Flag loading(loading_);
  std::vector<std::string> fonts = services_.system.screenFonts();
  fonts.insert(fonts.begin(), std::string());
  rows_.font->setEntries(std::move(fonts));

  const ObjectRef conditions = grid_.object("FmtConditions");
  const Member name("Name");
  const std::int32_t count = toLong(conditions.get("Count"));
  for (std::int32_t i = 1; i <= count; ++i) smuList_->addItem(toText(conditions.item(i).object().get(name)));
  if (count > 0) smuList_->setListIndex(0);
  enableProperties();

  const ObjectRef columns = grid_.object("Columns");
  std::vector<std::string> entries;
  for (std::int32_t i = 1, all = toLong(columns.get("Count")); i <= all; ++i) {
    const ObjectRef column = columns.item(i).object();
    entries.push_back(numberedChoice(toLong(column.get("Index")), toText(column.get("Caption"))));
  }
  rows_.column->setEntries(std::move(entries));
  services_.window.doEvents();
}

void frmFormConditions::enableProperties() { smuProperties_->setEnabled(smuList_->listCount() > 0); }

void frmFormConditions::showSelected() {
  const Flag loading(loading_);
  emptyRows();  // where a step fails, no row shows the value of another rule
  paintSelected(SystemColour::Highlight, SystemColour::HighlightText);
  showRule(grid_.object("FmtConditions").item(smuList_->listIndex() + 1).object());
}

void frmFormConditions::emptyRows() {
  for (PropertyRow* row : {rows_.column, rows_.op, rows_.value1, rows_.value2, rows_.font, rows_.fontSize}) {
    row->setValue({});
  }
  for (const PropertyRow* row : {rows_.backColour, rows_.foreColour}) {
    row->colour().setColours(colourOf(SystemColour::Window), 0);
  }
  for (ToolButton* button : smuFont_->buttons()) button->setState(State::NotSet);
}

void frmFormConditions::showRule(const ObjectRef& condition) {
  const std::int32_t column = toLong(condition.get("ColIndex"));
  const std::string caption = toText(grid_.object("Columns").item(column).object().get("Caption"));
  rows_.column->setValue(numberedChoice(column, caption));
  const std::int32_t op = toLong(condition.get("Operator"));
  if (op < 0 || op >= kOperators) throw Error(ErrorNumber::SubscriptOutOfRange);
  rows_.op->setValue(rows_.op->entries()[static_cast<std::size_t>(op)]);
  rows_.value1->setValue(operandText(condition.get("Value1")));
  rows_.value2->setValue(operandText(condition.get("Value2")));
  const ObjectRef style = condition.object("FormatStyle");
  showColours(style);
  showFont(style);
  rows_.value2->setEnabled(usesSecondValue(op));
}

// What equals the grid's own colour is not set: the swatch is empty then. A set text colour keeps the grid's
// background as its row's value.
void frmFormConditions::showColours(const ObjectRef& style) {
  const Colour empty = colourOf(SystemColour::Window);
  const Colour back = toLong(style.get("BackColor")), gridBack = toLong(grid_.get("BackColor"));
  const Colour gridFore = toLong(grid_.get("ForeColor"));
  if (back != gridBack) {
    rows_.backColour->colour().setColours(back, back);
  } else {
    rows_.backColour->colour().setColours(empty, gridFore);
  }
  const Colour fore = toLong(style.get("ForeColor"));
  if (fore != gridFore) {
    rows_.foreColour->colour().setColours(fore, gridBack);
  } else {
    rows_.foreColour->colour().setColours(empty, gridFore);
  }
}

void frmFormConditions::showFont(const ObjectRef& style) {
  const ObjectRef font = grid_.object("Font");
  const std::string name = toText(style.get("FontName"));
  if (name != toText(font.get("name"))) rows_.font->setValue(name);
  const Value size = style.get("FontSize");
  if (toDouble(size) != toDouble(font.get("size"))) rows_.fontSize->setValue(toText(size));
  for (std::size_t i = 0; i < kToggleButtons.size(); ++i) {
    const bool on = toBoolean(style.get(Member(kToggleButtons[i].styleMember)));
    if (on == toBoolean(font.get(Member(kToggleButtons[i].fontMember)))) continue;
    smuFont_->buttons()[i]->setState(on ? State::On : State::Off);
  }
}

ObjectRef frmFormConditions::selectedRule() const {
  return grid_.object("FmtConditions").item(smuList_->text()).object();
}

void frmFormConditions::writeChoice(const PropertyRow& row, const std::string& text) {
  if (ignoresEdits()) return;
  const ObjectRef rule = selectedRule();
  if (&row == rows_.column) {
    rule.put("ColIndex", numberOfChoice(text));
  } else if (&row == rows_.op) {
    const std::int32_t op = toLong(Value(text.substr(0, 1)));
    rule.put("Operator", static_cast<std::int16_t>(op));
    rows_.value2->setEnabled(usesSecondValue(op));
  } else if (&row == rows_.font) {
    rule.object("FormatStyle").put("FontName", text.empty() ? grid_.object("Font").get("name") : Value(text));
  }
}

bool frmFormConditions::writeText(PropertyRow& row) {
  if (validating_) return false;
  if (ignoresEdits()) return true;
  const Flag validating(validating_);
  if (&row == rows_.fontSize) return writeFontSize(row);
  selectedRule().put(&row == rows_.value1 ? "Value1" : "Value2", row.typed());
  return true;
}

bool frmFormConditions::writeFontSize(PropertyRow& row) {
  const std::string& typed = row.typed();
  const std::optional<double> points = fontSizeFrom(typed);
  if (typed.empty() || points) {
    const Value size = points ? Value(*points) : grid_.object("Font").get("size");
    selectedRule().object("FormatStyle").put("FontSize", size);
    return true;
  }
  services_.window.messageBox(text(Text::FontSizeRange), MessageStyle::Critical, form_.caption());
  smuProperties_->select(row);
  return false;
}

void frmFormConditions::pickColour(PropertyRow& row) {
  const std::optional<Colour> picked = services_.window.pickColour(row.colour().swatch());
  if (!picked || smuList_->listIndex() < 0) return;
  row.colour().setColours(*picked, *picked);
  selectedRule()
      .object("FormatStyle")
      .put(&row == rows_.backColour ? "BackColor" : "ForeColor", static_cast<std::int32_t>(*picked));
}

void frmFormConditions::writeToggle(std::size_t index) {
  if (ignoresEdits()) return;
  const bool on = smuFont_->buttons()[index]->state() == State::On;
  selectedRule().object("FormatStyle").put(Member(kToggleButtons[index].styleMember), on);
}

void frmFormConditions::addRule() {
  const std::string proposed = FormatMessage(text(Text::ConditionNumber), {smuList_->listCount() + 1});
  const std::string name = InputBox(services_).ask(text(Text::EnterConditionName), form_.caption(), proposed);
  if (name.empty()) return;
  grid_.object("FmtConditions").call("Add", kColumnOfNewRule, Missing{}, Missing{}, Missing{}, name);
  smuList_->addItem(name);
  smuList_->setListIndex(smuList_->listCount() - 1);
  enableProperties();
}

void frmFormConditions::removeRule() {
  if (smuList_->listIndex() < 0) return;
  if (services_.window.messageBox(text(Text::AreYouSure), MessageStyle::Question, {}) != MessageResult::Yes) {
    return;
  }
  grid_.object("FmtConditions").call("Remove", smuList_->text());
  const int place = smuList_->listIndex();
  smuList_->removeItem(place);
  if (smuList_->listCount() > 0) {
    smuList_->setListIndex(std::min(place, smuList_->listCount() - 1));
  } else {
    const Flag loading(loading_);
    emptyRows();
  }
  enableProperties();
}

void frmFormConditions::paintSelected(SystemColour back, SystemColour fore) {
  smuList_->setSelectedColours({colourOf(back), colourOf(fore)});
}

void frmFormConditions::closeBy(const CommandButton&) {
  smuProperties_->takeEdits();
  form_.close();
}

}  // namespace vmgv
