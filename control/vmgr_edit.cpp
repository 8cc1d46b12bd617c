#include "control/vmgr_edit.h"

#include "support/automation/convert.h"
#include "support/errors/errors.h"
#include "support/fonts/standard_font.h"

namespace vmgv {
namespace {

constexpr int kSidePixels = 16;

template <bool (vmgrEdit::*Show)()>
Value run(vmgrEdit& control, Args) {
  return (control.*Show)();
}

// What a property that holds an object is given: an object or nothing.
ObjectRef reference(const Value& value) {
  if (const ObjectRef* object = value.as<ObjectRef>()) return *object;
  throw Error(ErrorNumber::ObjectRequired);
}

std::string optionalText(const Args& args, std::size_t i) {
  return args.has(i) ? toText(args[i]) : std::string();
}
bool optionalBoolean(const Args& args, std::size_t i) { return args.has(i) && toBoolean(args[i]); }

}  // namespace

const ClassTable<vmgrEdit>& vmgrEdit::table() {
  static const ClassTable<vmgrEdit> table(
      "vmgrEdit", {
                      {"CurrentCatalog", 0, [](vmgrEdit& c, Args) -> Value { return c.CurrentCatalog(); },
                       [](vmgrEdit& c, Args, const Value& v) { c.setCurrentCatalog(reference(v)); }},
                      {"CurrentView", 0, [](vmgrEdit& c, Args) -> Value { return c.CurrentView(); },
                       [](vmgrEdit& c, Args, const Value& v) { c.setCurrentView(toText(v)); }},
                      {"Grid", 0, [](vmgrEdit& c, Args) -> Value { return c.Grid(); },
                       [](vmgrEdit& c, Args, const Value& v) { c.setGrid(reference(v)); }},
                      {"ShowSummary", 0, run<&vmgrEdit::ShowSummary>},
                      {"ShowSort", 0, run<&vmgrEdit::ShowSort>},
                      {"ShowOther", 0, run<&vmgrEdit::ShowOther>},
                      {"ShowItems", 0, run<&vmgrEdit::ShowItems>},
                      {"ShowGroups", 0, run<&vmgrEdit::ShowGroups>},
                      {"ShowExcel", 0, run<&vmgrEdit::ShowExcel>},
                      {"ShowFormat", 0, run<&vmgrEdit::ShowFormat>},
                      {"Font", 0, [](vmgrEdit& c, Args) -> Value { return c.Font(); },
                       [](vmgrEdit& c, Args, const Value& v) { c.setFont(reference(v)); }},
                      {"ShowPreview", 2,
                       [](vmgrEdit& c, Args args) -> Value {
                         return c.ShowPreview(optionalText(args, 0), optionalBoolean(args, 1));
                       }},
                      {"ShowPreviewX", 3,
                       [](vmgrEdit& c, Args args) -> Value {
                         return c.ShowPreviewX(optionalText(args, 0), optionalBoolean(args, 1),
                                               optionalBoolean(args, 2));
                       }},
                      {"ShowGeneral", 0, run<&vmgrEdit::ShowGeneral>},
                      {"excelVisible", 0, [](vmgrEdit& c, Args) -> Value { return c.excelVisible(); },
                       [](vmgrEdit& c, Args, const Value& v) { c.setExcelVisible(toBoolean(v)); }},
                  });
  return table;
}

vmgrEdit::vmgrEdit(Application& application, ControlSite* site) : application_(application), site_(site) {}

ObjectRef vmgrEdit::ambientFont() {
  ObjectRef font;
  if (site_) skipping([&] { font = site_->ambientFont(); });
  return font ? font : makeObject<StandardFont>();
}

ObjectRef vmgrEdit::Font() {
  if (!font_) font_ = ambientFont();
  return font_;
}

void vmgrEdit::setFont(ObjectRef font) {
  font_ = std::move(font);
  if (site_) skipping([&] { site_->propertyChanged("Font"); });
}

bool vmgrEdit::ShowSummary() { return show(Facet::Summary); }
bool vmgrEdit::ShowSort() { return show(Facet::Sort); }
bool vmgrEdit::ShowOther() { return false; }
bool vmgrEdit::ShowItems() { return show(Facet::Items); }
bool vmgrEdit::ShowGroups() { return show(Facet::Groups); }
bool vmgrEdit::ShowExcel() { return show(Facet::Excel); }
bool vmgrEdit::ShowGeneral() { return show(Facet::General); }

bool vmgrEdit::ShowFormat() {
  application_.open(Facet::Format, {.editor = this});
  return false;
}

bool vmgrEdit::ShowPreview(const std::string& header, bool LLToolbar) {
  return ShowPreviewX(header, LLToolbar, false);
}

bool vmgrEdit::ShowPreviewX(const std::string& header, bool LLToolbar, bool onlySelected) {
  return show(Facet::Preview, {.header = header, .llToolbar = LLToolbar, .onlySelected = onlySelected});
}

bool vmgrEdit::show(Facet facet) { return show(facet, {.excelVisible = excelVisible_}); }

bool vmgrEdit::show(Facet facet, OpenRequest request) {
  request.editor = this;
  skipping([&] { application_.open(facet, request); });
  return false;
}

void vmgrEdit::ReadProperties(PropertyBag& bag) {
  skipping([&] { font_ = reference(bag.read("Font", ambientFont())); });
}

void vmgrEdit::WriteProperties(PropertyBag& bag) {
  skipping([&] { bag.write("Font", Font(), ambientFont()); });
}

void vmgrEdit::Resize() {
  if (!site_) return;
  const Size pixel = site_->pixel();
  skipping([&] { site_->setSize({kSidePixels * pixel.width, kSidePixels * pixel.height}); });
}

}  // namespace vmgv
