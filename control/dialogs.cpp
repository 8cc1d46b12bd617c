// Which dialog answers which facet.
#include "control/application.h"
#include "control/frm_summary.h"
#include "dialogs/columns/frm_items.h"
#include "dialogs/conditions/frm_form_conditions.h"
#include "dialogs/general/frm_other.h"
#include "dialogs/groupby/frm_group_by.h"
#include "dialogs/sort/frm_sort.h"
#include "output/excel/frm_excel.h"
#include "output/preview/frm_preview.h"

namespace vmgv {

void installDialogs(Application& application) {
  application.install<frmSummary>(Facet::Summary, [](frmSummary& form, const OpenRequest& request) {
    form.ShowSummary(request.editor, request.excelVisible);
  });
  application.install<frmSort>(
      Facet::Sort, [](frmSort& form, const OpenRequest& request) { form.ShowSort(request.editor); });
  application.install<frmItems>(
      Facet::Items, [](frmItems& form, const OpenRequest& request) { form.ShowItems(request.editor, true); });
  application.install<frmGroupBy>(
      Facet::Groups, [](frmGroupBy& form, const OpenRequest& request) { form.ShowGroups(request.editor); });
  application.install<frmFormConditions>(
      Facet::Format,
      [](frmFormConditions& form, const OpenRequest& request) { form.ShowConditions(request.editor); });
  application.install<frmPreview>(Facet::Preview, [](frmPreview& form, const OpenRequest& request) {
    form.LLToolbar(request.llToolbar);
    form.PrintPreview(request.editor, request.header, request.onlySelected);
  });
  application.install<frmOther>(
      Facet::General, [](frmOther& form, const OpenRequest& request) { form.ShowSettings(request.editor); });
  application.install<frmExcel>(
      Facet::Excel, [](frmExcel& form, const OpenRequest& request) { form.ShowExcel(request.editor); });
}

}  // namespace vmgv
