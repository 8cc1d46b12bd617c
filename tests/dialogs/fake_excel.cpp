#include "tests/dialogs/fake_excel.h"

#include <algorithm>

#include "tests/dialogs/fake_object.h"

namespace vmgv {
namespace {

std::string place(int row, int column) { return std::to_string(row) + "," + std::to_string(column); }

}  // namespace

void FakeExcel::check(const std::string& member) const {
  if (failing.contains(member)) throw Error(ErrorNumber::Application, member + " failed");
}

std::string FakeExcel::cell(int row, int column) const {
  const auto found = cells.find({row, column});
  if (found == cells.end()) return "-";
  const auto format = formats.find({row, column});
  return (format == formats.end() ? "" : format->second) + typeName(found->second) + ":" +
         toText(found->second);
}

ObjectRef FakeExcel::cellObject(int row, int column) {
  if (row < 1 || column < 1) throw Error(ErrorNumber::Application);
  ObjectRef ref;
  make(ref, "Range")
      ->on("Value",
           [=, this](Access access, Args args) -> Value {
             if (access == Access::Get) return cells[{row, column}];
             check("Value");
             cells[{row, column}] = args[0];
             return {};
           })
      .on("NumberFormat",
          [=, this](Access, Args args) -> Value {
            formats[{row, column}] = toText(args[0]);
            return {};
          })
      .on("Row", [row](Access, Args) -> Value { return row; })
      .on("Column", [column](Access, Args) -> Value { return column; });
  return ref;
}

ObjectRef FakeExcel::allCells() {
  ObjectRef ref;
  make(ref, "Range")
      ->on("ClearContents",
           [this](Access, Args) -> Value {
             check("ClearContents");
             log.emplace_back("ClearContents");
             return {};
           })
      .on("EntireColumn", [this](Access, Args) -> Value {
        ObjectRef columns;
        make(columns, "Range")->on("AutoFit", [this](Access, Args) -> Value {
          check("AutoFit");
          log.emplace_back("AutoFit");
          return {};
        });
        return columns;
      });
  return ref;
}

ObjectRef FakeExcel::sheet() {
  ObjectRef ref;
  make(ref, "Worksheet")
      ->on("Cells",
           [this](Access, Args args) -> Value {
             return args.size() == 2 ? cellObject(toLong(args[0]), toLong(args[1])) : allCells();
           })
      .on("Range",
          [this](Access, Args args) -> Value {
            const auto corner = [&](std::size_t i) {
              return place(toLong(args[i].object().get("Row")), toLong(args[i].object().get("Column")));
            };
            const std::string area = corner(0) + "-" + corner(1);
            ObjectRef range;
            make(range, "Range")
                ->on("WrapText",
                     [=, this](Access, Args) -> Value {
                       log.push_back("Wrap " + area);
                       return {};
                     })
                .on("Merge", [=, this](Access, Args) -> Value {
                  log.push_back("Merge " + area);
                  return {};
                });
            return range;
          })
      .on("PivotTableWizard", [this](Access, Args) -> Value {
        check("PivotTableWizard");
        log.emplace_back("Wizard");
        ObjectRef pivot;
        make(pivot, "PivotTable")->on("Update", [this](Access, Args) -> Value {
          log.emplace_back("Update");
          return {};
        });
        return pivot;
      });
  return ref;
}

ObjectRef FakeExcel::workbook() {
  ObjectRef ref;
  make(ref, "Workbook")
      ->on("ActiveSheet",
           [this](Access, Args) -> Value {
             check("ActiveSheet");
             return sheet();
           })
      .on("Sheets",
          [this](Access, Args args) -> Value {
            if (std::find(sheets.begin(), sheets.end(), toText(args[0])) == sheets.end()) {
              throw Error(ErrorNumber::SubscriptOutOfRange);
            }
            return sheet();
          })
      .on("PivotCaches", [this](Access, Args) -> Value {
        ObjectRef list;
        make(list, "PivotCaches")
            ->on("Count", [this](Access, Args) -> Value { return pivotCaches; })
            .on("", [this](Access, Args args) -> Value {
              const std::string number = toText(args[0]);
              ObjectRef cache;
              make(cache, "PivotCache")->on("Refresh", [this, number](Access, Args) -> Value {
                log.push_back("Refresh " + number);
                return {};
              });
              return cache;
            });
        return list;
      });
  return ref;
}

ObjectRef FakeExcel::application() {
  ObjectRef ref;
  make(ref, "Application")
      ->on("Version",
           [this](Access, Args) -> Value {
             check("Version");
             return version;
           })
      .on("Workbooks",
          [this](Access, Args) -> Value {
            ObjectRef list;
            make(list, "Workbooks")
                ->on("Add",
                     [this](Access, Args) -> Value {
                       check("Add");
                       return workbook();
                     })
                .on("Open", [this](Access, Args args) -> Value {
                  check("Open");
                  log.push_back("Open " + toText(args[0]));
                  return workbook();
                });
            return list;
          })
      .on("ActiveSheet", [this](Access, Args) -> Value { return sheetGone ? ObjectRef() : sheet(); })
      .on("Visible",
          [this](Access, Args) -> Value {
            check("Visible");
            log.emplace_back("Visible");
            return {};
          })
      .on("Quit", [this](Access, Args) -> Value {
        log.emplace_back("Quit");
        return {};
      });
  return ref;
}

}  // namespace vmgv
