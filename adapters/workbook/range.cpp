// The members of a Range.
#include "adapters/workbook/range.h"

#include "support/automation/convert.h"

namespace vmgv::workbook {

const ClassTable<Range>& Range::table() {
  static const ClassTable<Range> table(
      "Range",
      {
          {"_Default", 2,
           [](Range& r, Args args) -> Value {
             return args.size() == 0 ? r.sheet().value(r.area_) : r.item(args);
           },
           [](Range& r, Args, const Value& v) { r.sheet().setValue(r.area_, v); }},
          {"Item", 2, [](Range& r, Args args) -> Value { return r.item(args); }},
          {"Value", 0, [](Range& r, Args) -> Value { return r.sheet().value(r.area_); },
           [](Range& r, Args, const Value& v) { r.sheet().setValue(r.area_, v); }},
          {"NumberFormat", 0, [](Range& r, Args) -> Value { return r.sheet().numberFormat(r.area_); },
           [](Range& r, Args, const Value& v) {
             if (v.isText()) return r.sheet().setNumberFormat(r.area_, v.text());
             r.sheet().setNumberFormat(r.area_, toText(v));
           }},
          {"WrapText", 0, [](Range& r, Args) -> Value { return r.sheet().wraps(r.area_); },
           [](Range& r, Args, const Value& v) { r.sheet().setWrap(r.area_, toBoolean(v)); }},
          {"Merge", 0, [](Range& r, Args) -> Value { return r.sheet().merge(r.area_), Value(); }},
          {"ClearContents", 0,
           [](Range& r, Args) -> Value { return r.sheet().clearContents(r.area_), Value(); }},
          {"EntireColumn", 0, [](Range& r, Args) -> Value { return r.entireColumn(); }},
          {"AutoFit", 0, [](Range& r, Args) -> Value { return r.autoFit(), Value(); }},
      },
      "_Default");
  return table;
}

Area Range::cell(Args args) const {
  if (!args.has(0)) throw Error(ErrorNumber::ArgumentCount);
  const long long first = toLong(args[0]);
  if (args.has(1))
    return cellAt(area_.top + first - 1, area_.left + static_cast<long long>(toLong(args[1])) - 1);
  const long long width = area_.right - area_.left + 1;
  if (first < 1) return cellAt(0, area_.left);
  return cellAt(area_.top + (first - 1) / width, area_.left + (first - 1) % width);
}

Value Range::item(Args args) const { return makeObject<Range>(book_, cell(args)); }

Value Range::entireColumn() const {
  return makeObject<Range>(book_, Area{1, area_.left, kMaxRows, area_.right});
}

void Range::autoFit() const {
  if (area_.top != 1 || area_.bottom != kMaxRows) {
    throw Error(ErrorNumber::Application,
                "AutoFit works on whole columns: " + areaName(area_) + " is none; ask its EntireColumn");
  }
  sheet().autoFit(area_.left, area_.right);
}

}  // namespace vmgv::workbook
