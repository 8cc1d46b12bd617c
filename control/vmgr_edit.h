// The editor control: give it a grid, and each Show method opens a dialog that edits or outputs that grid.
//
//   auto control = makeObject<vmgrEdit>(application);
//   control.putRef("Grid", grid);
//   control.call("ShowSort");
#pragma once

#include <string>

#include "control/application.h"
#include "control/control_site.h"
#include "support/automation/class_table.h"

namespace vmgv {

// Reachable in C++ by these functions and late-bound by the same names. Every Show method returns False,
// whatever the user did: hosts look at their grid. No member throws but ShowFormat.
class vmgrEdit final : public Exposed<vmgrEdit> {
 public:
  // The application outlives the control. A control without a site is not hosted: it has no size, and its
  // font is its own.
  explicit vmgrEdit(Application& application, ControlSite* site = nullptr);
  static const ClassTable<vmgrEdit>& table();

  const ObjectRef& Grid() const noexcept { return grid_; }
  void setGrid(ObjectRef grid) { grid_ = std::move(grid); }  // any object with the grid's members
  const std::string& CurrentView() const noexcept { return currentView_; }
  void setCurrentView(std::string view) { currentView_ = std::move(view); }
  const ObjectRef& CurrentCatalog() const noexcept { return catalog_; }
  void setCurrentCatalog(ObjectRef catalog) { catalog_ = std::move(catalog); }
  bool excelVisible() const noexcept { return excelVisible_; }  // whether the summary offers the export
  void setExcelVisible(bool visible) noexcept { excelVisible_ = visible; }
  ObjectRef Font();  // the container's ambient font until one was set
  void setFont(ObjectRef font);

  bool ShowSummary();  // the others behind one button each
  bool ShowSort();     // sorts by up to four columns
  bool ShowOther();    // does nothing; the summary's fonts button calls it
  bool ShowItems();    // shows, hides and orders columns
  bool ShowGroups();   // groups in up to three levels
  bool ShowExcel();    // exports the rows to a workbook
  bool ShowFormat();   // colours rows by conditions; throws what escapes its dialog
  bool ShowGeneral();  // preview row, alternate colours, widths
  bool ShowPreview(const std::string& header = {}, bool LLToolbar = false);
  bool ShowPreviewX(const std::string& header = {}, bool LLToolbar = false, bool onlySelected = false);

  // Only "Font" is kept with the host's form.
  void ReadProperties(PropertyBag& bag);
  void WriteProperties(PropertyBag& bag);
  // The container changed the size: back to 16 by 16 pixels.
  void Resize();

 private:
  bool show(Facet facet);
  bool show(Facet facet, OpenRequest request);
  ObjectRef ambientFont();

  Application& application_;
  ControlSite* site_;
  ObjectRef catalog_;
  ObjectRef grid_;
  std::string currentView_;
  bool excelVisible_ = true;
  ObjectRef font_;
};

}  // namespace vmgv
