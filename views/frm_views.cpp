#include "views/frm_views.h"

namespace vmgv {

using layout::column;
using layout::item;
using layout::row;

frmViews::frmViews(Services& services) : Dialog(services, "frmViews", {}) {
  sMenu_ = &form_.add<Menu>("sMenu");
  lstCatalogs_ = &form_.add<ListBox>("lstCatalogs");
  Label1_ = &form_.add<Label>("Label1");
  lstViews_ = &form_.add<ListView>("lstViews");
  cmdCancel_ = &form_.add<CommandButton>("cmdCancel");
  Label1_->buddy = lstViews_;
  lstCatalogs_->columns = 16;
  lstViews_->columns = 32;
  layout::Node captions = row({layout::Node(), item(*Label1_)});
  layout::Node lists = row({item(*lstCatalogs_).filled(), item(*lstViews_).filled()});
  form_.content = column(
      {item(*sMenu_), layout::table({std::move(captions), std::move(lists)}), layout::buttons({cmdCancel_})});
}

void frmViews::Show() {
  load();
  showModal();
}

void frmViews::setCaptions() {
  caption(form_, Text::ImportViews);
  caption(*cmdCancel_, Text::Close);
  caption(*Label1_, Text::AvailableViews);
  lstCatalogs_->setAccessibleName(form_.caption());
  lstViews_->setHeader(text(Text::Views));
  lstViews_->setAccessibleName(Label1_->caption());
  caption(*sMenu_, Text::Edit);
  sMenu_->setItems({{"ID_Insert", text(Text::Insert)},
                    {"ID_Save", text(Text::Save)},
                    {"ID_SaveAs", text(Text::SaveAs)},
                    {"ID_Delete", text(Text::Delete)}});
}

}  // namespace vmgv
