// The plugin as Qt Designer and loaders of forms meet it: a file in a folder.
#include <gtest/gtest.h>

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QIcon>
#include <QLayout>
#include <QPluginLoader>
#include <QUiLoader>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <memory>

#include "frontends/qt/grid_view_editor.h"

namespace {

QString folder;

constexpr char kForm[] = R"(<ui version="4.0">
 <widget class="QWidget" name="form">
  <layout class="QVBoxLayout" name="column">
   <property name="spacing"><number>40</number></property>
   <item><widget class="QLabel" name="label"/></item>
   <item><widget class="vmgv::GridViewEditor" name="editor">
    <property name="font"><font><pointsize>17</pointsize></font></property>
   </widget></item>
  </layout>
 </widget>
</ui>)";

TEST(DesignerPlugin, MakesTheEditorOfAFormWhichTakesNoSpace) {
  QUiLoader loader;
  loader.addPluginPath(folder);
  QByteArray text(kForm);
  QBuffer file(&text);
  const std::unique_ptr<QWidget> form(loader.load(&file));
  ASSERT_TRUE(form) << loader.errorString().toStdString();
  auto* editor = form->findChild<vmgv::GridViewEditor*>(QStringLiteral("editor"));
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->font().pointSize(), 17);

  const int height = form->sizeHint().height();
  form->show();
  editor->show();
  EXPECT_FALSE(editor->isVisible());
  delete editor;
  EXPECT_EQ(form->sizeHint().height(), height);
}

TEST(DesignerPlugin, ShowsAnIconInDesigner) {
  QPluginLoader loader(QDir(folder).filePath(QStringLiteral("libvmGridViewsDesigner.so")));
  auto* plugin = qobject_cast<QDesignerCustomWidgetInterface*>(loader.instance());
  ASSERT_TRUE(plugin) << loader.errorString().toStdString();
  plugin->initialize(nullptr);

  QWidget form;
  form.resize(100, 100);
  QWidget* editor = plugin->createWidget(&form);
  editor->resize(50, 50);
  form.show();
  EXPECT_TRUE(editor->isVisible());
  EXPECT_EQ(editor->size(), QSize(16, 16));
  QImage seen = editor->grab().toImage();
  const QRgb background = form.grab().toImage().pixel(60, 60);
  EXPECT_EQ(seen.pixel(0, 15), background) << "around the picture";
  EXPECT_NE(seen.pixel(4, 3), background) << "in the picture";
  EXPECT_FALSE(plugin->icon().isNull());
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  folder = QString::fromLocal8Bit(argv[1]);
  return RUN_ALL_TESTS();
}
