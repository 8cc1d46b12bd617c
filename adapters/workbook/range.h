// Excel's Range behind the late-bound contract.
#pragma once

#include <memory>

#include "adapters/workbook/book.h"
#include "support/automation/class_table.h"

namespace vmgv::workbook {

class Range final : public Exposed<Range> {
 public:
  Range(std::shared_ptr<Book> book, const Area& area) : book_(std::move(book)), area_(area) {}
  static const ClassTable<Range>& table();

  const std::shared_ptr<Book>& book() const noexcept { return book_; }
  const Area& area() const noexcept { return area_; }
  // A Range that nobody holds any more serves for another area.
  void moveTo(const Area& area) noexcept { area_ = area; }

  // The cell at row and column of this range, counted from its first cell; one number counts row by row.
  Area cell(Args args) const;

 private:
  SheetStream& sheet() const { return book_->sheet(); }
  Value item(Args args) const;
  Value entireColumn() const;
  void autoFit() const;

  std::shared_ptr<Book> book_;
  Area area_;
};

}  // namespace vmgv::workbook
