// The views dialog: the surface of a feature to come. It shows its texts and two empty lists, and acts on
// nothing.
#pragma once

#include "support/frame/dialog.h"

namespace vmgv {

class frmViews final : public Dialog {
 public:
  explicit frmViews(Services& services);

  // Returns when the user closed the dialog by its title bar: its button has no action yet.
  void Show();

 private:
  void setCaptions() override;

  Menu* sMenu_;
  ListBox* lstCatalogs_;
  Label* Label1_;
  ListView* lstViews_;
};

}  // namespace vmgv
