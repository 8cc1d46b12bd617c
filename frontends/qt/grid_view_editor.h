// The editor control as a Qt widget: each of its slots opens a dialog in which the user of a program changes
// how a grid shows its rows, prints them or exports them.
//
//   GridView view;                       // our grid, on any item model
//   view.setModel(&model);
//   GridViewEditor editor;
//   editor.setGridView(&view);
//   connect(sortAction, &QAction::triggered, &editor, &GridViewEditor::showSort);
//
// It has no surface but the dialogs. On a form in Qt Designer it is an icon of 16 x 16 pixels; in a running
// program it is never visible and takes no space in a layout. Of what it is given only its font is kept with
// the form.
//
// An export becomes "BookN.xlsx" in the user's documents and is opened there; where the environment variable
// VMG_WORKBOOK_FOLDER names a folder it goes into that one, and nothing is opened.
#pragma once

#include <QLocale>
#include <QString>
#include <QWidget>
#include <memory>

#include "support/automation/object.h"

class QAbstractItemModel;

namespace vmgv {

class GridEngine;
class GridView;

class GridViewEditor : public QWidget {
  Q_OBJECT
  // Whether the summary offers the export.
  Q_PROPERTY(bool excelVisible READ excelVisible WRITE setExcelVisible DESIGNABLE false STORED false)
  // The host's name for the view that it shows; the editor only keeps it.
  Q_PROPERTY(QString currentView READ currentView WRITE setCurrentView DESIGNABLE false STORED false)

 public:
  explicit GridViewEditor(QWidget* parent = nullptr);
  ~GridViewEditor() override;

  // The language of all texts of the process: Greek, or English for every other language. Greek where no host
  // says.
  static void setLanguage(QLocale::Language language);

  // The grid to edit, the last of these that was set. Without one the dialogs that need a grid do not open.
  void setGridView(GridView* view);  // whatever engine it has from time to time
  void setEngine(std::shared_ptr<GridEngine> engine);
  void setGrid(ObjectRef grid);  // any object with the grid's members
  // Of a model that no GridView shows yet: makes one, which belongs to the editor until a layout takes it.
  GridView* setModel(QAbstractItemModel* model);
  GridView* gridView() const;  // null where the grid is none
  ObjectRef grid() const;

  bool excelVisible() const;
  void setExcelVisible(bool visible);
  QString currentView() const;
  void setCurrentView(const QString& view);
  ObjectRef currentCatalog() const;  // kept for the host, like the name of the view
  void setCurrentCatalog(ObjectRef catalog);

  void setVisible(bool visible) override;  // it is not to be seen, whatever is asked

 public Q_SLOTS:  // NOLINT: Qt reads it
  // Each opens its dialog and returns when the user has closed it. The answer is always false: what the user
  // did is in the grid.
  bool showSummary();
  bool showSort();
  bool showGroups();
  bool showItems();  // columns
  bool showGeneral();
  // Throws Error for what escapes the dialog; where a signal called it, that becomes a message to the user.
  // The other slots never throw.
  bool showFormat();
  bool showExcel();
  bool showPreview();  // of all rows, without a header
  bool showPreviewX(const QString& header = {}, bool llToolbar = false, bool onlySelected = false);
  bool showOther();  // nothing

 private:
  class Private;
  std::unique_ptr<Private> d_;
};

}  // namespace vmgv
