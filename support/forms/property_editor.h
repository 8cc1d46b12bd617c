// Named values in rows below section headings. Its fields are controls of the usual kinds, named after the
// editor and the row's key: "smuProperties.value1".
//
// Keys, beyond those of the fields: Up and Down go from row to row, F2 selects a row's text, Enter takes it
// and Esc drops it, F4 and Alt+Down open a list or a colour's picker.
#pragma once

#include <memory>

#include "support/forms/colour_field.h"
#include "support/forms/tool_button.h"

namespace vmgv {

class PropertyEditor;

class PropertyRow {
 public:
  enum class Kind { Heading, List, Text, Swatch, Hosted };

  PropertyRow(PropertyEditor& editor, Kind kind, std::string key);
  PropertyRow(const PropertyRow&) = delete;
  PropertyRow& operator=(const PropertyRow&) = delete;

  Kind kind() const noexcept { return kind_; }
  const std::string& key() const noexcept { return key_; }
  void setCaption(const std::string& caption);
  bool enabled() const noexcept { return field_->enabled(); }
  void setEnabled(bool enabled) { field_->setEnabled(enabled); }

  // Of a list or text row: what was last set or taken. Setting a list row's value fires `onRowChanged`.
  const std::string& value() const noexcept { return value_; }
  void setValue(const std::string& value);

  // Of a list row. It keeps its value; one that is not among the entries is shown as one more.
  const std::vector<std::string>& entries() const noexcept { return entries_; }
  void setEntries(std::vector<std::string> entries);

  // Of a text row: the user has typed something that is not taken yet.
  bool edited() const;
  const std::string& typed() const;
  void drop();  // shows the value again

  ColourField& colour() const;  // of a colour row

 private:
  friend class PropertyEditor;
  void showValue();

  PropertyEditor& editor_;
  Kind kind_;
  std::string key_;
  Label* label_ = nullptr;    // of a hosted row: none
  Control* field_ = nullptr;  // of a heading: its label
  std::string value_;
  std::vector<std::string> entries_;
  bool showing_ = false;  // fills its list itself
};

class PropertyEditor final : public Frame {
 public:
  PropertyEditor(Form& form, std::string name, Control* container, std::optional<int> index);
  std::string_view typeName() const noexcept override { return ToolButton::kTypeName; }

  PropertyRow& addHeading() { return add(PropertyRow::Kind::Heading, {}); }
  PropertyRow& addList(std::string key) { return add(PropertyRow::Kind::List, std::move(key)); }
  PropertyRow& addText(std::string key) { return add(PropertyRow::Kind::Text, std::move(key)); }
  PropertyRow& addColour(std::string key) { return add(PropertyRow::Kind::Swatch, std::move(key)); }
  // A toolbar in a row of its own, without a caption.
  Toolbar& host(std::string name);

  std::size_t count() const noexcept { return rows_.size(); }
  PropertyRow& row(std::size_t position) const { return *rows_.at(position); }  // from 0
  PropertyRow* find(std::string_view key) const;                                // null where there is none
  PropertyRow& row(std::string_view key) const;                                 // Error 9 where there is none

  // The row that has the focus, or null.
  PropertyRow* selected() const;
  void select(PropertyRow& row);
  // Asks for what was typed and not taken yet, as leaving the row does.
  void takeEdits();

  // A list row's value changed, by the user or by code.
  std::function<void(PropertyRow&, const std::string& text)> onRowChanged;
  // The user leaves a text row that he has edited, or presses Enter in it. False keeps the row edited.
  std::function<bool(PropertyRow&)> onRowValidating;
  std::function<void(PropertyRow&)> onRowButton;  // of a colour row

 private:
  friend class PropertyRow;
  PropertyRow& add(PropertyRow::Kind kind, std::string key);
  void arrange();
  void listen(PropertyRow& row);
  bool press(Key key, int shift);
  bool walk(const PropertyRow& from, bool backwards);
  void take(PropertyRow& row);
  void changed(PropertyRow& row);

  std::vector<std::unique_ptr<PropertyRow>> rows_;
};

}  // namespace vmgv
