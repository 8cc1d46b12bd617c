// The members of a Worksheet.
#include "adapters/workbook/worksheet.h"

#include <algorithm>

#include "support/automation/convert.h"

namespace vmgv::workbook {
namespace {

// It shows the rows as they are when the workbook is complete.
class PivotTable final : public Exposed<PivotTable> {
 public:
  static const ClassTable<PivotTable>& table() {
    static const ClassTable<PivotTable> table(
        "PivotTable", {
                          {"Name", 0, [](PivotTable&, Args) -> Value { return "PivotTable1"; }},
                          {"Update", 0, [](PivotTable&, Args) -> Value { return {}; }},
                      });
    return table;
  }
};

}  // namespace

const ClassTable<Worksheet>& Worksheet::table() {
  static const ClassTable<Worksheet> table(
      "Worksheet",
      {
          {"Cells", 2, [](Worksheet& w, Args args) -> Value { return w.cells(args); }},
          {"Range", 2, [](Worksheet& w, Args args) -> Value { return w.range(args); }},
          {"Name", 0, [](Worksheet& w, Args) -> Value { return w.book_->sheetName(); },
           [](Worksheet& w, Args, const Value& v) { w.book_->setSheetName(toText(v)); }},
          {"PivotTableWizard", 16, [](Worksheet& w, Args args) -> Value { return w.pivotTable(args); }},
      });
  return table;
}

ObjectRef Worksheet::rangeOf(const Area& area) {
  for (ObjectRef& range : ranges_) {
    if (!range) return range = makeObject<Range>(book_, area);
    if (range.get()->references() == 1) {
      static_cast<Range*>(range.get())->moveTo(area);
      return range;
    }
  }
  return makeObject<Range>(book_, area);
}

Value Worksheet::cells(Args args) {
  if (args.size() == 2 && args.has(0) && args.has(1))
    return rangeOf(cellAt(toLong(args[0]), toLong(args[1])));
  if (args.size() == 0) return rangeOf(Area::whole());
  return rangeOf(Range(book_, Area::whole()).cell(args));
}

Value Worksheet::range(Args args) {
  const Area& first = corner(args[0]).area();
  const Area& second = args.has(1) ? corner(args[1]).area() : first;
  return rangeOf({std::min(first.top, second.top), std::min(first.left, second.left),
                  std::max(first.bottom, second.bottom), std::max(first.right, second.right)});
}

Value Worksheet::pivotTable(Args args) {
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (args.has(i)) throw Error(ErrorNumber::Application, "PivotTableWizard takes no arguments here");
  }
  book_->addPivot();
  return makeObject<PivotTable>();
}

const Range& Worksheet::corner(const Value& value) const {
  const auto* range = value.isObject() ? dynamic_cast<const Range*>(value.object().get()) : nullptr;
  if (!range || range->book() != book_) {
    throw Error(ErrorNumber::Application, "Range takes two cells of the worksheet " + book_->sheetName());
  }
  return *range;
}

}  // namespace vmgv::workbook
