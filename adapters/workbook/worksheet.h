// Excel's Worksheet behind the late-bound contract.
#pragma once

#include <array>
#include <memory>

#include "adapters/workbook/book.h"
#include "adapters/workbook/range.h"
#include "support/automation/class_table.h"

namespace vmgv::workbook {

class Worksheet final : public Exposed<Worksheet> {
 public:
  explicit Worksheet(std::shared_ptr<Book> book) : book_(std::move(book)) {}
  static const ClassTable<Worksheet>& table();

 private:
  // A Range costs more to make than a cell to write, so those that the caller has let go serve again.
  ObjectRef rangeOf(const Area& area);
  Value cells(Args args);
  Value range(Args args);
  Value pivotTable(Args args);
  const Range& corner(const Value& value) const;

  std::shared_ptr<Book> book_;
  std::array<ObjectRef, 4> ranges_;
};

}  // namespace vmgv::workbook
