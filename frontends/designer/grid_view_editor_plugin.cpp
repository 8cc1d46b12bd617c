#include "frontends/designer/grid_view_editor_plugin.h"

#include <QBitmap>
#include <QIcon>
#include <QPainter>

#include "frontends/qt/grid_view_editor.h"

namespace vmgv {
namespace {

constexpr int kSide = 16;  // pixels

QPixmap picture() {
  QPixmap picture(QStringLiteral(":/vmGridViews/toolbox.bmp"));
  // As in toolboxes elsewhere, the lower left pixel has the colour of the background.
  picture.setMask(picture.createMaskFromColor(picture.toImage().pixelColor(0, kSide - 1)));
  return picture;
}

class EditorOnForm final : public GridViewEditor {
 public:
  explicit EditorOnForm(QWidget* parent) : GridViewEditor(parent) {
    setFixedSize(kSide, kSide);
    if (parent) setVisible(true);
  }

  void setVisible(bool visible) override { QWidget::setVisible(visible); }  // NOLINT: which its base refuses

 protected:
  void paintEvent(QPaintEvent*) override { QPainter(this).drawPixmap(0, 0, picture()); }
};

}  // namespace

QString GridViewEditorPlugin::name() const { return QStringLiteral("vmgv::GridViewEditor"); }

QString GridViewEditorPlugin::group() const { return QStringLiteral("Item Views (Model-Based)"); }

QString GridViewEditorPlugin::toolTip() const {
  return QStringLiteral("Lets the user sort, group, colour, print and export the rows of a grid");
}

QString GridViewEditorPlugin::whatsThis() const { return {}; }

QString GridViewEditorPlugin::includeFile() const { return QStringLiteral("<vmGridViews/GridViewEditor>"); }

QString GridViewEditorPlugin::domXml() const {
  return QStringLiteral(
      "<ui language=\"c++\" displayname=\"Grid View Editor\">"
      "<widget class=\"vmgv::GridViewEditor\" name=\"gridViewEditor\"/>"
      "</ui>");
}

QIcon GridViewEditorPlugin::icon() const { return picture(); }

QWidget* GridViewEditorPlugin::createWidget(QWidget* parent) {
  if (designing_) return new EditorOnForm(parent);
  return new GridViewEditor(parent);
}

}  // namespace vmgv
