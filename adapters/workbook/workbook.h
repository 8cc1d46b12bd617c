// Excel's Workbook behind the late-bound contract.
#pragma once

#include <memory>

#include "adapters/workbook/book.h"
#include "support/automation/class_table.h"

namespace vmgv::workbook {

class Workbook final : public Exposed<Workbook> {
 public:
  explicit Workbook(std::shared_ptr<Book> book);
  static const ClassTable<Workbook>& table();

  Book& book() const noexcept { return *book_; }
  ObjectRef activeSheet() const { return book_->isOpen() ? sheet_ : ObjectRef(); }
  ObjectRef sheets() const;
  ObjectRef pivotCaches() const;

 private:
  Value close(Args args);

  std::shared_ptr<Book> book_;
  ObjectRef sheet_;
};

}  // namespace vmgv::workbook
