// An "Excel.Application" in this process, for machines without the spreadsheet program: the late-bound
// members that an export uses, writing .xlsx files row by row in constant memory.
//
// Differences from the program, all for that reason:
// - Rows are filled from top to bottom. A row is open to changes until one below it is changed.
// - `Visible = True` completes the workbook, writes it to the host's target path and tells the host; the
//   workbook takes no changes after that. Until then nothing is to be seen in the target's folder, and
//   `Quit` leaves nothing behind.
// - Text stays text (see cell.h).
// Members throw Error: 1004 for what cannot be done to the workbook, 61, 75 and 57 for full disks, paths
// that cannot be written and other device errors, always naming the cell or path and the reason. Writing
// errors show at the change of a cell that met them, those of the finished file at `Visible = True`.
#pragma once

#include "adapters/workbook/host.h"
#include "support/automation/object.h"

namespace vmgv {

// The host outlives the application.
ObjectRef makeWorkbookApplication(WorkbookHost& host);

}  // namespace vmgv
