// load_plugin FILE: whether Qt loads it as a widget for Designer.
#include <QtCore/QJsonObject>
#include <QtCore/QPluginLoader>
#include <cstdio>

int main(int, char** arguments) {
  QPluginLoader plugin(arguments[1]);
  const bool loaded = plugin.instance() != nullptr;
  if (!loaded) std::puts(qPrintable(plugin.errorString()));
  return loaded && plugin.metaData().value("IID").toString().contains("CustomWidget") ? 0 : 1;
}
