// pictures DATA.csv FOLDER [SUFFIX] [--dark]: a picture of every dialog in English, in Greek, and in Greek
// that is a fifth longer than it is, as FOLDER/NAME.LANGUAGE[.SUFFIX].png.
#include <QApplication>
#include <QPalette>
#include <QStyleFactory>
#include <cstdio>
#include <filesystem>

#include "adapters/grid/csv_source.h"
#include "adapters/grid/grid_object.h"
#include "control/vmgr_edit.h"
#include "frontends/qt/qt_desktop.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

constexpr struct {
  const char* name;
  const char* method;
} kDialogs[] = {{"sort", "ShowSort"}, {"export", "ShowExcel"}};

// Texts that are longer by a fifth: what does not fit them has no room to spare.
class LongerTexts final : public EmbeddedStringService {
 public:
  std::string GetString(std::string_view application, std::string_view key) const override {
    std::string text = EmbeddedStringService::GetString(application, key);
    for (auto more = (countCharacters(text) + 4) / 5; more > 0; --more) text += "ω";
    return text;
  }
};

// Takes the picture of what is open, then closes it.
class Photographer final : public IdleHandler {
 public:
  Photographer(QtDesktop& desktop, std::string path) : desktop_(desktop), path_(std::move(path)) {
    desktop_.setIdleHandler(this);
  }
  ~Photographer() override { desktop_.setIdleHandler(nullptr); }
  bool waiting() override {
    if (!taken_) desktop_.picture(path_);
    taken_ = true;
    return false;
  }
  void yielding() override {}
  bool taken() const { return taken_; }

 private:
  QtDesktop& desktop_;
  std::string path_;
  bool taken_ = false;
};

QPalette darkPalette() {
  QPalette dark(QColor(53, 53, 53));
  dark.setColor(QPalette::Base, QColor(35, 35, 35));
  dark.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
  dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    dark.setColor(QPalette::Disabled, role, QColor(130, 130, 130));
  }
  return dark;
}

void photograph(MlStringService& texts, const ObjectRef& grid, const std::string& folder,
                const std::string& end) {
  QtDesktop desktop;
  Application application(desktop, desktop, texts);
  const ObjectRef control = makeObject<vmgrEdit>(application);
  control.putRef("Grid", grid);
  for (const auto& dialog : kDialogs) {
    const std::string path = (std::filesystem::path(folder) / dialog.name).string() + end;
    const Photographer photographer(desktop, path);
    control.call(dialog.method);
    if (!photographer.taken())
      throw Error(ErrorNumber::InvalidCall, std::string(dialog.method) + " opened nothing");
    std::printf("%s\n", path.c_str());
  }
}

ObjectRef demoGrid(const char* path) {
  auto engine = std::make_shared<GridEngine>();
  CsvSource source(path);
  engine->load(source);
  engine->addSortKey({3, kSortAscending});
  engine->addSortKey({5, kSortDescending});
  engine->setPreviewColumn(10);
  return makeGridObject(engine);
}

void photographAll(const char* data, const std::string& folder, const std::string& suffix) {
  std::filesystem::create_directories(folder);
  const ObjectRef grid = demoGrid(data);
  EmbeddedStringService english, greek;
  LongerTexts longer;
  english.setLanguage(kEnglish);
  greek.setLanguage(kGreek);
  longer.setLanguage(kGreek);
  const std::string end = (suffix.empty() ? "" : "." + suffix) + ".png";
  photograph(english, grid, folder, ".en" + end);
  photograph(greek, grid, folder, ".el" + end);
  photograph(longer, grid, folder, ".el-120" + end);
}

}  // namespace
}  // namespace vmgv

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  QStringList words = QApplication::arguments().mid(1);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  if (words.removeAll("--dark") > 0) QApplication::setPalette(vmgv::darkPalette());
  if (words.size() < 2 || words.size() > 3) {
    std::fprintf(stderr, "usage: pictures DATA.csv FOLDER [SUFFIX] [--dark]\n");
    return 2;
  }
  QApplication::setFont(QFont("DejaVu Sans", 9));  // the same picture on every machine
  try {
    vmgv::photographAll(qPrintable(words[0]), words[1].toStdString(), words.value(2).toStdString());
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "pictures: %s\n", error.what());
    return 1;
  }
}
