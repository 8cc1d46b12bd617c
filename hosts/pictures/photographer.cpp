#include "hosts/pictures/photographer.h"

#include <cstdio>
#include <filesystem>

#include "adapters/grid/csv_source.h"
#include "adapters/grid/grid_object.h"
#include "control/vmgr_edit.h"
#include "support/text/utf8.h"
#include "views/frm_insert.h"
#include "views/frm_views.h"

namespace vmgv {
namespace {

void showPreview(const ObjectRef& control, bool ownToolbar) {
  control.call("ShowPreviewX", "Bird strikes", ownToolbar);
}

constexpr struct {
  const char* name = "";
  void (*show)(Application&, const ObjectRef& control) = nullptr;
  const char* click = nullptr;  // before the picture
} kDialogs[] = {
    {"summary", [](Application&, const ObjectRef& control) { control.call("ShowSummary"); }},
    {"columns", [](Application&, const ObjectRef& control) { control.call("ShowItems"); }},
    {"sort", [](Application&, const ObjectRef& control) { control.call("ShowSort"); }},
    {"groupby", [](Application&, const ObjectRef& control) { control.call("ShowGroups"); }},
    {"general", [](Application&, const ObjectRef& control) { control.call("ShowGeneral"); }},
    {"conditions", [](Application&, const ObjectRef& control) { control.call("ShowFormat"); }},
    {"export", [](Application&, const ObjectRef& control) { control.call("ShowExcel"); }},
    {"preview", [](Application&, const ObjectRef& control) { showPreview(control, false); }},
    {"preview-two", [](Application&, const ObjectRef& control) { showPreview(control, true); },
     "smuToolbar.zoomout"},
    {"preview-zoomed", [](Application&, const ObjectRef& control) { showPreview(control, true); },
     "smuToolbar.zoomin"},
    {"views", [](Application& application, const ObjectRef&) { frmViews(application.services()).Show(); }},
    {"name", [](Application& application, const ObjectRef&) { frmInsert(application.services()).Insert(); }},
};

// Texts that are longer by a fifth: what does not fit them has no room to spare.
class LongerTexts final : public EmbeddedStringService {
 public:
  std::string GetString(std::string_view application, std::string_view key) const override {
    std::string text = EmbeddedStringService::GetString(application, key);
    for (auto more = (countCharacters(text) + 4) / 5; more > 0; --more) text += "ω";
    return text;
  }
};

// Takes the picture of what is open, once it clicked what is to be clicked, then closes it.
class Photographer final : public IdleHandler {
 public:
  Photographer(User& user, const char* click, std::string path)
      : user_(user), click_(click), path_(std::move(path)) {
    user_.setIdleHandler(this);
  }
  ~Photographer() override { user_.setIdleHandler(nullptr); }
  bool waiting() override {
    if (const char* click = std::exchange(click_, nullptr)) {
      user_.click(*user_.form()->find(click));
      return true;
    }
    if (!taken_) user_.picture(path_);
    taken_ = true;
    return false;
  }
  void yielding() override {}
  bool taken() const { return taken_; }

 private:
  User& user_;
  const char* click_;
  std::string path_;
  bool taken_ = false;
};

void photograph(const Studio& studio, MlStringService& texts, const ObjectRef& grid,
                const std::string& folder, const std::string& end) {
  Application application(studio.window, studio.system, texts);
  const ObjectRef control = makeObject<vmgrEdit>(application);
  control.putRef("Grid", grid);
  for (const auto& dialog : kDialogs) {
    const std::string path = std::string(folder).append("/").append(dialog.name).append(end);
    const Photographer photographer(studio.user, dialog.click, path);
    dialog.show(application, control);
    if (!photographer.taken())
      throw Error(ErrorNumber::InvalidCall, std::string(dialog.name) + ": nothing opened");
    std::printf("%s\n", path.c_str());
  }
}

ObjectRef demoGrid(const std::string& path, PrintPort& printing) {
  auto engine = std::make_shared<GridEngine>();
  CsvSource source(path);
  engine->load(source);
  engine->setPrintPort(&printing);
  engine->addSortKey({3, kSortAscending});
  engine->addSortKey({5, kSortDescending});
  engine->setPreviewColumn(10);
  for (const std::int32_t hidden : {1, 4, 7, 10}) engine->setVisible(hidden, false);
  FormatCondition costly{"Cost from 100,000", 14, 4, "100000", {}, {}};
  costly.style = {.backColor = 0xC8E6FF, .foreColor = 0x1432B4, .fontSize = 10, .fontBold = true};
  engine->addCondition(costly);
  engine->addCondition({"Σμήνη γλάρων", 10, 8, "gull", {}, {.backColor = 0xD2F0D2}});
  engine->addCondition({"No damage", 4, 0, "None", {}, {.fontItalic = true}});
  return makeGridObject(engine);
}

}  // namespace

void photographAll(const Studio& studio, const Album& album) {
  std::filesystem::create_directories(album.folder);
  const ObjectRef grid = demoGrid(album.data, studio.printing);
  EmbeddedStringService english, greek;
  LongerTexts longer;
  english.setLanguage(kEnglish);
  greek.setLanguage(kGreek);
  longer.setLanguage(kGreek);
  const std::string end = (album.suffix.empty() ? "" : "." + album.suffix) + ".png";
  photograph(studio, english, grid, album.folder, ".en" + end);
  photograph(studio, greek, grid, album.folder, ".el" + end);
  photograph(studio, longer, grid, album.folder, ".el-120" + end);
}

}  // namespace vmgv
