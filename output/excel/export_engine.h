// Copies the grid's rows into a worksheet through the spreadsheet's automation interface.
#pragma once

#include "output/excel/cell_writer.h"
#include "output/excel/column_order.h"
#include "support/automation/error.h"
#include "support/frame/services.h"

namespace vmgv {

// What the engine reads from the dialog and shows on it.
struct ExportDialog {
  Form& form;
  CheckBox& chkPreviewRow;
  CheckBox& chkSelected;
  CheckBox& chkPivot;
  TextBox& txtTemplate;
  ProgressBar& prbar;
  Label& Label1;
  const bool& cancelled;
};

// One export. Row 1 of the sheet holds the captions; each record takes a row below it, and a second, merged
// one for its preview text when that is wanted.
class ExportEngine {
 public:
  ExportEngine(Services& services, const ExportDialog& dialog, ObjectRef grid)
      : services_(services), dialog_(dialog), grid_(std::move(grid)) {}

  // Runs to completion, to the user's cancelling or to a failure. Every failure was told in a message box
  // when this returns; nothing is thrown. Only a completed export leaves the spreadsheet open and visible.
  void run();

 private:
  enum class Outcome { Completed, Cancelled };

  bool startExcel();
  bool requirementsHold();
  bool openNewWorkbook();
  bool openTemplate();
  Outcome exportRows();
  void writeHeader();
  std::int32_t previewIndex();
  Outcome writeSelectedRows(std::int32_t preview);
  Outcome writeAllRows(std::int32_t preview);
  template <class RowAt>
  Outcome writeRows(std::int32_t count, const CellWriter& cells, std::int32_t preview, bool skipNullPreview,
                    RowAt rowAt);
  std::int32_t writeRecord(const CellWriter& cells, std::int32_t row, const ObjectRef& gridRow);
  void writePreview(const CellWriter& cells, std::int32_t row, std::int32_t lastColumn, const Value& value);
  void complete();
  void makePivotTables();
  void fail(const Error& error);
  void quit();

  bool usesTemplate() const { return !dialog_.txtTemplate.text().empty(); }
  void tell(Text id, MessageStyle style, std::initializer_list<Value> args, const std::string& title);
  [[noreturn]] void stop(Text id);
  std::string text(Text id) { return services_.strings.GetResString(id, ""); }

  Services& services_;
  ExportDialog dialog_;
  ObjectRef grid_;
  ObjectRef excel_, workbook_, sheet_;
  std::vector<ColumnRecord> columnOrder_;
  std::vector<ObjectRef> columns_;  // the grid's, in that order: asked for once, read for each row
  bool started_ = false;

  // Call sites on the path of every cell or row remember where their member is.
  Member visible_{"Visible"}, rowType_{"RowType"}, value_{"Value"}, range_{"Range"};
};

}  // namespace vmgv
