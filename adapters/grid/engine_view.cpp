// The engine's display settings, format conditions, and its view as a whole.
#include <algorithm>
#include <set>
#include <unordered_map>
#include <utility>

#include "adapters/grid/engine.h"
#include "support/automation/convert.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr std::int32_t kKeyInUse = 457;  // of a collection, as automation clients know it

}  // namespace

ConditionHandle GridEngine::addCondition(FormatCondition condition) {
  if (condition.name.empty()) throw Error(ErrorNumber::InvalidCall, "A format condition needs a name");
  for (const auto& other : conditions_) {
    if ((*other)->name != condition.name) continue;
    throw Error(kKeyInUse, "There already is a format condition with the name \"" + condition.name + '"');
  }
  checkedIndex(condition.colIndex);
  conditions_.push_back(std::make_shared<SharedCondition>(std::move(condition)));
  ConditionHandle added = conditions_.back();
  changed(kAppearance);
  return added;
}

void GridEngine::removeCondition(std::string_view name) {
  const auto found = std::find_if(conditions_.begin(), conditions_.end(),
                                  [&](const auto& condition) { return (*condition)->name == name; });
  if (found == conditions_.end()) {
    throw Error(ErrorNumber::SubscriptOutOfRange,
                "Subscript out of range: there is no format condition \"" + std::string(name) + '"');
  }
  conditions_.erase(found);
  changed(kAppearance);
}

void GridEngine::setCondition(const ConditionHandle& condition, FormatCondition changed) {
  if (changed == **condition) return;
  *condition = SharedCondition(std::move(changed));
  this->changed(kAppearance);
}

RowStyles& GridEngine::styles() const {
  if (std::exchange(stylesAreStale_, false)) styles_.follow(settings_, conditions_, columns_, data_);
  return styles_;
}

const RowStyle& GridEngine::styleOf(const DisplayRow& row) const {
  if (row.rowType != kRecordRow) return styles().ofGrid();
  if (row.record >= records_) noRecord(row.record);
  return styles().styleOf(row.record, row.ordinal);
}

RowReasons GridEngine::reasonsOf(const DisplayRow& row) const {
  if (row.rowType != kRecordRow) return {};
  if (row.record >= records_) noRecord(row.record);
  return styles().reasonsOf(row.record);
}

std::vector<GridFont> GridEngine::largestFonts() const {
  GridFont font = settings_.font;
  std::set<std::string> families{font.name};
  for (const auto& condition : conditions_) {
    const FormatStyle& style = (*condition)->style;
    if (style.fontName) families.insert(*style.fontName);
    font.size = std::max(font.size, style.fontSize.value_or(0));
  }
  std::vector<GridFont> fonts;
  for (const std::string& family : families) {
    font.name = family;
    fonts.push_back(font);
  }
  return fonts;
}

RecordSet GridEngine::matchingRecords(std::size_t condition) const {
  return styles().matchingRecords(condition);
}

void GridEngine::settingsChanged() { changed(showFooters() ? kAppearance | kRows : kAppearance); }

void GridEngine::setPreviewColumn(const Value& column) {
  if (isNoPreviewColumn(column)) {
    previewColumn_ = Null{};
  } else {
    columnIndex(column);
    previewColumn_ = plain(column);
  }
  changed(kLayout | kAppearance);
}

std::int32_t GridEngine::previewColumnIndex() const {
  return previewColumn_.isNull() ? 0 : columnIndex(previewColumn_);
}

std::int32_t GridEngine::previewLines() const {
  return previewColumn_.isNull() ? 0 : std::clamp(settings_.previewRowLines, 0, kMostPreviewLines);
}

GridState GridEngine::state() const {
  GridState state;
  for (const std::int32_t index : atPosition_) {
    state.columns.push_back({index, column(index).visible, column(index).width});
  }
  state.sortKeys = sortKeys_;
  state.groups = groups_;
  for (const auto& condition : conditions_) state.conditions.push_back(*condition);
  state.previewColumn = previewColumn_;
  state.settings = settings_;
  state.foreign = foreign_;
  return state;
}

void GridEngine::setState(const GridState& state) {
  std::vector<bool> named(columns_.size());
  for (const GridState::Column& column : state.columns) named[checkedIndex(column.index)] = true;
  if (state.columns.size() != columns_.size() ||
      std::find(named.begin(), named.end(), false) != named.end()) {
    throw Error(ErrorNumber::InvalidCall, "The state of a view must name every column of the grid once");
  }
  checkedKeys(state.sortKeys, "sort key");
  checkedKeys(state.groups, "group");
  for (const SharedCondition& condition : state.conditions) checkedIndex(condition->colIndex);
  if (!isNoPreviewColumn(state.previewColumn)) columnIndex(state.previewColumn);
  show(state);
  if (redraw_) history_.record(this->state());
}

void GridEngine::show(const GridState& state) {
  for (std::size_t i = 0; i < state.columns.size(); ++i) {
    GridColumn& column = editable(state.columns[i].index);
    column.visible = state.columns[i].visible;
    column.width = state.columns[i].width;
    column.colPosition = static_cast<std::int32_t>(i) + 1;
    atPosition_[i] = column.index;
  }
  if (sortKeys_ != state.sortKeys || groups_ != state.groups) stale_ = true;
  sortKeys_ = state.sortKeys;
  groups_ = state.groups;
  // A client's reference to a condition goes on to mean the one of that name.
  std::unordered_map<std::string_view, ConditionHandle> known;
  for (const ConditionHandle& condition : conditions_) known.emplace((*condition)->name, condition);
  std::vector<ConditionHandle> conditions;
  for (const SharedCondition& condition : state.conditions) {
    const auto found = known.find(condition->name);
    conditions.push_back(found != known.end() ? found->second : std::make_shared<SharedCondition>(condition));
  }
  for (std::size_t i = 0; i < conditions.size(); ++i) *conditions[i] = state.conditions[i];
  conditions_ = std::move(conditions);
  previewColumn_ = state.previewColumn;
  settings_ = state.settings;
  foreign_ = state.foreign;
  showFooters();
  tell(kLayout | kRows | kAppearance);
}

void GridEngine::requireRedraw(const char* act) const {
  if (redraw_) return;
  throw Error(ErrorNumber::InvalidCall, std::string("While Redraw is off nothing can be ") + act);
}

void GridEngine::undo() {
  requireRedraw("undone");
  if (!canUndo()) throw Error(ErrorNumber::InvalidCall, "There is no change of the view to undo");
  show(history_.undo());
}

void GridEngine::redo() {
  requireRedraw("redone");
  if (!canRedo()) throw Error(ErrorNumber::InvalidCall, "There is no change of the view to redo");
  show(history_.redo());
}

}  // namespace vmgv
