#include "output/excel/export_engine.h"

#include "grid/contract.h"
#include "grid/redraw.h"
#include "support/automation/convert.h"
#include "support/errors/errors.h"
#include "support/strings/format_message.h"

namespace vmgv {
namespace {

constexpr const char* kLineBreak = "\r\n";
constexpr double kOldestVersion = 9;
constexpr int kRowsPerLabel = 50;  // a new status text each so many rows
constexpr std::int32_t kHeaderRow = 1;

}  // namespace

void ExportEngine::run() {
  if (!startExcel() || !requirementsHold()) return;
  if (usesTemplate() ? !openTemplate() : !openNewWorkbook()) return;
  Outcome outcome = Outcome::Completed;
  const auto error = attempt([&] {
    if (usesTemplate()) sheet_.object("Cells").call("ClearContents");
    outcome = exportRows();
    if (outcome == Outcome::Completed) complete();
  });
  if (error) {
    fail(*error);
  } else if (outcome == Outcome::Cancelled) {
    dialog_.form.setPointer(Pointer::Default);
    quit();
  }
}

bool ExportEngine::startExcel() {
  const auto error = attempt([&] { excel_ = services_.system.createObject("Excel.Application"); });
  if (error) {
    tell(Text::ExcelCannotOpen, MessageStyle::Critical, {kLineBreak, error->description()},
         kApplicationTitle);
  }
  return !error;
}

bool ExportEngine::requirementsHold() {
  const std::string& path = dialog_.txtTemplate.text();
  if (dialog_.chkPivot.value() == 1 && usesTemplate() && !services_.system.fileExists(path)) {
    tell(Text::FileNotFound, MessageStyle::Critical, {path}, kApplicationTitle);
    return false;
  }
  double version = 0;
  skipping([&] {
    const std::string text = toText(excel_.get("Version"));
    version = numberFromText(text.substr(0, text.find('.'))).value_or(0);
  });
  if (version < kOldestVersion) {
    tell(Text::NeedsVersion9, MessageStyle::Critical, {}, kApplicationTitle);
    return false;
  }
  return true;
}

bool ExportEngine::openNewWorkbook() {
  const auto error = attempt([&] {
    workbook_ = excel_.object("Workbooks").call("Add").object();
    sheet_ = workbook_.object("ActiveSheet");
  });
  if (error) {
    tell(Text::CannotCreateSheet, MessageStyle::Critical, {kLineBreak, error->description()},
         kApplicationTitle);
  }
  return !error;
}

bool ExportEngine::openTemplate() {
  const std::string& path = dialog_.txtTemplate.text();
  if (const auto error =
          attempt([&] { workbook_ = excel_.object("Workbooks").call("Open", path).object(); })) {
    tell(Text::CannotLoadTemplate, MessageStyle::Critical, {kLineBreak, error->description()},
         kApplicationTitle);
    return false;
  }
  if (attempt([&] { sheet_ = workbook_.object("Sheets", "Data"); })) {
    tell(Text::DataSheetMissing, MessageStyle::Information, {kLineBreak}, kApplicationTitle);
    return false;
  }
  return true;
}

ExportEngine::Outcome ExportEngine::exportRows() {
  dialog_.form.setPointer(Pointer::ArrowHourglass);
  dialog_.Label1.setCaption(text(Text::Exporting));
  services_.window.doEvents();
  columnOrder_ = columnOrder(grid_);
  started_ = true;
  if (toLong(grid_.object("Columns").get("Count")) < 1) stop(Text::NoColumns);
  writeHeader();
  const std::int32_t preview = previewIndex();
  if (!toBoolean(grid_.get("MultiSelect"))) dialog_.chkSelected.setValue(0);
  grid_.put("Redraw", false);
  return dialog_.chkSelected.value() == 1 ? writeSelectedRows(preview) : writeAllRows(preview);
}

void ExportEngine::writeHeader() {
  std::int32_t column = 1;
  for (const ColumnRecord& record : columnOrder_) {
    const ObjectRef& gridColumn = columns_.emplace_back(grid_.object("Columns", record.index));
    if (!toBoolean(gridColumn.get("Visible"))) continue;
    sheet_.object("Cells", kHeaderRow, column++).put("Value", gridColumn.get("Caption"));
  }
}

std::int32_t ExportEngine::previewIndex() {
  const Value column = grid_.get("PreviewColumn");
  if (isNoPreviewColumn(column) || dialog_.chkPreviewRow.value() != 1) return 0;
  return toLong(grid_.object("Columns", column).get("Index"));
}

// The two loops keep hour patterns of their own, and only the second one passes over Null previews.
ExportEngine::Outcome ExportEngine::writeSelectedRows(std::int32_t preview) {
  const ObjectRef selected = grid_.object("SelectedItems");
  const std::int32_t count = toLong(selected.get("Count"));
  if (count < 1) stop(Text::NoSelection);
  const CellWriter cells(sheet_, "MM/dd/yyyy hh:mm:ss");
  const Member rowPosition("RowPosition"), rowData("GetRowData");
  return writeRows(count, cells, preview, false, [&](std::int32_t i) {
    return grid_.call(rowData, selected.item(i).object().get(rowPosition)).object();
  });
}

ExportEngine::Outcome ExportEngine::writeAllRows(std::int32_t preview) {
  if (toLong(grid_.object("Groups").get("Count")) > 0) grid_.call("ExpandAll");
  const std::int32_t count = toLong(grid_.get("RowCount"));
  if (count < 1) stop(Text::NoRecords);
  const CellWriter cells(sheet_, "MM/dd/yyyy HH:mm:ss");
  const Member rowData("GetRowData");
  return writeRows(count, cells, preview, true,
                   [&](std::int32_t i) { return grid_.call(rowData, i).object(); });
}

template <class RowAt>
ExportEngine::Outcome ExportEngine::writeRows(std::int32_t count, const CellWriter& cells,
                                              std::int32_t preview, bool skipNullPreview, RowAt rowAt) {
  dialog_.prbar.setMaximum(count);
  dialog_.prbar.setValue(0);
  std::int32_t row = kHeaderRow;  // the last row written
  for (std::int32_t i = 1; i <= count; ++i) {
    services_.window.doEvents();
    if (dialog_.cancelled) return Outcome::Cancelled;
    dialog_.prbar.setValue(i);
    if (i % kRowsPerLabel == 0) {
      dialog_.Label1.setCaption(FormatMessage(text(Text::ExportingRows), {i, count}));
      services_.window.doEvents();
    }
    const ObjectRef gridRow = rowAt(i);
    if (toLong(gridRow.get(rowType_)) != kRecordRow) continue;
    const std::int32_t lastColumn = writeRecord(cells, row + 1, gridRow);
    ++row;
    if (preview == 0) continue;
    const Value value = gridRow.get(value_, preview);
    if (value.isNull() && skipNullPreview) continue;
    writePreview(cells, row + 1, lastColumn, value);
    ++row;
  }
  return dialog_.cancelled ? Outcome::Cancelled : Outcome::Completed;  // at the last row
}

std::int32_t ExportEngine::writeRecord(const CellWriter& cells, std::int32_t row, const ObjectRef& gridRow) {
  std::int32_t column = 0;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (!toBoolean(columns_[i].get(visible_))) continue;
    cells.write(row, ++column, gridRow, columns_[i], columnOrder_[i].index);
  }
  return column;
}

