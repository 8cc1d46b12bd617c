#include "adapters/grid/grid_object.h"

#include "adapters/grid/column_objects.h"
#include "adapters/grid/condition_objects.h"
#include "adapters/grid/grid_part.h"
#include "adapters/grid/key_objects.h"
#include "adapters/grid/pages/grid_pages.h"
#include "adapters/grid/row_objects.h"
#include "adapters/grid/setting_objects.h"
#include "support/pages/page_objects.h"

namespace vmgv {
namespace {

class GridObject final : public GridPart<GridObject> {
 public:
  explicit GridObject(EngineRef engine)
      : GridPart(std::move(engine)),
        columns_(makeObject<ColumnsObject>(engine_)),
        sortKeys_(makeSortKeysObject(engine_)),
        groups_(makeGroupsObject(engine_)),
        conditions_(makeFmtConditionsObject(engine_)) {}

  static const ClassTable<GridObject>& table();
  std::shared_ptr<void> listen(EventSink& sink) override { return events_->connect(sink); }

 private:
  const GridSettings& settings() const { return engine_->settings(); }
  template <class T>
  void set(T GridSettings::*member, T value) {
    engine_->changeSettings([&](GridSettings& settings) { settings.*member = std::move(value); });
  }
  // Walking a million rows should not make a million objects: one that nobody else holds serves again.
  Value rowData(std::int32_t position) {
    const DisplayRow row = engine_->displayRow(position);
    if (row_ && row_.get()->references() == 1) {
      static_cast<RowObject&>(*row_).show(row);
    } else {
      row_ = makeObject<RowObject>(engine_, row);
    }
    engine_->prefetchRow(position + 1);  // most walks go down
    return row_;
  }
  void printPreview(const ObjectRef& preview, bool onlySelected) {
    auto pages = std::make_shared<GridPages>(engine_, events_, onlySelected);
    previewed_ = pages;
    preview.call("ShowPages", objectOf(std::move(pages)));
  }
  // What is seen in a preview is what comes out of the printer, the selected rows or all.
  void printGrid(bool showDialog) {
    std::shared_ptr<GridPages> pages = previewed_.lock();
    if (!pages) pages = std::make_shared<GridPages>(engine_, events_, false);
    pages->print(showDialog);
  }

  ObjectRef columns_, sortKeys_, groups_, conditions_;
  ObjectRef row_;  // a RowObject
  std::shared_ptr<EventSource> events_ = std::make_shared<EventSource>();
  std::weak_ptr<GridPages> previewed_;  // while a preview has them
};

const ClassTable<GridObject>& GridObject::table() {
  using G = GridObject;
  static const ClassTable<G> table(
      "Grid",
      {
          {"Columns", 0, [](G& g, Args) -> Value { return g.columns_; }},
          {"SortKeys", 0, [](G& g, Args) -> Value { return g.sortKeys_; }},
          {"Groups", 0, [](G& g, Args) -> Value { return g.groups_; }},
          {"FmtConditions", 0, [](G& g, Args) -> Value { return g.conditions_; }},
          {"PreviewColumn", 0, [](G& g, Args) { return g.engine_->previewColumn(); },
           [](G& g, Args, const Value& v) { g.engine_->setPreviewColumn(v); }},
          {"PreviewRowLines", 0, [](G& g, Args) -> Value { return g.settings().previewRowLines; },
           [](G& g, Args, const Value& v) { g.set(&GridSettings::previewRowLines, toLong(v)); }},
          {"UseEvenOddColor", 0, [](G& g, Args) -> Value { return g.settings().useEvenOddColor; },
           [](G& g, Args, const Value& v) { g.set(&GridSettings::useEvenOddColor, toBoolean(v)); }},
          {"ColumnAutoResize", 0, [](G& g, Args) -> Value { return g.settings().columnAutoResize; },
           [](G& g, Args, const Value& v) { g.set(&GridSettings::columnAutoResize, toBoolean(v)); }},
          {"GroupByBoxVisible", 0, [](G& g, Args) -> Value { return g.settings().groupByBoxVisible; },
           [](G& g, Args, const Value& v) { g.set(&GridSettings::groupByBoxVisible, toBoolean(v)); }},
          {"GroupByBoxInfoText", 0, [](G& g, Args) -> Value { return g.settings().groupByBoxInfoText; },
           [](G& g, Args, const Value& v) { g.set(&GridSettings::groupByBoxInfoText, toText(v)); }},
          {"GroupFooterStyle", 0, [](G& g, Args) -> Value { return g.settings().groupFooterStyle; },
           [](G& g, Args, const Value& v) { g.set(&GridSettings::groupFooterStyle, toInteger(v)); }},
          {"BackColor", 0, [](G& g, Args) -> Value { return g.settings().backColor; },
           [](G& g, Args, const Value& v) { g.set(&GridSettings::backColor, toLong(v)); }},
          {"ForeColor", 0, [](G& g, Args) -> Value { return g.settings().foreColor; },
           [](G& g, Args, const Value& v) { g.set(&GridSettings::foreColor, toLong(v)); }},
          {"Font", 0, [](G& g, Args) -> Value { return makeFontObject(g.engine_); }},
          {"Redraw", 0, [](G& g, Args) -> Value { return g.engine_->redraw(); },
           [](G& g, Args, const Value& v) { g.engine_->setRedraw(toBoolean(v)); }},
          {"Refresh", 0, [](G& g, Args) -> Value { return g.engine_->appearanceChanged(), Value(); }},
          {"RefreshGroups", 1,
           [](G& g, Args args) -> Value {
             return g.engine_->refreshGroups(args.has(0) && toBoolean(args[0])), Value();
           }},
          {"ExpandAll", 0, [](G& g, Args) -> Value { return g.engine_->expandAll(), Value(); }},
          {"SetExpanded", 2,
           [](G& g, Args args) -> Value {
             return g.engine_->setExpanded(toLong(args[0]), toBoolean(args[1])), Value();
           }},
          {"CanUndo", 0, [](G& g, Args) -> Value { return g.engine_->canUndo(); }},
          {"CanRedo", 0, [](G& g, Args) -> Value { return g.engine_->canRedo(); }},
          {"Undo", 0, [](G& g, Args) -> Value { return g.engine_->undo(), Value(); }},
          {"Redo", 0, [](G& g, Args) -> Value { return g.engine_->redo(), Value(); }},
          {"MultiSelect", 0, [](G& g, Args) -> Value { return g.engine_->multiSelect(); },
           [](G& g, Args, const Value& v) { g.engine_->setMultiSelect(toBoolean(v)); }},
          {"SelectedItems", 0, [](G& g, Args) -> Value { return makeSelectedItemsObject(g.engine_); }},
          {"RowCount", 0, [](G& g, Args) -> Value { return g.engine_->rowCount(); }},
          {"GetRowData", 1, [](G& g, Args args) { return g.rowData(toLong(args[0])); }},
          {"PrinterProperties", 0, [](G& g, Args) -> Value { return makePrinterObject(g.engine_); }},
          {"PrintPreview", 2,
           [](G& g, Args args) -> Value {
             return g.printPreview(args[0].object(), args.has(1) && toBoolean(args[1])), Value();
           }},
          {"PrintGrid", 1,
           [](G& g, Args args) -> Value { return g.printGrid(args.has(0) && toBoolean(args[0])), Value(); }},
      });
  return table;
}

}  // namespace

ObjectRef makeGridObject(std::shared_ptr<GridEngine> engine) {
  return makeObject<GridObject>(std::move(engine));
}

}  // namespace vmgv
