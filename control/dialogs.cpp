// Which dialog answers which facet.
#include "control/application.h"
#include "dialogs/sort/frm_sort.h"
#include "output/excel/frm_excel.h"

namespace vmgv {

void installDialogs(Application& application) {
  application.install<frmSort>(
      Facet::Sort, [](frmSort& form, const OpenRequest& request) { form.ShowSort(request.editor); });
  application.install<frmExcel>(
      Facet::Excel, [](frmExcel& form, const OpenRequest& request) { form.ShowExcel(request.editor); });
}

}  // namespace vmgv
