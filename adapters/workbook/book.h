// A workbook's content: the worksheet that is filled and its styles, from the first cell to the finished
// file.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "adapters/workbook/pivot.h"
#include "adapters/workbook/sheet_stream.h"
#include "adapters/workbook/styles.h"
#include "adapters/workbook/template_fill.h"

namespace vmgv::workbook {

class Book {
 public:
  // A new one. `name` as the program shows it; working files go into `folder`.
  Book(std::string name, const std::string& folder);
  // A template's: its sheet "Data" is the one to change.
  Book(std::unique_ptr<TemplateFill> fill, const std::string& folder);

  // Null for a new workbook.
  TemplateFill* fill() const noexcept { return fill_.get(); }

  const std::string& name() const noexcept { return name_; }
  const std::string& sheetName() const noexcept { return sheetName_; }
  void setSheetName(const std::string& name);  // Error 1004 for a name that a worksheet cannot have

  bool isOpen() const noexcept { return state_ != State::Closed; }
  bool isPublished() const noexcept { return state_ == State::Published; }
  // The sheet to change; Error 1004 where the workbook is complete or closed, or a template has none.
  SheetStream& sheet() {
    if (state_ != State::Filling || !sheet_) refuse();
    return *sheet_;
  }

  // A new workbook will have a pivot table over its rows, which are all there. Error 1004 where it can have
  // none.
  void addPivot();
  bool hasPivot() const noexcept { return hasPivot_; }

  // Writes the workbook to `path` in one step: where it fails nothing is left, and it may be tried again.
  // Returns the number of rows.
  std::int64_t publish(const std::string& path);
  // Gives the content up, with its working files.
  void close() noexcept;

 private:
  enum class State : std::uint8_t { Filling, Complete, Published, Closed };

  [[noreturn]] void refuse() const;

  std::string name_;
  std::string sheetName_ = "Sheet1";
  State state_ = State::Filling;
  bool hasPivot_ = false;
  std::unique_ptr<TemplateFill> fill_;
  StyleTable styles_;
  std::optional<SheetStream> sheet_;
  std::optional<Pivot> pivot_;
};

}  // namespace vmgv::workbook
