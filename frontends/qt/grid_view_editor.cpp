#include "frontends/qt/grid_view_editor.h"

#include <QPointer>
#include <utility>

#include "adapters/grid/grid_object.h"
#include "control/vmgr_edit.h"
#include "frontends/qt/grid_view.h"
#include "frontends/qt/shared_desktop.h"
#include "frontends/qt/units.h"

namespace vmgv {

class GridViewEditor::Private {
 public:
  Private() = default;
  Private(const Private&) = delete;
  Private& operator=(const Private&) = delete;
  ~Private() {
    setEngine(nullptr);
    if (ownView && !ownView->parent()) delete ownView;
  }

  void setGrid(ObjectRef grid) {
    setEngine(nullptr);
    control->setGrid(std::move(grid));
  }
  void setEngine(std::shared_ptr<GridEngine> next) {
    view = nullptr;
    takeEngine(std::move(next));
  }
  void setView(GridView* next) {
    takeEngine(next ? next->engine() : nullptr);
    view = next;
  }
  void followView() {
    if (view) takeEngine(view->engine());
  }

  // Opens a dialog over the window of the editor, or of the grid where the editor is in none. Afterwards
  // nothing of the editor is touched: the user's act may have deleted it.
  template <class Show>
  bool open(const QWidget& editor, Show show) {
    followView();
    if (engine && !engine->printPort()) engine->setPrintPort(&shared->printing);
    const QWidget* place = &editor;
    if (view && !editor.parentWidget()) place = view;
    shared->desktop.setMainWindow(place->window());

    const std::shared_ptr<SharedDesktop> sharedMeanwhile = shared;
    const ObjectRef controlMeanwhile = control;
    show(sharedMeanwhile->desktop, *control);
    return false;
  }
  template <bool (vmgrEdit::*method)()>
  bool open(const QWidget& editor) {
    return open(editor,
                [](QtDesktop& desktop, vmgrEdit& opener) { desktop.run([&opener] { (opener.*method)(); }); });
  }

  const std::shared_ptr<SharedDesktop> shared = SharedDesktop::get();
  vmgrEdit* const control = new vmgrEdit(shared->application);
  const ObjectRef controlKept{control};
  QPointer<GridView> view;             // whose engine is the grid
  QPointer<GridView> ownView;          // of a model
  std::shared_ptr<GridEngine> engine;  // of the grid, where it is ours

 private:
  void takeEngine(std::shared_ptr<GridEngine> next) {
    if (next && next == engine) return;
    if (engine && engine->printPort() == &shared->printing) engine->setPrintPort(nullptr);
    engine = std::move(next);
    if (engine) {
      control->setGrid(makeGridObject(engine));
    } else {
      control->setGrid(nullptr);
    }
  }
};

GridViewEditor::GridViewEditor(QWidget* parent) : QWidget(parent), d_(std::make_unique<Private>()) {
  QWidget::setVisible(false);
}

GridViewEditor::~GridViewEditor() = default;

void GridViewEditor::setVisible(bool) { QWidget::setVisible(false); }

void GridViewEditor::setLanguage(QLocale::Language language) {
  processStringService().setLanguage(language == QLocale::Greek ? kGreek : kEnglish);
}

void GridViewEditor::setGridView(GridView* view) { d_->setView(view); }

void GridViewEditor::setEngine(std::shared_ptr<GridEngine> engine) { d_->setEngine(std::move(engine)); }

void GridViewEditor::setGrid(ObjectRef grid) { d_->setGrid(std::move(grid)); }

GridView* GridViewEditor::setModel(QAbstractItemModel* model) {
  if (!d_->ownView) d_->ownView = new GridView;
  d_->ownView->setModel(model);
  d_->setView(d_->ownView);
  return d_->ownView;
}

GridView* GridViewEditor::gridView() const { return d_->view; }

ObjectRef GridViewEditor::grid() const {
  d_->followView();
  return d_->control->Grid();
}

bool GridViewEditor::excelVisible() const { return d_->control->excelVisible(); }

void GridViewEditor::setExcelVisible(bool visible) { d_->control->setExcelVisible(visible); }

QString GridViewEditor::currentView() const { return qt(d_->control->CurrentView()); }

void GridViewEditor::setCurrentView(const QString& view) { d_->control->setCurrentView(utf8(view)); }

ObjectRef GridViewEditor::currentCatalog() const { return d_->control->CurrentCatalog(); }

void GridViewEditor::setCurrentCatalog(ObjectRef catalog) {
  d_->control->setCurrentCatalog(std::move(catalog));
}

bool GridViewEditor::showSummary() { return d_->open<&vmgrEdit::ShowSummary>(*this); }

bool GridViewEditor::showSort() { return d_->open<&vmgrEdit::ShowSort>(*this); }

bool GridViewEditor::showGroups() { return d_->open<&vmgrEdit::ShowGroups>(*this); }

bool GridViewEditor::showItems() { return d_->open<&vmgrEdit::ShowItems>(*this); }

bool GridViewEditor::showGeneral() { return d_->open<&vmgrEdit::ShowGeneral>(*this); }

bool GridViewEditor::showExcel() { return d_->open<&vmgrEdit::ShowExcel>(*this); }

bool GridViewEditor::showOther() { return d_->open<&vmgrEdit::ShowOther>(*this); }

bool GridViewEditor::showFormat() {
  if (sender()) return d_->open<&vmgrEdit::ShowFormat>(*this);
  return d_->open(*this, [](QtDesktop&, vmgrEdit& opener) { opener.ShowFormat(); });
}

bool GridViewEditor::showPreview() { return showPreviewX(); }

bool GridViewEditor::showPreviewX(const QString& header, bool llToolbar, bool onlySelected) {
  return d_->open(*this, [&](QtDesktop& desktop, vmgrEdit& opener) {
    desktop.run([&] { opener.ShowPreviewX(utf8(header), llToolbar, onlySelected); });
  });
}

}  // namespace vmgv
