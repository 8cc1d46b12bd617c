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

// A sheet of a template that is not filled.
class OtherSheet final : public Exposed<OtherSheet> {
 public:
  explicit OtherSheet(std::string name) : name_(std::move(name)) {}
  static const ClassTable<OtherSheet>& table() {
    static const ClassTable<OtherSheet> table(
        "Worksheet", {{"Name", 0, [](OtherSheet& s, Args) -> Value { return s.name_; }}});
    return table;
  }

 private:
  std::string name_;
};

class PivotCache final : public Exposed<PivotCache> {
 public:
  PivotCache(std::shared_ptr<Book> book, std::size_t place) : book_(std::move(book)), place_(place) {}
  static const ClassTable<PivotCache>& table() {
    static const ClassTable<PivotCache> table(
        "PivotCache", {{"Refresh", 0, [](PivotCache& c, Args) -> Value { return c.refresh(), Value(); }}});
    return table;
  }

 private:
  void refresh() {
    book_->sheet();                                     // it is still open to changes
    if (book_->fill()) book_->fill()->refresh(place_);  // a new one is computed when the workbook is complete
  }

  std::shared_ptr<Book> book_;
  std::size_t place_;
};

}  // namespace

const ClassTable<Workbook>& Workbook::table() {
  static const ClassTable<Workbook> table(
      "Workbook", {
                      {"ActiveSheet", 0, [](Workbook& w, Args) -> Value { return w.activeSheet(); }},
                      {"Sheets", 0, [](Workbook& w, Args) -> Value { return w.sheets(); }},
                      {"Worksheets", 0, [](Workbook& w, Args) -> Value { return w.sheets(); }},
                      {"PivotCaches", 0, [](Workbook& w, Args) -> Value { return w.pivotCaches(); }},
                      {"Name", 0, [](Workbook& w, Args) -> Value { return w.book_->name(); }},
                      {"Close", 3, [](Workbook& w, Args args) -> Value { return w.close(args); }},
                  });
  return table;
}

Workbook::Workbook(std::shared_ptr<Book> book) : book_(std::move(book)), sheet_(new Worksheet(book_)) {}

ObjectRef Workbook::sheets() const {
  std::vector<ObjectRef> sheets;
  const TemplateFill* const fill = book_->fill();
  if (book_->isOpen() && !fill) sheets.push_back(sheet_);
  if (fill) {
    for (const TemplateSheet& sheet : fill->book().sheets()) {
      if (!sheet.isWorksheet) continue;
      if (fill->hasSheet() && sheet.name == book_->sheetName()) {
        sheets.push_back(sheet_);
      } else {
        sheets.push_back(makeObject<OtherSheet>(sheet.name));
      }
    }
  }
  return makeObject<Collection<Sheets>>(std::move(sheets));
}

ObjectRef Workbook::pivotCaches() const {
  std::vector<ObjectRef> caches;
  const std::size_t count = book_->fill() ? book_->fill()->pivotCaches() : book_->hasPivot();
  for (std::size_t i = 0; i < count; ++i) caches.push_back(makeObject<PivotCache>(book_, i));
  return makeObject<Collection<PivotCaches>>(std::move(caches));
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
