// GridViewEditor in Qt Designer's box of widgets, and in the forms that are loaded while a program runs.
#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace vmgv {

class GridViewEditorPlugin final : public QObject, public QDesignerCustomWidgetInterface {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QDesignerCustomWidgetInterface_iid)
  Q_INTERFACES(QDesignerCustomWidgetInterface)

 public:
  QString name() const override;
  QString group() const override;
  QString toolTip() const override;
  QString whatsThis() const override;
  QString includeFile() const override;
  QString domXml() const override;
  QIcon icon() const override;
  bool isContainer() const override { return false; }

  // Designer calls it, a loader of forms does not: widgets made afterwards show themselves as an icon.
  void initialize(QDesignerFormEditorInterface*) override { designing_ = true; }
  bool isInitialized() const override { return designing_; }
  QWidget* createWidget(QWidget* parent) override;

 private:
  bool designing_ = false;
};

}  // namespace vmgv
