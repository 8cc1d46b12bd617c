// The print preview: the grid's pages as they will be printed, with their number, and printing.
#pragma once

#include "support/automation/events.h"
#include "support/forms/page_preview.h"
#include "support/forms/status_bar.h"
#include "support/frame/dialog.h"

namespace vmgv {

class frmPreview final : public Dialog, private EventSink {
 public:
  explicit frmPreview(Services& services);

  // True: the window's own toolbar; False: the preview's built-in one.
  void LLToolbar(bool own) { llToolbar_ = own; }
  // Shows the control's grid, or only its selected rows, as pages below the header; returns when the window
  // was closed. What fails is reported. What is written to the grid's printer properties stays there.
  void PrintPreview(const ObjectRef& control, const std::string& header, bool onlySelected);

 private:
  void setCaptions() override;
  void addTools();
  void place();
  void writePages(const std::string& header);
  void showPageNumber();
  void print(bool showDialog);
  void help();
  void hide();
  std::string pageOf(const std::string& page, std::int32_t count);
  void raised(std::string_view event, std::span<const Value> parameters) override;

  Toolbar* smuToolbar_;
  PagePreview* GEXPreview1_;
  StatusBar* SmartUI1_;
  bool llToolbar_ = false;
};

}  // namespace vmgv
