#include "support/forms/property_editor.h"

#include <algorithm>

#include "support/automation/error.h"
#include "support/forms/form.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

constexpr int kFieldColumns = 38;

}  // namespace

PropertyRow::PropertyRow(PropertyEditor& editor, Kind kind, std::string key)
    : editor_(editor), kind_(kind), key_(std::move(key)) {}

void PropertyRow::setCaption(const std::string& caption) {
  if (label_) label_->setCaption(caption);
  field_->setCaption(caption);
  field_->setAccessibleName(caption);
}

void PropertyRow::setValue(const std::string& value) {
  const bool other = value_ != value;
  value_ = value;
  showValue();
  if (other && kind_ == Kind::List) editor_.changed(*this);
}

void PropertyRow::setEntries(std::vector<std::string> entries) {
  entries_ = std::move(entries);
  auto& list = static_cast<ComboBox&>(*field_);
  list.clear();
  for (const std::string& entry : entries_) list.addItem(entry);
  showValue();
}

void PropertyRow::showValue() {
  if (kind_ == Kind::Text) static_cast<TextBox&>(*field_).setText(value_);
  if (kind_ != Kind::List) return;
  showing_ = true;
  auto& list = static_cast<ComboBox&>(*field_);
  const auto known = static_cast<int>(entries_.size());
  while (list.listCount() > known) list.removeItem(known);
  const auto found = std::find(entries_.begin(), entries_.end(), value_);
  if (found == entries_.end() && !value_.empty()) list.addItem(value_);
  const auto place = static_cast<int>(found - entries_.begin());
  list.setListIndex(place < list.listCount() ? place : -1);
  showing_ = false;
}

const std::string& PropertyRow::typed() const { return static_cast<const TextBox&>(*field_).text(); }

bool PropertyRow::edited() const { return kind_ == Kind::Text && typed() != value_; }

void PropertyRow::drop() { showValue(); }

ColourField& PropertyRow::colour() const { return dynamic_cast<ColourField&>(*field_); }

PropertyEditor::PropertyEditor(Form& form, std::string name, Control* container, std::optional<int> index)
    : Frame(form, std::move(name), container, index) {
  onKeyDown = [this](Key key, int shift) { return press(key, shift); };
}

PropertyRow& PropertyEditor::add(PropertyRow::Kind kind, std::string key) {
  PropertyRow& row = *rows_.emplace_back(std::make_unique<PropertyRow>(*this, kind, std::move(key)));
  const std::string fieldName = name() + "." + row.key_;
  const std::string labelName =
      name() + ".label" + std::to_string(rows_.size());  // counted as the rows are: from 1
  row.label_ = &form().add<Label>(labelName, this);
  switch (kind) {
    case PropertyRow::Kind::Heading: {
      Font bold = row.label_->font();
      bold.bold = true;
      row.label_->setFont(bold);
      row.field_ = row.label_;
      break;
    }
    case PropertyRow::Kind::List: {
      auto& list = form().add<ComboBox>(fieldName, this);
      list.columns = kFieldColumns;
      row.field_ = &list;
      break;
    }
    case PropertyRow::Kind::Text: {
      auto& text = form().add<TextBox>(fieldName, this);
      text.columns = kFieldColumns;
      row.field_ = &text;
      break;
    }
    case PropertyRow::Kind::Swatch: row.field_ = &form().add<ColourField>(fieldName, this); break;
    case PropertyRow::Kind::Hosted: break;
  }
  if (row.field_ != row.label_) row.label_->buddy = row.field_;
  listen(row);
  arrange();
  return row;
}

Toolbar& PropertyEditor::host(std::string name) {
  auto& toolbar = form().add<Toolbar>(std::move(name), this);
  PropertyRow& row =
      *rows_.emplace_back(std::make_unique<PropertyRow>(*this, PropertyRow::Kind::Hosted, std::string()));
  row.field_ = &toolbar;
  arrange();
  return toolbar;
}

