// The members of a Workbook.
#include "adapters/workbook/workbook.h"

#include "adapters/workbook/collection.h"
#include "adapters/workbook/worksheet.h"

namespace vmgv::workbook {
namespace {

struct Sheets {
  static constexpr const char* kName = "Sheets";
};
struct PivotCaches {
  static constexpr const char* kName = "PivotCaches";
};

}  // namespace

const ClassTable<Workbook>& Workbook::table() {
  static const ClassTable<Workbook> table(
      "Workbook", {
                      {"ActiveSheet", 0, [](Workbook& w, Args) -> Value { return w.activeSheet(); }},
                      {"Sheets", 0, [](Workbook& w, Args) -> Value { return w.sheets(); }},
                      {"Worksheets", 0, [](Workbook& w, Args) -> Value { return w.sheets(); }},
                      {"PivotCaches", 0,
                       [](Workbook&, Args) -> Value {
                         return makeObject<Collection<PivotCaches>>(std::vector<ObjectRef>());
                       }},
                      {"Name", 0, [](Workbook& w, Args) -> Value { return w.book_->name(); }},
                      {"Close", 3, [](Workbook& w, Args args) -> Value { return w.close(args); }},
                  });
  return table;
}

Workbook::Workbook(std::shared_ptr<Book> book) : book_(std::move(book)), sheet_(new Worksheet(book_)) {}

ObjectRef Workbook::sheets() const {
  std::vector<ObjectRef> sheets;
  if (book_->isOpen()) sheets.push_back(sheet_);
  return makeObject<Collection<Sheets>>(std::move(sheets));
}

Value Workbook::close(Args args) {
  if (args.has(0) && toBoolean(args[0])) {
    throw Error(ErrorNumber::Application,
                "Close cannot save the workbook " + book_->name() + ": the application's Visible writes it");
  }
  book_->close();
  return {};
}

}  // namespace vmgv::workbook