void ExportEngine::writePreview(const CellWriter& cells, std::int32_t row, std::int32_t lastColumn,
                                const Value& value) {
  const ObjectRef first = cells.cell(row, 1);
  first.put("Value", withLineFeeds(toText(value)));
  const ObjectRef line = sheet_.object(range_, first, cells.cell(row, lastColumn));
  line.put("WrapText", true);
  line.call("Merge");
}

void ExportEngine::complete() {
  dialog_.form.setPointer(Pointer::Default);
  dialog_.Label1.setCaption(text(Text::Complete));
  sheet_.object("Cells").object("EntireColumn").call("AutoFit");
  if (dialog_.chkPivot.value() == 1) makePivotTables();
  grid_.put("Redraw", true);
  excel_.put("Visible", true);
}

void ExportEngine::makePivotTables() {
  if (!usesTemplate()) {
    sheet_.call("PivotTableWizard").object().call("Update");
    return;
  }
  const ObjectRef caches = workbook_.object("PivotCaches");
  const std::int32_t count = toLong(caches.get("Count"));
  for (std::int32_t i = 1; i <= count; ++i) caches.item(i).object().call("Refresh");
}

void ExportEngine::fail(const Error& error) {
  dialog_.form.setPointer(Pointer::Default);
  resumeRedraw(grid_);
  dialog_.Label1.setCaption({});
  bool sheetGone = false;  // the user closed the workbook or the whole program
  if (started_) sheetGone = attempt([&] { excel_.object("ActiveSheet"); }).has_value();
  if (sheetGone) {
    tell(Text::ExcelUnavailable, MessageStyle::Critical, {error.number(), kLineBreak}, text(Text::Export));
  } else {
    tell(Text::ExportError, MessageStyle::Critical, {error.number(), kLineBreak, error.description()},
         text(Text::Export));
  }
  quit();
  dialog_.prbar.setValue(0);
}

void ExportEngine::quit() {
  if (excel_) skipping([&] { excel_.call("Quit"); });
}

void ExportEngine::tell(Text id, MessageStyle style, std::initializer_list<Value> args,
                        const std::string& title) {
  services_.window.messageBox(FormatMessage(text(id), args), style, title);
}

void ExportEngine::stop(Text id) { throw Error(static_cast<std::int32_t>(id), text(id)); }

}  // namespace vmgv