void PropertyEditor::arrange() {
  std::vector<layout::Node> lines;
  for (const auto& row : rows_) {
    if (row->kind_ == PropertyRow::Kind::Heading) {
      if (!lines.empty()) lines.push_back(layout::row({}));  // sections stand apart
      lines.push_back(layout::item(*row->label_));
    } else {
      layout::Node label = row->label_ ? layout::item(*row->label_) : layout::Node();
      lines.push_back(layout::row({std::move(label), layout::item(*row->field_)}));
    }
  }
  content = layout::table(std::move(lines));
}

void PropertyEditor::listen(PropertyRow& row) {
  if (auto* list = dynamic_cast<ComboBox*>(row.field_)) {
    list->onClick = [this, &row, list] {
      if (row.showing_ || row.value_ == list->text()) return;
      row.value_ = list->text();
      changed(row);
    };
  } else if (auto* text = dynamic_cast<TextBox*>(row.field_)) {
    text->onLostFocus = [this, &row] { take(row); };
  } else if (auto* colour = dynamic_cast<ColourField*>(row.field_)) {
    colour->onClick = [this, &row] {
      if (onRowButton) onRowButton(row);
    };
  }
}

void PropertyEditor::changed(PropertyRow& row) {
  if (onRowChanged) onRowChanged(row, row.value_);
}

void PropertyEditor::take(PropertyRow& row) {
  if (!row.edited()) return;
  const std::string typed = row.typed();
  if (!onRowValidating || onRowValidating(row)) row.setValue(typed);
}

void PropertyEditor::takeEdits() {
  for (const auto& row : rows_) take(*row);
}

PropertyRow* PropertyEditor::find(std::string_view key) const {
  const auto found =
      std::find_if(rows_.begin(), rows_.end(), [key](const auto& row) { return row->key_ == key; });
  return found == rows_.end() || key.empty() ? nullptr : found->get();
}

PropertyRow& PropertyEditor::row(std::string_view key) const {
  if (PropertyRow* found = find(key)) return *found;
  throw Error(ErrorNumber::SubscriptOutOfRange, name() + " has no row \"" + std::string(key) + '"');
}

PropertyRow* PropertyEditor::selected() const {
  const Control* active = form().activeControl();
  if (!active) return nullptr;
  for (const auto& row : rows_) {
    if (row->field_ == active || row->field_ == active->container()) return row.get();
  }
  return nullptr;
}

void PropertyEditor::select(PropertyRow& row) {
  if (!row.field_) return;  // a heading
  const auto* toolbar = dynamic_cast<const Toolbar*>(row.field_);
  Control& field = toolbar ? *toolbar->buttons().front() : *row.field_;
  form().setFocus(field);
  if (auto* text = dynamic_cast<TextBox*>(&field)) {
    text->select(0, static_cast<int>(countCharacters(text->text())));
  }
}

bool PropertyEditor::press(Key key, int shift) {
  PropertyRow* row = selected();
  if (!row) return false;
  const bool opens = (key == Key::F4 && shift == 0) || (key == Key::Down && shift == kAlt);
  if (opens && row->kind_ == PropertyRow::Kind::Swatch) {
    row->colour().click();
    return true;
  }
  if (shift != 0) return false;
  if (key == Key::Up || key == Key::Down) return walk(*row, key == Key::Up);
  if (row->kind_ != PropertyRow::Kind::Text) return false;
  if (key == Key::F2) {
    select(*row);
    return true;
  }
  if (!row->edited() || (key != Key::Return && key != Key::Escape)) return false;
  if (key == Key::Return) {
    take(*row);
  } else {
    row->drop();
  }
  return true;
}

// To the next row that can be used; at the ends the focus stays.
bool PropertyEditor::walk(const PropertyRow& from, bool backwards) {
  const auto here =
      std::find_if(rows_.begin(), rows_.end(), [&from](const auto& row) { return row.get() == &from; });
  for (auto at = here; backwards ? at != rows_.begin() : ++at != rows_.end();) {
    if (backwards) --at;
    PropertyRow& next = **at;
    if (next.kind_ == PropertyRow::Kind::Heading || !next.enabled()) continue;
    select(next);
    break;
  }
  return true;
}

}  // namespace vmgv
