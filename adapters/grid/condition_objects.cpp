#include "adapters/grid/condition_objects.h"

#include <algorithm>

namespace vmgv {
namespace {

std::int16_t checkedOperator(const Value& value) {
  const std::int16_t code = toInteger(value);
  if (code < 0 || code > kLastOperator) {
    throw Error(ErrorNumber::InvalidCall,
                "There is no operator " + std::to_string(code) + "; they are 0 to 9");
  }
  return code;
}

// An omitted operand is Empty.
Value operand(const Value& value) { return value.isMissing() ? Value() : plain(value); }

// What equals the grid's own setting is not set, so that it follows the grid when that changes.
class StyleObject final : public GridPart<StyleObject> {
 public:
  StyleObject(EngineRef engine, ConditionHandle condition)
      : GridPart(std::move(engine)), condition_(std::move(condition)) {}

  static const ClassTable<StyleObject>& table() {
    using S = StyleObject;
    static const ClassTable<S> table(
        "FormatStyle",
        {
            {"BackColor", 0,
             [](S& s, Args) -> Value { return s.style().backColor.value_or(s.grid().backColor); },
             [](S& s, Args, const Value& v) {
               s.set(&FormatStyle::backColor, s.grid().backColor, toLong(v));
             }},
            {"ForeColor", 0,
             [](S& s, Args) -> Value { return s.style().foreColor.value_or(s.grid().foreColor); },
             [](S& s, Args, const Value& v) {
               s.set(&FormatStyle::foreColor, s.grid().foreColor, toLong(v));
             }},
            {"FontName", 0, [](S& s, Args) -> Value { return s.style().fontName.value_or(s.font().name); },
             [](S& s, Args, const Value& v) { s.set(&FormatStyle::fontName, s.font().name, toText(v)); }},
            {"FontSize", 0, [](S& s, Args) -> Value { return s.style().fontSize.value_or(s.font().size); },
             [](S& s, Args, const Value& v) {
               s.set(&FormatStyle::fontSize, s.font().size, checkedFontSize(v));
             }},
            {"FontBold", 0, [](S& s, Args) -> Value { return s.style().fontBold.value_or(s.font().bold); },
             [](S& s, Args, const Value& v) { s.set(&FormatStyle::fontBold, s.font().bold, toBoolean(v)); }},
            {"FontItalic", 0,
             [](S& s, Args) -> Value { return s.style().fontItalic.value_or(s.font().italic); },
             [](S& s, Args, const Value& v) {
               s.set(&FormatStyle::fontItalic, s.font().italic, toBoolean(v));
             }},
            {"FontUnderline", 0,
             [](S& s, Args) -> Value { return s.style().fontUnderline.value_or(s.font().underline); },
             [](S& s, Args, const Value& v) {
               s.set(&FormatStyle::fontUnderline, s.font().underline, toBoolean(v));
             }},
            {"FontStrikethru", 0,
             [](S& s, Args) -> Value { return s.style().fontStrikethru.value_or(s.font().strikethrough); },
             [](S& s, Args, const Value& v) {
               s.set(&FormatStyle::fontStrikethru, s.font().strikethrough, toBoolean(v));
             }},
        });
    return table;
  }

 private:
  const FormatStyle& style() const { return (*condition_)->style; }
  const GridSettings& grid() const { return engine_->settings(); }
  const GridFont& font() const { return engine_->settings().font; }
  template <class T>
  void set(std::optional<T> FormatStyle::*member, const T& ofGrid, T value) {
    engine_->changeCondition(condition_, [&](FormatCondition& condition) {
      auto& own = condition.style.*member;
      own = value == ofGrid ? std::nullopt : std::optional<T>(std::move(value));
    });
  }

  ConditionHandle condition_;
};

class ConditionObject final : public GridPart<ConditionObject> {
 public:
  ConditionObject(EngineRef engine, ConditionHandle condition)
      : GridPart(std::move(engine)), condition_(std::move(condition)) {}

  static const ClassTable<ConditionObject>& table() {
    using C = ConditionObject;
    static const ClassTable<C> table(
        "FmtCondition",
        {
            {"Name", 0, [](C& c, Args) -> Value { return c.now().name; }},
            {"ColIndex", 0, [](C& c, Args) -> Value { return c.now().colIndex; },
             [](C& c, Args, const Value& v) {
               c.set(&FormatCondition::colIndex, c.engine_->column(toLong(v)).index);
             }},
            {"Operator", 0, [](C& c, Args) -> Value { return c.now().op; },
             [](C& c, Args, const Value& v) { c.set(&FormatCondition::op, checkedOperator(v)); }},
            {"Value1", 0, [](C& c, Args) { return c.now().value1; },
             [](C& c, Args, const Value& v) { c.set(&FormatCondition::value1, operand(v)); }},
            {"Value2", 0, [](C& c, Args) { return c.now().value2; },
             [](C& c, Args, const Value& v) { c.set(&FormatCondition::value2, operand(v)); }},
            {"FormatStyle", 0,
             [](C& c, Args) -> Value { return makeObject<StyleObject>(c.engine_, c.condition_); }},
        });
    return table;
  }

 private:
  const FormatCondition& now() const { return **condition_; }
  template <class T>
  void set(T FormatCondition::*member, T value) {
    engine_->changeCondition(condition_,
                             [&](FormatCondition& condition) { condition.*member = std::move(value); });
  }

  ConditionHandle condition_;
};

class ConditionsObject final : public GridPart<ConditionsObject> {
 public:
  using GridPart::GridPart;
  static const ClassTable<ConditionsObject>& table() {
    using C = ConditionsObject;
    static const ClassTable<C> table(
        "FmtConditions",
        {
            {"Count", 0, [](C& c, Args) { return countOf(c.all().size()); }},
            {"Item", 1, [](C& c, Args args) { return c.item(args[0]); }},
            {"Add", 5, [](C& c, Args args) { return c.add(args); }},
            {"Remove", 1,
             [](C& c, Args args) -> Value { return c.engine_->removeCondition(toText(args[0])), Value(); }},
        },
        "Item");
    return table;
  }
  std::unique_ptr<Enumeration> enumerate() override { return std::make_unique<ItemEnumeration>(this); }

 private:
  const std::vector<ConditionHandle>& all() const { return engine_->conditions(); }
  Value item(const Value& key) const {
    const Value wanted = plain(key);
    if (!wanted.isText()) {
      return makeObject<ConditionObject>(engine_, all()[placeOf(wanted, all().size(), "FmtConditions")]);
    }
    const auto found = std::find_if(all().begin(), all().end(),
                                    [&](const ConditionHandle& c) { return (*c)->name == wanted.text(); });
    if (found != all().end()) return makeObject<ConditionObject>(engine_, *found);
    throw Error(ErrorNumber::SubscriptOutOfRange,
                "Subscript out of range: there is no format condition \"" + wanted.text() + '"');
  }
  // Column, operator, first and second value, name; all but the first and last may be left out.
  Value add(Args args) {
    FormatCondition condition;
    condition.colIndex = toLong(args[0]);
    if (args.has(1)) condition.op = checkedOperator(args[1]);
    condition.value1 = operand(args[2]);
    condition.value2 = operand(args[3]);
    if (args.has(4)) condition.name = toText(args[4]);
    return makeObject<ConditionObject>(engine_, engine_->addCondition(std::move(condition)));
  }
};

}  // namespace

ObjectRef makeFmtConditionsObject(EngineRef engine) {
  return makeObject<ConditionsObject>(std::move(engine));
}

}  // namespace vmgv
