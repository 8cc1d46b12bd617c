// unlisted_dialogs en|el: opens the dialogs that no method of the control opens, one after the other.
#include <QApplication>

#include "control/application.h"
#include "frontends/qt/qt_desktop.h"
#include "views/frm_insert.h"
#include "views/frm_views.h"

int main(int count, char** arguments) {
  QApplication program(count, arguments);
  vmgv::QtDesktop desktop;
  vmgv::EmbeddedStringService texts;
  texts.setLanguage(QApplication::arguments().value(1) == QLatin1String("en") ? vmgv::kEnglish
                                                                              : vmgv::kGreek);
  vmgv::Application application(desktop, desktop, texts);
  vmgv::frmInsert(application.services()).Insert();
  vmgv::frmViews(application.services()).Show();  // acts on nothing: only its title bar closes it
}
